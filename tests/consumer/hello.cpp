#include <kova/kova.h>

int main() {
    KOVAConsoleLogger::SetUp(-1);
    KOVAFilePath const path = KOVAFilePath("models/part.stl").ReplaceLastExtension("obj");
    KOVAInfo::Printf("%s is %s", (char const*)path, path.DoesFileExist() ? "here" : "not here");
}
