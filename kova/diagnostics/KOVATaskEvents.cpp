#include <kova/diagnostics/KOVATaskEvents.h>

#include <algorithm>
#include <charconv>
#include <ctime>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <kova/core/results.h>
#include <kova/diagnostics/KOVATrace.h>
#include <kova/diagnostics/report.h>
#include <kova/options/KOVAOptions.h>
#include <kova/platform/clock.h>
#include <kova/platform/environment.h>
#include <kova/stream/KOVAStreamFormatter.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/system/KOVAFilePath.h>
#include <kova/text/numbers.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVATaskEvent) == 36);
static_assert(sizeof(void*) != 4 || sizeof(KOVAStartTaskEvent) == 36);
static_assert(sizeof(void*) != 4 || sizeof(KOVAEndTaskEvent) == 40);
static_assert(sizeof(void*) != 4 || sizeof(KOVAEndConversionTaskEvent) == 88);

using kova::detail::fixedText;
using kova::detail::libraryNames;

namespace {

constexpr long kAborted = 0x02000003;

KOVAOptions* runOptions = nullptr;

/// One line of a report.
template <class... Parts> void writeLine(KOVAStreamFormatter& out, Parts const&... parts) {
    (out << ... << parts) << out.newline;
}

std::string dashes(std::size_t count = 80) {
    return std::string(count, '-');
}

void writeDashes(KOVAStreamFormatter& out) {
    writeLine(out, dashes().c_str());
}

/// A line of name and value; none for an empty value.
void writeField(KOVAStreamFormatter& out, char const* name, KOVAString const& value) {
    if (value.length() > 0)
        writeLine(out, out.format("%-20s : ", name), value);
}

/// A real with all the digits that tell it from others: "%f" would make nothing of small ones.
KOVAString shown(KOVAValue const& value) {
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    value.GetValueType(type);
    double number = 0.0;
    if (type == KOVAValue::Double && value.GetValue(number).IsSuccess()) {
        char digits[32];
        *std::to_chars(digits, std::end(digits) - 1, number).ptr = '\0';
        return KOVAString(digits);
    }
    KOVAString text;
    value.GetValue(text);
    return text;
}

/// Name, value and origin. What the environment says wins, as it does when the option is read.
struct OptionRow {
    explicit OptionRow(KOVAOption const& option) {
        KOVAValue current;
        KOVAValue standard;
        option.GetName(name);
        option.GetValue(current);
        option.GetDefaultValue(standard);
        KOVAString const variable = KOVAString("KOVA") + name;
        if (KOVAEnvironment::GetVariable(variable, value).IsSuccess()) {
            origin = KOVAString("environment variable ") + variable;
        } else {
            value = shown(current);
            origin = current == standard ? KOVAString("set") : KOVAString("set, default ") + shown(standard);
        }
    }

    KOVAString name;
    KOVAString value;
    KOVAString origin;
};

/// The options of the run, one a line, in columns that are as wide as their longest texts.
void writeRunOptions(KOVAStreamFormatter& out) {
    if (!runOptions)
        return;
    KOVAOptions options(*runOptions); // the caller's keeps its place in its enumeration
    std::vector<OptionRow> rows;
    for (KOVAOption* option = nullptr; options.GetNext(option).IsSuccess();)
        rows.emplace_back(*option);
    int nameWidth = 0;
    int valueWidth = 0;
    for (OptionRow const& row : rows) {
        nameWidth = std::max(nameWidth, row.name.length());
        valueWidth = std::max(valueWidth, row.value.length());
    }
    auto const blanks = [](int count) { return std::string(static_cast<std::size_t>(count) + 2, ' '); };
    for (OptionRow const& row : rows)
        writeLine(out, row.name, blanks(nameWidth - row.name.length()).c_str(), row.value,
                  blanks(valueWidth - row.value.length()).c_str(), row.origin);
}

void writeEnvironment(KOVAStreamFormatter& out) {
    std::vector<std::string> entries;
    for (char const* const* entry = kova::detail::environmentBlock(); *entry; ++entry)
        entries.emplace_back(*entry);
    // By name: "A=" comes before "AB=", and "AB=" before "A_=".
    auto const name = [](std::string const& entry) { return entry.substr(0, entry.find('=')); };
    std::sort(entries.begin(), entries.end(),
              [&name](std::string const& a, std::string const& b) { return name(a) < name(b); });
    writeLine(out, "=== Environment Variables ===");
    for (std::string const& entry : entries)
        writeLine(out, entry.c_str());
    writeLine(out, "=============================");
}

} // namespace

