#include <kova/version.h>

#include <string_view>

#define TEXT_OF(x) #x
#define DOTTED(a, b, c) TEXT_OF(a) "." TEXT_OF(b) "." TEXT_OF(c)

static_assert(std::string_view(KOVA_VERSION) == WANTED_VERSION);
static_assert(std::string_view(DOTTED(KOVA_VERSION_MAJOR, KOVA_VERSION_MINOR, KOVA_VERSION_PATCH)) == WANTED_VERSION);
