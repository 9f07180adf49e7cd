// What the table of option names would cost if each name were made at load: two strings on the heap.

#include <string>

namespace {

struct Name {
    explicit Name(char const* text) : wide(text, text + std::char_traits<char>::length(text)), narrow(text) {}
    std::u16string wide;
    std::string narrow;
};

#define KOVA_OPTION_NAME(identifier, text) Name const identifier(text);
#include KOVA_OPTION_NAMES
#undef KOVA_OPTION_NAME

} // namespace
