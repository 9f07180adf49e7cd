#include "OutputFile.h"

#include <algorithm>
#include <cerrno>
#include <random>
#include <string>
#include <system_error>
#include <utility>

#include <kova/model/KOVACallbackShared.h>
#include <kova/system/KOVAFilePath.h>

namespace toolkit {

namespace fs = std::filesystem;

namespace {

/// A name in the folder that nobody else takes: sixteen random digits make it one.
fs::path unusedName(fs::path const& folder) {
    std::random_device random;
    std::string name = "KOVATemp";
    for (int i = 0; i < 16; ++i)
        name += "0123456789abcdef"[random() % 16];
    return folder / name;
}

File opened(fs::path const& path, char const* mode) {
    return File(libraryPath(path).OpenFile(KOVAString(mode)));
}

} // namespace

OutputFile::OutputFile(std::string name) : KOVAOutputStream(nullptr), name_(std::move(name)) {
    open();
    descriptor_ = KOVAFileDescriptorHandle(new KOVAFileDescriptor(file_.get(), KOVAFileDescriptor::Write));
}

/// Leaves errno as the system set it.
void OutputFile::open() {
    std::error_code error;
    fs::path const path = systemPath(name_.c_str());
    bool const exists = fs::exists(path, error);
    if (exists)
        target_ = fs::is_regular_file(path, error) ? fs::canonical(path, error) : fs::path();
    else
        target_ = fs::is_symlink(path, error) ? path.parent_path() / fs::read_symlink(path, error) : path;
    bool const isWritable = !exists || target_.empty() || opened(target_, "r+b");
    if (!isWritable)
        return;
    if (!target_.empty()) {
        written_ = unusedName(target_.parent_path());
        file_ = opened(written_, "wb");
    } else {
        file_ = opened(path, "wb");
    }
    isRemovedAtEnd_ = file_ && !written_.empty();
}

OutputFile::~OutputFile() {
    file_.reset();
    std::error_code error;
    if (isRemovedAtEnd_)
        fs::remove(written_, error);
}

void OutputFile::write(char const* const buffer, int count) {
    KOVACallbackShared::IsAborted();
    if (!isSound_)
        return;
    int const written = descriptor_->writeBytes(buffer, static_cast<unsigned int>(count), -1);
    size_ += std::max(written, 0);
    isSound_ = written == count;
}

void OutputFile::overwrite(long at, std::string_view bytes) {
    if (isSound_)
        isSound_ = descriptor_->writeBytes(bytes.data(), static_cast<unsigned int>(bytes.size()), at) ==
                   static_cast<int>(bytes.size());
}

bool OutputFile::complete() {
    return isSound_ && std::fclose(file_.release()) == 0;
}

bool OutputFile::keep() {
    std::error_code error;
    if (written_ != target_) {
        if (fs::exists(target_, error))
            fs::permissions(written_, fs::status(target_, error).permissions(), error);
        fs::rename(written_, target_, error);
    }
    isRemovedAtEnd_ = isRemovedAtEnd_ && error;
    return !error;
}

} // namespace toolkit
