#include <kova/kova.h>

struct Printer : KOVAEventListener {
    void HandleEvent(KOVAEvent& event) override { event.GetFormattedDescription(&KOVAFileOutputStream::console); }
};

int main() {
    Printer printer;
    KOVAEventBus::GetEventBus().AddListener(&printer);
    KOVAFilePath const path = KOVAFilePath("models/part.stl").ReplaceLastExtension("obj");
    KOVAInfo::Printf("%s is %s", (char const*)path, path.DoesFileExist() ? "here" : "not here");
    KOVAEventBus::GetEventBus().RemoveListener(&printer);
}
