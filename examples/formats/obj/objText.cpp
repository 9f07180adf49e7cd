#include "objText.h"

#include "report.h"

namespace toolkit {

std::string nameIn(std::string_view text) {
    for (std::size_t i = text.find('#'); i != std::string_view::npos; i = text.find('#', i + 1)) {
        if (i == 0 || isSpace(text[i - 1]))
            text = text.substr(0, i);
    }
    return printable(trimmed(text));
}

std::vector<std::string> namesIn(std::string_view text) {
    std::string const all = nameIn(text);
    std::vector<std::string> names;
    for (std::size_t at = 0; at < all.size();) {
        std::size_t end = at;
        while (end < all.size() && !isSpace(all[end]))
            ++end;
        if (end > at)
            names.push_back(all.substr(at, end - at));
        at = end + 1;
    }
    return names;
}

} // namespace toolkit
