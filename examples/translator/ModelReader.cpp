#include "ModelReader.h"

#include "characters.h"
#include "report.h"

namespace translator {

void ModelReader::setHeaderText(std::string_view text) {
    constexpr std::size_t kLongest = 200;
    if (headerText_.empty())
        headerText_ = printable(trimmed(trimmed(text).substr(0, kLongest)));
}

} // namespace translator
