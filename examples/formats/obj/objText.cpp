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
    std::string_view rest = all;
    for (std::string_view name = takeWord(rest); !name.empty(); name = takeWord(rest))
        names.emplace_back(name);
    return names;
}

} // namespace toolkit
