#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include <kova/kova.h>

/// A file in memory with these bytes, to be read.
class MemoryFile {
public:
    MemoryFile(std::uint8_t const* data, std::size_t size)
        : bytes_(reinterpret_cast<char const*>(data), size), file_(fmemopen(bytes_.data(), size ? size : 1, "rb")) {}
    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;
    ~MemoryFile() { std::fclose(file_); }

    std::FILE* get() const { return file_; }

private:
    std::string bytes_;
    std::FILE* file_;
};

/// Ends the program, which the fuzzer shows with the input that led there.
inline void require(bool condition) {
    if (!condition) __builtin_trap();
}
