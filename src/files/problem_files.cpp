#include "files/problem_files.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "files/text_lines.h"
#include "state/intake.h"
#include "state/number_texts.h"

namespace brennik {

namespace {

constexpr std::string_view kLoadTitle = "Load a Previously Saved problem";
constexpr std::string_view kLoadFilter =
    " Brennik  problem  files  (*.pro)|*.pro| Microsoft  Excel comma delimited files  "
    "(*.csv)|*.csv| All  files  (*.*)|*.*";
constexpr std::string_view kSaveTitle = "Save a Problem for Later Use";
constexpr std::string_view kSaveFilter =
    " Brennik  problem  file  (*.pro)|*.pro| Microsoft  Excel comma delimited file  "
    "(*.csv)|*.csv";

constexpr std::string_view kSeparatorLine = " , ";
constexpr std::string_view kBlanks = " \t";
// A spreadsheet may open its text with the UTF-8 byte order mark; it belongs to no field.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// The reader takes both tables' pairs and one field more, which tells whether the file goes on;
// whatever follows is never looked at, however long a hostile file may be.
constexpr std::size_t kFieldsRead = 2 * (MaxStdLengths + MaxCutLengths) + 1;

// The fields of one line. A quoted field ends at its closing quote, so it may hold a comma;
// what stands between that quote and the next comma is passed over.
void AppendLineFields(std::string_view line, std::vector<std::string>& fields) {
    if (line.find_first_not_of(kBlanks) == std::string_view::npos) {
        // An empty row as a spreadsheet might leave it without its comma.
        fields.emplace_back();
        fields.emplace_back();
        return;
    }
    size_t start = 0;
    while (fields.size() < kFieldsRead) {
        const size_t first = line.find_first_not_of(kBlanks, start);
        size_t comma = 0;
        if (first != std::string_view::npos && line[first] == '"') {
            const size_t closing = line.find('"', first + 1);
            fields.emplace_back(line.substr(first + 1, closing - (first + 1)));
            comma = closing == std::string_view::npos ? closing : line.find(',', closing + 1);
        } else {
            comma = line.find(',', start);
            fields.emplace_back(line.substr(start, comma - start));
        }
        if (comma == std::string_view::npos) {
            return;
        }
        start = comma + 1;
    }
}

// The fields of a file in their order, taken one at a time; past the end every field is empty.
class FieldReader {
public:
    explicit FieldReader(std::string_view contents) {
        if (contents.starts_with(kByteOrderMark)) {
            contents.remove_prefix(kByteOrderMark.size());
        }
        // Every line gives at least one field.
        for (const std::string& line : SplitLines(contents, kFieldsRead)) {
            if (fields_.size() >= kFieldsRead) {
                break;
            }
            AppendLineFields(line, fields_);
        }
    }

    bool AtEnd() const { return next_ >= fields_.size(); }

    double NextValue() {
        if (AtEnd()) {
            return 0.0;
        }
        return WholeNumberValue(fields_[next_++]).value_or(0.0);
    }

    float NextFloat() { return HoldAsFloat(NextValue()); }

    // The default rounding mode sends a half to the even neighbour.
    int32_t NextWhole() { return HoldAsInt32(std::nearbyint(NextValue())); }

private:
    std::vector<std::string> fields_;
    size_t next_ = 0;
};

void WriteProblemFile(Module1& m, Surface& surface, FileSystem& files,
                      const std::string& fileName) {
    // A save goes on whatever the intake finds wrong; the file gets the rows read so far.
    ReadEntries(m, surface);
    CutRows<std::string> quantityTexts;
    for (int row = 1; row <= MaxCutLengths; ++row) {
        quantityTexts(row) = surface.Text({Ctl::txtN, row});
    }
    // Written aside and then put in place in one step, so that a failed write never destroys
    // the file that was there before.
    const std::string asideName = fileName + ".new";
    if (files.WriteFile(asideName, WriteProblemText(m, quantityTexts)) &&
        files.ReplaceFile(asideName, fileName)) {
        return;
    }
    files.RemoveFile(asideName);
    SetStatus(surface, White, Red, " Cannot write the problem file !.");
}

}  // namespace

ProblemTables ReadProblemTables(std::string_view contents) {
    FieldReader fields(contents);
    ProblemTables tables;
    // The standard table ends on its first pair without a length, which the separator is;
    // six filled rows need no separator, so this loop does not look for the end of the file.
    for (int row = 1; row <= MaxStdLengths; ++row) {
        tables.StdLength(row) = fields.NextFloat();
        tables.StdPrice(row) = fields.NextFloat();
        if (!(tables.StdLength(row) > 0)) {
            break;
        }
    }
    // A pair without a length does not end the cutting table; only the end of the file does.
    for (int row = 1; row <= MaxCutLengths && !fields.AtEnd(); ++row) {
        tables.CutLength(row) = fields.NextFloat();
        tables.CutQty(row) = fields.NextWhole();
    }
    return tables;
}

std::string WriteProblemText(const Module1& m, const CutRows<std::string>& quantityTexts) {
    std::vector<std::string> lines;
    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (!(m.StdLength(row) > 0)) {
            lines.emplace_back(kSeparatorLine);
            break;
        }
        lines.push_back(FloatText(m.StdLength(row)) + "," + FloatText(m.StdPrice(row)));
    }
    for (int row = 1; row <= MaxCutLengths; ++row) {
        if (!(m.CutLength(row) > 0)) {
            break;
        }
        lines.push_back(FloatText(m.CutLength(row)) + "," +
                        FloatText(NumberValue(quantityTexts(row))));
    }
    return JoinLines(lines);
}

