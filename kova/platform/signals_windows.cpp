#include <kova/platform/signals.h>

namespace kova::detail {

PipeSignalHold::PipeSignalHold(bool wanted) noexcept : held_(wanted) {}

PipeSignalHold::~PipeSignalHold() = default;

} // namespace kova::detail
