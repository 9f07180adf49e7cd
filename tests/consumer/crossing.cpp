// What has to be one thing on both sides of the library's boundary, whether the program has copies of the
// library's data in itself or not.

#include <cstdio>
#include <memory>
#include <typeinfo>

#include <kova/kova.h>

namespace {

int failures = 0;

void expect(bool holds, char const* what) {
    if (holds) return;
    std::printf("%s\n", what);
    ++failures;
}

class Listener : public KOVAEventListener {
public:
    void HandleEvent(KOVAEvent& event) override { messages += dynamic_cast<KOVAMessageEvent*>(&event) ? 1 : 0; }
    int messages = 0;
};

} // namespace

int main() {
    Listener listener;
    KOVAEventBus::_eventBus.AddListener(&listener); // the program's view of the bus
    KOVAInfo::Printf("hello");                      // the library's
    expect(listener.messages == 1, "one bus");
    KOVAEventBus::_eventBus.RemoveListener(&listener);

    char const* caught = "";
    try {
        Gk_ErrMgr::raise(Gk_IOException("LOST"));
    } catch (Gk_Exception const& e) { caught = e.token(); }
    expect(KOVAString(caught) == "LOST", "an exception of the library");

    std::unique_ptr<KOVAInputStream> const theirs(KOVAFileInputStream::console.duplicate());
    KOVAInputStream& made = *theirs;
    expect(typeid(made) == typeid(KOVAFileInputStream), "a type of the library");
    expect(dynamic_cast<KOVAFileInputStream*>(&made) != nullptr, "a cast of what the library made");

    KOVAWeightPoint3D const weighted(KOVAPoint3D(1, 2, 3), 2.0, false);
    KOVAWeightPoint3D copy;
    weighted.CopyIn(copy); // the library casts what the program made
    expect(copy.GetWeight() == 2.0, "a cast of what the program made");

    expect(KOVAString("yes").equalsIgnoreCase(KOVAString::KOVA_YES), "a constant text");
    expect(KOVAOptionName::IsValid(KOVAString(KOVAOptionName::XGeneric_Import_Heal)).IsSuccess(), "an option name");
    expect(Gk_Unit::inch.mapTo(Gk_Unit::mm) == 25.4 && Gk_Unit::inch.getName().text() == "inch", "a unit");
    return failures;
}
