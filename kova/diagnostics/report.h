#pragma once

#include <cstdarg>
#include <cstddef>
#include <vector>

#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVAMessageEvents.h>

namespace kova::detail {

/// The names of the library's own objects. An object borrows a name that stands in here and copies any
/// other, which spares a message four calls of the allocator.
struct LibraryNames {
    char event[10] = "KOVAEvent";
    char debugEvent[15] = "KOVADebugEvent";
    char verboseEvent[17] = "KOVAVerboseEvent";
    char messageEvent[17] = "KOVAMessageEvent";
    char warningEvent[17] = "KOVAWarningEvent";
    char errorEvent[15] = "KOVAErrorEvent";
    char assertEvent[16] = "KOVAAssertEvent";

    char startConversion[29] = "KOVAStartConversionTaskEvent";
    char endConversion[27] = "KOVAEndConversionTaskEvent";
    char startOptions[26] = "KOVAStartOptionsTaskEvent";
    char endOptions[16] = "Options logging";
    char startPreprocess[36] = "Start Source Document Preprocessing";
    char startPostprocess[37] = "Start Target Document Postprocessing";
    char startProduct[14] = "Start Product";
    char endProduct[12] = "Product End";
    char startReadFile[27] = "KOVAStartReadFileTaskEvent";
    char endReadFile[13] = "File Reading";
    char startReadEntities[30] = "KOVAStarReadEntitiesTaskEvent"; // callers look for this spelling
    char endReadEntities[15] = "Entity Reading";
    char startWriteFile[13] = "Writing File";
    char startRepair[30] = "KOVAStartTranslateRepairEvent";
    char startStage[30] = "KOVAStartConversionStageEvent";
    char progress[28] = "KOVAThirdPartyProgressEvent";

    // Task identifiers; some are event names too.
    char conversionTask[11] = "Conversion";
    char optionsTask[8] = "Options";
    char preprocessTask[30] = "Source Document Preprocessing";
    char postprocessTask[31] = "Target Document Postprocessing";
    char productTask[8] = "Product";
    char readFileTask[10] = "Read File";
    char readEntitiesTask[14] = "Read Entities";
    char translationTask[12] = "Translation";
    char writeFileTask[11] = "File Write";
    char repairTask[7] = "Repair";
};

extern LibraryNames const libraryNames;

/// A name for an object to keep: borrowed or copied, as said above; null for a null or empty one. dropName
/// lets it go.
char* keepName(char const* name);
void dropName(char* name) noexcept;

// What the reporting calls have in common: format once, bounded, behind the indentation; read the
// result as a format without arguments; fire it.

/// Longest text of a message, terminator included.
constexpr std::size_t kMessageSize = 1024;

/// Formats within `size` bytes and terminates, whatever the format. Returns the length.
std::size_t formatBounded(char* buffer, std::size_t size, char const* format, std::va_list arguments) KOVA_PRINTF(3, 0);

/// Reads a finished text as a format without arguments: "%%" gives "%", and a conversion, having
/// nothing to convert, stays as it stands.
void collapsePercentPairs(char* text);

/// The finished text of one reporting call.
class ReportText {
public:
    ReportText(int indentation, char const* format, std::va_list arguments) KOVA_PRINTF(3, 0);
    ReportText(ReportText const&) = delete;
    ReportText& operator=(ReportText const&) = delete;

    /// Fires an event that borrows the text: it lives no longer than this call.
    template <class Event, class... Arguments> void fire(Arguments... arguments) const {
        Event event(arguments...);
        Loan const loan(event, *text_ ? text_ : nullptr);
        KOVAEventBus::Fire(event);
    }

private:
    /// Takes the text out of the event again, whatever a listener throws.
    class Loan {
    public:
        Loan(KOVATextEvent& event, char* text) noexcept : event_(event) { event_.text_ = text; }
        Loan(Loan const&) = delete;
        Loan& operator=(Loan const&) = delete;
        ~Loan() { event_.text_ = nullptr; }

    private:
        KOVATextEvent& event_;
    };

    char local_[kMessageSize + 192];
    std::vector<char> deep_; ///< for an indentation that does not fit
    char* text_;
};

} // namespace kova::detail
