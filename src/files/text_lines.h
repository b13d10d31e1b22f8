// Text files of the program are lines ending in CR LF. These turn a file's bytes into lines
// and back; a reader also takes lines that end in LF alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brennik {

// The lines of a file's contents, without their line ends. A last line without an end counts.
// A reader that needs only the first lines gives how many; the rest are never copied.
std::vector<std::string> SplitLines(std::string_view contents,
                                    std::size_t mostLines = std::string_view::npos);

// Every line followed by CR LF.
std::string JoinLines(const std::vector<std::string>& lines);

}  // namespace brennik
