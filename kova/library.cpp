// The process-wide objects. They are constructed in the order in which they stand here, which nothing
// but one source can promise, and destroyed in the opposite order: what is destroyed late may still
// report to what stands above it. All but the trace are made when the library is compiled, as loading must
// cost little.

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
#include <kova/text/static_text.h>
#include <kova/units/Gk_Unit.h>

namespace {

using kova::detail::StaticChars;
using kova::detail::StaticUnits;

StaticUnits yesText("Yes");
StaticUnits noText("No");
StaticUnits trueText("True");
StaticUnits falseText("False");
StaticUnits onText("On");
StaticUnits offText("Off");
StaticUnits modificationDateText("Modification Date");
StaticUnits fileNameText("File Name");
StaticUnits authorText("Author");
StaticUnits organizationText("Organization");
StaticUnits sourceSystemText("Source System");
StaticUnits versionText("Version");
StaticUnits unitsText("Units");
StaticUnits commentText("Comment");
StaticUnits toleranceText("Tolerance");
StaticUnits documentTypeText("Document Type");

StaticChars mmName("mm");
StaticChars cmName("cm");
StaticChars deciName("decimeter");
StaticChars meterName("meter");
StaticChars kmName("km");
StaticChars micrName("micron");
StaticChars milsName("mils");
StaticChars uinchName("microinch");
StaticChars inchName("inch");
StaticChars footName("foot");
StaticChars yardName("yard");
StaticChars mileName("mile");

} // namespace

KOVAEventBus KOVAEventBus::_eventBus;

// A timing report that is still open is printed here at unload: console and bus must outlive the timing logger.
KOVAConsoleLogger KOVAConsoleLogger::_console;
KOVATimingLogger KOVATimingLogger::_timing;

const KOVAError KOVAError::FAIL_ERROR(0x01000001);

KOVAFileDescriptor KOVAFileInputStream::consoleDescriptor_(KOVAFileDescriptor::Console{0, KOVAFileDescriptor::Read});
KOVAFileDescriptor KOVAFileOutputStream::consoleDescriptor_(KOVAFileDescriptor::Console{1, KOVAFileDescriptor::Write});
KOVAFileInputStream KOVAFileInputStream::console(KOVAFileDescriptorHandle::Raised{&consoleDescriptor_});
KOVAFileOutputStream KOVAFileOutputStream::console(KOVAFileDescriptorHandle::Raised{&consoleDescriptor_});

KOVATrace KOVAOption::log("options");

const KOVAString KOVAString::KOVA_YES(KOVAString::Static{yesText.units});
const KOVAString KOVAString::KOVA_NO(KOVAString::Static{noText.units});
const KOVAString KOVAString::KOVA_TRUE(KOVAString::Static{trueText.units});
const KOVAString KOVAString::KOVA_FALSE(KOVAString::Static{falseText.units});
const KOVAString KOVAString::KOVA_ON(KOVAString::Static{onText.units});
const KOVAString KOVAString::KOVA_OFF(KOVAString::Static{offText.units});

const KOVA4x4Matrix KOVA4x4MatrixI;

const KOVAString KOVAFileHeader::MODIFICATION_DATE(KOVAString::Static{modificationDateText.units});
const KOVAString KOVAFileHeader::FILE_NAME(KOVAString::Static{fileNameText.units});
const KOVAString KOVAFileHeader::AUTHOR(KOVAString::Static{authorText.units});
const KOVAString KOVAFileHeader::ORGANIZATION(KOVAString::Static{organizationText.units});
const KOVAString KOVAFileHeader::SOURCE_SYSTEM(KOVAString::Static{sourceSystemText.units});
const KOVAString KOVAFileHeader::VERSION(KOVAString::Static{versionText.units});
const KOVAString KOVAFileHeader::UNITS(KOVAString::Static{unitsText.units});
const KOVAString KOVAFileHeader::COMMENT(KOVAString::Static{commentText.units});
const KOVAString KOVAFileHeader::TOLERANCE(KOVAString::Static{toleranceText.units});
const KOVAString KOVAFileHeader::DOCUMENT_TYPE(KOVAString::Static{documentTypeText.units});

// The sizes of uinch, foot, yard and mile are rounded products of an inch.
const Gk_Unit Gk_Unit::mm(mmName.header, 1.0);
const Gk_Unit Gk_Unit::cm(cmName.header, 10.0);
const Gk_Unit Gk_Unit::deci(deciName.header, 100.0);
const Gk_Unit Gk_Unit::meter(meterName.header, 1000.0);
const Gk_Unit Gk_Unit::km(kmName.header, 1000000.0);
const Gk_Unit Gk_Unit::micr(micrName.header, 0.001);
const Gk_Unit Gk_Unit::mils(milsName.header, 0.0254);
const Gk_Unit Gk_Unit::uinch(uinchName.header, 2.5399999999999997e-05);
const Gk_Unit Gk_Unit::inch(inchName.header, 25.4);
const Gk_Unit Gk_Unit::foot(footName.header, 304.79999999999995);
const Gk_Unit Gk_Unit::yard(yardName.header, 914.3999999999999);
const Gk_Unit Gk_Unit::mile(mileName.header, 1609343.9999999998);

// Libraries that are still known are freed here at unload, while the map is whole and all that their functions may
// use still stands.
KOVATrace KOVALibraryManager::log("libraries");
std::unique_ptr<KOVALibraryManager::Libraries> KOVALibraryManager::_libraries;

namespace {

struct Unload {
    Unload() noexcept = default;
    Unload(Unload const&) = delete;
    Unload& operator=(Unload const&) = delete;
    ~Unload() { KOVALibraryManager::FreeLibraries(); }
} const unload;

} // namespace
