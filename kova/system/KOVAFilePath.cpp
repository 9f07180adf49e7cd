#include <kova/system/KOVAFilePath.h>

#include <kova/diagnostics/KOVAAssert.h>
#include <kova/platform/files.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAFilePath) == 40);

namespace {

constexpr unsigned short kBackslash = '\\';

constexpr unsigned short kReadMode[] = {'r', 0};

} // namespace

KOVAFilePath::KOVAFilePath() = default;

KOVAFilePath::KOVAFilePath(KOVAString const& path) {
    set(path);
}

KOVAFilePath::KOVAFilePath(char const* path) {
    set(KOVAString(path));
}

KOVAFilePath::KOVAFilePath(unsigned short const* path) {
    if (!path)
        KOVAAssert::Printf("Invalid KOVAFilePath");
    set(KOVAString(path));
}

KOVAFilePath::KOVAFilePath(char const* path, char const* suffix) {
    if (path && suffix) {
        set(KOVAString(path));
        set((firstDot_ < 0 ? path_ : path_.substring(0, firstDot_)) + KOVAString(suffix));
    }
}

KOVAFilePath::KOVAFilePath(KOVAFilePath const& other) {
    set(other.GetPath());
}

KOVAFilePath::KOVAFilePath(KOVAFilePath const* other) {
    if (other)
        set(other->GetPath());
}

KOVAFilePath& KOVAFilePath::operator=(KOVAFilePath const& other) {
    if (this != &other)
        set(other.GetPath());
    return *this;
}

KOVAFilePath::~KOVAFilePath() = default;

void KOVAFilePath::set(KOVAString const& text) {
    path_ = text.length() > 0 ? text : KOVAString();
    if (path_.length() > 0)
        FixSeparator(path_);
    Initialize();
}

void KOVAFilePath::Initialize() {
    length_ = path_.length();
    lastSeparator_ = path_.lastIndexOf(separator_);
    nameStart_ = lastSeparator_ + 1 < length_ ? lastSeparator_ + 1 : -1;
    firstDot_ = path_.indexOf('.', lastSeparator_ < 0 ? 0 : lastSeparator_);
    lastDot_ = lastSeparator_ < 0 ? path_.lastIndexOf('.') : path_.lastIndexOfAfter('.', lastSeparator_);
}

void KOVAFilePath::FixSeparator(KOVAString& text) {
    separator_ = kBackslash;
    text = text.replace('/', kBackslash);
}

KOVAString KOVAFilePath::GetPath() const {
    return path_;
}

KOVAString KOVAFilePath::GetName() const {
    return path_.substring(nameStart_);
}

KOVAString KOVAFilePath::GetNameWithoutExtension() const {
    return path_.substring(nameStart_, firstDot_ < 0 ? length_ : firstDot_);
}

KOVAString KOVAFilePath::GetNameWithoutLastExtension() const {
    return path_.substring(nameStart_, lastDot_ < 0 ? length_ : lastDot_);
}

KOVAString KOVAFilePath::GetLastExtension() const {
    return lastDot_ < 0 ? KOVAString() : path_.substring(lastDot_ + 1);
}

KOVAString KOVAFilePath::GetDirectory() const {
    return path_.substring(0, lastSeparator_);
}

bool KOVAFilePath::IsValid() const {
    return length_ > 0;
}

bool KOVAFilePath::IsAbsolute() const {
    auto const isSeparator = [](unsigned short unit) { return unit == '/' || unit == kBackslash; };
    return isSeparator(path_.charAt(0)) || (path_.charAt(1) == ':' && isSeparator(path_.charAt(2)));
}

bool KOVAFilePath::HasExtension(KOVAString const& ext) const {
    if (ext.length() == 0)
        return false;
    return path_.endsWithIgnoreCase(ext.charAt(0) == '.' ? ext : KOVAString(".") + ext);
}

KOVAFilePath KOVAFilePath::ReplaceLastExtension(char const* ext) const {
    KOVAString const stem = lastDot_ < 0 ? path_ : path_.substring(0, lastDot_);
    KOVAString const given(ext);
    return KOVAFilePath(stem + (given.charAt(0) == '.' ? given : KOVAString(".") + given));
}

KOVAFilePath KOVAFilePath::ResolveAgainst(KOVAFilePath const& base) const {
    if (IsAbsolute())
        return *this;
    KOVAString folder = base.GetDirectory();
    KOVAString rest = path_;
    while (rest.startsWith(KOVAString("."))) {
        if (rest.startsWith(KOVAString(".."))) {
            rest = rest.substring(3);
            int const parent = folder.lastIndexOf(kBackslash);
            if (parent > 0)
                folder = folder.substring(0, parent);
        } else {
            rest = rest.substring(2);
        }
    }
    if (folder.length() > 0 && !folder.endsWith(kBackslash))
        folder = folder + KOVAString(kBackslash);
    return KOVAFilePath(folder + rest);
}

KOVAFilePath KOVAFilePath::operator+(KOVAString const& s) const {
    bool const joined = s.charAt(0) == '.' || path_.endsWith(kBackslash) || path_.charAt(0) == kBackslash;
    return KOVAFilePath(joined ? path_ + s : path_ + KOVAString(kBackslash) + s);
}

bool KOVAFilePath::DoesFileExist() const {
    std::FILE* const file = OpenFile(kReadMode);
    if (file)
        std::fclose(file);
    return file != nullptr;
}

std::FILE* KOVAFilePath::OpenFile(unsigned short const* mode) const {
    return kova::detail::openStream(path_, mode);
}

bool KOVAFilePath::RemoveFile() const {
    return kova::detail::removeFile(path_);
}

void KOVAFilePath::GetChars(unsigned short* buffer, int size) const {
    if (size > 0)
        path_.getChars(0, size - 1, buffer, 0);
}

void KOVAFilePath::GetChars(char* buffer, int size) const {
    if (size > 0)
        path_.getChars(0, size - 1, buffer, 0);
}

KOVAFilePath KOVAFilePath::GetCurrentWorkingDirectory() {
    return KOVAFilePath(static_cast<unsigned short const*>(kova::detail::currentDirectory()));
}

void KOVAFilePath::GetTemporaryFilePath(KOVAFilePath& out) {
    static unsigned int names = 0;
    for (int attempt = 0; attempt < 1000; ++attempt) {
        KOVAFilePath const candidate(KOVAString(64, "./KOVATemp%lx_%x", kova::detail::processId(), ++names));
        if (!candidate.DoesFileExist()) {
            out = candidate;
            return;
        }
    }
    for (long number = 1; number <= 25; ++number) {
        out = KOVAFilePath(KOVAString(64, "KOVATemp_%ld", number));
        if (!out.DoesFileExist())
            return;
    }
}
