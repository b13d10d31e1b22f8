#include "shell/documents.h"

#include "files/text_lines.h"

namespace brennik {

bool WriteDocuments(FileSystem& files) {
    const bool readme = files.WriteFile("readme.txt", JoinLines(SplitLines(ReadmeText())));
    const bool manual = files.WriteFile("brennik-manual.txt", JoinLines(SplitLines(ManualText())));
    return readme && manual;
}

}  // namespace brennik
