#include "statedUnit.h"

#include <algorithm>
#include <cstddef>

#include "characters.h"

namespace toolkit {

namespace {

bool isLetter(char c) noexcept {
    char const lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z';
}

} // namespace

std::string_view statedUnit(std::string_view text) {
    for (std::size_t i = 0; i + 4 < text.size(); ++i) {
        if (!equalsIgnoringCase(text.substr(i, 4), "unit") || (i > 0 && isLetter(text[i - 1])))
            continue;
        std::string_view rest = text.substr(i + 4);
        if ((rest.front() | 0x20) == 's')
            rest.remove_prefix(1);
        rest = trimmed(rest);
        if (rest.empty() || (rest.front() != ':' && rest.front() != '='))
            continue;
        rest = trimmed(rest.substr(1));
        char const* const end = std::find_if_not(rest.data(), rest.data() + rest.size(), isLetter);
        return rest.substr(0, static_cast<std::size_t>(end - rest.data()));
    }
    return {};
}

} // namespace toolkit
