#pragma once

#include <cstdint>
#include <cstdio>
#include <utility>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/public/KOVIObjectImpl.h>
#include <kova/text/KOVAString.h>

/// The body of a file.
class KOVA_API KOVIFileImpl : public KOVIObjectImpl {
public:
    KOVIFileImpl(char const* tag, KOVAString path) : KOVIObjectImpl(tag), path_(std::move(path)) {}
    KOVIFileImpl(char const* tag, int descriptor) : KOVIObjectImpl(tag), descriptor_(descriptor) {}
    KOVIFileImpl(char const* tag, std::FILE* stream, KOVAString name)
        : KOVIObjectImpl(tag), path_(std::move(name)), stream_(stream) {}
    ~KOVIFileImpl() override;

    /// GetPath has something to give.
    bool HasPath() const noexcept { return path_.length() > 0; }
    /// The path as it was given, or a stream's name, which need not be one; Failure without either.
    KOVIResult GetPath(KOVAString& path) const;
    /// The stream; for a descriptor one that reads a duplicate of it, and lives as long as the body. Failure for a
    /// file that is not open, which has a path, and for a descriptor that cannot be read.
    KOVIResult GetFile(std::FILE*& stream);

private:
    KOVAString path_;
    std::int32_t descriptor_ = -1;
    std::FILE* stream_ = nullptr; ///< owned if there is a descriptor
};
