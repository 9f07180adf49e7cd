#include "Translation.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <deque>
#include <exception>
#include <limits>
#include <memory>
#include <numeric>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/public/KOVIFileImpl.h>
#include <kova/public/KOVIOptionsImpl.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/system/KOVAFilePath.h>

#include "Measure.h"
#include "Placement.h"
#include "Store.h"
#include "WatchedStream.h"
#include "characters.h"
#include "fileHeader.h"
#include "report.h"
#include "tasks.h"
#include "units.h"

namespace toolkit {

namespace {

KOVIFileImpl* bodyOf(KOVIFile const& file) {
    return file.IsValid() ? static_cast<KOVIFileImpl*>(KOVIObjectImpl::Cast(file.GetData())) : nullptr;
}

/// Its path, or what an open stream is called; empty where it has neither.
std::string nameOf(KOVIFile const& file) {
    KOVAString path;
    if (KOVIFileImpl* const body = bodyOf(file))
        body->GetPath(path);
    return nameFrom(path);
}

/// Null for a file that is not open.
std::FILE* streamOf(KOVIFile const& file) {
    std::FILE* stream = nullptr;
    if (KOVIFileImpl* const body = bodyOf(file))
        body->GetFile(stream);
    return stream;
}

/// The set itself, which the handle keeps.
KOVAOptions const& optionsOf(KOVIOptions const& options) {
    static KOVAOptions const none;
    KOVAOptions const* set = &none;
    if (options.IsValid())
        static_cast<KOVIOptionsImpl*>(KOVIObjectImpl::Cast(options.GetData()))->GetOptions(set);
    return *set;
}

/// The formats' own options and those that they share: as by default, or as given.
KOVAOptions allOptions(std::vector<Format const*> const& formats, KOVAOptions given) {
    KOVAOptions options;
    auto const add = [&options](std::vector<OptionDescription> const& descriptions) {
        for (OptionDescription const& each : descriptions)
            options.AddOption(KOVAOption(KOVAOptionName(KOVAString(each.name)), each.defaultValue));
    };
    add(sharedOptions());
    for (Format const* const format : formats)
        add(format->options());
    options.AddOptions(given, true);
    return options;
}

/// Callers know the result of an abort, so nothing is reported. What follows is another matter, so the flag is cleared.
KOVIResult aborted() {
    try {
        Gk_ErrMgr::checkAbort();
    } catch (KOVAAbortException const&) { // which clears the flag
    }
    return kAborted;
}

/// Ends a translation whose failure has been reported.
struct Failed {
    KOVIResult result;
};

/// What a step throws is reported and becomes its result.
template <class Step> KOVIResult guarded(char const* input, Step const& step) {
    try {
        return step();
    } catch (Failed const& e) {
        return e.result;
    } catch (TriangleWithoutArea const& e) {
        return fail(kInvalidFile, input, kNowhere, "%s", e.what());
    } catch (std::exception const& e) {
        return fail(kUnexpectedError, input, kNowhere, "%s", e.what());
    } catch (Gk_Exception const&) {
        return kUnexpectedError; // it was reported when it was raised
    } catch (KOVAAbortException const&) {
        return aborted();
    }
}

int clamped(long long count) {
    return static_cast<int>(std::min<long long>(count, std::numeric_limits<int>::max()));
}

/// A file that is being written, or complete and not yet in its place.
struct Output {
    explicit Output(std::string const& name) : file(name) {}
    Output(std::FILE* stream, std::string const& name) : file(stream, name) {}

    OutputFile file;
    std::unique_ptr<ModelWriter> writer; ///< none before the first triangle, and none any more when it is complete
    // What is left of the writer then.
    std::string description;
    long long bytes = 0;
    std::optional<std::size_t> vertices;
    long long written = 0;
    long long dropped = 0;
    std::vector<FurtherFile> further; ///< complete with it
};

/// One translation, task by task. Triangles are translated while they are read, so that task lies within the
/// reading, unless the whole model has to be there first.
class Conversion : private ModelSink {
public:
    Conversion(Job const& job, Format const& from, Format const& to, TakenFiles& taken)
        : job_(job), taken_(taken), inputName_(nameOf(job.input)), outputName_(nameOf(job.output)), from_(from),
          to_(to), options_(allOptions({&from, &to}, optionsOf(job.options))), settings_(options_),
          placements_(job.placements), isHeld_(job.isSplit || job.placements.size() > 1) {
        if (placements_.empty())
            placements_.emplace_back();
    }

