#include "support/test.h"

namespace {

TEST(Messages, EachClassFiresItsEvent) {
    test::Recorder recorder;
    KOVADebug::Printf("%d", 1);
    KOVAVerbose::Printf("%d", 2);
    KOVAInfo::Printf("%d", 3);
    KOVAInfo::PrintfAsItIs("%d", 4);
    KOVAWarning::Printf("%d", 5);
    KOVAError::Printf("%d", 6);
    KOVAAssert::Printf("%d", 7);
    EXPECT_EQ(recorder.events, (Texts{"10 1\n", "30 2\n", "50 Message : 3\n", "50 4\n", "70 Warning : 5\n",
                                      "80 Error : 6\n", "90 Assert : 7\n"}));
    recorder.events.clear();
    for (auto print : {&KOVADebug::Printf, &KOVADebug::NoTabPrintf, &KOVAVerbose::Printf, &KOVAVerbose::NoTabPrintf,
                       &KOVAInfo::Printf, &KOVAInfo::PrintfAsItIs, &KOVAInfo::NoTabPrintf, &KOVAWarning::Printf,
                       &KOVAWarning::NoTabPrintf, &KOVAError::Printf, &KOVAAssert::Printf})
        print(nullptr);
    EXPECT_EQ(recorder.events, Texts());
}

TEST(Messages, IndentationBelongsToOneClass) {
    test::Recorder recorder;
    KOVAInfo::Tab();
    KOVAInfo::Tab();
    KOVAInfo::Printf("x");
    KOVAInfo::NoTabPrintf("x");
    KOVAWarning::Printf("x");
    for (int i = 0; i < 3; ++i) KOVAInfo::Untab();
    KOVAInfo::PrintfAsItIs("x"); // below zero
    KOVAInfo::Tab();
    for (int i = 0; i < 200; ++i) KOVADebug::Tab();
    KOVADebug::Printf("%s", std::string(5000, 'y').c_str());
    for (int i = 0; i < 200; ++i) KOVADebug::Untab();
    EXPECT_EQ(recorder.events, (Texts{"50 Message :       x\n", "50 Message : x\n", "70 Warning : x\n", "50 x\n",
                                      "10 " + std::string(600, ' ') + std::string(1023, 'y') + "\n"}));
}

TEST(Messages, TheSecondPassHasNoArguments) {
    test::Recorder recorder;
    KOVAInfo::PrintfAsItIs("%s", "100%s %n %d.stl");
    KOVAInfo::PrintfAsItIs("%s", "5%% of %5%% and 3%%%");
    KOVAInfo::PrintfAsItIs("100%%");
    KOVAInfo::PrintfAsItIs("100%%%%");
    KOVAError::Printf("%s", "%%");
    EXPECT_EQ(recorder.events,
              (Texts{"50 100%s %n %d.stl\n", "50 5% of %5% and 3%%\n", "50 100%\n", "50 100%\n", "80 Error : %\n"}));
    std::string const incomplete = "what came before 100%";
    recorder.events.clear();
    KOVAInfo::PrintfAsItIs(incomplete.c_str(), 0);
    EXPECT_EQ(recorder.events.front().substr(0, 23), "50 what came before 100");
    // An event made directly formats once.
    KOVAMessageEvent event("%s", "a%%b");
    EXPECT_EQ(test::describe(event), "Message : a%%b\n");
}

TEST(Messages, EventsFormatWithinBounds) {
    KOVAMessageEvent cut("%s", std::string(5000, 'z').c_str());
    KOVAMessageEvent number("%d", 5); // not taken for the form with a flag
    KOVAMessageEvent without("%s %d", false, "a", 5);
    KOVADebugEvent debug("%s", "literal");
    KOVAWarningEvent empty("%s", "");
    EXPECT_EQ(std::string(cut.GetText()), std::string(1023, 'z'));
    EXPECT_EQ(empty.GetText(), nullptr);
    test::TextStream out;
    for (KOVAEvent* event : {static_cast<KOVAEvent*>(&number), static_cast<KOVAEvent*>(&without),
                             static_cast<KOVAEvent*>(&debug), static_cast<KOVAEvent*>(&empty)}) {
        event->GetFormattedDescription(&out);
        event->GetFormattedDescription(nullptr);
    }
    EXPECT_EQ(out.text, "Message : 5\na 5\nliteral\nWarning : \n");
    EXPECT_EQ(out.writes, 4);
    test::Recorder recorder;
    KOVAMessageEvent::Fire("%d", 1);
    KOVAErrorEvent::Fire("%d", 2);
    KOVAAssertEvent::Fire("%d", 3);
    EXPECT_EQ(recorder.events, (Texts{"50 Message : 1\n", "80 Error : 2\n", "90 Assert : 3\n"}));
}

TEST(Messages, PointsAndMatrices) {
    test::Recorder recorder;
    double const columns[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    float const rows[] = {0, 1, 2, 3, -4.5F, 5, 6, 1000, 8, 9, 10, 11, 12, 13, 14, 15};
    KOVAVerbose::PrintPointArray(rows + 4, 2);
    KOVAVerbose::PrintPointArray(nullptr, 2);
    KOVADebug::Print3x4Matrix(columns);
    KOVAWarning::Print4x4Matrix(rows);
    KOVAInfo::Print3x3Matrix(rows);
    ASSERT_EQ(recorder.events.size(), 12U);
    EXPECT_EQ(recorder.events[0] + recorder.events[3],
              "30 {-4.500,  5.000,  6.000}\n\n10 [1.000, 4.000, 7.000, 10.000]\n\n");
    EXPECT_EQ(recorder.events[6], "70 Warning : [-4.500,  5.000,  6.000, 1000.000]\n\n");
    EXPECT_EQ(recorder.events[11], "50 Message : [6.000, 1000.000, 8.000]\n\n");
}

TEST(Messages, Timer) {
    float const elapsed = KOVADebug::StopTimer(KOVADebug::StartTimer());
    EXPECT_TRUE(elapsed >= 0.0F && elapsed < 60000.0F && KOVADebug::StopTimer(nullptr) == 0.0F) << elapsed;
}

TEST(Errors, DescribeThemselves) {
    KOVAError error(5);
    KOVAErrorEvent event(error);
    EXPECT_EQ(test::describe(event), "Error 5\n");
    error.SetDescription(KOVAString("bad 100% header"));
    EXPECT_EQ(test::describe(event), "Error 5 : bad 100% header\n");
    EXPECT_EQ(&event.GetError(), &error);
    KOVAError none;
    KOVAErrorEvent silent(none);
    EXPECT_EQ(test::describe(silent), "");
    KOVAErrorEvent empty("%s", "");
    EXPECT_EQ(test::describe(empty), "Error 16777217\n");
    EXPECT_EQ(&empty.GetError(), &KOVAError::FAIL_ERROR);
    EXPECT_EQ(KOVAError::FAIL_ERROR.GetErrorType(), 0x01000001);
}

TEST(ErrorTracker, RecordsCopiesUntilItIsDeleted) {
    EXPECT_TRUE(KOVAErrorTracker::Reset() == 0);
    KOVAError::Printf("lost");
    EXPECT_TRUE(KOVAError::GetErrorCount() == 0 && KOVAError::GetLastError() == nullptr);
    EXPECT_TRUE(KOVAErrorTracker::Initialize() == 0 && KOVAErrorTracker::Initialize() == 0);
    KOVAErrorTracker* const tracker = KOVAErrorTracker::GetInstance();
    EXPECT_EQ(tracker->GetLastError(), nullptr);
    KOVAWarning::Printf("ignored");
    KOVAEvent impostor("KOVAErrorEvent", 80);
    KOVAEventBus::Fire(impostor);
    KOVAError::Printf("x");
    KOVAError error(5);
    error.SetDescription(KOVAString("first"));
    EXPECT_TRUE(KOVAErrorEvent::Fire(error, "reader", 7) == 5);
    error.SetDescription(KOVAString("second"));
    KOVAError const& recorded = *tracker->GetError(1); // stays where it is
    for (int i = 0; i < 30; ++i) KOVAErrorEvent::Fire(*KOVAError::GetLastError(), "reader", i);
    ASSERT_EQ(KOVAError::GetErrorCount(), 32);
    KOVAString description;
    tracker->GetError(0)->GetDescription(description);
    EXPECT_TRUE(tracker->GetError(0)->GetErrorType() == 0x01000001 && description.length() == 0);
    recorded.GetDescription(description);
    EXPECT_EQ(test::text(description) + test::text(recorded.GetSourceFile()), "firstreader");
    EXPECT_TRUE(KOVAError::GetLastError()->GetErrorType() == 5 && KOVAError::GetLastError()->GetSourceLine() == 29);
    EXPECT_TRUE(tracker->GetError(-1) == nullptr && tracker->GetError(32) == nullptr);
    EXPECT_TRUE(KOVAErrorTracker::Reset() == 0 && KOVAError::GetErrorCount() == 0);
    delete tracker;
    KOVAError::Printf("lost again");
    EXPECT_TRUE(KOVAErrorTracker::GetInstance() == nullptr && KOVAError::GetErrorCount() == 0);
}

} // namespace