// --- tasks

KOVATaskEvent::KOVATaskEvent(char const* eventName, char const* taskIdentifier, KOVAEventLevel level)
    : KOVAEvent(eventName, level), taskIdentifier_(kova::detail::keepName(taskIdentifier)),
      taskDescription_(kova::detail::keepName(eventName)) {}

KOVATaskEvent::~KOVATaskEvent() {
    kova::detail::dropName(taskIdentifier_);
    kova::detail::dropName(taskDescription_);
}

bool KOVATaskEvent::IsTimed() {
    return true;
}

KOVIResult KOVATaskEvent::GetTaskIdentifier(KOVAString& out) {
    if (!taskIdentifier_)
        return kova::detail::kFailure;
    out = KOVAString(taskIdentifier_);
    return kova::detail::kSuccess;
}

void KOVATaskEvent::SetRunOptions(KOVAOptions* options) noexcept {
    runOptions = options;
}

KOVAOptions* KOVATaskEvent::GetRunOptions() noexcept {
    return runOptions;
}

KOVAStartTaskEvent::KOVAStartTaskEvent(char const* eventName, char const* taskIdentifier, KOVAEventLevel level)
    : KOVATaskEvent(eventName, taskIdentifier, level) {}

KOVATaskEvent::KOVATaskEventKind KOVAStartTaskEvent::GetKind() {
    return Start;
}

KOVAEndTaskEvent::KOVAEndTaskEvent(KOVIResult const& result, char const* eventName, char const* taskIdentifier,
                                   KOVAEventLevel level)
    : KOVATaskEvent(eventName, taskIdentifier, level), result_(result) {}

KOVATaskEvent::KOVATaskEventKind KOVAEndTaskEvent::GetKind() {
    return End;
}

void KOVAEndTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeDashes(out);
    writeLine(out, GetTaskDescription(), " Result : ", result_.GetMessage());
    writeDashes(out);
}

// --- conversion

KOVAStartConversionTaskEvent::KOVAStartConversionTaskEvent()
    : KOVAStartTaskEvent(libraryNames.startConversion, libraryNames.conversionTask, KOVA_LEVEL_INFO) {}

KOVAEndConversionTaskEvent::KOVAEndConversionTaskEvent()
    : KOVAEndConversionTaskEvent(KOVAConvertedEntitiesInfo(), kova::detail::kSuccess) {}

KOVAEndConversionTaskEvent::KOVAEndConversionTaskEvent(KOVAConvertedEntitiesInfo const& entities,
                                                       KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.endConversion, libraryNames.conversionTask, KOVA_LEVEL_INFO),
      entities_(entities) {}

void KOVAEndConversionTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    struct Row {
        char const* kind;
        int count;
    };
    Row const rows[] = {
        {"Groups", entities_.groups},
        {"Assemblies", entities_.assemblies},
        {"Solid Bodies", entities_.solidBodies},
        {"Trim Bodies", entities_.trimBodies},
        {"Wire Bodies", entities_.wireBodies},
        {"Point Bodies", entities_.pointBodies},
        {"Mixed Bodies", entities_.mixedBodies},
        {"Single Point Bodies", entities_.singlePointBodies},
        {"Geometric Sets", entities_.geometricSets},
        {"Curve Sets", entities_.curveSets},
    };
    bool const any = std::any_of(std::begin(rows), std::end(rows), [](Row const& row) { return row.count > 0; });
    if (!any && entities_.otherBodies < 1 && entities_.otherEntities < 1)
        return;
    KOVAStreamFormatter out(stream);
    writeDashes(out);
    writeLine(out, "-------------------------------Conversion Summary-------------------------------");
    for (Row const& row : rows) {
        if (row.count >= 0)
            writeLine(out, out.format("No. of %-35s:    ", row.kind), row.count);
    }
    writeDashes(out);
}

