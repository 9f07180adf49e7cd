#include "support/test.h"

namespace {

/// The value that a look-up finds, as text; the result's number when it finds none.
std::string found(KOVAOptions const& options, char const* name) {
    KOVAOption* option = nullptr;
    KOVIResult const result = options.GetOption(name, option);
    if (result.IsFailure()) return std::to_string(result.GetNumber());
    KOVAString value;
    option->GetValue(value);
    return test::text(value);
}

/// All options in their order, "name=value;".
std::string all(KOVAOptions& options) {
    std::string result;
    KOVAOption* option = nullptr;
    options.InitEnumeration();
    while (options.GetNext(option).IsSuccess()) {
        KOVAString name, value;
        option->GetName(name);
        option->GetValue(value);
        result += test::text(name) + "=" + test::text(value) + ";";
    }
    EXPECT_TRUE(options.GetNext(option).IsFailure());
    return result;
}

TEST(Options, ExactPartsWinOverStars) {
    KOVAOptions options;
    options.AddOption("/A/B.*", "star");
    options.AddOption("/A/B.true", "exact");
    options.AddOption("/A/B.true/C", "longer");
    options.AddOption("*.Z", "any parent");
    options.AddOption("/P.q.r", "three");
    options.AddOption("/P.*.s", "middle");
    options.AddOption("/P.q.*", "end");
    struct {
        char const *name, *value;
    } const rows[] = {
        {"/A/B.true", "exact"},   {"/A/B.x", "star"},     {"/A/B.true/C", "longer"},
        {"/A/B.false/C", "star"}, {"/A/B", "1"},          {"/a/b.true", "1"},
        {"/Q.Z", "any parent"},   {"/P.q.r", "three"},    {"/P.q.s", "middle"},
        {"/P.q.t", "end"},        {"/P.x.t", "1"},        {"", "11"},
        {"a.b.c.d.e.f.g.h", "1"}, {"/A/B.true.", "star"},
    };
    for (auto const& row : rows) EXPECT_EQ(found(options, row.name), row.value) << row.name;
    options.AddOption("*", "everything");
    EXPECT_EQ(found(options, "/unheard/of"), "everything");
    EXPECT_EQ(found(KOVAOptions(), "x"), "1");
}

TEST(Options, AreHeldOnceByPath) {
    KOVAOptions options;
    EXPECT_EQ(
        (Numbers{options.AddOption("b.x", 1), options.AddOption("a.x", 2), options.AddOption("c", true),
                 options.AddOption("b.y", 2.5), options.AddOption("c", 5), options.AddOption("a.b.c.d.e.f.g", 7)}),
        Numbers(6, 0));
    EXPECT_EQ((Numbers{options.AddOption("a.b.c.d.e.f.g.h", 8), options.AddOption("", 1), options.AddOption(nullptr, 1),
                       options.AddOption(static_cast<KOVAOption const*>(nullptr)), options.AddOption(KOVAOption())}),
              Numbers(5, 0x0100000B));
    EXPECT_EQ(all(options), "b.x=1;a.x=2;c=5;b.y=2.500000;a.b.c.d.e.f.g=7;");
    EXPECT_EQ(options.Size(), 5);
    KOVAOption* held = nullptr;
    KOVAValue::KOVAValueType type{};
    options.GetOption("c", held);
    held->GetValueType(type);
    EXPECT_EQ(type, KOVAValue::Bool); // its default stays
    KOVAOptions other(options);
    other.AddOption("a.x", "other");
    other.AddOption("new", 9);
    KOVAOptions kept(options);
    EXPECT_EQ(
        (Numbers{kept.AddOptions(other, false), options.AddOptions(other, true), options.AddOptions(options, true)}),
        (Numbers{0, 0, 0}));
    EXPECT_EQ((Texts{found(kept, "a.x"), found(kept, "new"), found(options, "a.x")}), (Texts{"2", "9", "other"}));
    EXPECT_EQ((Numbers{options.Size(), kept.Size()}), (Numbers{6, 6}));
    options.RemoveAll();
    EXPECT_EQ(all(options), "");
    EXPECT_EQ((Numbers{options.Size(), kept.Size()}), (Numbers{0, 6}));
}

// More children than are looked through one by one.
TEST(Options, FindsEveryOneOfMany) {
    KOVAOptions options;
    for (int i = 0; i < 500; ++i) options.AddOption(("/many/" + std::to_string(i) + ".x").c_str(), i);
    KOVAOptions copy;
    copy = options;
    options.RemoveAll();
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(found(copy, ("/many/" + std::to_string(i) + ".x").c_str()), std::to_string(i));
    EXPECT_EQ(found(copy, "/many/500.x"), "1");
}

TEST(Options, FilesGiveTypedOptions) {
    test::Folder const folder("option-files");
    KOVAOptions options;
    std::string const good = folder.write("good", "# comment\n/A=1\n/B : 1.5\r\n/C=on\n/D=abc\n/E=No\n/F=1,2\n/G=0x1F\n"
                                                  "/H=1e5\n/I=12abc\n[other]\n/J=1");
    EXPECT_EQ(options.ReadFromFile(KOVAString(good.c_str())), 0);
    std::string types;
    for (char const* name : {"/A", "/B", "/C", "/D", "/E", "/F", "/G", "/H", "/I"}) {
        KOVAOption* option = nullptr;
        KOVAValue::KOVAValueType type{};
        EXPECT_EQ(options.GetOption(name, option), 0);
        option->GetValueType(type);
        types += std::to_string(type);
    }
    EXPECT_EQ(types, "213431211"); // "1,2" and "12abc" are reals by their beginnings
    EXPECT_EQ(found(options, "/F") + found(options, "/G") + found(options, "/J"), "1.000000311");
    KOVAOptions none;
    std::string const bad = folder.write("bad", "/A=1\nnonsense\n");
    EXPECT_EQ((Numbers{none.ReadFromFile(KOVAString(bad.c_str())), none.ReadFromFile(KOVAString()),
                       none.ReadFromFile(static_cast<std::FILE*>(nullptr)), none.ReadFromFile(KOVAString("none")),
                       none.Size()}),
              (Numbers{0x01000001, 0x0100000B, 0x0100000B, 0x0100000E, 0}));
}

TEST(Options, Print) {
    KOVAOptions options;
    options.AddOption("/A", true);
    options.AddOption("/B", 2.5);
    test::TextStream out;
    KOVAStreamFormatter formatter(&out);
    options.DumpOptions(formatter);
    options.AddOption("/A", 5); // still a bool
    options.DumpOptions(formatter);
    EXPECT_EQ(out.text.substr(out.text.size() / 2), out.text.substr(0, out.text.size() / 2));
    out.text.resize(out.text.size() / 2);
    options.AddOption("/A", true);
    EXPECT_EQ(out.text, "Options currently present and there values are given below : \n"
                        "============================================================= \n"
                        "The Option /A value is\t\t=1\nThe Option /B value is\t\t=2.500000\n");
    test::Recorder recorder;
    options.Dump("Options:", "  ", ";");
    options.Dump(nullptr, nullptr, nullptr);
    EXPECT_EQ(recorder.events,
              (Texts{"50 Options:\n", "50   /A=True;\n", "50   /B=2.500000;\n", "50 /A=True\n", "50 /B=2.500000\n"}));
}

/// Loads text through a file.
struct Configuration : KOVACfgFile {
    explicit Configuration(std::string const& text) { load(text); }
    void load(std::string const& text) {
        test::Folder const folder("configurations");
        result = Load(folder.write("file.cfg", text).c_str());
    }
    Texts errors() const {
        Texts all;
        for (int i = 0; i < GetErrorCount(); ++i) all.emplace_back(static_cast<char*>(GetErrorMessage(i)));
        return all;
    }
    /// All sections, "[name]key=value|value;".
    std::string contents() const {
        std::string all;
        for (int s = 0; s < GetSectionCount(); ++s) {
            KOVACfgFileSection const* section = GetSection(s);
            all += "[" + std::string(section->GetSectionName()) + "]";
            for (int k = 0; k < section->GetNumKeys(); ++k) {
                KOVACfgFileKey const* key = section->GetKey(k);
                all += std::string(key->GetName()) + "=";
                for (int v = 0; v < key->GetNumValues(); ++v) all += std::string(key->GetValue(v)) + "|";
            }
        }
        return all;
    }

