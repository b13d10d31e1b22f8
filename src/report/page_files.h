// View & Print: last.sol is cut into at most four page files, page1 to page4, each PageWidth
// columns of every line, for printing side by side; then it opens in the system's text viewer.
#pragma once

#include "files/file_system.h"
#include "surface/surface.h"
#include "state/module1.h"

namespace brennik {

void ViewSolution(const Module1& m, Surface& surface, FileSystem& files);

}  // namespace brennik