    KOVIResult run(KOVAConvertedEntitiesInfo& entities);

private:
    Scene& scene() override { return scene_; }
    void reserve(std::size_t triangles) override { expected_ = triangles; }
    void add(Piece const& piece) override;

    KOVIResult readFile();
    void openInput();
    KOVIResult readEntities();
    KOVIResult writeFile();
    void openOutput();
    void openOutput(std::string const& name);
    void beginOutput(Output& output);
    void completeOutput(Output& output);
    void take(std::string const& name);
    static void requireOpen(OutputFile const& file);
    static void complete(OutputFile& file, long long bytes);
    static void keep(OutputFile& file);
    void keepOutputs();
    void writeHeld();
    std::string nameForPart(Part const& part);

    void settleUnits();
    void deliver(Piece const& piece, KOVAAssemblyComponentTransform const& placement);
    void report() const;
    std::string unitText() const;
    template <class T> T sum(T Output::*member) const {
        return std::accumulate(outputs_.begin(), outputs_.end(), T{},
                               [member](T all, Output const& each) { return all + each.*member; });
    }

    Job const& job_;
    TakenFiles& taken_;
    std::string const inputName_;
    std::string const outputName_;
    char const* const input_ = inputName_.c_str();
    char const* const output_ = outputName_.c_str();
    Format const& from_;
    Format const& to_;
    KOVAOptions const options_;
    Settings settings_;
    std::vector<KOVAAssemblyComponentTransform> placements_; ///< at least one; scaled once the units are settled
    bool isHeld_;

    KOVAUnit unit_ = KOVA_UNIT_UNKNOWN; ///< of the input
    double unitScale_ = 1;
    bool areUnitsSettled_ = false;

    File inputFile_; ///< none for an open stream
    long long size_ = -1;
    std::unique_ptr<KOVAInputStream> stream_;
    std::unique_ptr<WatchedStream> watched_;
    std::unique_ptr<Input> source_;
    std::unique_ptr<ModelReader> reader_;

