// Formatter, packet streams and scanner.

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <kova/kova.h>

#include "rows.h"

namespace {

constexpr std::size_t kCount = 4096;

/// Takes what is written at the cost of one virtual call and a copy.
class Sink : public KOVAOutputStream {
public:
    Sink() : KOVAOutputStream(nullptr) {}
    void write(char const* const buffer, int count) override {
        if (fill_ + static_cast<std::size_t>(count) > sizeof bytes_)
            fill_ = 0;
        std::memcpy(bytes_ + fill_, buffer, static_cast<std::size_t>(count));
        fill_ += static_cast<std::size_t>(count);
    }
    void flush() override {}
    void close() override {}

private:
    char bytes_[65536];
    std::size_t fill_ = 0;
};

struct Numbers {
    Numbers() {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
        for (std::size_t i = 0; i < kCount; ++i) {
            ints.push_back(static_cast<int>(random()) >> random() % 28);
            doubles.push_back(coordinate(random));
            char text[32];
            char* const end = std::to_chars(text, text + sizeof text, static_cast<float>(doubles.back())).ptr;
            realTokens.emplace_back(text, end);
            intTokens.push_back(std::to_string(ints.back()));
            lines += realTokens.back() + (i % 3 == 2 ? "\n" : " ");
        }
        // Few enough for the cache: conversion is what is measured, not where the tokens lie.
        for (std::size_t i = 0; i < 256; ++i) {
            realParsers.emplace_back(Gk_String(realTokens[i].c_str()));
            intParsers.emplace_back(Gk_String(intTokens[i].c_str()));
        }
    }

    std::vector<int> ints;
    std::vector<double> doubles;
    std::vector<std::string> realTokens, intTokens;
    std::vector<Gk_StringParser> realParsers, intParsers;
    std::string lines;
};

Numbers numbers;
Sink sink;

template <class Number, class... Format> void formatterRows(std::string const& name, double target,
                                                            std::vector<Number> const& values, char const* printfFormat,
                                                            Format... format) {
    auto const ours = [&values] {
        KOVAStreamFormatter out(&sink);
        for (Number const value : values)
            out << value;
    };
    bench::plainRow(name + ", bare to_chars and write", target, ours, [&values, format...] {
        KOVAOutputStream& out = sink;
        char text[400];
        for (Number const value : values)
            out.write(text, static_cast<int>(std::to_chars(text, text + sizeof text, value, format...).ptr - text));
    });
    bench::plainRow(name + ", snprintf and write", 0.5, ours, [&values, printfFormat] {
        KOVAOutputStream& out = sink;
        char text[400];
        for (Number const value : values)
            out.write(text, std::snprintf(text, sizeof text, printfFormat, value));
    });
}

template <class Number> Number fromChars(std::string const& token) {
    Number value{};
    std::from_chars(token.data(), token.data() + token.size(), value);
    return value;
}

/// The sum of what a function gives for each of the first 256 elements.
template <class Elements, class Function> auto sum(Elements& elements, Function const& function) {
    return [&elements, function] {
        double total = 0;
        for (std::size_t i = 0; i < 256; ++i)
            total += static_cast<double>(function(elements[i]));
        return total;
    };
}

void conversionRows() {
    auto const ourReal = sum(numbers.realParsers, [](Gk_StringParser& token) { return token.realValue(); });
    bench::plainRow("convert a real, from_chars", 1.3, ourReal, sum(numbers.realTokens, fromChars<double>));
    bench::plainRow("convert a real, strtod", 0.7, ourReal,
                    sum(numbers.realTokens, [](std::string const& s) { return std::strtod(s.c_str(), nullptr); }));
    bench::plainRow("convert an int, from_chars", 1.3,
                    sum(numbers.intParsers, [](Gk_StringParser& token) { return token.intValue(); }),
                    sum(numbers.intTokens, fromChars<long>));
}

double scan(KOVAInputStream& stream) {
    Gk_Source source(&stream, false);
    source.setWhiteSpace(Gk_Source::WhiteSpace(" \n"));
    double total = 0;
    for (std::size_t i = 0; i < kCount; ++i) {
        double value = 0;
        source >> value;
        total += value;
    }
    return total;
}

/// Everything that needs a file, which goes with this.
class Files {
public:
    Files() : folder_(std::filesystem::temp_directory_path() / "kova-bench-streams") {
        std::filesystem::create_directory(folder_);
        name_ = (folder_ / "numbers").string();
        std::ofstream(name_, std::ios::binary) << numbers.lines;
    }
    ~Files() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    void addRows() {
        std::string const name = name_;
        std::string const out = (folder_ / "out").string();
        bench::plainRow(
            "read by character, ifstream", 1.0,
            [name] {
                KOVAFileInputStream file(name.c_str());
                Gk_PacketInputStream packets(&file, 65536);
                int total = 0;
                for (int c = packets.readChar(); c != -1; c = packets.readChar())
                    total += c;
                return total;
            },
            [name] {
                std::ifstream file(name, std::ios::binary);
                int total = 0;
                for (int c = file.get(); c != -1; c = file.get())
                    total += c;
                return total;
            });
        bench::plainRow(
            "write by token, ofstream", 1.0,
            [out] {
                KOVAFileOutputStream file(out.c_str());
                Gk_PacketOutputStream packets(&file, 65536);
                for (std::string const& token : numbers.realTokens)
                    packets.write(token.data(), static_cast<int>(token.size()));
            },
            [out] {
                std::ofstream file(out, std::ios::binary);
                for (std::string const& token : numbers.realTokens)
                    file.write(token.data(), static_cast<std::streamsize>(token.size()));
            });
        auto const scanFile = [name] {
            KOVAFileInputStream file(name.c_str());
            Gk_PacketInputStream packets(&file, 65536);
            return scan(packets);
        };
        bench::plainRow("scan reals of a file, ifstream", 1.0, scanFile, [name] {
            std::ifstream file(name, std::ios::binary);
            double total = 0;
            for (double value = 0; file >> value;)
                total += value;
            return total;
        });
        bench::plainRow("scan reals of a file, strtod in memory", 3.0, scanFile, [] {
            double total = 0;
            char const* at = numbers.lines.c_str();
            for (std::size_t i = 0; i < kCount; ++i) {
                char* end = nullptr;
                total += std::strtod(at, &end);
                at = end;
            }
            return total;
        });
    }

private:
    std::filesystem::path folder_;
    std::string name_;
};

} // namespace

int main(int argc, char** argv) {
    Files files;
    formatterRows("format an int", 1.5, numbers.ints, "%d");
    formatterRows("format a double", 1.3, numbers.doubles, "%lf", std::chars_format::fixed, 6);
    conversionRows();
    files.addRows();
    return bench::run(argc, argv);
}
