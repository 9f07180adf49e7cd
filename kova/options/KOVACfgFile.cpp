#include <kova/options/KOVACfgFile.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include <kova/core/results.h>
#include <kova/system/KOVAFilePath.h>
#include <kova/text/Gk_StringParser.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVACfgFileKey) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVACfgFileSection) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVACfgFile) == 12);

using kova::detail::kFailure;
using kova::detail::kFileOpenError;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

namespace {

constexpr int kLineSize = 1024;

char const* orEmpty(char const* text) {
    return text ? text : "";
}

/// As fgets does, but counts: a line may hold zeros.
int readLine(char* line, std::FILE* file) {
    int length = 0;
    for (int c = 0; length < kLineSize - 1 && c != '\n';) {
        c = std::getc(file);
        if (c == EOF)
            break;
        line[length++] = static_cast<char>(c);
    }
    line[length] = '\0';
    return length;
}

} // namespace

// --- KOVACfgFileKey

KOVACfgFileKey::KOVACfgFileKey(char const* name) : name_(name) {}

KOVACfgFileKey::KOVACfgFileKey(KOVACfgFileKey const& other) : name_(other.name_.copy()) {
    for (int i = 0; i < other.values_.size(); ++i)
        values_.add(other.values_[i].copy());
}

KOVACfgFileKey& KOVACfgFileKey::operator=(KOVACfgFileKey const& other) {
    KOVACfgFileKey const copy(other);
    name_ = copy.name_;
    values_ = copy.values_;
    return *this;
}

KOVACfgFileKey::~KOVACfgFileKey() = default;

Gk_String KOVACfgFileKey::GetValue(int i) const {
    return i >= 0 && i < values_.size() ? values_[i].copy() : Gk_String("");
}

void KOVACfgFileKey::AppendValue(char const* value) {
    values_.add(Gk_String(value));
}

Gk_String KOVACfgFileKey::GetAllValues() const {
    Gk_String all("");
    for (int i = 0; i < values_.size(); ++i) {
        if (i > 0)
            all.append(",");
        all.append(values_[i]);
    }
    return all;
}

// --- KOVACfgFileSection

KOVACfgFileSection::KOVACfgFileSection(char const* name) : name_(name) {}

KOVACfgFileSection::KOVACfgFileSection(KOVACfgFileSection const& other) : name_(other.name_.copy()) {
    copyKeys(other.keys_);
}

KOVACfgFileSection& KOVACfgFileSection::operator=(KOVACfgFileSection const& other) {
    if (this != &other) {
        name_ = other.name_.copy();
        removeKeys();
        copyKeys(other.keys_);
    }
    return *this;
}

KOVACfgFileSection::~KOVACfgFileSection() {
    removeKeys();
}

void KOVACfgFileSection::copyKeys(KOVADynamicArray<KOVACfgFileKey*> const& keys) {
    for (int i = 0; i < keys.size(); ++i)
        keys_.add(new KOVACfgFileKey(*keys[i]));
}

void KOVACfgFileSection::removeKeys() {
    for (int i = 0; i < keys_.size(); ++i)
        delete keys_[i];
    keys_.clear();
}

KOVACfgFileKey* KOVACfgFileSection::GetKey(int i) const {
    return i >= 0 && i < keys_.size() ? keys_[i] : nullptr;
}

KOVACfgFileKey* KOVACfgFileSection::findKey(char const* name) const {
    Gk_String const wanted(name);
    for (int i = 0; i < keys_.size(); ++i) {
        if (keys_[i]->GetName() == wanted)
            return keys_[i];
    }
    return nullptr;
}

KOVACfgFileKey* KOVACfgFileSection::createKey(char const* name) {
    KOVACfgFileKey* const key = new KOVACfgFileKey(name);
    keys_.add(key);
    return key;
}

// --- KOVACfgFile

KOVACfgFile::KOVACfgFile() = default;

KOVACfgFile& KOVACfgFile::operator=(KOVACfgFile const& other) {
    if (this != &other) {
        removeSections();
        for (int i = 0; i < other.sections_.size(); ++i)
            sections_.add(new KOVACfgFileSection(*other.sections_[i]));
        errors_ = other.errors_.copy();
    }
    return *this;
}

KOVACfgFile::~KOVACfgFile() {
    removeSections();
}

void KOVACfgFile::removeSections() {
    for (int i = 0; i < sections_.size(); ++i)
        delete sections_[i];
    sections_.clear();
}

KOVACfgFileSection* KOVACfgFile::GetSection(int i) const {
    return i >= 0 && i < sections_.size() ? sections_[i] : nullptr;
}

KOVACfgFileSection* KOVACfgFile::findSection(char const* name) const {
    Gk_String const wanted(name);
    for (int i = 0; i < sections_.size(); ++i) {
        if (sections_[i]->GetSectionName() == wanted)
            return sections_[i];
    }
    return nullptr;
}

KOVACfgFileSection* KOVACfgFile::createSection(char const* name) {
    KOVACfgFileSection* section = findSection(name);
    if (!section) {
        section = new KOVACfgFileSection(name);
        sections_.add(section);
    }
    return section;
}

Gk_String KOVACfgFile::GetErrorMessage(int i) const {
    return i >= 0 && i < errors_.size() ? errors_[i].copy() : Gk_String("");
}

void KOVACfgFile::flagError(char const* format, ...) {
    char message[2048] = "";
    std::va_list arguments;
    va_start(arguments, format);
    if (format)
        std::vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    errors_.add(Gk_String(message));
}

