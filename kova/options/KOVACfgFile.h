#pragma once

#include <cstdio>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/Gk_String.h>

/// A line "key=value" of a configuration file: a name, and the values between commas.
class KOVA_API KOVACfgFileKey {
public:
    explicit KOVACfgFileKey(char const* name);
    KOVACfgFileKey(KOVACfgFileKey const& other);
    KOVACfgFileKey& operator=(KOVACfgFileKey const& other);
    virtual ~KOVACfgFileKey();

    Gk_String const& GetName() const { return name_; }
    int GetNumValues() const { return values_.size(); }
    /// The empty text when there is no value i.
    Gk_String GetValue(int i) const;
    void AppendValue(char const* value);
    /// All values with "," between them; empty when there is none.
    Gk_String GetAllValues() const;

private:
    Gk_String name_;
    KOVADynamicArray<Gk_String> values_;
};

/// The keys below a "[section]" line, in file order. Owns them; copies are deep.
class KOVA_API KOVACfgFileSection {
public:
    explicit KOVACfgFileSection(char const* name);
    KOVACfgFileSection(KOVACfgFileSection const& other);
    KOVACfgFileSection& operator=(KOVACfgFileSection const& other);
    virtual ~KOVACfgFileSection();

    Gk_String const& GetSectionName() const { return name_; }
    int GetNumKeys() const { return keys_.size(); }
    /// Null when there is no key i.
    KOVACfgFileKey* GetKey(int i) const;
    /// The first key of the name, or null.
    KOVACfgFileKey* findKey(char const* name) const;
    /// Appends a key, whether there is one of that name or not.
    KOVACfgFileKey* createKey(char const* name);

private:
    void copyKeys(KOVADynamicArray<KOVACfgFileKey*> const& keys);
    void removeKeys();

    Gk_String name_;
    KOVADynamicArray<KOVACfgFileKey*> keys_;
};

/// A text file of sections and "key=value" lines, and typed questions to it.
///
///     # a comment; so is a line that begins with ";"
///     tolerance = 0.01
///     [Units]
///     names = "mm",inch           two values
///
///     KOVACfgFile file;
///     double tolerance = 0;
///     if (file.Load("part.cfg").IsSuccess() && file.GetDouble("tolerance", tolerance)) ...
///
/// Lines before the first section belong to the section "", which a null section name means too. Keys and
/// values lose blanks and double quotes at both ends; ":" separates where a line has no "=". Lines that are
/// no such line, or hold a zero, are recorded as errors, and loading goes on. Loads add to what is there, errors
/// included. A line of more than 1023 characters counts as several.
class KOVA_API KOVACfgFile {
public:
    KOVACfgFile();
    KOVACfgFile(KOVACfgFile const&) = delete;
    /// Deep.
    KOVACfgFile& operator=(KOVACfgFile const& other);
    virtual ~KOVACfgFile();

    /// Invalid Argument for a null or empty path; File Open Error; else as below.
    KOVIResult Load(char const* path);
    /// Reads to the end. Failure when any error is recorded, also from before; a stream that cannot be read to its
    /// end is one, too. Invalid Argument for null.
    KOVIResult Load(std::FILE* file);

    // Typed queries. False when there is no such section or key; an index past the values reads as the empty
    // text. The types other than text also give false, and record an error, for a text that is no such value:
    // a bool is "true", "TRUE", "false" or "FALSE" and nothing else; a logical 0 and 1 besides.

    bool GetString(char const* key, Gk_String& value, int index = 0, char const* section = nullptr) const;
    bool GetBool(char const* key, bool& value, int index = 0, char const* section = nullptr);
    bool GetLogical(char const* key, int& value, int index = 0, char const* section = nullptr);
    bool GetInt(char const* key, int& value, int index = 0, char const* section = nullptr);
    bool GetDouble(char const* key, double& value, int index = 0, char const* section = nullptr);

    bool ExistKey(char const* key, char const* section = nullptr) const;
    /// The number of values; 0 when there is no such key.
    int GetArraySize(char const* key, char const* section = nullptr) const;

    int GetSectionCount() const { return sections_.size(); }
    /// In order of first appearance; null when there is no section i.
    KOVACfgFileSection* GetSection(int i) const;

    int GetErrorCount() const { return errors_.size(); }
    /// The empty text when there is no error i.
    Gk_String GetErrorMessage(int i) const;

protected:
    /// Removes blanks, tabs, line ends and double quotes at both ends, in place.
    static void removeWhiteSpaces(char* text);
    /// Records an error, cut at 2047 characters.
    void flagError(char const* format, ...) KOVA_PRINTF(2, 3);
    /// Finds the section or appends it.
    KOVACfgFileSection* createSection(char const* name);
    /// Null when there is none; a null name is "".
    KOVACfgFileSection* findSection(char const* name) const;
    /// What Load does with each line: reads the next and adds its key to the current section, records an error
    /// with the line's number, or changes the section. False at the end.
    bool loadLine(std::FILE* file, long number, KOVACfgFileSection*& current);

private:
    KOVACfgFileKey* findKey(char const* key, char const* section) const;
    void parseLine(char* line, long number, KOVACfgFileSection*& current);
    void removeSections();

    KOVADynamicArray<KOVACfgFileSection*> sections_;
    KOVADynamicArray<Gk_String> errors_;
};
