#include <memory>

#include "support/test.h"

namespace {

std::string const dashes(80, '-');

/// Dates with times become "#".
std::string masked(std::string text) {
    char const* const forms[] = {"dddd-dd-dd dd:dd:dd", "dddd-dd-ddTdd:dd:dd.dddZ"};
    for (std::string const form : forms) {
        for (std::size_t at = 0; at + form.size() <= text.size(); ++at) {
            std::string shape = text.substr(at, form.size());
            for (char& c : shape) c = c >= '0' && c <= '9' ? 'd' : c;
            if (shape == form) text.replace(at, form.size(), "#");
        }
    }
    return text;
}

/// "kind identifier / name level: description".
std::string report(KOVATaskEvent&& event) {
    KOVAString task;
    EXPECT_TRUE(event.IsTimed() && event.GetTaskIdentifier(task) == 0);
    event.GetFormattedDescription(nullptr);
    return std::to_string(event.GetKind()) + " " + test::text(task) + " / " + event.GetEventName() + " " +
           std::to_string(event.GetLevel()) + ": " + masked(test::describe(event));
}

TEST(TaskEvents, NamesAndReports) {
    KOVIResult const failure(0x01000001), aborted(0x02000003);
    KOVAFileHeader header;
    header.Set(KOVAFileHeader::AUTHOR, "J");
    KOVAFileHeader two(header);
    two.SelectModel(1);
    two.Set(KOVAFileHeader::UNITS, "mm");
    two.SelectModel(0);
    std::string const line = dashes + "\n";
    std::string const shorter = std::string(60, '-') + "\n";
    std::string const read = "1 Read File / File Reading 50: "
                             "----------------------------File Header Information-----------------------------\n";
    std::string const pre = "Source Document Preprocessing";
    std::string const post = "Target Document Postprocessing";

    std::pair<std::string, std::string> const rows[] = {
        {report(KOVAStartConversionTaskEvent()), "0 Conversion / KOVAStartConversionTaskEvent 50: "},
        {report(KOVAEndConversionTaskEvent()), "1 Conversion / KOVAEndConversionTaskEvent 50: "},
        {report(KOVAStartOptionsTaskEvent()), "0 Options / KOVAStartOptionsTaskEvent 50: "
                                              "--------------------- Options Set by User ------------------\n"},
        {report(KOVAEndOptionsTaskEvent(0)), "1 Options / Options logging 50: " + shorter},
        {report(KOVAEndOptionsTaskEvent(failure)),
         "1 Options / Options logging 50: Options logging Result : Failure\n" + shorter},
        {report(KOVAStartPreprocessDocumentEvent()), "0 " + pre + " / Start " + pre + " 50: "},
        {report(KOVAEndPreprocessDocumentEvent(1)),
         "1 " + pre + " / " + pre + " 50: " + line + pre + " Result : Partial Success\n" + line},
        {report(KOVAStartPostprocessDocumentEvent()), "0 " + post + " / Start " + post + " 50: "},
        {report(KOVAEndPostprocessDocumentEvent(aborted)),
         "1 " + post + " / " + post + " 50: " + line + post + " Result : Aborted\n" + line},
        {report(KOVAStartProductEvent("P", "100%n")),
         "0 Product / Start Product 50: Product              : P\nApplication          : 100%n\n"},
        {report(KOVAStartProductEvent(nullptr, "")), "0 Product / Start Product 50: "},
        {report(KOVAEndProductEvent(0)), "1 Product / Product End 50: Product Completed Successfully\n"},
        {report(KOVAEndProductEvent(failure)),
         "1 Product / Product End 50: Product Failed with code 16777217 (Failure)\n"},
        {report(KOVAEndProductEvent(aborted)), "1 Product / Product End 50: Product Aborted\n"},
        {report(KOVAStartReadFileTaskEvent("a/b.stl")),
         "0 Read File / KOVAStartReadFileTaskEvent 50: Input File           : a/b.stl\n"},
        {report(KOVAEndReadFileTaskEvent(0, &header)), read + "Author                   : J\n" + line},
        {report(KOVAEndReadFileTaskEvent(0, &two)),
         read + "Model 1\nAuthor                   : J\nModel 2\nUnits                    : mm\n" + line},
        {report(KOVAEndReadFileTaskEvent(failure, nullptr)), read + line},
        {report(KOVAStartReadEntitiesTaskEvent()), "0 Read Entities / KOVAStarReadEntitiesTaskEvent 50: "},
        {report(KOVAEndReadEntitiesTaskEvent(failure)),
         "1 Read Entities / Entity Reading 50: Entity Reading Result : Failure\n"},
        {report(KOVAStartConversionStageEvent("Translation", 2, 37.5, true)),
         "0 Translation / KOVAStartConversionStageEvent 50: Stage : Translation, step 2, 37.5 %\n"},
        {report(KOVAStartConversionStageEvent("Healing", 1, 0.0, false)),
         "0 Healing / KOVAStartConversionStageEvent 50: Stage : Healing, step 1\n"},
        {report(KOVAEndTranslationTaskEvent(0, false, 3)),
         "1 Translation / Translation 50: " + line + "Finish Time : #\nFailed Entities : 3\n" + line},
        {report(KOVAEndTranslationTaskEvent(0, true, -1)),
         "1 Translation / Translation 50: " + line +
             "End Translation of Part Definition Document In Assembly\nFinish Time : #\n" + line},
        {report(KOVAStartWriteFileTaskEvent(KOVAFilePath("a/b.obj"))),
         "0 File Write / Writing File 50: Output File          : a\\b.obj\n"},
        {report(KOVAEndWriteFileTaskEvent(0)),
         "1 File Write / File Write 50: Output File is Successfully Written\n" + line},
        {report(KOVAEndWriteFileTaskEvent(failure)),
         "1 File Write / File Write 50: Output File Writting has Failed with code16777217\n" + line},
        {report(KOVAEndWriteFileTaskEvent(aborted)),
         "1 File Write / File Write 50: Output File Writting is Aborted\n" + line},
        {report(KOVAStartTranslateRepairEvent("Face", "sewn", 12, 30)),
         "0 Repair / KOVAStartTranslateRepairEvent 30: Repair : Face : sewn (12)\n"},
    };
    for (auto const& [actual, expected] : rows) EXPECT_EQ(actual, expected);
    KOVAString selected;
    EXPECT_EQ(two.Get(KOVAFileHeader::AUTHOR, selected), 0); // the report left the selection alone

    KOVAThirdPartyProgressEvent progress(12.34);
    KOVAEventBus::Fire(progress);
    long time = 0;
    EXPECT_TRUE(progress.IsA("KOVAThirdPartyProgressEvent") && progress.GetTime(time).IsFailure());
    EXPECT_EQ(test::describe(progress), "Progress : 12.3 %\n");
}

TEST(TaskEvents, OptionsOfTheRun) {
    test::Variable const variable("KOVA/XMesh/Export/Digits", "3");
    test::Recorder events;
    KOVAOptions options;
    KOVAOption keep(KOVAOptionName::XMesh_Import_Degenerate, "keep");
    keep.SetValue("drop");
    options.AddOption(keep);
    options.AddOption("/STL/Export/Ascii", true);
    options.AddOption("/XMesh/Export/Digits", 7);
    options.AddOption("/XMesh/Import/WeldTol", 1e-9);
    std::string const rows = "/XMesh/Import/Degenerate  drop   set, default keep\n"
                             "/STL/Export/Ascii         True   set\n"
                             "/XMesh/Export/Digits      3      environment variable KOVA/XMesh/Export/Digits\n"
                             "/XMesh/Import/WeldTol     1e-09  set\n";
    KOVAOption* option = nullptr;
    options.GetNext(option);
    KOVATaskEvent::SetRunOptions(&options);
    std::string const product = report(KOVAStartProductEvent("", ""));
    std::string const set = report(KOVAStartOptionsTaskEvent());
    KOVATaskEvent::SetRunOptions(nullptr);
    EXPECT_EQ(product, "0 Product / Start Product 50: " + rows);
    EXPECT_EQ(set.substr(set.find("\n") + 1), rows);
    EXPECT_EQ(events.events, Texts());                // nothing is said about the variable
    EXPECT_TRUE(options.GetNext(option).IsSuccess()); // the enumeration goes on where it was
    KOVAString name;
    option->GetName(name);
    EXPECT_EQ(test::text(name), "/STL/Export/Ascii");
}

class Nameless : public KOVAEndTaskEvent {
public:
    Nameless() : KOVAEndTaskEvent(0, nullptr, "", KOVA_LEVEL_INFO) {}
};

TEST(TaskEvents, ConversionSummary) {
    std::string const title =
        dashes + "\n-------------------------------Conversion Summary-------------------------------\n";
    auto const summary = [](KOVAConvertedEntitiesInfo const& info) {
        return test::describe(*std::make_unique<KOVAEndConversionTaskEvent>(info, KOVIResult(0)));
    };
    KOVAConvertedEntitiesInfo info;
    info.groups = 0;
    EXPECT_EQ(summary(info), "");
    info.init({-1, -1, -1, -1, -1, -1, -1, 1}); // counts, but is not shown
    EXPECT_EQ(summary(info), title + dashes + "\n");
    info = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, std::numeric_limits<int>::max()};
    KOVAConvertedEntitiesInfo sum;
    sum.Update(info);
    sum.Update(info);
    EXPECT_EQ(summary(sum), title +
                                "No. of Groups                             :    0\n"
                                "No. of Assemblies                         :    2\n"
                                "No. of Solid Bodies                       :    4\n"
                                "No. of Trim Bodies                        :    6\n"
                                "No. of Wire Bodies                        :    8\n"
                                "No. of Point Bodies                       :    10\n"
                                "No. of Mixed Bodies                       :    16\n"
                                "No. of Single Point Bodies                :    18\n"
                                "No. of Geometric Sets                     :    20\n"
                                "No. of Curve Sets                         :    2147483647\n" +
                                dashes + "\n");
}

