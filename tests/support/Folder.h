#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace test {

/// An empty folder below the current one while it lives. Names are made of '/'.
class Folder {
public:
    explicit Folder(std::string name) : name_(std::move(name)) {
        std::filesystem::remove_all(name_);
        std::filesystem::create_directory(name_);
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(name_, ignored);
    }

    std::string path(std::string const& name) const { return name_ + "/" + name; }
    std::string write(std::string const& name, std::string const& contents) const {
        std::ofstream(path(name), std::ios::binary) << contents;
        return path(name);
    }
    std::string read(std::string const& name) const {
        std::ifstream in(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    bool has(std::string const& name) const { return std::filesystem::exists(path(name)); }

private:
    std::string name_;
};

} // namespace test