// --- options

KOVAStartOptionsTaskEvent::KOVAStartOptionsTaskEvent()
    : KOVAStartTaskEvent(libraryNames.startOptions, libraryNames.optionsTask, KOVA_LEVEL_INFO) {}

void KOVAStartOptionsTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeLine(out, "--------------------- Options Set by User ------------------");
    writeRunOptions(out);
}

KOVAEndOptionsTaskEvent::KOVAEndOptionsTaskEvent(KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.endOptions, libraryNames.optionsTask, KOVA_LEVEL_INFO) {}

void KOVAEndOptionsTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    if (getTaskResult() != 0)
        writeLine(out, GetTaskDescription(), " Result : ", getTaskResult().GetMessage());
    writeLine(out, dashes(60).c_str()); // as wide as the heading
}

// --- preprocessing and postprocessing

KOVAStartPreprocessDocumentEvent::KOVAStartPreprocessDocumentEvent()
    : KOVAStartTaskEvent(libraryNames.startPreprocess, libraryNames.preprocessTask, KOVA_LEVEL_INFO) {}

KOVAEndPreprocessDocumentEvent::KOVAEndPreprocessDocumentEvent(KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.preprocessTask, libraryNames.preprocessTask, KOVA_LEVEL_INFO) {}

KOVAStartPostprocessDocumentEvent::KOVAStartPostprocessDocumentEvent()
    : KOVAStartTaskEvent(libraryNames.startPostprocess, libraryNames.postprocessTask, KOVA_LEVEL_INFO) {}

KOVAEndPostprocessDocumentEvent::KOVAEndPostprocessDocumentEvent(KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.postprocessTask, libraryNames.postprocessTask, KOVA_LEVEL_INFO) {}

// --- product

KOVAStartProductEvent::KOVAStartProductEvent(char const* product, char const* application)
    : KOVAStartTaskEvent(libraryNames.startProduct, libraryNames.productTask, KOVA_LEVEL_INFO), product_(product),
      application_(application) {}

void KOVAStartProductEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeField(out, "Product", product_);
    writeField(out, "Application", application_);
    writeRunOptions(out);
    if (KOVATrace("UserEnv").IsEnabled())
        writeEnvironment(out);
}

KOVAEndProductEvent::KOVAEndProductEvent(KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.endProduct, libraryNames.productTask, KOVA_LEVEL_INFO) {}

void KOVAEndProductEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    KOVIResult const result = getTaskResult();
    if (result == 0)
        writeLine(out, "Product Completed Successfully");
    else if (result == kAborted)
        writeLine(out, "Product Aborted");
    else
        writeLine(out, "Product Failed with code ", long{result}, " (", result.GetMessage(), ")");
}

// --- reading

KOVAStartReadFileTaskEvent::KOVAStartReadFileTaskEvent(char const* fileName)
    : KOVAStartReadFileTaskEvent(KOVAString(fileName)) {}

KOVAStartReadFileTaskEvent::KOVAStartReadFileTaskEvent(KOVAString fileName)
    : KOVAStartTaskEvent(libraryNames.startReadFile, libraryNames.readFileTask, KOVA_LEVEL_INFO),
      fileName_(std::move(fileName)) {}

void KOVAStartReadFileTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeField(out, "Input File", fileName_);
}

KOVAEndReadFileTaskEvent::KOVAEndReadFileTaskEvent(KOVIResult const& result, KOVAFileHeader const* header)
    : KOVAEndTaskEvent(result, libraryNames.endReadFile, libraryNames.readFileTask, KOVA_LEVEL_INFO), header_(header) {}

void KOVAEndReadFileTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeLine(out, "----------------------------File Header Information-----------------------------");
    int const models = header_ ? header_->GetModelsCount() : 0;
    if (models == 1) {
        out << *header_;
    } else if (models > 1) {
        KOVAFileHeader header(*header_); // the caller's keeps its selection
        for (int i = 0; i < models; ++i) {
            header.SelectModel(i);
            writeLine(out, "Model ", i + 1);
            out << header;
        }
    }
    writeDashes(out);
}

