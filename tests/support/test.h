#pragma once

// What every test of the library uses.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <kova/kova.h>

using Numbers = std::vector<long>;
using Texts = std::vector<std::string>;

namespace test {

/// The text in 8 bits, "" for the null string.
inline std::string text(KOVAString const& s) { return s.length() > 0 ? static_cast<char const*>(s) : ""; }

/// Keeps what is written, and how often.
class TextStream : public KOVAOutputStream {
public:
    TextStream() : KOVAOutputStream(nullptr) {}
    void write(char const* const buffer, int count) override {
        text.append(buffer, static_cast<std::size_t>(count));
        ++writes;
    }
    void flush() override {}
    void close() override {}

    std::string text;
    int writes = 0;
};

inline std::string describe(KOVAEvent& event) {
    TextStream out;
    event.GetFormattedDescription(&out);
    return out.text;
}

/// Listens while it lives and keeps each event's level and description, "80 Error : x\n".
class Recorder : public KOVAEventListener {
public:
    Recorder() { KOVAEventBus::GetEventBus().AddListener(this); }
    ~Recorder() override { KOVAEventBus::GetEventBus().RemoveListener(this); }

    void HandleEvent(KOVAEvent& event) override {
        events.push_back(std::to_string(event.GetLevel()) + " " + describe(event));
    }

    std::vector<std::string> events;
};

/// The same without the events of tasks.
class MessageRecorder : public Recorder {
public:
    void HandleEvent(KOVAEvent& event) override {
        if (!event.IsTimed()) Recorder::HandleEvent(event);
    }
};

/// An environment variable while it lives.
class Variable {
public:
    explicit Variable(std::string name, std::string const& value = "") : name_(std::move(name)) {
        if (!value.empty()) set(value);
    }
    ~Variable() { unset(); }
#ifdef _WIN32
    void set(std::string const& value) { _putenv_s(name_.c_str(), value.c_str()); }
    void unset() { set(""); }
#else
    void set(std::string const& value) { setenv(name_.c_str(), value.c_str(), 1); }
    void unset() { unsetenv(name_.c_str()); }
#endif

private:
    std::string name_;
};

/// An empty folder below the current one while it lives. Names are made of '/'.
class Folder {
public:
    explicit Folder(std::string name) : name_(std::move(name)) {
        std::filesystem::remove_all(name_);
        std::filesystem::create_directory(name_);
    }
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
