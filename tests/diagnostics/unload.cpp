// Ends with its timing report still open: the library prints it when it is unloaded.

#include <kova/kova.h>

int main() {
    KOVAEnvironment::PutVariable("KOVATaskTiming", "Yes");
    KOVAConsoleLogger::SetUp(-1);
    KOVAStartReadFileTaskEvent start("part.stl");
    KOVAEventBus::Fire(start);
    KOVAFileHeader header;
    KOVAEndReadFileTaskEvent end(0, &header);
    KOVAEventBus::Fire(end);
}
