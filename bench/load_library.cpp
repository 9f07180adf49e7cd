// load-library FILE: loads a shared library and prints the microseconds that it took.

#include <chrono>
#include <cstdio>

#include <dlfcn.h>

int main(int argc, char** argv) {
    auto const start = std::chrono::steady_clock::now();
    void* const library = argc == 2 ? dlopen(argv[1], RTLD_LAZY) : nullptr;
    std::chrono::duration<double, std::micro> const taken = std::chrono::steady_clock::now() - start;
    if (!library) {
        std::fprintf(stderr, "%s\n", argc == 2 ? dlerror() : "usage: load-library FILE");
        return 1;
    }
    std::printf("%.1f\n", taken.count());
}
