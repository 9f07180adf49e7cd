#include "Translation.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>

#include <kova/core/Gk_Exception.h>
#include <kova/stream/KOVAFileInputStream.h>
#include <kova/stream/KOVAFileOutputStream.h>
#include <kova/system/KOVAFilePath.h>

#include "Mesh.h"
#include "ObjWriter.h"
#include "StlReader.h"
#include "report.h"

namespace translator {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

KOVIResult read(char const* input, Mesh& mesh) {
    File const file(KOVAFilePath(input).OpenFile(KOVAString("rb")));
    if (!file) {
        int const error = errno;
        return fail(error == ENOENT ? kFileNotFound : kFileOpenError, input, -1, "cannot be opened: %s",
                    std::strerror(error));
    }
    KOVAFileDescriptorHandle const descriptor(new KOVAFileDescriptor(file.get(), KOVAFileDescriptor::Read));
    KOVAFileInputStream stream(file.get());
    StlReader reader(stream, descriptor->fileSize(), input);
    KOVIResult const result = reader.read(mesh);
    if (result.IsFailure())
        return result;
    Mesh::Box const box = mesh.boundingBox();
    inform(input, "%s STL, %zu triangles, %zu vertices", reader.encoding(), mesh.triangles().size(),
           mesh.vertices().size());
    inform(input, "bounding box (%g, %g, %g) to (%g, %g, %g)", static_cast<double>(box.low.x),
           static_cast<double>(box.low.y), static_cast<double>(box.low.z), static_cast<double>(box.high.x),
           static_cast<double>(box.high.y), static_cast<double>(box.high.z));
    return result;
}

/// Removes what was begun; but never a device that the output names.
void discard(char const* output) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(output, ignored))
        KOVAFilePath(output).RemoveFile();
}

KOVIResult write(Mesh const& mesh, char const* output) {
    File file(KOVAFilePath(output).OpenFile(KOVAString("wb")));
    if (!file)
        return fail(kFileOpenError, output, -1, "cannot be created: %s", std::strerror(errno));
    KOVAFileDescriptorHandle const descriptor(new KOVAFileDescriptor(file.get(), KOVAFileDescriptor::Write));
    KOVAFileOutputStream stream(file.get());
    ObjWriter writer(stream);
    writer.write(mesh);
    long const written = descriptor->offset(0);
    bool const closed = std::fclose(file.release()) == 0;
    if (written != writer.bytes() || !closed) {
        discard(output);
        return fail(kFileSaveError, output, written, "only %ld of %lld bytes could be written; is the disk full?",
                    written, static_cast<long long>(writer.bytes()));
    }
    inform(output, "OBJ, %zu faces, %zu vertices, %ld bytes", mesh.triangles().size(), mesh.vertices().size(), written);
    return mesh.triangles().empty() ? kNoEntity : kSuccess;
}

} // namespace

KOVIResult translate(char const* input, char const* output) {
    if (!KOVAFilePath(output).HasExtension("obj"))
        return fail(kInvalidArgument, output, -1, "not a format that can be written; name a file that ends in .obj");
    try {
        Mesh mesh;
        KOVIResult result = read(input, mesh);
        if (result.IsSuccess())
            result = write(mesh, output);
        return result;
    } catch (std::exception const& e) {
        return fail(kUnexpectedError, input, -1, "%s", e.what());
    } catch (Gk_Exception const&) {
        return kUnexpectedError; // it was reported when it was raised
    }
}

} // namespace translator
