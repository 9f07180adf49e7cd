#pragma once

#include <cstdio>

#include <kova/core/export.h>
#include <kova/public/KOVIObject.h>

/// A file that an application hands to the toolkit: its path, or one that is open already. Nothing is opened or
/// read before an operation asks for it.
class KOVA_API KOVIFile : public KOVIObject {
public:
    /// Not valid for null or an empty text.
    KOVIFile(char const* path);
    KOVIFile(unsigned short const* path);
    /// An open file's number, for reading from where it stands. It stays the caller's, who closes it after the
    /// last use; its position is then anywhere. What was read to the end gives nothing, with Success, when it is
    /// loaded again. Not valid when negative.
    explicit KOVIFile(int descriptor);
    /// An open stream and what messages call it; null for nothing. The stream stays the caller's, who closes it
    /// after the last use. Not valid for a null stream.
    KOVIFile(std::FILE* stream, char const* name);
    KOVIFile(KOVIFile const&) = default;
    KOVIFile& operator=(KOVIFile const&) = default;
    ~KOVIFile() override;
};
