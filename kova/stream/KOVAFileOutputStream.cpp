#include <kova/stream/KOVAFileOutputStream.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAFileOutputStream) == 16);

KOVAFileOutputStream::KOVAFileOutputStream()
    : KOVAFileOutputStream(new KOVAFileDescriptor(1, KOVAFileDescriptor::Write)) {}

KOVAFileOutputStream::KOVAFileOutputStream(char const* name)
    : KOVAFileOutputStream(new KOVAFileDescriptor(name, KOVAFileDescriptor::Write)) {}

KOVAFileOutputStream::KOVAFileOutputStream(KOVAFilePath const& path)
    : KOVAFileOutputStream(new KOVAFileDescriptor(path, KOVAFileDescriptor::Write)) {}

KOVAFileOutputStream::KOVAFileOutputStream(std::FILE* stream)
    : KOVAFileOutputStream(new KOVAFileDescriptor(stream, KOVAFileDescriptor::Write)) {}

KOVAFileOutputStream::KOVAFileOutputStream(KOVAFileDescriptor* descriptor)
    : KOVAOutputStream(nullptr), descriptor_(descriptor) {}

KOVAFileOutputStream::KOVAFileOutputStream(KOVAFileOutputStream const& other) = default;

KOVAFileOutputStream& KOVAFileOutputStream::operator=(KOVAFileOutputStream const& other) = default;

KOVAFileOutputStream::~KOVAFileOutputStream() {
    KOVAFileOutputStream::flush();
}

void KOVAFileOutputStream::write(char const* const buffer, int count) {
    if (buffer && count > 0 && descriptor_.IsValid())
        descriptor_->writeBytes(buffer, static_cast<unsigned int>(count), -1);
}

void KOVAFileOutputStream::flush() {
    if (descriptor_.IsValid())
        descriptor_->commit();
}

void KOVAFileOutputStream::close() {}