TEST(TaskEvents, EnvironmentOfTheUser) {
    test::Variable loggers("KOVALoggers", "UserEnv"), b("KOVAenvA_", "%s"), a("KOVAenvA", "=1");
    KOVAStartProductEvent event("P", nullptr);
    std::string const text = test::describe(event);
    EXPECT_EQ(text.find("Product              : P\n=== Environment Variables ===\n"), 0U);
    EXPECT_NE(text.find("\nKOVAenvA==1\nKOVAenvA_=%s\n"), std::string::npos) << text;
    EXPECT_EQ(text.substr(text.size() - 31), "\n=============================\n");
}

class Begin : public KOVAStartTaskEvent {
public:
    explicit Begin(char const* task) : KOVAStartTaskEvent("Begin", task, KOVA_LEVEL_INFO) {}
};

class Finish : public KOVAEndTaskEvent {
public:
    explicit Finish(char const* task) : KOVAEndTaskEvent(0, "Finish", task, KOVA_LEVEL_INFO) {}
    void GetFormattedDescription(KOVAOutputStream*) override {}
};

void step(KOVAEventListener& listener, KOVATaskEvent&& event, long time, long clock) {
    event.SetTime(time);
    event.SetClock(clock);
    listener.HandleEvent(event);
}

TEST(Timing, PairsTasksAndReports) {
    test::Recorder recorder;
    KOVATimingLogger timing;
    timing.Initialize();
    timing.Initialize();
    step(timing, Begin("A"), 100, 1000);
    step(timing, Begin("B"), 100, 1000);
    step(timing, Finish("A"), 100, 3500);
    step(timing, Finish("B"), 100, 9000); // was discarded with A
    step(timing, Finish("never"), 0, 0);
    step(timing, Begin("C"), 1000, 0);
    step(timing, Begin("D"), 1000, 0);
    step(timing, Finish("B"), 100, 9000); // nor does it take the place of D
    step(timing, Finish("D"), 1600, 5);
    step(timing, Finish("C"), 1601, 5);
    step(timing, Begin("A"), 0, 2147483647); // the clock wraps around
    step(timing, Finish("A"), 0, -2147483648L + 999);
    Begin unstamped("A");
    timing.HandleEvent(unstamped);
    step(timing, Finish("A"), 0, 5000);
    step(timing, Nameless(), 0, 0);
    timing.Finalize();
    timing.Finalize();
    EXPECT_EQ(recorder.events,
              (Texts{"50 Message : Task Timing On\n", "50 Message : A Time = 2.50 seconds.\n",
                     "50 Message : D Time = 0.01 seconds.\n", "50 Message : C Time = 601.00 seconds.\n",
                     "50 Message : A Time = 1.00 seconds.\n",
                     "50 Message : ================ Task Timing Info ================\n",
                     "50 Message : " + std::string(31, ' ') + "A Time =       3.50        2x\n",
                     "50 Message : " + std::string(31, ' ') + "D Time =       0.01\n",
                     "50 Message : " + std::string(31, ' ') + "C Time =     601.00\n",
                     "50 Message : ==================================================\n"}));
    timing.Initialize();
    timing.Finalize(); // the old totals again
    EXPECT_EQ(recorder.events.size(), 16U);
}

