#include <cctype>
#include <sstream>

#include "support/test.h"

namespace {

constexpr long kFailure = 0x01000001, kError = 0x01000002, kEmpty = 0x01000008, kInvalidObject = 0x0100000A,
               kInvalidArgument = 0x0100000B, kFileOpenError = 0x0100000E;

template <class Handle> Handle withoutBody() {
    Handle handle;
    handle.SetData(nullptr);
    return handle;
}

template <class Handle> struct Stubborn : Handle {
    using Handle::Handle;
    bool IsValid() const override { return true; }
};

template <class Body> Body* bodyOf(KOVIObject const& handle) {
    return static_cast<Body*>(KOVIObjectImpl::Cast(handle.GetData()));
}

TEST(PublicValue, IsReadAsAnyKind) {
    struct {
        KOVIValue value;
        int type, asInt;
        bool asBool;
        double asDouble;
        char const* text;
    } const rows[] = {
        {KOVIValue(), 0, 0, false, 0.0, nullptr},
        {withoutBody<KOVIValue>(), 0, 0, false, 0.0, nullptr},
        {static_cast<char const*>(nullptr), 3, 0, false, 0.0, nullptr},
        {true, 0, 1, true, 1.0, "True"},
        {5, 1, 5, true, 5.0, "5"},
        {2.5, 2, 1, true, 2.5, "2.500000"},
        {"Yes", 3, 1, true, 1.0, "Yes"},
        {"x", 3, 0, false, 0.0, "x"},
        {"", 3, 0, false, 0.0, ""},
        {"12.5 mm", 3, 12, true, 12.5, "12.5 mm"},
    };
    for (auto const& row : rows) {
        EXPECT_TRUE(row.value.GetType() == row.type && int(row.value) == row.asInt && bool(row.value) == row.asBool &&
                    double(row.value) == row.asDouble)
            << row.type << " " << row.asInt;
        char const* const text = row.value;
        EXPECT_STREQ(KOVIValue(row.value), row.text);
        EXPECT_EQ(text, static_cast<char const*>(row.value)); // what was handed out stays
    }
    EXPECT_TRUE((!std::is_convertible_v<unsigned short const*, KOVIValue> && !std::is_convertible_v<void*, KOVIValue>));
}

TEST(PublicUnit, IsKnownByNumberAndByText) {
    std::istringstream rows("unknown - model - nanometer nm micrometer micr millimeter mm centimeter cm decimeter deci "
                            "meter - inch in foot ft mile - kilometer km milliinch - microinch -");
    std::string name, shortName;
    for (int i = 0; rows >> name >> shortName; ++i) {
        KOVIUnit const unit{KOVIUnitValue(i)};
        EXPECT_STREQ(unit, name.c_str());
        std::string mixed = name;
        for (std::size_t k = 0; k < mixed.size(); k += 2) mixed[k] = char(std::toupper(mixed[k]));
        KOVAUnit inside = KOVAUnit(99);
        bodyOf<KOVIUnitImpl>(unit)->GetUnit(inside);
        EXPECT_TRUE(KOVIUnit(name.c_str()) == KOVIUnitValue(i) && KOVIUnit(mixed.c_str()) == KOVIUnitValue(i) &&
                    inside == i && (shortName == "-" || KOVIUnit(shortName.c_str()) == KOVIUnitValue(i)))
            << name;
    }
    KOVIUnit const none[] = {KOVIUnitValue(14), KOVIUnitValue(-1), "", "furlong", "-", "inch ", nullptr};
    EXPECT_TRUE(KOVIUnit(0).IsValid() && KOVIUnit(13) == KOVI_UNIT_MICROINCH && !KOVIUnit(14).IsValid());
    KOVIUnit odd;
    for (int number : {-1, 14}) {
        odd.SetData(static_cast<KOVIObjectImpl*>(new KOVIUnitImpl("KOVIUnit", KOVAUnit(number))));
        EXPECT_FALSE(static_cast<char const*>(odd));
    }
    for (KOVIUnit const& unit : none)
        EXPECT_FALSE(unit.IsValid() || unit != KOVI_UNIT_UNKNOWN || static_cast<char const*>(unit));
    KOVIUnit unit;
    EXPECT_TRUE(unit.IsValid() && unit == KOVI_UNIT_UNKNOWN);
    unit = KOVI_UNIT_FOOT;
    KOVIUnitImpl* const body = bodyOf<KOVIUnitImpl>(unit);
    EXPECT_TRUE(body->SetUnit(KOVAUnit(14)) == kError && unit == KOVI_UNIT_FOOT);
    EXPECT_TRUE(body->SetUnit(KOVA_UNIT_KM) == 0 && unit == KOVI_UNIT_KM);
}

/// All options by position, "name=value;".
std::string all(KOVIOptions const& options) {
    std::string result;
    KOVIOptionName name;
    KOVIValue value;
    for (int i = 0; options.GetOptionAt(i, name, value).IsSuccess(); ++i)
        result += std::string(name.GetText()) + "=" + static_cast<char const*>(value) + ";";
    return result;
}

TEST(PublicOptions, AreAddedAndListed) {
    KOVIOptions options;
    EXPECT_TRUE(KOVAOptionName::IsValid("PublicTest.on/Late").IsFailure());
    EXPECT_EQ((Numbers{options.Add("b.x", 2.5), options.Add(KOVIOptionName::Healing, true),
                       options.Add("PublicTest.on/Late", "text"), options.Add("b.y", KOVIValue())}),
              Numbers(4, 0));
    EXPECT_TRUE(KOVAOptionName::IsValid("publictest.*").IsSuccess() && KOVAOptionName::IsValid("Healing").IsSuccess());
    KOVIOptions shared(options);
    KOVIOptionName name("kept");
    KOVIValue value(7);
    EXPECT_TRUE(shared.GetOptionAt(3, name, value) == kEmpty &&
                shared.GetOptionAt(4, name, value) == kInvalidArgument &&
                shared.GetOptionAt(-1, name, value) == kInvalidArgument && int(value) == 7);
    EXPECT_EQ(shared.Add("b.y", 1) + shared.Add(KOVIOptionName::Healing, 0), 0);
    EXPECT_EQ(all(options), "b.x=2.500000;Healing=0;PublicTest.on/Late=text;b.y=1;");
    KOVAOptions const* inside = nullptr;
    bodyOf<KOVIOptionsImpl>(options)->GetOptions(inside);
    KOVAOption* healing = nullptr;
    bool isDefault = false, isPrivate = true;
    EXPECT_TRUE(inside->Size() == options.GetOptionsCount() && inside->GetOption("Healing", healing).IsSuccess());
    EXPECT_TRUE(healing->GetDefaultValue(isDefault) == 0 && isDefault && healing->IsPrivate(isPrivate) == 0 &&
                !isPrivate);
    // Any order of positions, and additions that move them.
    std::string found;
    for (int i : {2, 0, 3, 1, 1}) {
        EXPECT_TRUE(options.GetOptionAt(i, name, value).IsSuccess());
        found += name.GetText()[i == 2 ? 0 : 2];
    }
    EXPECT_TRUE(found == "Pxyaa" && options.Add("c.x", 3) == 0 && options.GetOptionAt(1, name, value) == 0);
    EXPECT_STREQ(name.GetText(), "c.x");
    EXPECT_TRUE(options.Add("a.b.c.d.e.f.g.h", 1) == kInvalidArgument);
}

TEST(PublicOptions, RefuseWhatIsNotValid) {
    KOVIOptions const good;
    KOVIOptions gone = withoutBody<KOVIOptions>();
    auto stubborn = withoutBody<Stubborn<KOVIOptions>>();
    KOVIOptionName name;
    KOVIValue value;
    KOVIFile const noFile("");
    EXPECT_EQ((Numbers{gone.Load(noFile), gone.Add("x", 1), gone.GetOptionAt(0, name, value), gone.GetOptionsCount()}),
              Numbers(4, kInvalidObject));
    EXPECT_EQ((Numbers{KOVIOptions().Load(noFile), KOVIOptions().Add(name, 1), stubborn.Load(noFile),
                       KOVIOptions().Add("x", withoutBody<KOVIValue>()), good.GetOptionAt(0, name, value)}),
              Numbers(5, kInvalidArgument));
    auto const bareName = withoutBody<Stubborn<KOVIOptionName>>();
    auto const bareValue = withoutBody<Stubborn<KOVIValue>>();
    auto const bareUnit = withoutBody<Stubborn<KOVIUnit>>();
    EXPECT_EQ((Numbers{stubborn.Load("x"), stubborn.Add("x", 1), stubborn.GetOptionAt(0, name, value),
                       KOVIOptions().Load(Stubborn<KOVIFile>("")), KOVIOptions().Add(bareName, 1),
                       KOVIOptions().Add("x", bareValue)}),
              Numbers(6, kError));
    EXPECT_FALSE(bareName.GetText() || static_cast<char const*>(bareValue) || static_cast<char const*>(bareUnit) ||
                 int(bareValue) || bareValue.GetType() || bareUnit != KOVI_UNIT_UNKNOWN);
    EXPECT_TRUE(stubborn.GetOptionsCount() == 0 && good.GetOptionsCount() == 0);
}

TEST(PublicFile, IsAPathADescriptorOrAStream) {
    test::Folder const folder("public");
    std::string const path = folder.write("some.options", "one = 1\r\ntwo = on\r\n[other]\nthree=3\n");
    KOVAString const wide(path.c_str());
    KOVAFileDescriptor const descriptor(path.c_str(), KOVAFileDescriptor::Read);
    using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
    Stream const stream(std::fopen(path.c_str(), "r"), &std::fclose);
    struct {
        KOVIFile file;
        std::string path;
        bool isOpen;
    } const rows[] = {
        {path.c_str(), path, false},
        {static_cast<unsigned short const*>(wide), path, false},
        {KOVIFile(descriptor.fileNumber()), "", true},
        {KOVIFile(stream.get(), "some name"), "some name", true},
    };
    for (auto const& row : rows) {
        KOVIOptions options;
        EXPECT_EQ(options.Load(row.file), 0);
        EXPECT_EQ(all(options), "one=1;two=True;");
        KOVIFileImpl* const body = bodyOf<KOVIFileImpl>(row.file);
        KOVAString name;
        std::FILE* file = nullptr;
        EXPECT_TRUE(body->GetPath(name) == (row.path.empty() ? kFailure : 0) && body->HasPath() == !row.path.empty() &&
                    body->GetFile(file) == (row.isOpen ? 0 : kFailure) && (file != nullptr) == row.isOpen);
        EXPECT_EQ(test::text(name), row.path);
    }
    KOVIOptions options;
    std::string const bad = folder.write("bad.options", "one=1\ntwo");
    Stream const opened(std::fopen("public", "r"), &std::fclose); // a folder, which not every system opens
    EXPECT_EQ(options.Load(KOVIFile(opened.get(), "")), opened ? kFailure : kInvalidArgument);
    EXPECT_EQ((Numbers{options.Load(bad.c_str()), options.Load("none"), options.Load(KOVIFile(99999)),
                       options.Load(KOVIFile(-1)), options.Load(KOVIFile(nullptr, "x")), options.GetOptionsCount()}),
              (Numbers{kFailure, kFileOpenError, kFileOpenError, kInvalidArgument, kInvalidArgument, 0}));
    EXPECT_GE(descriptor.offset(0), 0); // still open
}

} // namespace
