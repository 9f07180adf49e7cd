#include "ObjWriter.h"

#include "numbers.h"

namespace toolkit {

ObjWriter::ObjWriter(KOVAOutputStream& stream, Settings const& settings)
    : WeldingWriter(settings), out_(stream), digits_(settings.digits) {}

void ObjWriter::dropEmptyRun() {
    if (!runs_.empty() && runs_.back().firstFace == faces().size())
        runs_.pop_back();
}

void ObjWriter::begin(Part const& part, Material const* /*material*/) {
    dropEmptyRun();
    runs_.push_back({part.title(), faces().size()});
}

void ObjWriter::writeFaces(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
        Face const& face = faces()[i];
        char* to = put(out_.room(kLongestRecord), "f");
        to = putNumber(putNumber(putNumber(to, face[0]), face[1]), face[2]);
        out_.use(put(to, "\n"));
    }
}

void ObjWriter::writeName(std::string_view name) {
    out_.write(name.empty() ? "o" : "o ");
    out_.write(name);
    // A backslash at the end would continue the line.
    out_.write(!name.empty() && name.back() == '\\' ? " \n" : "\n");
}

void ObjWriter::finish() {
    dropEmptyRun();
    for (std::size_t i = 0; i < size(); ++i)
        out_.use(putVertex(out_.room(kLongestRecord), "v", position(i), digits_));
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        bool const isLast = i + 1 == runs_.size();
        // What has no name does not belong to the part before.
        if (!runs_[i].name.empty() || (i > 0 && !runs_[i - 1].name.empty()))
            writeName(runs_[i].name);
        writeFaces(runs_[i].firstFace, isLast ? faces().size() : runs_[i + 1].firstFace);
    }
    out_.flush();
}

std::string ObjWriter::description() const {
    return "OBJ, " + std::to_string(faces().size()) + " faces, " + std::to_string(size()) + " vertices";
}

} // namespace toolkit