void ClearProblem(Module1& m, Surface& surface) {
    for (int row = 1; row <= MaxStdLengths; ++row) {
        m.StdLength(row) = 0;
        m.StdPrice(row) = 0;
        surface.SetText({Ctl::txtSL, row}, "");
        surface.SetText({Ctl::txtSP, row}, "");
        surface.SetText({Ctl::txtMon, row}, "");
        surface.SetText({Ctl::txtMat, row}, "");
    }
    for (int row = 1; row <= MaxCutLengths; ++row) {
        m.CutLength(row) = 0;
        m.CutQty(row) = 0;
        surface.SetText({Ctl::txtL, row}, "");
        surface.SetText({Ctl::txtN, row}, "");
    }
    for (const Control box :
         {Control{Ctl::Text1, 1}, Control{Ctl::Text1, 2}, Control{Ctl::Text2, 1},
          Control{Ctl::Text2, 2}, Control{Ctl::Text3}, Control{Ctl::Text4, 1},
          Control{Ctl::Text4, 2}, Control{Ctl::Text5, 1}, Control{Ctl::Text5, 2},
          Control{Ctl::Text6}}) {
        surface.SetText(box, "");
    }
    surface.SetProgress({Ctl::ProgressBar1}, 0);
    surface.SetBackColor({Ctl::txtLong}, White);
    surface.SetText({Ctl::txtLong}, "");
    surface.Refresh({Ctl::txtLong});
}

void LoadProblem(Module1& m, Surface& surface, FileSystem& files) {
    // The form is emptied before the dialog, so a cancelled Load leaves an empty form.
    ClearProblem(m, surface);
    files.SetCurrentFolder(files.AppFolder());
    const std::string fileName = surface.OpenFileDialog(kLoadTitle, kLoadFilter, files.AppFolder());
    if (fileName.empty()) {
        return;
    }
    std::string contents;
    if (!files.ReadFile(fileName, contents)) {
        SetStatus(surface, White, Red, " Cannot read the problem file !.");
        return;
    }
    const ProblemTables tables = ReadProblemTables(contents);
    m.StdLength = tables.StdLength;
    m.StdPrice = tables.StdPrice;
    m.CutLength = tables.CutLength;
    m.CutQty = tables.CutQty;

    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (m.StdLength(row) > 0) {
            surface.SetText({Ctl::txtSL, row}, FloatText(m.StdLength(row)));
            surface.SetText({Ctl::txtSP, row}, FloatText(m.StdPrice(row)));
        }
    }
    for (int row = 1; row <= MaxCutLengths; ++row) {
        if (m.CutLength(row) > 0) {
            surface.SetText({Ctl::txtL, row}, FloatText(m.CutLength(row)));
            surface.SetText({Ctl::txtN, row}, std::to_string(m.CutQty(row)));
        }
    }
}

void SaveProblem(Module1& m, Surface& surface, FileSystem& files) {
    files.SetCurrentFolder(files.AppFolder());
    const std::string fileName = surface.SaveFileDialog(kSaveTitle, kSaveFilter, files.AppFolder());
    if (fileName.empty()) {
        return;
    }
    WriteProblemFile(m, surface, files, fileName);
}

void SaveLastProblem(Module1& m, Surface& surface, FileSystem& files) {
    WriteProblemFile(m, surface, files, "last.pro");
}

}  // namespace brennik
