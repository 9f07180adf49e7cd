#include <kova/diagnostics/KOVAMessageEvents.h>

#include <kova/diagnostics/KOVAAssert.h>
#include <kova/diagnostics/KOVADebug.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAErrorTracker.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/KOVAVerbose.h>
#include <kova/diagnostics/KOVAWarning.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Recorder.h"

namespace {

using Events = std::vector<std::string>;

std::string text(KOVAString const& s) {
    return s.length() > 0 ? static_cast<char const*>(s) : "";
}

TEST(Messages, EachClassFiresItsEvent) {
    test::Recorder recorder;
    KOVADebug::Printf("%d", 1);
    KOVAVerbose::Printf("%d", 2);
    KOVAInfo::Printf("%d", 3);
    KOVAInfo::PrintfAsItIs("%d", 4);
    KOVAWarning::Printf("%d", 5);
    KOVAError::Printf("%d", 6);
    KOVAAssert::Printf("%d", 7);
    EXPECT_EQ(recorder.events, (Events{"10 1\n", "30 2\n", "50 Message : 3\n", "50 4\n", "70 Warning : 5\n",
                                       "80 Error : 6\n", "90 Assert : 7\n"}));
    recorder.events.clear();
    for (auto print : {&KOVADebug::Printf, &KOVADebug::NoTabPrintf, &KOVAVerbose::Printf, &KOVAVerbose::NoTabPrintf,
                       &KOVAInfo::Printf, &KOVAInfo::PrintfAsItIs, &KOVAInfo::NoTabPrintf, &KOVAWarning::Printf,
                       &KOVAWarning::NoTabPrintf, &KOVAError::Printf, &KOVAAssert::Printf})
        print(nullptr);
    EXPECT_EQ(recorder.events, Events());
}

TEST(Messages, IndentationBelongsToOneClass) {
    test::Recorder recorder;
    KOVAInfo::Tab();
    KOVAInfo::Tab();
    KOVAInfo::Printf("x");
    KOVAInfo::PrintfAsItIs("x");
    KOVAInfo::NoTabPrintf("x");
    KOVAWarning::Printf("x");
    KOVAError::Printf("x");
    for (int i = 0; i < 3; ++i)
        KOVAInfo::Untab();
    KOVAInfo::Printf("x"); // below zero
    KOVAInfo::Tab();
    EXPECT_EQ(recorder.events, (Events{"50 Message :       x\n", "50       x\n", "50 Message : x\n", "70 Warning : x\n",
                                       "80 Error : x\n", "50 Message : x\n"}));
    recorder.events.clear();
    for (int i = 0; i < 200; ++i)
        KOVADebug::Tab();
    KOVADebug::Printf("%s", std::string(5000, 'y').c_str());
    for (int i = 0; i < 200; ++i)
        KOVADebug::Untab();
    EXPECT_EQ(recorder.events, Events{"10 " + std::string(600, ' ') + std::string(1023, 'y') + "\n"});
}

TEST(Messages, TheSecondPassHasNoArguments) {
    test::Recorder recorder;
    KOVAInfo::PrintfAsItIs("%s", "100%s %n %d.stl");
    KOVAInfo::PrintfAsItIs("%s", "5%% of %5%% and 3%%%");
    KOVAInfo::PrintfAsItIs("100%%");
    KOVAInfo::PrintfAsItIs("100%%%%");
    KOVAError::Printf("%s", "%%");
    EXPECT_EQ(recorder.events,
              (Events{"50 100%s %n %d.stl\n", "50 5% of %5% and 3%%\n", "50 100%\n", "50 100%\n", "80 Error : %\n"}));
    // An event made directly formats once.
    KOVAMessageEvent event("%s", "a%%b");
    EXPECT_EQ(test::describe(event), "Message : a%%b\n");
}

TEST(Messages, EventsFormatWithinBounds) {
    std::string const longText(5000, 'z');
    KOVAMessageEvent with("%s", longText.c_str());
    EXPECT_EQ(std::string(with.GetText()), std::string(1023, 'z'));
    KOVAMessageEvent number("%d", 5); // not taken for the form with a flag
    EXPECT_EQ(test::describe(number), "Message : 5\n");
    KOVAMessageEvent without("%s %d", false, "a", 5);
    EXPECT_EQ(test::describe(without), "a 5\n");
    KOVADebugEvent debug("%s", "literal");
    EXPECT_EQ(test::describe(debug), "literal\n");
    KOVAWarningEvent empty("%s", "");
    EXPECT_EQ(empty.GetText(), nullptr);
    test::TextStream out;
    empty.GetFormattedDescription(&out);
    EXPECT_EQ(out.text, "Warning : \n");
    EXPECT_EQ(out.writes, 1);
    empty.GetFormattedDescription(nullptr);
    test::Recorder recorder;
    KOVAMessageEvent::Fire("%d", 1);
    KOVAErrorEvent::Fire("%d", 2);
    KOVAAssertEvent::Fire("%d", 3);
    EXPECT_EQ(recorder.events, (Events{"50 Message : 1\n", "80 Error : 2\n", "90 Assert : 3\n"}));
}

TEST(Messages, PointsAndMatrices) {
    test::Recorder recorder;
    float const points[] = {1, -2.5F, 1000, 0, 0, 0};
    double columns[12];
    float rows[16];
    for (int i = 0; i < 16; ++i)
        rows[i] = static_cast<float>(i);
    for (int i = 0; i < 12; ++i)
        columns[i] = i;
    KOVAVerbose::PrintPointArray(points, 2);
    KOVAVerbose::PrintPointArray(points, 0);
    KOVAVerbose::PrintPointArray(nullptr, 2);
    KOVADebug::Print3x4Matrix(columns);
    KOVAWarning::Print4x4Matrix(rows);
    KOVAInfo::Print3x3Matrix(rows);
    ASSERT_EQ(recorder.events.size(), 12U);
    EXPECT_EQ(recorder.events[0], "30 { 1.000, -2.500, 1000.000}\n\n");
    EXPECT_EQ(recorder.events[3], "10 [1.000, 4.000, 7.000, 10.000]\n\n");
    EXPECT_EQ(recorder.events[6], "70 Warning : [ 4.000,  5.000,  6.000,  7.000]\n\n");
    EXPECT_EQ(recorder.events[11], "50 Message : [6.000, 7.000, 8.000]\n\n");
}

TEST(Messages, Timer) {
    void* const token = KOVADebug::StartTimer();
    float const elapsed = KOVADebug::StopTimer(token);
    EXPECT_GE(elapsed, 0.0F);
    EXPECT_LT(elapsed, 60000.0F);
    EXPECT_EQ(KOVADebug::StopTimer(nullptr), 0.0F);
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
    EXPECT_EQ(KOVAError::GetErrorCount(), 0);
    EXPECT_EQ(KOVAError::GetLastError(), nullptr);

    EXPECT_TRUE(KOVAErrorTracker::Initialize() == 0 && KOVAErrorTracker::Initialize() == 0);
    KOVAErrorTracker* const tracker = KOVAErrorTracker::GetInstance();
    EXPECT_EQ(tracker->GetLastError(), nullptr);
    KOVAWarning::Printf("ignored");
    KOVAEvent impostor("KOVAErrorEvent", 80);
    KOVAEventBus::Fire(impostor);
    KOVAError::Printf("x");
    ASSERT_EQ(KOVAError::GetErrorCount(), 1);
    KOVAString description;
    EXPECT_EQ(KOVAError::GetLastError()->GetErrorType(), 0x01000001);
    KOVAError::GetLastError()->GetDescription(description);
    EXPECT_EQ(description.length(), 0);

    KOVAError error(5);
    error.SetDescription(KOVAString("first"));
    EXPECT_TRUE(KOVAErrorEvent::Fire(error, "reader", 7) == 5);
    EXPECT_EQ(text(error.GetSourceFile()), "reader");
    error.SetDescription(KOVAString("second"));
    for (int i = 0; i < 30; ++i)
        KOVAErrorEvent::Fire(error, "reader", i);
    EXPECT_EQ(tracker->GetErrorCount(), 32);
    KOVAError* const recorded = tracker->GetError(1);
    recorded->GetDescription(description);
    EXPECT_EQ(text(description), "first");
    EXPECT_EQ(recorded->GetSourceLine(), 7);
    EXPECT_EQ(KOVAError::GetLastError()->GetSourceLine(), 29);
    EXPECT_EQ(tracker->GetError(-1), nullptr);
    EXPECT_EQ(tracker->GetError(32), nullptr);
    EXPECT_TRUE(KOVAErrorTracker::Reset() == 0);
    EXPECT_EQ(KOVAError::GetErrorCount(), 0);
    delete tracker;
    EXPECT_EQ(KOVAErrorTracker::GetInstance(), nullptr);
    KOVAError::Printf("lost again");
    EXPECT_EQ(KOVAError::GetErrorCount(), 0);
}

} // namespace
