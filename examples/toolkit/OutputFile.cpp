#include "OutputFile.h"

#include <algorithm>
#include <cerrno>
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

/// Leaves errno as the system set it.
void OutputFile::open() {
    std::error_code error;
    fs::path const path = systemPath(name_.c_str());
    bool const exists = fs::exists(path, error);
    if (exists)
        target_ = fs::is_regular_file(path, error) ? fs::canonical(path, error) : fs::path();
    else
        target_ = fs::is_symlink(path, error) ? path.parent_path() / fs::read_symlink(path, error) : path;
    bool const isWritable = !exists || target_.empty() || openFile(target_, "r+b");
    if (!isWritable)
        return;
    if (!target_.empty()) {
        written_ = unusedName(target_.parent_path());
        file_ = openFile(written_, "wb");
    } else {
        file_ = openFile(path, "wb");
    }
    isRemovedAtEnd_ = file_ && !written_.empty();
}

/// A stream may be one that only appends, or stand anywhere. The temporary file loses its name at once, where it can
/// do without.
bool OutputFile::allowOverwriting() {
    if (!isStream_ && descriptor_->offset(0) != -1)
        return true;
    std::error_code error;
    written_ = unusedName(fs::temp_directory_path(error));
    held_ = openFile(written_, "w+b");
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
    isSound_ = isSound_ && std::ferror(held_.get()) == 0;
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
}

void OutputFile::overwrite(long at, std::string_view bytes) {
    if (isSound_)
        isSound_ = descriptor_->writeBytes(bytes.data(), static_cast<unsigned int>(bytes.size()), at) ==
                   static_cast<int>(bytes.size());
}

bool OutputFile::complete() {
    if (held_ && isSound_)
        passOn();
    return isSound_ && (isStream_ || std::fclose(file_.release()) == 0);
}

bool OutputFile::keep() {
    if (target_.empty())
        return true;
    std::error_code error;
    if (fs::exists(target_, error))
        fs::permissions(written_, fs::status(target_, error).permissions(), error);
    fs::rename(written_, target_, error);
    isRemovedAtEnd_ = isRemovedAtEnd_ && error;
    return !error;
}

} // namespace toolkit
