// A library with nothing in it.

#include <string>

std::size_t lengthOf(std::string const& text);

std::size_t lengthOf(std::string const& text) {
    return text.size();
}
