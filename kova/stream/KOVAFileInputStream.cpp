#include <kova/stream/KOVAFileInputStream.h>

#include <algorithm>
#include <limits>

#include <kova/text/Gk_String.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAFileInputStream) == 24);

namespace {

/// Sizes and positions are kept in 32 bits; what they cannot hold becomes the largest that they can.
std::int32_t narrowed(long long value) {
    return static_cast<std::int32_t>(std::clamp<long long>(value, std::numeric_limits<std::int32_t>::min(),
                                                           std::numeric_limits<std::int32_t>::max()));
}

} // namespace

KOVAFileInputStream::KOVAFileInputStream()
    : KOVAInputStream(nullptr), size_(-1), ownOffset_(-1),
      descriptor_(new KOVAFileDescriptor(0, KOVAFileDescriptor::Read)) {}

KOVAFileInputStream::KOVAFileInputStream(KOVAFileDescriptor* descriptor)
    : KOVAInputStream(nullptr), size_(narrowed(descriptor->fileSize())), ownOffset_(-1), descriptor_(descriptor) {}

KOVAFileInputStream::KOVAFileInputStream(char const* name)
    : KOVAFileInputStream(new KOVAFileDescriptor(name, KOVAFileDescriptor::Read)) {}

KOVAFileInputStream::KOVAFileInputStream(KOVAFilePath const& path)
    : KOVAFileInputStream(new KOVAFileDescriptor(path, KOVAFileDescriptor::Read)) {}

KOVAFileInputStream::KOVAFileInputStream(std::FILE* stream)
    : KOVAFileInputStream(new KOVAFileDescriptor(stream, KOVAFileDescriptor::Read)) {}

KOVAFileInputStream::KOVAFileInputStream(KOVAFileInputStream const& other) = default;

KOVAFileInputStream::~KOVAFileInputStream() = default;

KOVAInputStream* KOVAFileInputStream::duplicate() {
    if (followsDescriptor())
        ownOffset_ = narrowed(descriptor_->offset(0));
    return new KOVAFileInputStream(*this);
}

int KOVAFileInputStream::read(char* const buffer, int count) {
    if (!buffer || count < 1)
        return 0;
    int const result = descriptor_->readBytes(buffer, static_cast<unsigned int>(count), ownOffset_);
    if (!followsDescriptor() && result > 0)
        ownOffset_ = narrowed(0LL + ownOffset_ + result);
    return result;
}

long KOVAFileInputStream::skip(long count) {
    if (followsDescriptor())
        return descriptor_->offset(count);
    ownOffset_ = narrowed(std::max(0LL, 0LL + ownOffset_ + narrowed(count)));
    return ownOffset_;
}

long KOVAFileInputStream::available() const {
    return size_ - getCurrentOffset();
}

bool KOVAFileInputStream::add(Gk_String const& text) {
    if (followsDescriptor())
        descriptor_->offset(-static_cast<long>(text.len()));
    else
        ownOffset_ = std::max(ownOffset_ - text.len(), 0);
    return true;
}

long KOVAFileInputStream::getCurrentOffset() const {
    return followsDescriptor() ? descriptor_->offset(0) : ownOffset_;
}

void KOVAFileInputStream::setOffset(long offset) {
    if (followsDescriptor())
        descriptor_->seek(offset);
    else
        ownOffset_ = narrowed(std::max(offset, 0L));
}
