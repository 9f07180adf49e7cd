// What a debugger shows of the library's types. Nothing of it is done before the stop but construction.
#include <kova/kova.h>

namespace {

void stop() {}

} // namespace

int main() {
    KOVAString const text("wheel \"A\"");
    KOVAString const null;
    KOVAString const empty("");
    unsigned short const omegaUnits[] = {0x3A9, 0x20AC, 0};
    KOVAString const omega(omegaUnits);

    KOVAValue const unknownValue;
    KOVAValue const doubleValue(-2.5);
    KOVAValue const intValue(7);
    KOVAValue const boolValue(true);
    KOVAValue const textValue("Yes");

    [[maybe_unused]] KOVIResult const success(0x00000000);
    [[maybe_unused]] KOVIResult const invalidFile(0x01000015);
    [[maybe_unused]] KOVIResult const foreign(static_cast<long>(0xF1230004));

    KOVADynamicArray<int> numbers;
    numbers.add(3);
    numbers.add(-1);
    KOVADynamicArray<KOVAString> const names(2, text);
    KOVADynamicArray<double> const none;

    void* const one = reinterpret_cast<void*>(0x11);
    void* const two = reinterpret_cast<void*>(0x22);
    KOVAList list;
    list.PushBack(one);
    list.PushBack(two);
    KOVAMap map;
    map.PushBack(12, one);
    map.PushBack(-5, two);
    KOVAStack stack;
    stack.Push(one);
    stack.Push(two);
    KOVATable table;
    table.Add(&textValue, &intValue, nullptr);
    table.Add(&doubleValue, nullptr);

    stop();
    list.PopFront();
    map.PopFront();
}
