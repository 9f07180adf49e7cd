#include <kova/core/Gk_ErrMgr.h>
#include <kova/core/KOVAMemoryBound.h>

#include <gtest/gtest.h>

#include <limits>

#include "support/Recorder.h"

namespace {

TEST(MemoryBound, CountsBytes) {
    unsigned int const current = KOVAMemoryBoundCurrent();
    unsigned int const count = KOVAMemoryBoundCount();
    void* const first = KOVAMemoryBoundAllocate(10);
    void* const second = KOVAMemoryBoundAllocate(20);
    EXPECT_EQ(KOVAMemoryBoundCurrent(), current + 30);
    EXPECT_GE(KOVAMemoryBoundPeak(), current + 30);
    unsigned int const peak = KOVAMemoryBoundPeak();
    KOVAMemoryBoundFree(first);
    EXPECT_EQ(KOVAMemoryBoundCurrent(), current + 20);
    KOVAMemoryBoundFree(second);
    KOVAMemoryBoundFree(nullptr);
    EXPECT_EQ(KOVAMemoryBoundPeak(), peak);
    EXPECT_EQ(KOVAMemoryBoundCount(), count + 2);
    EXPECT_EQ(KOVAMemoryBoundAllocate(std::numeric_limits<unsigned int>::max() - 31), nullptr);
}

TEST(MemoryBound, ReportsOverrunsInOneLine) {
    testing::internal::CaptureStdout();
    char* const intact = static_cast<char*>(KOVAMemoryBoundAllocate(5));
    std::fill(intact, intact + 5, 'x');
    KOVAMemoryBoundFree(intact);
    char* const block = static_cast<char*>(KOVAMemoryBoundAllocate(10));
    block[10] = '\x01';
    unsigned int const number = KOVAMemoryBoundCount();
    KOVAMemoryBoundFree(block);
    std::string const n = std::to_string(number);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*** Error memory boundary overwrite: szeF=10, cntF=" + n +
                  ", db0=0xdeadbeef, db1=0xdeadbeef, db2=0xdeadbe01, db3=0xdeadbeef, cntB=" + n + ", szeB=10\n");
}

TEST(ErrorManager, RaiseReportsThenThrowsTheToken) {
    test::Recorder recorder;
    try {
        Gk_ErrMgr::raise(Gk_IOException("50% of %s"));
        FAIL() << "nothing thrown";
    } catch (Gk_Marker const& e) {
        EXPECT_STREQ(e.token(), "50% of %s");
    }
    EXPECT_THROW(Gk_ErrMgr::raise(Gk_Exception(nullptr)), Gk_Exception);
    EXPECT_EQ(recorder.events.front(), "80 Error : 50% of %s\n");
}

TEST(ErrorManager, ExceptionsCompareByText) {
    char const text[] = "TOKEN";
    Gk_Exception const e(text);
    EXPECT_TRUE(e == Gk_Marker("TOKEN"));
    EXPECT_FALSE(e == "token");
    EXPECT_FALSE(e == Gk_Marker(nullptr));
    EXPECT_TRUE(Gk_Exception(nullptr) == Gk_Marker(nullptr));
}

TEST(ErrorManager, AbortIsConsumedByTheFirstCheck) {
    EXPECT_NO_THROW(Gk_ErrMgr::checkAbort());
    Gk_ErrMgr::setAbort();
    EXPECT_TRUE(Gk_ErrMgr::shouldAbort());
    EXPECT_THROW(Gk_ErrMgr::checkAbort(), KOVAAbortException);
    EXPECT_FALSE(Gk_ErrMgr::shouldAbort());
    EXPECT_NO_THROW(Gk_ErrMgr::checkAbort());
}

} // namespace
