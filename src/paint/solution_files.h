// The solution as files to send or to place in other documents: the printed pages as a PDF on
// A4, and the cutting diagram alone as an SVG picture. Both need a QGuiApplication, no display.
#pragma once

#include <string>

#include "paint/solution_pages.h"

namespace brennik {

// False when the file could not be written.
bool WriteSolutionPdf(const std::string& path, const SolutionDocument& document);
bool WriteDiagramSvg(const std::string& path, const std::string& report);

}  // namespace brennik
