#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/diagnostics/KOVAConvertedEntitiesInfo.h>
#include <kova/diagnostics/KOVAEvent.h>
#include <kova/system/KOVAFileHeader.h>
#include <kova/text/KOVAString.h>

class KOVAFilePath;
class KOVAOptions;

// A conversion is a nest of tasks. Whoever carries one out fires a start event and an end event:
//
//     KOVAStartReadFileTaskEvent start(name);
//     KOVAEventBus::Fire(start);
//     KOVIResult const result = reader.Read(name, header);
//     KOVAEndReadFileTaskEvent end(result, &header);
//     KOVAEventBus::Fire(end);
//
// What the events write of themselves is the report of the conversion. Their level is 50 unless they are given
// another. Names and identifiers are what listeners look for, odd spellings included.

/// A task begins or ends. The bus stamps these events with the time.
class KOVA_API KOVATaskEvent : public KOVAEvent {
public:
    enum KOVATaskEventKind : std::int32_t { Start = 0, End = 1 };

    ~KOVATaskEvent() override;
    bool IsTimed() override;
    /// The key that a task's start and end share. Failure, and the output is left alone, when there is none.
    virtual KOVIResult GetTaskIdentifier(KOVAString& out);
    virtual KOVATaskEventKind GetKind() = 0;

    /// The event name; null when there is none.
    char const* GetTaskDescription() const noexcept { return taskDescription_; }

    /// The options that the reports show, of the whole process; null, which it is at first, for none. They are
    /// not owned, and must live until they are replaced. A report has a line for each: name, value, and where that
    /// comes from, "set" with the default if that is another, or the environment variable that wins.
    static void SetRunOptions(KOVAOptions* options) noexcept;
    static KOVAOptions* GetRunOptions() noexcept;

protected:
    /// Keeps copies. Null and empty texts are none.
    KOVATaskEvent(char const* eventName, char const* taskIdentifier, KOVAEventLevel level);

private:
    char* taskIdentifier_;
    char* taskDescription_;
};

/// Writes nothing.
class KOVA_API KOVAStartTaskEvent : public KOVATaskEvent {
public:
    KOVAStartTaskEvent(char const* eventName, char const* taskIdentifier, KOVAEventLevel level);
    KOVAStartTaskEvent(char const* eventName, char const* taskIdentifier, int level)
        : KOVAStartTaskEvent(eventName, taskIdentifier, static_cast<KOVAEventLevel>(level)) {}
    KOVATaskEventKind GetKind() override;
};

/// Writes the event name, " Result : " and the result's message between two lines of dashes.
class KOVA_API KOVAEndTaskEvent : public KOVATaskEvent {
public:
    KOVAEndTaskEvent(KOVIResult const& result, char const* eventName, char const* taskIdentifier, KOVAEventLevel level);
    KOVAEndTaskEvent(KOVIResult const& result, char const* eventName, char const* taskIdentifier, int level)
        : KOVAEndTaskEvent(result, eventName, taskIdentifier, static_cast<KOVAEventLevel>(level)) {}
    void GetFormattedDescription(KOVAOutputStream* out) override;
    KOVATaskEventKind GetKind() override;

    void setTaskResult(KOVIResult const& result) noexcept { result_ = result; }
    KOVIResult getTaskResult() const noexcept { return result_; }

private:
    KOVIResult result_;
};

// --- "Conversion"

/// A file is to be converted; all that is done for it lies between this and its end.
class KOVA_API KOVAStartConversionTaskEvent : public KOVAStartTaskEvent {
public:
    KOVAStartConversionTaskEvent();
};

/// Writes the conversion summary: a line for each kind of entity that was counted. Nothing at all when no count
/// is above 0.
class KOVA_API KOVAEndConversionTaskEvent : public KOVAEndTaskEvent {
public:
    /// A success in which nothing was counted.
    KOVAEndConversionTaskEvent();
    KOVAEndConversionTaskEvent(KOVAConvertedEntitiesInfo const& entities, KOVIResult const& result);
    void GetFormattedDescription(KOVAOutputStream* out) override;

    KOVAConvertedEntitiesInfo const& GetEntities() const noexcept { return entities_; }

private:
    KOVAConvertedEntitiesInfo entities_;
};

// --- "Options"

/// Writes a heading, then the options of the run.
class KOVA_API KOVAStartOptionsTaskEvent : public KOVAStartTaskEvent {
public:
    KOVAStartOptionsTaskEvent();
    void GetFormattedDescription(KOVAOutputStream* out) override;
};

/// Writes the line that ends the options; before it, if it is no success, the result.
class KOVA_API KOVAEndOptionsTaskEvent : public KOVAEndTaskEvent {
public:
    explicit KOVAEndOptionsTaskEvent(KOVIResult const& result);
    void GetFormattedDescription(KOVAOutputStream* out) override;
};

// --- "Source Document Preprocessing", "Target Document Postprocessing"

/// What was read is to be prepared for translation.
class KOVA_API KOVAStartPreprocessDocumentEvent : public KOVAStartTaskEvent {
public:
    KOVAStartPreprocessDocumentEvent();
};

/// What was read is prepared.
class KOVA_API KOVAEndPreprocessDocumentEvent : public KOVAEndTaskEvent {
public:
    explicit KOVAEndPreprocessDocumentEvent(KOVIResult const& result);
};

