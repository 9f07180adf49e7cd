#include <ctime>
#include <regex>

#include "support/test.h"

namespace {

std::string const dashes(80, '-');

/// Digits, where they are a date or a time, become "#".
std::string masked(std::string const& text) {
    static std::regex const moment("[0-9]{4}-[0-9]{2}-[0-9]{2}[ T][0-9]{2}:[0-9]{2}:[0-9]{2}([.][0-9]{3}Z)?");
    return std::regex_replace(text, moment, "#");
}

/// "kind identifier / name level".
std::string identity(KOVATaskEvent& event) {
    KOVAString task;
    EXPECT_TRUE(event.IsTimed() && event.GetTaskIdentifier(task) == 0);
    EXPECT_STREQ(event.GetTaskDescription(), event.GetEventName());
    return std::to_string(event.GetKind()) + " " + test::text(task) + " / " + event.GetEventName() + " " +
           std::to_string(event.GetLevel());
}

TEST(TaskEvents, NamesAndReports) {
    KOVIResult const failure(0x01000001), aborted(0x02000003);
    KOVAFileHeader header;
    header.Set(KOVAFileHeader::AUTHOR, "J");
    KOVAFileHeader two(header);
    two.SelectModel(1);
    two.Set(KOVAFileHeader::UNITS, "mm");
    two.SelectModel(0);
    std::string const information =
        "----------------------------File Header Information-----------------------------\n";

    KOVAStartConversionTaskEvent startConversion;
    KOVAEndConversionTaskEvent endConversion;
    KOVAStartOptionsTaskEvent startOptions;
    KOVAEndOptionsTaskEvent endOptions(0), badOptions(failure);
    KOVAStartPreprocessDocumentEvent startPre;
    KOVAEndPreprocessDocumentEvent endPre(1);
    KOVAStartPostprocessDocumentEvent startPost;
    KOVAEndPostprocessDocumentEvent endPost(aborted);
    KOVAStartProductEvent startProduct("P", "100%n"), nameless(nullptr, "");
    KOVAEndProductEvent endProduct(0), badProduct(failure), noProduct(aborted);
    KOVAStartReadFileTaskEvent startRead("a/b.stl"), startReadWide(KOVAString("c"));
    KOVAEndReadFileTaskEvent endRead(0, &header), endReadTwo(0, &two), endReadNone(failure, nullptr);
    KOVAStartReadEntitiesTaskEvent startEntities;
    KOVAEndReadEntitiesTaskEvent endEntities(failure);
    KOVAStartConversionStageEvent stage("Translation", 2, 37.5, true), unknown("Healing", 1, 0.0, false);
    KOVAEndTranslationTaskEvent endTranslation(0, false, 3), inAssembly(0, true, -1);
    KOVAStartWriteFileTaskEvent startWrite(KOVAFilePath("a/b.obj"));
    KOVAEndWriteFileTaskEvent endWrite(0), badWrite(failure), noWrite(aborted);
    KOVAStartTranslateRepairEvent repair("Face", "sewn", 12, 30);

    struct {
        KOVATaskEvent& event;
        std::string identity;
        std::string text;
    } const rows[] = {
        {startConversion, "0 Conversion / KOVAStartConversionTaskEvent 50", ""},
        {endConversion, "1 Conversion / KOVAEndConversionTaskEvent 50", ""},
        {startOptions, "0 Options / KOVAStartOptionsTaskEvent 50",
         "--------------------- Options Set by User ------------------\n"},
        {endOptions, "1 Options / Options logging 50", std::string(60, '-') + "\n"},
        {badOptions, "1 Options / Options logging 50",
         "Options logging Result : Failure\n" + std::string(60, '-') + "\n"},
        {startPre, "0 Source Document Preprocessing / Start Source Document Preprocessing 50", ""},
        {endPre, "1 Source Document Preprocessing / Source Document Preprocessing 50",
         dashes + "\nSource Document Preprocessing Result : Partial Success\n" + dashes + "\n"},
        {startPost, "0 Target Document Postprocessing / Start Target Document Postprocessing 50", ""},
        {endPost, "1 Target Document Postprocessing / Target Document Postprocessing 50",
         dashes + "\nTarget Document Postprocessing Result : Aborted\n" + dashes + "\n"},
        {startProduct, "0 Product / Start Product 50", "Product              : P\nApplication          : 100%n\n"},
        {nameless, "0 Product / Start Product 50", ""},
        {endProduct, "1 Product / Product End 50", "Product Completed Successfully\n"},
        {badProduct, "1 Product / Product End 50", "Product Failed with code 16777217 (Failure)\n"},
        {noProduct, "1 Product / Product End 50", "Product Aborted\n"},
        {startRead, "0 Read File / KOVAStartReadFileTaskEvent 50", "Input File           : a/b.stl\n"},
        {startReadWide, "0 Read File / KOVAStartReadFileTaskEvent 50", "Input File           : c\n"},
        {endRead, "1 Read File / File Reading 50", information + "Author                   : J\n" + dashes + "\n"},
        {endReadTwo, "1 Read File / File Reading 50",
         information + "Model 1\nAuthor                   : J\nModel 2\nUnits                    : mm\n" + dashes +
             "\n"},
        {endReadNone, "1 Read File / File Reading 50", information + dashes + "\n"},
        {startEntities, "0 Read Entities / KOVAStarReadEntitiesTaskEvent 50", ""},
        {endEntities, "1 Read Entities / Entity Reading 50", "Entity Reading Result : Failure\n"},
        {stage, "0 Translation / KOVAStartConversionStageEvent 50", "Stage : Translation, step 2, 37.5 %\n"},
        {unknown, "0 Healing / KOVAStartConversionStageEvent 50", "Stage : Healing, step 1\n"},
        {endTranslation, "1 Translation / Translation 50",
         dashes + "\nFinish Time : #\nFailed Entities : 3\n" + dashes + "\n"},
        {inAssembly, "1 Translation / Translation 50",
         dashes + "\nEnd Translation of Part Definition Document In Assembly\nFinish Time : #\n" + dashes + "\n"},
        {startWrite, "0 File Write / Writing File 50", "Output File          : a\\b.obj\n"},
        {endWrite, "1 File Write / File Write 50", "Output File is Successfully Written\n" + dashes + "\n"},
        {badWrite, "1 File Write / File Write 50",
         "Output File Writting has Failed with code16777217\n" + dashes + "\n"},
        {noWrite, "1 File Write / File Write 50", "Output File Writting is Aborted\n" + dashes + "\n"},
        {repair, "0 Repair / KOVAStartTranslateRepairEvent 30", "Repair : Face : sewn (12)\n"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(identity(row.event), row.identity);
        EXPECT_EQ(masked(test::describe(row.event)), row.text) << row.identity;
        row.event.GetFormattedDescription(nullptr);
    }
    KOVAString selected;
    EXPECT_EQ(two.Get(KOVAFileHeader::AUTHOR, selected), 0); // the report left the selection alone

    KOVAThirdPartyProgressEvent progress(12.34);
    KOVAEventBus::Fire(progress);
    long time = 0;
    EXPECT_TRUE(progress.IsA("KOVAThirdPartyProgressEvent") && progress.GetTime(time).IsFailure());
    EXPECT_EQ(test::describe(progress), "Progress : 12.3 %\n");
}

TEST(TaskEvents, FinishTimeIsLocal) {
    KOVAEndTranslationTaskEvent event(0, false, 0);
    std::time_t const moment = 1700000000;
    event.SetTime(static_cast<long>(moment));
    char text[60];
    std::strftime(text, sizeof text, "Finish Time : %Y-%m-%d %H:%M:%S\n", std::localtime(&moment));
    EXPECT_NE(test::describe(event).find(text), std::string::npos);
}

class Nameless : public KOVAEndTaskEvent {
public:
    Nameless() : KOVAEndTaskEvent(0, nullptr, "", KOVA_LEVEL_INFO) {}
};

TEST(TaskEvents, WithoutIdentifier) {
    Nameless event;
    KOVAString task("untouched");
    EXPECT_EQ(event.GetTaskIdentifier(task), 0x01000001);
    EXPECT_TRUE(task == "untouched" && !event.GetTaskDescription());
    event.setTaskResult(KOVIResult(0x02000003));
    EXPECT_EQ(event.getTaskResult(), 0x02000003);
}

TEST(TaskEvents, ConversionSummary) {
    KOVAConvertedEntitiesInfo info, more;
    std::string const title = "-------------------------------Conversion Summary-------------------------------\n";
    auto const summary = [&] {
        KOVAEndConversionTaskEvent event(info, KOVIResult(0));
        return test::describe(event);
    };
    more.solidBodies = 3;
    more.curveSets = 0;
    info.Update(KOVAConvertedEntitiesInfo());
    info.groups = 0;
    EXPECT_EQ(summary(), "");
    info.Update(more);
    info.Update(more);
    EXPECT_EQ(summary(), dashes + "\n" + title + "No. of Groups                             :    0\n" +
                             "No. of Solid Bodies                       :    6\n" +
                             "No. of Curve Sets                         :    0\n" + dashes + "\n");
    KOVAConvertedEntitiesInfo hidden;
    hidden.otherEntities = 1;
    info.init(hidden);
    EXPECT_EQ(summary(), dashes + "\n" + title + dashes + "\n");
    more = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, std::numeric_limits<int>::max()};
    info = more;
    info.Update(more);
    EXPECT_EQ(summary(), dashes + "\n" + title + "No. of Groups                             :    0\n" +
                             "No. of Assemblies                         :    2\n" +
                             "No. of Solid Bodies                       :    4\n" +
                             "No. of Trim Bodies                        :    6\n" +
                             "No. of Wire Bodies                        :    8\n" +
                             "No. of Point Bodies                       :    10\n" +
                             "No. of Mixed Bodies                       :    16\n" +
                             "No. of Single Point Bodies                :    18\n" +
                             "No. of Geometric Sets                     :    20\n" +
                             "No. of Curve Sets                         :    2147483647\n" + dashes + "\n");
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
    step(timing, Finish("A"), 0, 5000);
    Begin unstamped("A");
    Nameless nameless;
    timing.HandleEvent(unstamped);
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
    recorder.events.clear();
    timing.Initialize();
    std::string const name(300, 'n');
    step(timing, Begin(name.c_str()), 0, 0);
    step(timing, Finish(name.c_str()), 0, 0);
    timing.Finalize(); // old and new together
    ASSERT_EQ(recorder.events.size(), 8U);
    EXPECT_EQ(recorder.events[1], "50 Message : " + std::string(255, 'n') + " Time = 0.00 seconds.\n");
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
    KOVADebug::Printf("below the level");
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
