#include "MaterialReader.h"

#include <algorithm>

#include <kova/model/KOVACallbackShared.h>

#include "objText.h"
#include "report.h"

namespace toolkit {

/// The first is told; behind it there may be thousands.
void MaterialReader::mistake(char const* text) {
    if (++mistakes_ == 1)
        warn(name_.c_str(), atLine(lines_.number()), "%s", text);
}

bool MaterialReader::begin(std::string const& name) {
    material_ = name.empty() ? nullptr : &scene_.addMaterial(name);
    if (!material_)
        return false;
    materials_[name] = material_;
    std::fill_n(rgba_, 4, 1.0F);
    return true;
}

/// Red, green and blue, or one number for all three.
bool MaterialReader::readColor(std::string_view numbers) {
    float values[3] = {};
    int known = 0;
    for (; !isDone(numbers) && known < 3; ++known) {
        if (!takeNumber(numbers, values[known]) || !std::isfinite(values[known]))
            return false;
    }
    if (!isDone(numbers) || known == 0 || known == 2)
        return false;
    for (int i = 0; i < 3; ++i)
        rgba_[i] = clampedShare(values[known == 1 ? 0 : i]);
    return true;
}

bool MaterialReader::readOpacity(std::string_view number, bool isTransparency) {
    float value = 0;
    if (isDone(number) || !takeNumber(number, value) || !std::isfinite(value) || !isDone(number))
        return false;
    rgba_[3] = clampedShare(isTransparency ? 1 - value : value);
    return true;
}

/// False where it is not all text: then the rest is none either.
bool MaterialReader::readStatement(std::string_view statement) {
    if (lines_.number() == 1)
        skipByteOrderMark(statement);
    if (!isText(statement)) {
        mistake("not a material library: it is not all text");
        return false;
    }
    skipBlanks(statement);
    std::string_view const keyword = firstWord(statement);
    std::string_view const rest = statement.substr(keyword.size());
    bool const isColor = keyword == "Kd";
    bool const isTransparency = keyword == "Tr";
    if (keyword == "newmtl") {
        if (!begin(nameIn(rest)))
            mistake("a material without a name");
    } else if (isColor || isTransparency || keyword == "d") {
        if (!material_)
            mistake("it belongs to no material");
        else if (isColor ? !readColor(rest) : !readOpacity(rest, isTransparency))
            mistake(isColor ? "a colour should be one number or three" : "one number should follow");
    }
    if (material_)
        material_->color.SetRGBA(rgba_);
    return true;
}

void MaterialReader::read() {
    std::string_view statement;
    while (lines_.next(statement) && readStatement(statement))
        KOVACallbackShared::IsAborted();
    if (lines_.isTooLong())
        mistake("a line is too long");
    if (mistakes_ > 1)
        warn(name_.c_str(), kNowhere, "%d more mistakes", mistakes_ - 1);
}

} // namespace toolkit