/// What was translated is to be completed before it is written.
class KOVA_API KOVAStartPostprocessDocumentEvent : public KOVAStartTaskEvent {
public:
    KOVAStartPostprocessDocumentEvent();
};

/// What was translated is complete.
class KOVA_API KOVAEndPostprocessDocumentEvent : public KOVAEndTaskEvent {
public:
    explicit KOVAEndPostprocessDocumentEvent(KOVIResult const& result);
};

// --- "Product"

/// Writes product and application, each unless it is empty, and the options of the run; for users who name
/// "UserEnv" in the environment variable "KOVALoggers", the environment too, sorted by name.
class KOVA_API KOVAStartProductEvent : public KOVAStartTaskEvent {
public:
    KOVAStartProductEvent(char const* product, char const* application);
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    KOVAString product_;
    KOVAString application_;
};

/// Writes how the product ended.
class KOVA_API KOVAEndProductEvent : public KOVAEndTaskEvent {
public:
    explicit KOVAEndProductEvent(KOVIResult const& result);
    void GetFormattedDescription(KOVAOutputStream* out) override;
};

// --- "Read File", "Read Entities"

/// Writes the file's name.
class KOVA_API KOVAStartReadFileTaskEvent : public KOVAStartTaskEvent {
public:
    explicit KOVAStartReadFileTaskEvent(char const* fileName);
    explicit KOVAStartReadFileTaskEvent(KOVAString fileName);
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    KOVAString fileName_;
};

/// Writes the header of the file that was read, model by model.
class KOVA_API KOVAEndReadFileTaskEvent : public KOVAEndTaskEvent {
public:
    /// The header is not owned and must outlive the event; null is no header.
    KOVAEndReadFileTaskEvent(KOVIResult const& result, KOVAFileHeader const* header);
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    KOVAFileHeader const* header_;
};

/// Its name is "KOVAStarReadEntitiesTaskEvent". Callers depend on the missing letter.
class KOVA_API KOVAStartReadEntitiesTaskEvent : public KOVAStartTaskEvent {
public:
    KOVAStartReadEntitiesTaskEvent();
};

/// Writes how it went, in one line.
class KOVA_API KOVAEndReadEntitiesTaskEvent : public KOVAEndTaskEvent {
public:
    explicit KOVAEndReadEntitiesTaskEvent(KOVIResult const& result);
    void GetFormattedDescription(KOVAOutputStream* out) override;
};

// --- "Translation". It starts with a KOVAStartConversionStageEvent("Translation", ...).

/// Writes when it ended, in local time, and how many entities failed.
class KOVA_API KOVAEndTranslationTaskEvent : public KOVAEndTaskEvent {
public:
    /// `inAssembly` for a part definition document that was translated within an assembly, which the report then
    /// says. A negative number of failed entities is not shown.
    KOVAEndTranslationTaskEvent(KOVIResult const& result, bool inAssembly, int failedEntities);
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    bool inAssembly_;
    std::int32_t failedEntities_;
};

// --- "File Write"

/// Writes the file's name.
class KOVA_API KOVAStartWriteFileTaskEvent : public KOVAStartTaskEvent {
public:
    explicit KOVAStartWriteFileTaskEvent(KOVAFilePath const& path);
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    KOVAString fileName_;
};

/// Writes how the writing ended. Callers depend on the spelling "Writting", and on the code that follows "code"
/// without a blank.
class KOVA_API KOVAEndWriteFileTaskEvent : public KOVAEndTaskEvent {
public:
    explicit KOVAEndWriteFileTaskEvent(KOVIResult const& result);
    void GetFormattedDescription(KOVAOutputStream* out) override;
};

// --- "Repair"

/// Writes what is repaired, how, and how many of them, in one line.
class KOVA_API KOVAStartTranslateRepairEvent : public KOVAStartTaskEvent {
public:
    KOVAStartTranslateRepairEvent(char const* entity, char const* repair, int count, KOVAEventLevel level);
    KOVAStartTranslateRepairEvent(char const* entity, char const* repair, int count, int level)
        : KOVAStartTranslateRepairEvent(entity, repair, count, static_cast<KOVAEventLevel>(level)) {}
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    KOVAString entity_;
    KOVAString repair_;
    std::int32_t count_;
};

// --- stages and progress

/// A stage of a conversion begins. The stage's text is also its task identifier; the stage "Translation" ends
/// with a KOVAEndTranslationTaskEvent. Writes stage, step and progress in one line.
class KOVA_API KOVAStartConversionStageEvent : public KOVAStartTaskEvent {
public:
    /// The progress, in percent, is shown only if it is known.
    KOVAStartConversionStageEvent(char const* stage, int step, double progress, bool progressKnown);
    void GetFormattedDescription(KOVAOutputStream* out) override;

private:
    KOVAString stage_;
    std::int32_t step_;
    double progress_;
    bool progressKnown_;
};

/// How far another maker's component has come. No task event: it is neither timed nor paired.
class KOVA_API KOVAThirdPartyProgressEvent : public KOVAEvent {
public:
    /// In percent.
    explicit KOVAThirdPartyProgressEvent(double progress);
    void GetFormattedDescription(KOVAOutputStream* out) override;

    double GetProgress() const noexcept { return progress_; }

private:
    double progress_;
};
