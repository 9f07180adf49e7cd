#pragma once

#include <string>
#include <vector>

#include <kova/public/KOVIFile.h>

#include "CommandLine.h"

namespace toolkit {

/// An input and where it goes, by their names; "-" is standard input or output.
struct FilePair {
    std::string input;
    std::string output;
};

/// First of all: a standard stream that is closed keeps its place, which the next file that is opened would get
/// otherwise, and with it the messages.
void holdStandardStreams();

/// One for each input of the command line. What cannot be, such as two inputs for one output, is reported; Invalid
/// Argument.
KOVIResult pairFiles(CommandLine const& line, std::vector<FilePair>& pairs);

/// As a translation takes them. Standard input and output pass every byte as it is from then on.
KOVIFile inputFile(std::string const& name);
KOVIFile outputFile(std::string const& name);

} // namespace toolkit
