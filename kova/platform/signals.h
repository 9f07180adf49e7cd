#pragma once

namespace kova::detail {

/// While it lives, a write to a pipe or socket that nobody reads any more fails instead of ending the
/// process. Only this thread's mask changes, and only so long; how the process handles the signal stays as
/// the application has it. Does nothing unless wanted, and on systems without such a signal.
class PipeSignalHold {
public:
    explicit PipeSignalHold(bool wanted) noexcept;
    PipeSignalHold(PipeSignalHold const&) = delete;
    PipeSignalHold& operator=(PipeSignalHold const&) = delete;
    ~PipeSignalHold();

private:
    bool held_;
    bool unblock_ = false; ///< it was not blocked before
};

} // namespace kova::detail