KOVAStartReadEntitiesTaskEvent::KOVAStartReadEntitiesTaskEvent()
    : KOVAStartTaskEvent(libraryNames.startReadEntities, libraryNames.readEntitiesTask, KOVA_LEVEL_INFO) {}

KOVAEndReadEntitiesTaskEvent::KOVAEndReadEntitiesTaskEvent(KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.endReadEntities, libraryNames.readEntitiesTask, KOVA_LEVEL_INFO) {}

void KOVAEndReadEntitiesTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeLine(out, GetTaskDescription(), " Result : ", getTaskResult().GetMessage());
}

// --- translation

KOVAEndTranslationTaskEvent::KOVAEndTranslationTaskEvent(KOVIResult const& result, bool inAssembly, int failedEntities)
    : KOVAEndTaskEvent(result, libraryNames.translationTask, libraryNames.translationTask, KOVA_LEVEL_INFO),
      inAssembly_(inAssembly), failedEntities_(failedEntities) {}

void KOVAEndTranslationTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    long finish = 0;
    if (GetTime(finish).IsFailure())
        finish = static_cast<long>(std::time(nullptr)); // it was never sent
    std::tm const date = kova::detail::localTime(finish);
    char text[32] = "";
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &date);

    KOVAStreamFormatter out(stream);
    writeDashes(out);
    if (inAssembly_)
        writeLine(out, "End Translation of Part Definition Document In Assembly");
    writeLine(out, "Finish Time : ", static_cast<char const*>(text));
    if (failedEntities_ >= 0)
        writeLine(out, "Failed Entities : ", int{failedEntities_});
    writeDashes(out);
}

// --- writing

KOVAStartWriteFileTaskEvent::KOVAStartWriteFileTaskEvent(KOVAFilePath const& path)
    : KOVAStartTaskEvent(libraryNames.startWriteFile, libraryNames.writeFileTask, KOVA_LEVEL_INFO),
      fileName_(path.GetPath()) {}

void KOVAStartWriteFileTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeField(out, "Output File", fileName_);
}

KOVAEndWriteFileTaskEvent::KOVAEndWriteFileTaskEvent(KOVIResult const& result)
    : KOVAEndTaskEvent(result, libraryNames.writeFileTask, libraryNames.writeFileTask, KOVA_LEVEL_INFO) {}

void KOVAEndWriteFileTaskEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    KOVIResult const result = getTaskResult();
    if (result == 0)
        writeLine(out, "Output File is Successfully Written");
    else if (result == kAborted)
        writeLine(out, "Output File Writting is Aborted");
    else
        writeLine(out, "Output File Writting has Failed with code", long{result});
    writeDashes(out);
}

// --- repair

KOVAStartTranslateRepairEvent::KOVAStartTranslateRepairEvent(char const* entity, char const* repair, int count,
                                                             KOVAEventLevel level)
    : KOVAStartTaskEvent(libraryNames.startRepair, libraryNames.repairTask, level), entity_(entity), repair_(repair),
      count_(count) {}

void KOVAStartTranslateRepairEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeLine(out, "Repair : ", entity_, " : ", repair_, " (", int{count_}, ")");
}

// --- stages and progress

KOVAStartConversionStageEvent::KOVAStartConversionStageEvent(char const* stage, int step, double progress,
                                                             bool progressKnown)
    : KOVAStartTaskEvent(libraryNames.startStage, stage, KOVA_LEVEL_INFO), stage_(stage), step_(step),
      progress_(progress), progressKnown_(progressKnown) {}

void KOVAStartConversionStageEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    std::string const progress = progressKnown_ ? ", " + fixedText(progress_, 1) + " %" : "";
    writeLine(out, "Stage : ", stage_, ", step ", int{step_}, progress.c_str());
}

KOVAThirdPartyProgressEvent::KOVAThirdPartyProgressEvent(double progress)
    : KOVAEvent(libraryNames.progress, KOVA_LEVEL_INFO), progress_(progress) {}

void KOVAThirdPartyProgressEvent::GetFormattedDescription(KOVAOutputStream* stream) {
    KOVAStreamFormatter out(stream);
    writeLine(out, "Progress : ", fixedText(progress_, 1).c_str(), " %");
}
