#include "Translation.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <limits>
#include <memory>

#include <kova/core/Gk_Exception.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/system/KOVAFilePath.h>

#include "ObjReader.h"
#include "ObjWriter.h"
#include "OutputFile.h"
#include "StlReader.h"
#include "StlWriter.h"
#include "fileHeader.h"
#include "files.h"
#include "report.h"
#include "tasks.h"

namespace translator {

namespace {

enum class Format { Obj, BinaryStl, AsciiStl };

std::unique_ptr<TriangleSink> makeWriter(Format format, OutputFile& file, Settings const& settings) {
    switch (format) {
    case Format::Obj: return std::make_unique<ObjWriter>(file, settings);
    case Format::AsciiStl: return std::make_unique<AsciiStlWriter>(file, settings);
    case Format::BinaryStl: break;
    }
    return std::make_unique<BinaryStlWriter>(file, settings);
}

std::unique_ptr<ModelReader> makeReader(KOVAInputStream& stream, long long size, char const* name) {
    if (KOVAFilePath(name).HasExtension("obj"))
        return std::make_unique<ObjReader>(stream, size, name);
    return std::make_unique<StlReader>(stream, size, name);
}

void report(char const* input, ModelReader const& reader, char const* output, TriangleSink const& writer,
            Degenerate degenerate) {
    Box const box = writer.boundingBox();
    // What is added makes 0 of -0.
    auto const shown = [](float coordinate) { return static_cast<double>(coordinate) + 0.0; };
    inform(input, "%s", reader.description(writer).c_str());
    inform(input, "bounding box (%g, %g, %g) to (%g, %g, %g)", shown(box.low.x), shown(box.low.y), shown(box.low.z),
           shown(box.high.x), shown(box.high.y), shown(box.high.z));
    if (degenerate == Degenerate::Drop)
        inform(input, "%lld triangles without area dropped", writer.dropped());
    inform(output, "%s, %lld bytes", writer.description().c_str(), writer.bytes());
}

int clamped(long long count) {
    return static_cast<int>(std::min<long long>(count, std::numeric_limits<int>::max()));
}

/// What a step throws is reported and becomes its result.
template <class Step> KOVIResult guarded(char const* input, Step const& step) {
    try {
        return step();
    } catch (TriangleWithoutArea const& e) {
        return fail(kInvalidFile, input, kNowhere, "%s", e.what());
    } catch (std::exception const& e) {
        return fail(kUnexpectedError, input, kNowhere, "%s", e.what());
    } catch (Gk_Exception const&) {
        return kUnexpectedError; // it was reported when it was raised
    }
}

/// One translation, task by task. Triangles are translated while they are read, so that task lies within the
/// reading.
class Conversion {
public:
    Conversion(char const* input, char const* output, Format format, Settings const& settings)
        : input_(input), output_(output), format_(format), settings_(settings) {}

    KOVIResult run(KOVAConvertedEntitiesInfo& entities);

private:
    KOVIResult openInput();
    KOVIResult openOutput();
    KOVIResult readEntities();
    KOVIResult readFile();
    KOVIResult writeFile();