    Scene scene_;
    Store store_;
    Measure measure_;
    std::size_t expected_ = 0; ///< triangles
    long long read_ = 0;
    std::deque<Output> outputs_;
    static constexpr std::size_t kLongestTitle = 100; ///< in names of files
    std::unordered_set<std::string> names_;           ///< of parts' files, in small letters
    std::unordered_map<std::string, int> numbers_;    ///< how many more of them were wanted
};

// --- reading

void Conversion::openInput() {
    KOVIResult result = kSuccess;
    std::FILE* file = streamOf(job_.input);
    if (!file) {
        inputFile_ = openToRead(input_, result);
        file = inputFile_.get();
    }
    if (!file)
        throw Failed{result};
    KOVAFileDescriptorHandle const descriptor(new KOVAFileDescriptor(file, KOVAFileDescriptor::Read));
    long const behind = std::max(descriptor->offset(0), 0L);
    size_ = descriptor->fileSize() - behind;
    stream_ = std::make_unique<KOVAFileInputStream>(file);
    watched_ = std::make_unique<WatchedStream>(*stream_, size_);
    source_ = std::make_unique<Input>(Input{*watched_, size_, input_});
    reader_ = from_.reader(*source_);
    if (!reader_)
        throw Failed{fail(kNotSupported, input_, kNowhere, "%s cannot be read", from_.name())};
}

KOVIResult Conversion::readEntities() {
    fire<KOVAStartReadEntitiesTaskEvent>();
    fire<KOVAStartConversionStageEvent>("Translation", 1, 0.0, false);
    KOVIResult const result = guarded(input_, [this] {
        KOVIResult const read = reader_->read(*this);
        if (read.IsSuccess() && watched_->isBroken())
            return fail(kInvalidFile, input_, kNowhere, "cannot be read to its end: %s",
                        std::strerror(watched_->error()));
        return read;
    });
    // What is dropped because the user wants it so has not failed.
    long long const failed =
        settings_.degenerate == Degenerate::Fail && result.IsFailure() && !outputs_.empty() && outputs_.back().writer
            ? outputs_.back().writer->dropped()
            : 0;
    fire<KOVAEndTranslationTaskEvent>(result, false, clamped(failed));
    fire<KOVAEndReadEntitiesTaskEvent>(result);
    return result;
}

KOVIResult Conversion::readFile() {
    fire<KOVAStartReadFileTaskEvent>(input_);
    KOVIResult result = guarded(input_, [this] {
        openInput();
        // A fault in the output's name is known before anything is read.
        if (!job_.isSplit)
            openOutput();
        return kSuccess;
    });
    if (result.IsSuccess())
        result = readEntities();
    KOVAFileHeader const header = reader_ ? fileHeader(input_, size_, *reader_) : KOVAFileHeader();
    fire<KOVAEndReadFileTaskEvent>(result, &header);
    return result;
}

/// Of the input, what the user states, or else the file itself. Lengths are scaled where both units are known.
void Conversion::settleUnits() {
    if (areUnitsSettled_)
        return;
    areUnitsSettled_ = true;
    unit_ = unitOf(job_.fromUnit);
    if (unit_ == KOVA_UNIT_UNKNOWN)
        unit_ = unitOf(reader_->units().c_str());
    KOVAUnit const target = unitOf(job_.toUnit);
    KOVAUnit const wanted = isLength(target) && isLength(unit_) ? target : unit_;
    set_internal_unit(unit_, wanted);
    settings_.unit = isLength(wanted) ? unitName(wanted) : "";
    if (wanted == unit_)
        return;
    double from = 1;
    double to = 1;
    GetUnitScaleFactor(unit_, from);
    GetUnitScaleFactor(wanted, to);
    unitScale_ = from / to;
    for (KOVAAssemblyComponentTransform& placement : placements_) {
        double m[12];
        placement.Get(m);
        for (double& element : m)
            element *= unitScale_;
        placement.Set(m);
    }
}

void Conversion::add(Piece const& piece) {
    settleUnits();
    read_ += static_cast<long long>(Triangles(piece).size());
    if (isHeld_)
        store_.add(piece);
    else
        deliver(piece, placements_.front());
}

void Conversion::deliver(Piece const& piece, KOVAAssemblyComponentTransform const& placement) {
    KOVACallbackShared::IsAborted();
    place(piece.shell, placement);
    Triangles const triangles(piece);
    piece.part.triangles += static_cast<long long>(triangles.size());
    measure_.add(triangles);
    if (!measure_.isFinite())
        throw Failed{fail(kModelTooLarge, input_, kNowhere, "placed and scaled, a coordinate is too large")};
    Output& output = outputs_.back();
    if (!output.writer)
        beginOutput(output);
    output.writer->add(piece);
}

// --- writing

void Conversion::openOutput() {
    if (std::FILE* const stream = streamOf(job_.output))
        outputs_.emplace_back(stream, outputName_);
    else
        openOutput(outputName_);
}

void Conversion::openOutput(std::string const& name) {
    take(name);
    requireOpen(outputs_.emplace_back(name).file);
}

void Conversion::take(std::string const& name) {
    if (char const* const use = taken_.useOf(name))
        throw Failed{fail(kInvalidArgument, name.c_str(), kNowhere, "is %s; name another file to write", use)};
    taken_.add(name, "another output of this run");
}

void Conversion::requireOpen(OutputFile const& file) {
    if (!file.isOpen())
        throw Failed{fail(kFileOpenError, file.name(), kNowhere, "cannot be created: %s", file.reason().c_str())};
}

/// Not before the units are settled: formats write them in front.
void Conversion::beginOutput(Output& output) {
    output.writer = to_.writer(output.file, settings_);
    if (!output.writer)
        throw Failed{kFileOpenError}; // the format knows why and said so
    if (!isHeld_)
        output.writer->reserve(expected_);
}

void Conversion::complete(OutputFile& file, long long bytes) {
    if (!file.complete())
        throw Failed{fail(kFileSaveError, file.name(), atByte(file.size()),
                          "only %lld of %lld bytes could be written: %s", file.size(), bytes, file.reason().c_str())};
}

void Conversion::completeOutput(Output& output) {
    if (!output.writer)
        beginOutput(output);
    output.writer->finish();
    output.further = output.writer->takeFiles();
    for (std::string const& name : reader_->furtherFiles())
        taken_.add(name, "a file that was read with an input");
    for (FurtherFile const& each : output.further) {
        requireOpen(*each.file);
        take(each.file->name());
    }
    complete(output.file, output.writer->bytes());
    for (FurtherFile const& each : output.further)
        complete(*each.file, each.bytes);
    output.description = output.writer->description();
    output.bytes = output.writer->bytes();
    output.vertices = output.writer->vertices();
    output.written = output.writer->written();
    output.dropped = output.writer->dropped();
    output.writer.reset();
}

void Conversion::keep(OutputFile& file) {
    if (!file.keep())
        throw Failed{fail(kFileSaveError, file.name(), kNowhere, "cannot take its place: %s", file.reason().c_str())};
}

void Conversion::keepOutputs() {
    for (Output& output : outputs_) {
        keep(output.file);
        for (FurtherFile const& each : output.further)
            keep(*each.file);
    }
}

/// "part.stl" becomes "part-lid.stl": what a name of a file cannot have everywhere is left out.
std::string Conversion::nameForPart(Part const& part) {
    std::string title = part.title();
    std::replace_if(
        title.begin(), title.end(), [](char c) { return !isPrintable(c) || std::strchr("\"*/:<>?\\| ", c); }, '_');
    title.resize(std::min<std::size_t>(title.size(), kLongestTitle));
    std::string const wanted = "-" + (title.empty() ? "unnamed" : title);
    std::string name = wanted;
    // Some systems do not tell letters apart by case.
    for (int& number = numbers_[lowered(wanted)]; !names_.insert(lowered(name)).second;)
        name = wanted + "-" + std::to_string(++number + 1);
    std::size_t const base = outputName_.find_last_of("/\\") + 1;
    std::size_t const dot = outputName_.rfind('.');
    std::size_t const end = dot == std::string::npos || dot < base ? outputName_.size() : dot;
    return outputName_.substr(0, end) + name + outputName_.substr(end);
}

void Conversion::writeHeld() {
    if (job_.isSplit)
        store_.sortByPart();
    for (std::size_t i = 0; i < placements_.size(); ++i) {
        std::unordered_map<Part const*, Part*> instances;
        Part const* last = nullptr;
        store_.forEach([&](Piece const& piece) {
            Part*& part = instances[&piece.part];
            if (!part)
                part = i == 0 ? &piece.part : &scene_.addInstance(piece.part, i + 1);
            if (job_.isSplit && part != last) {
                if (!outputs_.empty())
                    completeOutput(outputs_.back());
                openOutput(nameForPart(*part));
            }
            last = part;
            deliver({*part, piece.material, piece.shell, piece.alphas}, placements_[i]);
        });
    }
}

KOVIResult Conversion::writeFile() {
    fire<KOVAStartWriteFileTaskEvent>(KOVAFilePath(output_));
    KOVIResult const result = guarded(input_, [this] {
        settleUnits();
        if (isHeld_)
            writeHeld();
        if (!outputs_.empty())
            completeOutput(outputs_.back());
        KOVACallbackShared::IsAborted();
        keepOutputs();
        return kSuccess;
    });
    fire<KOVAEndWriteFileTaskEvent>(result);
    return result;
}

// --- telling

std::string Conversion::unitText() const {
    if (!isLength(unit_))
        return unitOf(job_.toUnit) == KOVA_UNIT_UNKNOWN ? "unit unknown" : "unit unknown, nothing is scaled";
    if (settings_.unit == unitName(unit_))
        return "unit " + settings_.unit;
    char scale[40];
    std::snprintf(scale, sizeof scale, "%.12g", unitScale_);
    return "unit " + unitName(unit_) + ", scaled by " + scale + " to " + settings_.unit;
}

void Conversion::report() const {
    Measure::Box const box = measure_.box();
    // What is added makes 0 of -0.
    auto const shown = [](float coordinate) { return static_cast<double>(coordinate) + 0.0; };
    bool const isOne = outputs_.size() == 1 && placements_.size() == 1;
    inform(input_, "%s", reader_->description({read_, isOne ? outputs_.front().vertices : std::nullopt}).c_str());
    inform(input_, "bounding box (%g, %g, %g) to (%g, %g, %g)", shown(box.low.x), shown(box.low.y), shown(box.low.z),
           shown(box.high.x), shown(box.high.y), shown(box.high.z));
    if (measure_.looksClosed())
        inform(input_, "surface area %g, volume %g, %s", measure_.area(), measure_.volume(), unitText().c_str());
    else
        inform(input_, "surface area %g, not closed, %s", measure_.area(), unitText().c_str());
    if (settings_.degenerate == Degenerate::Drop)
        inform(input_, "%lld triangles without area dropped", sum(&Output::dropped));
    if (measure_.facingAway() > 0)
        warn(input_, kNowhere, "%lld triangles whose normals point to the other side", measure_.facingAway());
    for (Output const& output : outputs_) {
        inform(output.file.name(), "%s, %lld bytes", output.description.c_str(), output.bytes);
        for (FurtherFile const& each : output.further)
            inform(each.file->name(), "%s, %lld bytes", each.description.c_str(), each.bytes);
    }
}

KOVIResult Conversion::run(KOVAConvertedEntitiesInfo& entities) {
    KOVIResult result = readFile();
    if (result.IsSuccess())
        result = writeFile();
    if (result.IsFailure())
        return result;
    report();
    if (sum(&Output::written) == 0)
        warn(input_, kNowhere, "there is no triangle to translate");
    entities.groups = clamped(std::count_if(scene_.parts().begin(), scene_.parts().end(),
                                            [](Part const& part) { return part.triangles > 0; }));
    entities.otherEntities = clamped(sum(&Output::written));
    return kSuccess;
}

Format const* formatOf(Formats& formats, KOVIFile const& file, std::string const& given, char const* option,
                       KOVIResult& result) {
    std::string const name = nameOf(file);
    return formats.of(given.empty() ? extensionOf(name.c_str()) : given, name.c_str(), option, result);
}

KOVIResult convert(Formats& formats, Job const& job, TakenFiles& taken, KOVAConvertedEntitiesInfo& entities) {
    KOVIResult result = kSuccess;
    Format const* const from = formatOf(formats, job.input, job.fromFormat, "--from-format", result);
    if (!from)
        return result;
    Format const* const to = formatOf(formats, job.output, job.toFormat, "--to-format", result);
    if (!to)
        return result;
    if (job.isSplit && streamOf(job.output))
        return fail(kInvalidArgument, nameOf(job.output).c_str(), kNowhere,
                    "parts that become files of their own need a name; name a file to write");
    if (!streamOf(job.input))
        taken.add(nameOf(job.input), "the input too");
    return Conversion(job, *from, *to, taken).run(entities);
}

} // namespace

KOVIResult translate(Formats& formats, Job const& job, TakenFiles& taken) {
    fire<KOVAStartConversionTaskEvent>();
    KOVAConvertedEntitiesInfo entities;
    KOVIResult const result =
        guarded(nameOf(job.input).c_str(), [&] { return convert(formats, job, taken, entities); });
    fire<KOVAEndConversionTaskEvent>(entities, result);
    return result;
}

KOVIResult translate(Formats& formats, Job const& job) {
    TakenFiles taken;
    return translate(formats, job, taken);
}

} // namespace toolkit
