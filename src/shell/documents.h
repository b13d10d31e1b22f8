// The program's two documents, the read-me and the manual. They travel inside the program as
// text and are written to the current folder at every start, so that the files in the
// program's folder always describe the version that wrote them.
#pragma once

#include <string_view>

#include "files/file_system.h"

namespace brennik {

// The texts as they are kept in the source, lines ended by LF alone.
std::string_view ReadmeText();
std::string_view ManualText();

// Writes "readme.txt" and then "brennik-manual.txt", each line ended by CR LF, replacing any
// files of those names. False when either could not be written; the other is written all
// the same, since the user's work doesn't depend on the documents.
bool WriteDocuments(FileSystem& files);

}  // namespace brennik