    char const* input_;
    char const* output_;
    Format format_;
    Settings const& settings_;
    File inputFile_;
    long long size_ = -1;
    std::unique_ptr<KOVAInputStream> stream_;
    std::unique_ptr<OutputFile> file_;
    std::unique_ptr<ModelReader> reader_;
    std::unique_ptr<TriangleSink> writer_;
};

KOVIResult Conversion::openInput() {
    KOVIResult result = kSuccess;
    inputFile_ = openToRead(input_, result);
    if (!inputFile_)
        return result;
    KOVAFileDescriptorHandle const descriptor(new KOVAFileDescriptor(inputFile_.get(), KOVAFileDescriptor::Read));
    size_ = descriptor->fileSize();
    stream_ = std::make_unique<KOVAFileInputStream>(inputFile_.get());
    reader_ = makeReader(*stream_, size_, input_);
    return kSuccess;
}

/// Once the input is open: a fault in its name costs no earlier output.
KOVIResult Conversion::openOutput() {
    file_ = std::make_unique<OutputFile>(output_);
    if (!file_->isOpen())
        return fail(kFileOpenError, output_, kNowhere, "cannot be created: %s", std::strerror(errno));
    if (format_ == Format::BinaryStl && !file_->canBePositioned())
        return fail(kFileOpenError, output_, kNowhere,
                    "binary STL needs a file, not a pipe or a device; write ASCII (--ascii) or OBJ instead");
    writer_ = makeWriter(format_, *file_, settings_);
    return kSuccess;
}

KOVIResult Conversion::readEntities() {
    fire<KOVAStartReadEntitiesTaskEvent>();
    fire<KOVAStartConversionStageEvent>("Translation", 1, 0.0, false);
    KOVIResult const result = guarded(input_, [this] { return reader_->read(*writer_); });
    // What is dropped because the user wants it so has not failed.
    long long const failed = settings_.degenerate == Degenerate::Fail ? writer_->dropped() : 0;
    fire<KOVAEndTranslationTaskEvent>(result, false, clamped(failed));
    fire<KOVAEndReadEntitiesTaskEvent>(result);
    return result;
}

KOVIResult Conversion::readFile() {
    fire<KOVAStartReadFileTaskEvent>(input_);
    KOVIResult result = guarded(input_, [this] {
        KOVIResult const opened = openInput();
        return opened.IsFailure() ? opened : openOutput();
    });
    if (result.IsSuccess())
        result = readEntities();
    KOVAFileHeader const header = reader_ ? fileHeader(input_, size_, *reader_) : KOVAFileHeader();
    fire<KOVAEndReadFileTaskEvent>(result, &header);
    return result;
}

KOVIResult Conversion::writeFile() {
    fire<KOVAStartWriteFileTaskEvent>(KOVAFilePath(output_));
    KOVIResult const result = guarded(input_, [this] {
        writer_->finish();
        return file_->keep() ? kSuccess
                             : fail(kFileSaveError, output_, atByte(file_->size()),
                                    "only %lld of %lld bytes could be written; is the disk full?", file_->size(),
                                    writer_->bytes());
    });
    fire<KOVAEndWriteFileTaskEvent>(result);
    return result;
}

KOVIResult Conversion::run(KOVAConvertedEntitiesInfo& entities) {
    KOVIResult result = readFile();
    if (result.IsSuccess())
        result = writeFile();
    if (result.IsFailure())
        return result;
    report(input_, *reader_, output_, *writer_, settings_.degenerate);
    entities.groups = clamped(writer_->parts());
    entities.otherEntities = clamped(writer_->written());
    return writer_->written() == 0 ? kNoEntity : kSuccess;
}

KOVIResult convert(char const* input, char const* output, Settings const& settings,
                   KOVAConvertedEntitiesInfo& entities) {
    bool const toObj = KOVAFilePath(output).HasExtension("obj");
    if (!toObj && !KOVAFilePath(output).HasExtension("stl"))
        return fail(kInvalidArgument, output, kNowhere,
                    "not a format that can be written; name a file that ends in .obj or .stl");
    Format const format = toObj ? Format::Obj : settings.ascii ? Format::AsciiStl : Format::BinaryStl;
    if (isSameFile(input, output))
        return fail(kInvalidArgument, output, kNowhere, "is the input too; name another file to write");
    return Conversion(input, output, format, settings).run(entities);
}

} // namespace

KOVIResult translate(char const* input, char const* output, Settings const& settings) {
    fire<KOVAStartConversionTaskEvent>();
    KOVAConvertedEntitiesInfo entities;
    KOVIResult const result = guarded(input, [&] { return convert(input, output, settings, entities); });
    fire<KOVAEndConversionTaskEvent>(entities, result);
    return result;
}

} // namespace translator
