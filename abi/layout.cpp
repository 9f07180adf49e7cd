// Prints what a caller on 32-bit Windows is compiled against: the size of each public class and, for one with
// virtual operations, what the loaded library's table of them holds, slot by slot. Operations are shown as the
// addresses that they have when the library is loaded at the address given (hexadecimal).
#include <kova/kova.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <typeinfo>
#include <vector>

#include <windows.h>

namespace {

using Address = std::uintptr_t;

struct Class {
    char const* name;
    char const* encodedName;
    std::size_t size;
};

template <class T> constexpr Class describe(char const* name) {
    return {name, typeid(T).name(), sizeof(T)};
}

Class const kClasses[] = {
#include "classes.inc"
};

bool isCode(Address address) {
    DWORD const executable = PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    MEMORY_BASIC_INFORMATION page{};
    VirtualQuery(reinterpret_cast<void*>(address), &page, sizeof page);
    return (page.Protect & executable) != 0;
}

/// The slots of a class; none for a class without virtual operations. Pure ones are 0.
std::vector<Address> slotsOf(HMODULE library, Class const& row) {
    std::vector<Address> slots;
    std::string const name = std::string("_ZTV") + row.encodedName;
    auto const* const table =
        reinterpret_cast<Address const*>(reinterpret_cast<void*>(GetProcAddress(library, name.c_str())));
    if (!table)
        return slots;
    // An offset, 0, and the type stand in front, those of the next table behind.
    for (Address const* slot = table + 2; *slot == 0 || isCode(*slot); ++slot)
        slots.push_back(*slot);
    if (!slots.empty() && slots.back() == 0)
        slots.pop_back();
    return slots;
}

} // namespace

int main(int count, char** arguments) {
    HMODULE const library = LoadLibraryA("libkova.dll");
    if (!library || count != 2)
        return EXIT_FAILURE;
    Address const base = std::strtoul(arguments[1], nullptr, 16);
    for (Class const& row : kClasses) {
        std::printf("%s: %u bytes\n", row.name, static_cast<unsigned>(row.size));
        unsigned number = 0;
        for (Address const slot : slotsOf(library, row)) {
            Address const shown = slot == 0 ? 0 : slot - reinterpret_cast<Address>(library) + base;
            std::printf("  %u %08lx\n", number++, static_cast<unsigned long>(shown));
        }
    }
}