TEST(Timing, OnlyWhenTheUserAsksForIt) {
    test::Recorder recorder;
    test::Variable level("KOVAConsoleTracesLevel", "NONE"), wanted("KOVATaskTiming");
    for (char const* value : {"", "no", "1"}) {
        wanted.set(value);
        KOVAConsoleLogger::SetUp(-1);
    }
    EXPECT_EQ(recorder.events, Texts());
    wanted.set("on");
    KOVAConsoleLogger::SetUp(-1);
    KOVAConsoleLogger::SetUp(-1);
    KOVATimingLogger::Stop(); // nothing to report
    KOVAConsoleLogger::_console.Finalize();
    EXPECT_EQ(recorder.events, Texts{"50 Message : Task Timing On\n"});
}

/// An event of any text.
class Raw : public KOVAEvent {
public:
    explicit Raw(std::string text) : KOVAEvent(nullptr, 70), text_(std::move(text)) {}
    void GetFormattedDescription(KOVAOutputStream* out) override {
        out->write(text_.data(), static_cast<int>(text_.size()));
    }

private:
    std::string text_;
};

TEST(Json, OneObjectALine) {
    test::TextStream* const stream = new test::TextStream;
    KOVAJsonLogger logger;
    logger.Initialize(stream, 50);
    KOVAWarning::Printf("a \"b\"\\");
    step(logger, Begin("Read"), 5, 0);
    step(logger, Finish("Read"), 5, 2500);
    step(logger, Finish("Read"), 5, 2500);
    EXPECT_EQ(stream->writes, 4);
    EXPECT_EQ(
        masked(stream->text),
        R"({"time":"#","level":70,"event":"KOVAWarningEvent","text":"Warning : a \"b\"\\","task":null,"duration":null})"
        "\n"
        R"({"time":"#","level":50,"event":"Begin","text":"","task":"Read","duration":null})"
        "\n"
        R"({"time":"#","level":50,"event":"Finish","text":"","task":"Read","duration":2.500})"
        "\n"
        R"({"time":"#","level":50,"event":"Finish","text":"","task":"Read","duration":null})"
        "\n");
    std::pair<std::string, std::string> const rows[] = {
        {"two\nlines\t\r\n", "two\\nlines\\t\\u000d"},
        {std::string("\0\x1f\x7f", 3), "\\u0000\\u001f\x7f"},
        {"\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80", "\xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"\xE4 \xC3", "\\u00e4 \\u00c3"},                                // another encoding; cut short
        {"\xC0\xAF\xE0\x9F\xBF", "\\u00c0\\u00af\\u00e0\\u009f\\u00bf"}, // longer than need be
        {"\xED\xA0\x80\xF4\x90\x80\x80", "\\u00ed\\u00a0\\u0080\\u00f4\\u0090\\u0080\\u0080"}, // no characters
        {"\xE2\x82"
         "a\xF0\x9F\x98",
         "\\u00e2\\u0082a\\u00f0\\u009f\\u0098"},
    };
    for (auto const& [text, json] : rows) {
        stream->text.clear();
        Raw event(text);
        KOVAEventBus::Fire(event);
        EXPECT_EQ(masked(stream->text), R"({"time":"#","level":70,"event":null,"text":")" + json +
                                            R"(","task":null,"duration":null})" + "\n");
    }
}

} // namespace
