#pragma once

#include <cstdint>
#include <cstdio>

#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

/// A file's name with backslashes as separators, whatever it was written with; the system is handed
/// what it wants. A value: operations derive new paths, only assignment changes one.
///
///     KOVAFilePath in("models/part.stl");
///     KOVAFilePath out = in.ReplaceLastExtension("obj");       // "models\part.obj"
///     if (!out.GetDirectory().equals("models")) ...
class KOVA_API KOVAFilePath {
public:
    /// The empty path; so is the path of a null pointer.
    KOVAFilePath();
    KOVAFilePath(KOVAString const& path);
    KOVAFilePath(char const* path);
    /// Null is also reported, as "Invalid KOVAFilePath" on the assert channel.
    KOVAFilePath(unsigned short const* path);
    /// The path with everything from the first dot of its name replaced by the suffix, which brings its
    /// own dot. Empty when either is null.
    KOVAFilePath(char const* path, char const* suffix);
    KOVAFilePath(KOVAFilePath const& other);
    KOVAFilePath(KOVAFilePath const* other);
    KOVAFilePath& operator=(KOVAFilePath const& other);
    virtual ~KOVAFilePath();

    /// The path in 8 bits; lives until this path is assigned or destroyed. Null for the empty path.
    operator char const*() const { return path_; }

    virtual KOVAString GetPath() const;
    /// The last component; empty when the path ends with a separator.
    virtual KOVAString GetName() const;
    /// The name up to its first dot.
    virtual KOVAString GetNameWithoutExtension() const;
    /// The name up to its last dot.
    virtual KOVAString GetNameWithoutLastExtension() const;
    /// What follows the last dot; empty without one.
    virtual KOVAString GetLastExtension() const;
    /// What stands before the last separator; empty without one.
    virtual KOVAString GetDirectory() const;
    /// The path is not empty.
    virtual bool IsValid() const;
    /// It begins with a separator, or its second unit is ":" and its third a separator.
    virtual bool IsAbsolute() const;
    /// The path ends with the extension, given with or without its dot, ignoring case.
    virtual bool HasExtension(KOVAString const& ext) const;
    /// The path cut before its last dot, and the extension, given with or without its dot.
    virtual KOVAFilePath ReplaceLastExtension(char const* ext) const;
    /// This path as seen from the folder of the file `base`. Callers depend on any name that begins with
    /// a dot losing two units (".hidden" gives "idden"), not only one that begins with "./".
    virtual KOVAFilePath ResolveAgainst(KOVAFilePath const& base) const;
    virtual bool DoesFileExist() const;
    /// As fopen; null when that fails, and errno says why. The caller closes it.
    virtual std::FILE* OpenFile(unsigned short const* mode) const;
    virtual bool RemoveFile() const;
    /// Copy the path, cut to `size` units with the terminator, and terminate it.
    virtual void GetChars(unsigned short* buffer, int size) const;
    virtual void GetChars(char* buffer, int size) const;

    /// This path, a separator and s. None stands between them when s begins with a dot, or when this path
    /// ends or, as callers depend on, begins with one ("\data" + "x" gives "\datax").
    KOVAFilePath operator+(KOVAString const& s) const;

    static KOVAFilePath GetCurrentWorkingDirectory();
    /// Names a file of the current folder that does not exist. Hazard: somebody else may create it first.
    static void GetTemporaryFilePath(KOVAFilePath& out);

protected:
    /// Finds length, separator and dots again.
    virtual void Initialize();
    /// Makes every separator of the text a backslash.
    virtual void FixSeparator(KOVAString& text);

private:
    void set(KOVAString const& text);

    KOVAString path_;
    std::uint16_t separator_ = ' ';
    std::int32_t length_ = 0;
    std::int32_t lastSeparator_ = -1;
    std::int32_t nameStart_ = -1;
    std::int32_t firstDot_ = -1;
    std::int32_t lastDot_ = -1;
};
