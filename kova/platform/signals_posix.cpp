#include <kova/platform/signals.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace kova::detail {

namespace {

sigset_t pipeSignal() noexcept {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

bool isPending() noexcept {
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

PipeSignalHold::PipeSignalHold(bool wanted) noexcept : held_(wanted) {
    if (!held_)
        return;
    sigset_t const set = pipeSignal();
    sigset_t before;
    held_ = pthread_sigmask(SIG_BLOCK, &set, &before) == 0;
    unblock_ = held_ && sigismember(&before, SIGPIPE) == 0;
    // One that waits already is the application's.
    if (held_ && !unblock_)
        held_ = !isPending();
}

PipeSignalHold::~PipeSignalHold() {
    if (!held_)
        return;
    int const error = errno;
    sigset_t const set = pipeSignal();
    timespec const atOnce = {};
    while (sigtimedwait(&set, nullptr, &atOnce) == -1 && errno == EINTR) {
    }
    if (unblock_)
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
    errno = error;
}

} // namespace kova::detail
