#include "Translation.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
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

/// A file that is removed again unless it is finished. (The file itself where the name is a link to it,
/// and never a device.)
class Output {
public:
    explicit Output(char const* name) : name_(name), file_(KOVAFilePath(name).OpenFile(KOVAString("wb"))) {}
    Output(Output const&) = delete;
    Output& operator=(Output const&) = delete;
    ~Output() {
        if (file_)
            discard();
    }

    std::FILE* file() const noexcept { return file_.get(); }
    /// Closes and keeps it; false when the system could not write what it had taken.
    bool finish() { return std::fclose(file_.release()) == 0; }
    void discard() {
        file_.reset();
        std::string name(name_);
        std::replace(name.begin(), name.end(), '\\', '/');
        std::error_code error;
        std::filesystem::path const target = std::filesystem::canonical(name, error);
        if (!error && std::filesystem::is_regular_file(target, error))
            KOVAFilePath(target.string().c_str()).RemoveFile();
    }

private:
    char const* name_;
    File file_;
};

KOVIResult write(Mesh const& mesh, char const* name) {
    Output output(name);
    if (!output.file())
        return fail(kFileOpenError, name, -1, "cannot be created: %s", std::strerror(errno));
    KOVAFileDescriptorHandle const descriptor(new KOVAFileDescriptor(output.file(), KOVAFileDescriptor::Write));
    bool const tellsPosition = descriptor->offset(0) == 0; // a pipe does not
    KOVAFileOutputStream stream(output.file());
    ObjWriter writer(stream);
    writer.write(mesh);
    long long const wanted = writer.bytes();
    long long const written = tellsPosition ? descriptor->offset(0) : wanted;
    if (written != wanted || !output.finish()) {
        output.discard();
        return fail(kFileSaveError, name, written, "only %lld of %lld bytes could be written; is the disk full?",
                    written, wanted);
    }
    inform(name, "OBJ, %zu faces, %zu vertices, %lld bytes", mesh.triangles().size(), mesh.vertices().size(), written);
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
