// The process-wide objects. They are constructed in the order in which they stand here, which nothing
// but one source can promise, and destroyed in the opposite order: what is destroyed late may still
// report to what stands above it.

#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/math/KOVA4x4Matrix.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/stream/KOVAFileOutputStream.h>
#include <kova/text/KOVAString.h>

KOVAEventBus KOVAEventBus::_eventBus;

const KOVAError KOVAError::FAIL_ERROR(0x01000001);

KOVAFileInputStream KOVAFileInputStream::console;
KOVAFileOutputStream KOVAFileOutputStream::console;

const KOVAString KOVAString::KOVA_YES("Yes");
const KOVAString KOVAString::KOVA_NO("No");
const KOVAString KOVAString::KOVA_TRUE("True");
const KOVAString KOVAString::KOVA_FALSE("False");
const KOVAString KOVAString::KOVA_ON("On");
const KOVAString KOVAString::KOVA_OFF("Off");

const KOVA4x4Matrix KOVA4x4MatrixI;
