#include "Translation.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>

#include <kova/core/Gk_Exception.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/system/KOVAFilePath.h>

#include "ObjReader.h"
#include "ObjWriter.h"
#include "OutputFile.h"
#include "StlReader.h"
#include "StlWriter.h"
#include "files.h"
#include "report.h"

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

bool isSameFile(char const* a, char const* b) {
    std::error_code error; // where one of them is not there, say
    return std::filesystem::equivalent(systemPath(a), systemPath(b), error);
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

/// From the opened input to the output, which is created here: a fault in the input's name costs no
/// earlier output.
KOVIResult translate(std::FILE* inputFile, char const* input, char const* output, Format format,
                     Settings const& settings) {
    KOVAFileDescriptorHandle const descriptor(new KOVAFileDescriptor(inputFile, KOVAFileDescriptor::Read));
    KOVAFileInputStream stream(inputFile);
    OutputFile file(output);
    if (!file.isOpen())
        return fail(kFileOpenError, output, kNowhere, "cannot be created: %s", std::strerror(errno));
    if (format == Format::BinaryStl && !file.canBePositioned())
        return fail(kFileOpenError, output, kNowhere,
                    "binary STL needs a file, not a pipe or a device; write ASCII (--ascii) or OBJ instead");
    std::unique_ptr<ModelReader> const reader = makeReader(stream, descriptor->fileSize(), input);
    std::unique_ptr<TriangleSink> const writer = makeWriter(format, file, settings);
    KOVIResult const result = reader->read(*writer);
    if (result.IsFailure())
        return result;
    writer->finish();
    if (!file.keep())
        return fail(kFileSaveError, output, atByte(file.size()),
                    "only %lld of %lld bytes could be written; is the disk full?", file.size(), writer->bytes());
    report(input, *reader, output, *writer, settings.degenerate);
    return writer->written() == 0 ? kNoEntity : kSuccess;
}

} // namespace

KOVIResult translate(char const* input, char const* output, Settings const& settings) {
    bool const toObj = KOVAFilePath(output).HasExtension("obj");
    if (!toObj && !KOVAFilePath(output).HasExtension("stl"))
        return fail(kInvalidArgument, output, kNowhere,
                    "not a format that can be written; name a file that ends in .obj or .stl");
    Format const format = toObj ? Format::Obj : settings.ascii ? Format::AsciiStl : Format::BinaryStl;
    if (isSameFile(input, output))
        return fail(kInvalidArgument, output, kNowhere, "is the input too; name another file to write");
    try {
        KOVIResult result = kSuccess;
        File const file = openToRead(input, result);
        return file ? translate(file.get(), input, output, format, settings) : result;
    } catch (TriangleWithoutArea const& e) {
        return fail(kInvalidFile, input, kNowhere, "%s", e.what());
    } catch (std::exception const& e) {
        return fail(kUnexpectedError, input, kNowhere, "%s", e.what());
    } catch (Gk_Exception const&) {
        return kUnexpectedError; // it was reported when it was raised
    }
}

} // namespace translator
