// The process-wide objects. They are constructed in the order in which they stand here, which nothing
// but one source can promise, and destroyed in the opposite order: what is destroyed late may still
// report to what stands above it.

#include <kova/diagnostics/KOVAConsoleLogger.h>
#include <kova/diagnostics/KOVAError.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVATimingLogger.h>
#include <kova/diagnostics/KOVATrace.h>
#include <kova/math/KOVA4x4Matrix.h>
#include <kova/options/KOVAOption.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/stream/KOVAFileOutputStream.h>
#include <kova/system/KOVAFileHeader.h>
#include <kova/system/KOVALibraryManager.h>
#include <kova/text/KOVAString.h>
#include <kova/units/Gk_Unit.h>

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

// The sizes of uinch, foot, yard and mile are rounded products of an inch.
const Gk_Unit Gk_Unit::mm("mm", 1.0);
const Gk_Unit Gk_Unit::cm("cm", 10.0);
const Gk_Unit Gk_Unit::deci("decimeter", 100.0);
const Gk_Unit Gk_Unit::meter("meter", 1000.0);
const Gk_Unit Gk_Unit::km("km", 1000000.0);
const Gk_Unit Gk_Unit::micr("micron", 0.001);
const Gk_Unit Gk_Unit::mils("mils", 0.0254);
const Gk_Unit Gk_Unit::uinch("microinch", 2.5399999999999997e-05);
const Gk_Unit Gk_Unit::inch("inch", 25.4);
const Gk_Unit Gk_Unit::foot("foot", 304.79999999999995);
const Gk_Unit Gk_Unit::yard("yard", 914.3999999999999);
const Gk_Unit Gk_Unit::mile("mile", 1609343.9999999998);

// Libraries that are still known are freed here at unload, while the map is whole and all that their functions may
// use still stands.
KOVATrace KOVALibraryManager::log("libraries");
kova::detail::StringMap<KOVALibraryHandle> KOVALibraryManager::_libraries;

namespace {

struct Unload {
    Unload() noexcept = default;
    Unload(Unload const&) = delete;
    Unload& operator=(Unload const&) = delete;
    ~Unload() { KOVALibraryManager::FreeLibraries(); }
} const unload;

} // namespace
