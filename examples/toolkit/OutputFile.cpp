#include "OutputFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <kova/model/KOVACallbackShared.h>

namespace toolkit {

namespace fs = std::filesystem;

namespace {

constexpr int kBlock = 1 << 16;
constexpr int kMostLinks = 40;

/// A name in the folder that nobody else takes: sixteen random digits make it one.
fs::path unusedName(fs::path const& folder) {
    std::random_device random;
    std::string name = "KOVATemp";
    for (int i = 0; i < 16; ++i)
        name += "0123456789abcdef"[random() % 16];
    return folder / name;
}

KOVAFileDescriptorHandle writing(std::FILE* file) {
    return KOVAFileDescriptorHandle(new KOVAFileDescriptor(file, KOVAFileDescriptor::Write));
}

} // namespace

OutputFile::OutputFile(std::string name) : KOVAOutputStream(nullptr), name_(std::move(name)) {
    open();
    descriptor_ = writing(file_.get());
}

OutputFile::OutputFile(std::FILE* stream, std::string name)
    : KOVAOutputStream(nullptr), name_(std::move(name)), descriptor_(writing(stream)), isStream_(true) {}

void OutputFile::noteReason(int error) {
    if (reason_.empty())
        reason_ = std::strerror(error);
}

void OutputFile::open() {
    std::error_code error;
    fs::path path = systemPath(name_.c_str());
    // Where the name leads to in the end, whether anything is there or not. What leads through a process is an open
    // file of that, such as standard output, and others may write it too.
    auto const isOpenElsewhere = [&path] { return path.generic_u8string().rfind("/proc/", 0) == 0; };
    for (int links = 0; links < kMostLinks && !isOpenElsewhere() && fs::is_symlink(path, error); ++links)
        path = path.parent_path() / fs::read_symlink(path, error);
    bool const exists = fs::exists(path, error);
    bool const isFile = (!exists || fs::is_regular_file(path, error)) && !isOpenElsewhere();
    target_ = isFile ? path : fs::path();
    if (exists && isFile && !openFile(target_, "r+b"))
        return noteReason(errno);
    written_ = isFile ? unusedName(target_.parent_path()) : path;
    file_ = openFile(written_, "wb");
    if (!file_)
        noteReason(errno);
    isRemovedAtEnd_ = file_ && isFile;
}

/// A stream may be one that only appends, or stand anywhere. The temporary file loses its name at once, where it can
/// do without.
bool OutputFile::allowOverwriting() {
    if (!isStream_ && descriptor_->offset(0) != -1)
        return true;
    std::error_code error;
    fs::path const folder = fs::temp_directory_path(error);
    written_ = unusedName(folder);
    held_ = error ? nullptr : openFile(written_, "w+b");
    if (!held_)
        noteReason(error ? error.value() : errno);
    isRemovedAtEnd_ = held_ && !fs::remove(written_, error);
    destination_ = std::exchange(descriptor_, writing(held_.get()));
    return held_ != nullptr;
}

/// To where it was meant for.
void OutputFile::passOn() {
    descriptor_ = destination_;
    std::vector<char> block(kBlock);
    std::rewind(held_.get());
    size_ = 0;
    for (std::size_t count = block.size(); count == block.size();) {
        count = std::fread(block.data(), 1, block.size(), held_.get());
        write(block.data(), static_cast<int>(count));
    }
    if (std::ferror(held_.get()) != 0) {
        noteReason(errno);
        isSound_ = false;
    }
}

OutputFile::~OutputFile() {
    file_.reset();
    held_.reset();
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
    if (!isSound_)
        noteReason(errno);
}

void OutputFile::overwrite(long at, std::string_view bytes) {
    if (!isSound_)
        return;
    isSound_ = descriptor_->writeBytes(bytes.data(), static_cast<unsigned int>(bytes.size()), at) ==
               static_cast<int>(bytes.size());
    if (!isSound_)
        noteReason(errno);
}

bool OutputFile::complete() {
    if (held_ && isSound_)
        passOn();
    if (isSound_ && !isStream_ && std::fclose(file_.release()) != 0) {
        noteReason(errno);
        return false;
    }
    return isSound_;
}

bool OutputFile::keep() {
    if (target_.empty())
        return true;
    std::error_code error;
    if (fs::exists(target_, error))
        fs::permissions(written_, fs::status(target_, error).permissions(), error);
    fs::rename(written_, target_, error);
    isRemovedAtEnd_ = isRemovedAtEnd_ && error;
    if (error)
        reason_ = error.message();
    return !error;
}

} // namespace toolkit
