#include <kova/public/KOVIFile.h>

#include <kova/core/results.h>
#include <kova/platform/files.h>
#include <kova/public/KOVIFileImpl.h>
#include <kova/public/body.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIFile) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVIFileImpl) == 40);

using kova::detail::kFailure;
using kova::detail::kSuccess;
using kova::detail::newBody;

namespace {

constexpr char kTag[] = "KOVIFile";

} // namespace

KOVIFile::KOVIFile(char const* path) : KOVIObject(kTag) {
    if (path && *path)
        SetData(newBody<KOVIFileImpl>(kTag, KOVAString(path)));
}

KOVIFile::KOVIFile(unsigned short const* path) : KOVIObject(kTag) {
    if (path && *path)
        SetData(newBody<KOVIFileImpl>(kTag, KOVAString(path)));
}

KOVIFile::KOVIFile(int descriptor) : KOVIObject(kTag) {
    if (descriptor >= 0)
        SetData(newBody<KOVIFileImpl>(kTag, descriptor));
}

KOVIFile::KOVIFile(std::FILE* stream, char const* name) : KOVIObject(kTag) {
    if (stream)
        SetData(newBody<KOVIFileImpl>(kTag, stream, KOVAString(name)));
}

KOVIFile::~KOVIFile() = default;

KOVIFileImpl::~KOVIFileImpl() {
    if (descriptor_ >= 0 && stream_)
        std::fclose(stream_);
}

KOVIResult KOVIFileImpl::GetPath(KOVAString& path) const {
    if (!HasPath())
        return kFailure;
    path = path_;
    return kSuccess;
}

KOVIResult KOVIFileImpl::GetFile(std::FILE*& stream) {
    if (!stream_ && descriptor_ >= 0)
        stream_ = kova::detail::readingStream(descriptor_);
    if (!stream_)
        return kFailure;
    stream = stream_;
    return kSuccess;
}
