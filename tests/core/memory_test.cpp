#include "support/test.h"

namespace {

TEST(MemoryBound, CountsBytes) {
    unsigned int const current = KOVAMemoryBoundCurrent();
    unsigned int const count = KOVAMemoryBoundCount();
    void* const first = KOVAMemoryBoundAllocate(10);
    void* const second = KOVAMemoryBoundAllocate(20);
    unsigned int const peak = KOVAMemoryBoundPeak();
    EXPECT_TRUE(KOVAMemoryBoundCurrent() == current + 30 && peak >= current + 30);
    KOVAMemoryBoundFree(first);
    EXPECT_TRUE(KOVAMemoryBoundCurrent() == current + 20 && KOVAMemoryBoundPeak() == peak);
    KOVAMemoryBoundFree(second);
    KOVAMemoryBoundFree(nullptr);
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
    char* const renumbered = static_cast<char*>(KOVAMemoryBoundAllocate(2));
    renumbered[2 + 8] ^= 1; // behind the guard words
    KOVAMemoryBoundFree(renumbered);
    std::string const n = std::to_string(number);
    std::string const next = std::to_string(number + 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*** Error memory boundary overwrite: szeF=10, cntF=" + n +
                  ", db0=0xdeadbeef, db1=0xdeadbeef, db2=0xdeadbe01, db3=0xdeadbeef, cntB=" + n + ", szeB=10\n" +
                  "*** Error memory boundary overwrite: szeF=2, cntF=" + next +
                  ", db0=0xdeadbeef, db1=0xdeadbeef, db2=0xdeadbeef, db3=0xdeadbeef, cntB=" +
                  std::to_string((number + 1) ^ 1) + ", szeB=2\n");
}

TEST(ErrorManager, RaiseReportsThenThrowsTheToken) {
    test::Recorder recorder;
    try {
        Gk_ErrMgr::raise(Gk_IOException("50% of %s"));
        FAIL() << "nothing thrown";
    } catch (Gk_Marker const& e) {
        EXPECT_TRUE(e == Gk_Marker("50% of %s") && !(e == Gk_Marker(nullptr)) && !(e == Gk_Marker("50%")));
    }
    EXPECT_THROW(Gk_ErrMgr::raise(Gk_Exception(nullptr)), Gk_Exception);
    EXPECT_EQ(recorder.events.front(), "80 Error : 50% of %s\n");
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