    KOVIResult result;
};

TEST(CfgFile, LineForms) {
    struct {
        std::string text, contents;
        Texts errors;
    } const rows[] = {
        {"", "[]", {}},
        {"name = \"My Part\"\r\n", "[]name=My Part|", {}},
        {"size: 10\na:b=c\n\"k\"=\"in\"side\"", "[]size=10|a:b=c|k=in\"side|", {}},
        {"list=a, b,,c,", "[]list=a| b||c||", {}},
        {"# k=1\n;k=2\n\t\n k=3 # kept", "[]k=3 # kept|", {}},
        {"[ Units ]\nk=1\n[]\nl=2\n[Units]m=9\nn=3\n[a]b]\n", "[]l=2|[Units]k=1|n=3|[a]b]", {}},
        {"[\"q\"] x\nk=1\n[Units\nl=2",
         "[][q]k=1|l=2|",
         {"Incorrect syntax: line 3:[Units *** \"[section name]' expected."}},
        {"=5\nx=\n\nnothing \n = \"\"",
         "[]",
         {"Incorrect syntax: line 1:=5 *** \"key=value\" expected",
          "Incorrect syntax: line 2:x= *** \"key=value\" expected",
          "Incorrect syntax: line 4:nothing *** \"key=value\" expected",
          "Incorrect syntax: line 5:= *** \"key=value\" expected"}},
        {std::string("k=1\0 2\nl=3", 10), "[]l=3|", {"Incorrect syntax: line 1:k=1 *** \"key=value\" expected"}},
        {"k=" + std::string(1021, 'x') + "l=2\nm=3", "[]k=" + std::string(1021, 'x') + "|l=2|m=3|", {}},
        {std::string(1500, 'y') + "\nk=%s%n",
         "[]k=%s%n|",
         {"Incorrect syntax: line 1:" + std::string(1023, 'y') + " *** \"key=value\" expected",
          "Incorrect syntax: line 2:" + std::string(477, 'y') + " *** \"key=value\" expected"}},
    };
    for (auto const& row : rows) {
        Configuration const file(row.text);
        EXPECT_EQ(file.contents(), row.contents);
        EXPECT_EQ(file.errors(), row.errors);
        EXPECT_EQ(file.result, row.errors.empty() ? 0 : 0x01000001);
    }
}

TEST(CfgFile, TypedQueries) {
    Configuration file("k=1\nk=2\nlist=a,b,c\nyes=TRUE\nno=false\nTrue=True\nhex=0x10\nreal=1e2\ntwo=2\nmixed=1,x,0");
    Gk_String text;
    int number = -1;
    double real = -1;
    bool flag = false;
    EXPECT_TRUE(file.GetInt("k", number, 0, "") && number == 1 && file.GetArraySize("k") == 1);
    EXPECT_TRUE(file.GetString("list", text, 2) && text == Gk_String("c") && file.GetArraySize("list") == 3);
    EXPECT_TRUE(file.GetString("list", text, 3) && text == Gk_String("") && file.GetString("list", text, -1));
    EXPECT_TRUE(file.GetBool("yes", flag) && flag && file.GetBool("no", flag) && !flag);
    EXPECT_TRUE(file.GetLogical("yes", number) && number == 1 && file.GetLogical("mixed", number, 2) && number == 0);
    EXPECT_TRUE(file.GetInt("hex", number) && number == 16 && file.GetDouble("real", real) && real == 100);
    EXPECT_FALSE(file.ExistKey("none") || file.ExistKey("k", "none") || file.ExistKey(nullptr) ||
                 file.GetInt("none", number) || file.GetString("k", text, 0, "none"));
    EXPECT_EQ(file.GetErrorCount(), 0);
    EXPECT_FALSE(file.GetBool("True", flag) || file.GetLogical("two", number) || file.GetInt("mixed", number, 1) ||
                 file.GetDouble("list", real) || file.GetInt("k", number, 7));
    EXPECT_EQ(file.errors(),
              (Texts{"Incorrect syntax: key:True *** bool value \"true\" or \"false\" expected.",
                     "Incorrect syntax: key:two *** integer \"0\" or \"1\" or string \"TRUE\" or \"FALSE\" expected.",
                     "Incorrect syntax: key:mixed *** integer value expected.",
                     "Incorrect syntax: key:list *** double value expected.",
                     "Incorrect syntax: key:k *** integer value expected."}));
    // Loads add to what is there, the errors too.
    file.load("k=9\n[s]\nl=1");
    EXPECT_EQ(file.result, 0x01000001);
    EXPECT_TRUE(file.GetInt("k", number) && number == 1 && file.GetInt("l", number, 0, "s"));
    KOVACfgFile copy;
    copy = file;
    copy.GetSection(0)->findKey("k")->AppendValue("more");
    EXPECT_STREQ(copy.GetSection(0)->findKey("list")->GetAllValues(), "a,b,c");
    EXPECT_EQ((Numbers{copy.GetArraySize("k"), file.GetArraySize("k"), copy.GetErrorCount()}), (Numbers{2, 1, 5}));
    EXPECT_EQ((Numbers{copy.Load(""), copy.Load(static_cast<char const*>(nullptr)), copy.Load("none.cfg")}),
              (Numbers{0x0100000B, 0x0100000B, 0x0100000E}));
}

} // namespace
