// The process-wide objects. They are constructed in the order in which they stand here, which nothing
// but one source can promise, and destroyed in the opposite order: what is destroyed late may still
// report to what stands above it.

#include <kova/diagnostics/KOVAConsoleLogger.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVATrace.h>
#include <kova/options/KOVAOption.h>
#include <kova/math/KOVA4x4Matrix.h>
#include <kova/diagnostics/KOVATimingLogger.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/stream/KOVAFileOutputStream.h>
#include <kova/system/KOVAFileHeader.h>
#include <kova/text/KOVAString.h>

KOVAEventBus KOVAEventBus::_eventBus;

// A timing report that is still open is printed here at unload: console and bus must outlive the timing logger.
KOVAConsoleLogger KOVAConsoleLogger::_console;
KOVATimingLogger KOVATimingLogger::_timing;

const KOVAError KOVAError::FAIL_ERROR(0x01000001);

KOVAFileInputStream KOVAFileInputStream::console;
KOVAFileOutputStream KOVAFileOutputStream::console;

KOVATrace KOVAOption::log("options");

const KOVAString KOVAString::KOVA_YES("Yes");
const KOVAString KOVAString::KOVA_NO("No");
const KOVAString KOVAString::KOVA_TRUE("True");
const KOVAString KOVAString::KOVA_FALSE("False");
const KOVAString KOVAString::KOVA_ON("On");
const KOVAString KOVAString::KOVA_OFF("Off");

const KOVA4x4Matrix KOVA4x4MatrixI;
const KOVAString KOVAFileHeader::MODIFICATION_DATE("Modification Date");
const KOVAString KOVAFileHeader::FILE_NAME("File Name");
const KOVAString KOVAFileHeader::AUTHOR("Author");
const KOVAString KOVAFileHeader::ORGANIZATION("Organization");
const KOVAString KOVAFileHeader::SOURCE_SYSTEM("Source System");
const KOVAString KOVAFileHeader::VERSION("Version");
const KOVAString KOVAFileHeader::UNITS("Units");
const KOVAString KOVAFileHeader::COMMENT("Comment");
const KOVAString KOVAFileHeader::TOLERANCE("Tolerance");
const KOVAString KOVAFileHeader::DOCUMENT_TYPE("Document Type");
