#include "files/text_lines.h"

namespace brennik {

std::vector<std::string> SplitLines(std::string_view contents, std::size_t mostLines) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < contents.size() && lines.size() < mostLines) {
        std::size_t end = contents.find('\n', start);
        const bool lastWithoutEnd = end == std::string_view::npos;
        if (lastWithoutEnd) {
            end = contents.size();
        }
        std::size_t stop = end;
        if (!lastWithoutEnd && stop > start && contents[stop - 1] == '\r') {
            --stop;
        }
        lines.emplace_back(contents.substr(start, stop - start));
        start = end + 1;
    }
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string contents;
    for (const std::string& line : lines) {
        contents += line;
        contents += "\r\n";
    }
    return contents;
}

}  // namespace brennik
