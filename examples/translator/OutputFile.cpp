#include "OutputFile.h"

#include <algorithm>
#include <system_error>

#include <kova/system/KOVAFilePath.h>

namespace translator {

OutputFile::OutputFile(char const* name)
    : KOVAOutputStream(nullptr), name_(name), file_(KOVAFilePath(name).OpenFile(KOVAString("wb"))),
      descriptor_(new KOVAFileDescriptor(file_.get(), KOVAFileDescriptor::Write)) {}

OutputFile::~OutputFile() {
    if (!file_)
        return;
    file_.reset();
    remove();
}

void OutputFile::remove() {
    std::error_code error;
    std::filesystem::path const target = std::filesystem::canonical(systemPath(name_), error);
    if (!error && std::filesystem::is_regular_file(target, error))
        std::filesystem::remove(target, error);
}

void OutputFile::write(char const* const buffer, int count) {
    if (!isComplete_)
        return;
    int const written = descriptor_->writeBytes(buffer, static_cast<unsigned int>(count), -1);
    size_ += std::max(written, 0);
    isComplete_ = written == count;
}

void OutputFile::overwrite(long at, std::string_view bytes) {
    if (isComplete_)
        isComplete_ = descriptor_->writeBytes(bytes.data(), static_cast<unsigned int>(bytes.size()), at) ==
                      static_cast<int>(bytes.size());
}

bool OutputFile::keep() {
    if (!isComplete_)
        return false;
    if (std::fclose(file_.release()) == 0)
        return true;
    remove();
    return false;
}

} // namespace translator
