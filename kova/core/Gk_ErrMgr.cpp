#include <kova/core/Gk_ErrMgr.h>

#include <atomic>

#include <kova/diagnostics/KOVAError.h>

namespace {
std::atomic<bool> abortRequested{false};
static_assert(sizeof abortRequested == 1);
} // namespace

void Gk_ErrMgr::trap() {}

void Gk_ErrMgr::doAssert(char const* /*file*/, int /*line*/) {}

void Gk_ErrMgr::raise(Gk_Exception const& e) {
    KOVAError::Printf("%s", e.token() ? e.token() : "");
    throw Gk_Exception(e);
}

void Gk_ErrMgr::setAbort() {
    abortRequested = true;
}

bool Gk_ErrMgr::shouldAbort() {
    return abortRequested;
}

void Gk_ErrMgr::checkAbort() {
    // Looking costs far less than taking, and loops call this often.
    if (abortRequested && abortRequested.exchange(false))
        throw KOVAAbortException();
}
