#include <kova/stream/KOVAFileDescriptor.h>

#include <algorithm>
#include <limits>

#include <kova/core/Gk_ErrMgr.h>
#include <kova/platform/files.h>
#include <kova/system/KOVAFilePath.h>
#include <kova/text/KOVAString.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAFileDescriptor) == 20);

namespace {

using kova::detail::SeekFrom;

template <class Name> int opened(Name name, KOVAFileDescriptor::IOMode mode) {
    bool const writes = (mode & KOVAFileDescriptor::Write) != 0;
    bool const binary = (mode & KOVAFileDescriptor::Read) != 0;
    int const file =
        kova::detail::openFile(name, writes ? kova::detail::FileAccess::Write : kova::detail::FileAccess::Read,
                               binary ? kova::detail::FileTranslation::Binary : kova::detail::FileTranslation::Text);
    if (file == -1)
        Gk_ErrMgr::raise(Gk_IOException("CANNOT_OPEN_FILE"));
    return file;
}

KOVAFileDescriptor::IOMode allowedMode(int file) {
    kova::detail::FilePermissions const owner = kova::detail::filePermissions(file);
    return static_cast<KOVAFileDescriptor::IOMode>((owner.read ? 1 : 0) + (owner.write ? 2 : 0));
}

/// A position that `long` cannot hold becomes the largest that it can.
long narrowed(std::int64_t position) {
    return static_cast<long>(std::min<std::int64_t>(position, std::numeric_limits<long>::max()));
}

} // namespace

KOVAFileDescriptor::KOVAFileDescriptor(char const* name, IOMode mode)
    : KOVAReferenceCount(0), file_(opened(name, mode)), mode_(mode), owns_(true) {}

KOVAFileDescriptor::KOVAFileDescriptor(KOVAFilePath const& path, IOMode mode)
    : KOVAReferenceCount(0), file_(opened(static_cast<unsigned short const*>(path.GetPath()), mode)), mode_(mode),
      owns_(true) {}

KOVAFileDescriptor::KOVAFileDescriptor(int file, IOMode mode)
    : KOVAReferenceCount(0), file_(file), mode_(mode == None ? allowedMode(file) : mode), owns_(false) {}

KOVAFileDescriptor::KOVAFileDescriptor(std::FILE* stream, IOMode mode)
    : KOVAFileDescriptor(kova::detail::fileNumber(stream), mode) {}

KOVAFileDescriptor::~KOVAFileDescriptor() {
    if (owns_ && file_ != -1)
        kova::detail::closeFile(file_);
}

long KOVAFileDescriptor::offset(long amount) const {
    return narrowed(kova::detail::seekFile(file_, amount, SeekFrom::Current));
}

long KOVAFileDescriptor::seek(long position) const {
    return narrowed(kova::detail::seekFile(file_, position, SeekFrom::Start));
}

long KOVAFileDescriptor::fileSize() const {
    std::int64_t const here = kova::detail::seekFile(file_, 0, SeekFrom::Current);
    std::int64_t const end = kova::detail::seekFile(file_, 0, SeekFrom::End);
    kova::detail::seekFile(file_, here, SeekFrom::Start);
    return narrowed(end);
}

void KOVAFileDescriptor::setBinary() const noexcept {
    kova::detail::setBinaryFile(file_);
}

int KOVAFileDescriptor::readBytes(char* const buffer, unsigned int count, long at) {
    if (at != -1)
        seek(at);
    return kova::detail::readFile(file_, buffer, count);
}

int KOVAFileDescriptor::writeBytes(char const* const buffer, unsigned int count, long at) {
    if (at != -1)
        seek(at);
    return kova::detail::writeFile(file_, buffer, count);
}