void KOVACfgFile::removeWhiteSpaces(char* text) {
    if (!text)
        return;
    std::string_view rest(text);
    constexpr char kRemoved[] = "\t \r\n\"";
    rest.remove_prefix(std::min(rest.find_first_not_of(kRemoved), rest.size()));
    rest = rest.substr(0, rest.find_last_not_of(kRemoved) + 1);
    std::memmove(text, rest.data(), rest.size());
    text[rest.size()] = '\0';
}

// --- loading

KOVIResult KOVACfgFile::Load(char const* path) {
    if (!path || !*path)
        return kInvalidArgument;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(KOVAFilePath(path).OpenFile(KOVAString("rt")),
                                                               &std::fclose);
    return file ? Load(file.get()) : kFileOpenError;
}

KOVIResult KOVACfgFile::Load(std::FILE* file) {
    if (!file)
        return kInvalidArgument;
    KOVACfgFileSection* current = createSection("");
    long number = 1;
    while (loadLine(file, number, current))
        ++number;
    if (std::ferror(file))
        flagError("Read error: line %ld", number);
    return errors_.size() > 0 ? kFailure : kSuccess;
}

bool KOVACfgFile::loadLine(std::FILE* file, long number, KOVACfgFileSection*& current) {
    char line[kLineSize];
    int const length = readLine(line, file);
    bool const hasZero = std::memchr(line, 0, static_cast<std::size_t>(length)) != nullptr;
    removeWhiteSpaces(line);
    bool const isComment = *line == '#' || *line == ';';
    if (hasZero && !isComment)
        flagError("Incorrect syntax: line %ld:%s *** \"key=value\" expected", number, line);
    else if (*line && !isComment)
        parseLine(line, number, current);
    return length > 0;
}

/// A trimmed line that is neither empty nor a comment.
void KOVACfgFile::parseLine(char* line, long number, KOVACfgFileSection*& current) {
    if (*line == '[') {
        char* const end = std::strrchr(line, ']');
        if (!end) {
            flagError("Incorrect syntax: line %ld:%s *** \"[section name]' expected.", number, line);
            return;
        }
        *end = '\0';
        removeWhiteSpaces(line + 1);
        current = createSection(line + 1);
        return;
    }
    char const* separator = std::strchr(line, '=');
    if (!separator)
        separator = std::strchr(line, ':');
    std::string key(line, static_cast<std::size_t>(separator ? separator - line : 0));
    std::string value(separator ? separator + 1 : "");
    removeWhiteSpaces(key.data());
    removeWhiteSpaces(value.data());
    if (!key[0] || !value[0]) {
        flagError("Incorrect syntax: line %ld:%s *** \"key=value\" expected", number, line);
        return;
    }
    KOVACfgFileKey* const entry = current->createKey(key.c_str());
    std::string_view rest(value.c_str());
    for (std::size_t comma = rest.find(','); comma != std::string_view::npos; comma = rest.find(',')) {
        entry->AppendValue(std::string(rest.substr(0, comma)).c_str());
        rest.remove_prefix(comma + 1);
    }
    entry->AppendValue(std::string(rest).c_str());
}

// --- queries

KOVACfgFileKey* KOVACfgFile::findKey(char const* key, char const* section) const {
    KOVACfgFileSection const* const found = findSection(section);
    return found && key ? found->findKey(key) : nullptr;
}

bool KOVACfgFile::ExistKey(char const* key, char const* section) const {
    return findKey(key, section) != nullptr;
}

int KOVACfgFile::GetArraySize(char const* key, char const* section) const {
    KOVACfgFileKey const* const found = findKey(key, section);
    return found ? found->GetNumValues() : 0;
}

bool KOVACfgFile::GetString(char const* key, Gk_String& value, int index, char const* section) const {
    KOVACfgFileKey const* const found = findKey(key, section);
    if (found)
        value = found->GetValue(index);
    return found != nullptr;
}

bool KOVACfgFile::GetBool(char const* key, bool& value, int index, char const* section) {
    Gk_String text;
    if (!GetString(key, text, index, section))
        return false;
    std::string_view const word = orEmpty(text);
    bool const isTrue = word == "true" || word == "TRUE";
    if (!isTrue && word != "false" && word != "FALSE") {
        flagError("Incorrect syntax: key:%s *** bool value \"true\" or \"false\" expected.", key);
        return false;
    }
    value = isTrue;
    return true;
}

bool KOVACfgFile::GetLogical(char const* key, int& value, int index, char const* section) {
    Gk_String text;
    if (!GetString(key, text, index, section))
        return false;
    std::string_view const word = orEmpty(text);
    Gk_StringParser parser(text);
    bool const isTrue = word == "TRUE" || word == "true";
    bool const isFalse = word == "FALSE" || word == "false";
    long const number = isTrue ? 1 : isFalse ? 0 : parser.isInteger(0) ? parser.intValue() : -1;
    if (number != 0 && number != 1) {
        flagError("Incorrect syntax: key:%s *** integer \"0\" or \"1\" or string \"TRUE\" or \"FALSE\" expected.", key);
        return false;
    }
    value = static_cast<int>(number);
    return true;
}

bool KOVACfgFile::GetInt(char const* key, int& value, int index, char const* section) {
    Gk_String text;
    if (!GetString(key, text, index, section))
        return false;
    Gk_StringParser parser(text);
    if (!parser.isInteger(0)) {
        flagError("Incorrect syntax: key:%s *** integer value expected.", key);
        return false;
    }
    value = parser.intValue32();
    return true;
}

bool KOVACfgFile::GetDouble(char const* key, double& value, int index, char const* section) {
    Gk_String text;
    if (!GetString(key, text, index, section))
        return false;
    Gk_StringParser parser(text);
    if (!parser.isReal(0)) {
        flagError("Incorrect syntax: key:%s *** double value expected.", key);
        return false;
    }
    value = parser.realValue();
    return true;
}
