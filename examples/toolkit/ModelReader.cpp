#include "ModelReader.h"

#include <kova/public/KOVIUnit.h>

#include "characters.h"
#include "report.h"
#include "statedUnit.h"

namespace toolkit {

void ModelReader::takeHeaderText(std::string_view text) {
    constexpr std::size_t kLongest = 200;
    std::string_view const shown = trimmed(trimmed(text).substr(0, kLongest));
    if (headerText_.empty())
        headerText_ = printable(shown);
    std::string_view const unit = statedUnit(shown);
    if (!unit.empty() && !KOVIUnit(units_.c_str()).IsValid())
        units_ = unit;
}

} // namespace toolkit
