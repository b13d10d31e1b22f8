// The solution on paper: the report in slices of the page width, each slice over as many pages
// as its lines need, then the cutting diagram; every page headed by the file's name, the date
// stamp and reference note of the report, and its number. The printer and the PDF share it.
#pragma once

#include <QPagedPaintDevice>
#include <string>

namespace brennik {

struct SolutionDocument {
    std::string fileName;  // shown in the page head: last.sol, cheaper.sol
    std::string report;    // the bytes of the report
    int pageWidth = 66;    // columns of the report on one page
};

// Paints every page on `device`, which no painter holds yet; the pages take the device's page
// layout. Returns the number of pages, or 0 when the device could not be painted on.
int PrintSolution(QPagedPaintDevice& device, const SolutionDocument& document);

}  // namespace brennik
