// One event, one line in a file, written at once: all three sides end each line with a call of the system.

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <spdlog/logger.h>
#include <spdlog/sinks/basic_file_sink.h>

#include <kova/kova.h>

#include "rows.h"

namespace {

constexpr char kPart[] = "bracket_left.stp";

/// Everything is written here, and goes with this.
class Folder {
public:
    Folder() : path_(std::filesystem::temp_directory_path() / "kova-bench-logging") {
        std::filesystem::create_directory(path_);
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    std::string file(char const* name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

void ours(benchmark::State& state, std::string const& name) {
    KOVALogger logger;
    logger.Initialize(name.c_str(), KOVA_LEVEL_INFO);
    int n = 0;
    bench::measure(state, [&] { KOVAInfo::Printf("%s: %d triangles", kPart, ++n); });
}

void bySpdlog(benchmark::State& state, std::string const& name) {
    spdlog::logger logger("bench", std::make_shared<spdlog::sinks::basic_file_sink_st>(name, true));
    logger.set_pattern("Message : %v");
    logger.flush_on(spdlog::level::info);
    int n = 0;
    bench::measure(state, [&] { logger.info("{}: {} triangles", kPart, ++n); });
}

void byStdio(benchmark::State& state, std::string const& name) {
    std::FILE* const file = std::fopen(name.c_str(), "w");
    std::setvbuf(file, nullptr, _IOLBF, 4096);
    int n = 0;
    bench::measure(state, [&] { std::fprintf(file, "Message : %s: %d triangles\n", kPart, ++n); });
    std::fclose(file);
}

} // namespace

int main(int argc, char** argv) {
    Folder const folder;
    auto const add = [&folder](char const* name, double target, auto peer) {
        bench::row(
            name, target, [&folder](benchmark::State& state) { ours(state, folder.file("ours")); },
            [&folder, peer](benchmark::State& state) { peer(state, folder.file("peer")); });
    };
    add("log a line to a file, spdlog basic_file_sink_st", 1.0, bySpdlog);
    add("log a line to a file, stdio by line", 1.1, byStdio);
    return bench::run(argc, argv);
}
