// Problem files: saving the problem that stands in the entry boxes, loading one back into the
// boxes, emptying the form, and the safety copy last.pro written on Exit. One text format serves
// for .pro and .csv alike: pairs of comma-separated fields, lines ending in CR LF.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/file_system.h"
#include "surface/surface.h"
#include "state/module1.h"

namespace brennik {

// The tables of a problem as a file gives them, before any check or rounding.
struct ProblemTables {
    StdRows<float> StdLength;
    StdRows<float> StdPrice;
    CutRows<float> CutLength;
    CutRows<int32_t> CutQty;
};

// Reads the fields of a problem file two at a time: standard pairs up to the first length not
// above 0 (that pair included) or the sixth pair, then cutting pairs up to the end of the file
// or the fortieth pair. A comma or a line end ends a field; a line of nothing but blanks holds
// two empty fields, as "," does; a field in double quotes is read without them. A field that is
// not wholly a number, an empty one and one past the end of the file read as 0; a quantity is
// rounded to the nearest whole number, a half to the even one; a number too large for its field
// is held at the largest value of the field's type.
ProblemTables ReadProblemTables(std::string_view contents);

// The bytes of the problem file for the arrays as the intake left them: the unbroken run of
// standard rows from row 1, the separator " , " unless all six are filled, then the unbroken run
// of cutting rows, each quantity being the number in its box `quantityTexts`(row).
std::string WriteProblemText(const Module1& m, const CutRows<std::string>& quantityTexts);

// Empties the problem arrays, the entry boxes, the results, the progress bar and the status line.
void ClearProblem(Module1& m, Surface& surface);

// Empties the form, then asks for a problem file in the application's folder and fills the boxes
// from it. The values are checked at the next intake, not here.
void LoadProblem(Module1& m, Surface& surface, FileSystem& files);

// Asks for a file name in the application's folder, reads the boxes and writes the problem.
void SaveProblem(Module1& m, Surface& surface, FileSystem& files);

// Reads the boxes and writes the problem to last.pro in the current folder, without a dialog.
void SaveLastProblem(Module1& m, Surface& surface, FileSystem& files);

}  // namespace brennik
