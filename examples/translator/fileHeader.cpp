#include "fileHeader.h"

#include <chrono>
#include <ctime>
#include <string>
#include <system_error>

#include "files.h"

namespace toolkit {

namespace {

/// In local time; empty where the file has no date.
std::string modificationDate(char const* name) {
    namespace chrono = std::chrono;
    using FileClock = std::filesystem::file_time_type::clock;
    std::error_code error;
    auto const date = std::filesystem::last_write_time(systemPath(name), error);
    if (error)
        return {};
    // The two clocks count from different moments.
    auto const age = chrono::duration_cast<chrono::system_clock::duration>(FileClock::now() - date);
    std::time_t const time = chrono::system_clock::to_time_t(chrono::system_clock::now() - age);
    char text[32] = "";
    if (std::tm const* const local = std::localtime(&time))
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", local);
    return text;
}

} // namespace

KOVAFileHeader fileHeader(char const* name, long long size, ModelReader const& reader) {
    KOVAFileHeader header;
    auto const set = [&header](KOVAString const& row, std::string const& text) {
        if (!text.empty())
            header.Set(row, text.c_str());
    };
    set(KOVAFileHeader::FILE_NAME, name);
    set(KOVAFileHeader::DOCUMENT_TYPE, reader.format());
    set("Size", size < 0 ? "" : std::to_string(size) + " bytes");
    set(KOVAFileHeader::MODIFICATION_DATE, modificationDate(name));
    set(KOVAFileHeader::UNITS, reader.units());
    set(KOVAFileHeader::COMMENT, reader.headerText());
    return header;
}

} // namespace toolkit
