#include "report/report_lines.h"

#include <string_view>

#include "engine/cutting_pass.h"
#include "state/number_texts.h"

namespace brennik {

namespace {

// A count of spaces below 1 adds nothing, as everywhere in the report.
std::string Spaces(int count) {
    return count > 0 ? std::string(static_cast<std::size_t>(count), ' ') : std::string();
}

std::string Repeat(std::string_view text, int count) {
    std::string result;
    for (int k = 0; k < count; ++k) {
        result += text;
    }
    return result;
}

// The rule under the column titles, which the foot repeats as its separator: dashes over the
// standard length and quantity, over every slot and, with the waste summary, over its block.
std::string RuleLine(const Module1& m) {
    std::string line =
        "----------------    -------------" + Repeat("--------------", m.CutCount - 1);
    if (m.ShowWasteSummary) {
        line += "    ---" + Repeat("----------", ShowMoney(m) ? 4 : 2);
    }
    return line;
}

}  // namespace

bool ShowMoney(const Module1& m) {
    return m.MethodA || (m.MethodB && m.AllPriced);
}

void WriteReportHead(Module1& m, const Clock& clock, std::vector<std::string>& tiny1) {
    const int c = m.CutCount;
    const bool summary = m.ShowWasteSummary != kFalse;
    const bool money = ShowMoney(m);

    // Lines 1 and 2 run 3 columns into the waste block, so that the added titles stand over
    // "No."; each stamp ends on the last column of the block.
    std::string title = "STANDARD LENGTHS    CUTTING DETAILS" + Spaces(14 * c - 13);
    if (summary) {
        const std::tm now = clock.Now();
        title += " WASTE SUMMARY" +
                 (money ? Spaces(19) + DateStamp(now, true) : Spaces(4) + DateStamp(now, false));
    }
    tiny1.push_back(title);

    std::string underline = "----------------    ---------------" + Spaces(14 * c - 13);
    if (summary) {
        const std::tm now = clock.Now();
        underline += " -------------" + (money ? Spaces(22) + TimeStamp(now, true)
                                               : Spaces(5) + TimeStamp(now, false));
    }
    tiny1.push_back(underline);

    tiny1.emplace_back();

    std::string names = "Length  Quantity    Num. x Length" + Spaces(14 * (c - 1));
    std::string units = (money ? "   (Price)(Total)  " : "          (Total)  ") + Spaces(14 * c);
    if (summary) {
        names += money ? "    No.  Material     Total     Money     Total"
                       : "    No.  Material     Total";
        units += money ? "    [x]     Waste     Waste     Waste     Waste"
                       : "    [x]     Waste     Waste";
    }
    tiny1.push_back(names);
    tiny1.push_back(units);
    tiny1.push_back(RuleLine(m));

    CountTotalPieces(m);
    m.PassLines.clear();
}

void WriteCuttingLine(Module1& m, std::vector<std::string>& tiny1) {
    const int row = static_cast<int>(m.ChosenStd);
    std::string& line = m.LineText;
    line = RightField(NumberText(m.StdLength(row)), 7) + RightField(NumberText(m.ChosenBars), 9) +
           Spaces(3);

    // The picture rounds the length to two decimals; NumberText then drops trailing zeros and
    // the zero before the point.
    m.ItemsInLine = 0;
    for (int j = 1; j <= m.CutCount; ++j) {
        const int32_t pieces = m.PatternPieces(row, j);
        if (pieces > 0) {
            line += RightField(NumberText(pieces), 5) + " x" +
                    RightField(NumberText(PictureText(m.CutLength(j), "#####.00")), 7);
            m.ItemsInLine += 1;
        }
    }
    line += Spaces(14 * (m.CutCount - static_cast<int>(m.ItemsInLine)));
    if (m.ItemsInLine > m.MaxItemsInLine) {
        m.MaxItemsInLine = m.ItemsInLine;
    }

    // A step without waste leaves its waste columns empty.
    if (m.ShowWasteSummary && m.ChosenWaste > 0) {
        m.WasteBarsTotal += static_cast<float>(m.ChosenBars);
        line += RightField(NumberText(m.ChosenBars), 7);
        line += RightField(PictureText(m.ChosenWaste, "######0.00"), 10);
        const double lineWaste = static_cast<double>(m.ChosenBars) * m.ChosenWaste;
        line += RightField(PictureText(lineWaste, "######0.00"), 10);
        if (m.MethodA) {
            line += RightField(PictureText(m.BarMonWasteA, "######0.00"), 10);
            line += RightField(PictureText(m.StepMonWasteA, "######0.00"), 10);
        }
        if (m.MethodB && m.AllPriced) {
            line += RightField(PictureText(m.BarMonWasteB, "######0.00"), 10);
            line += RightField(PictureText(m.StepMonWasteB, "######0.00"), 10);
        }
    }
    tiny1.push_back(line);
    CutLineRecord record{
        static_cast<uint8_t>(row), m.StdLength(row), m.StdPrice(row), m.ChosenBars, {}};
    for (int j = 1; j <= m.CutCount; ++j) {
        record.pieces(j) = m.PatternPieces(row, j);
    }
    m.PassLines.push_back(record);
}

void WriteReportFoot(const Module1& m, std::vector<std::string>& tiny1, std::string_view mark) {
    const int c = m.CutCount;
    const bool methodA = m.MethodA != kFalse;
    const bool summary = m.ShowWasteSummary != kFalse;
    const bool money = ShowMoney(m);
    const double totalCost = methodA ? m.TotalCostA : m.TotalCostB;
    const double matWaste = methodA ? m.TotalMatWasteA : m.TotalMatWasteB;
    const double monWaste = methodA ? m.TotalMonWasteA : m.TotalMonWasteB;
    const double matPercent = methodA ? m.MatWastePctA : m.MatWastePctB;
    const double monPercent = methodA ? m.MonWastePctA : m.MonWastePctB;

    tiny1.push_back(RuleLine(m));

    // The label is 21 columns: "Method Used    => " and the letters, "AA", "BA", "A" or "B".
    std::string method = "Method Used    => ";
    method += methodA ? "A" : "B";
    if (m.Advanced) {
        method += "A";
    }
    method += mark;
    method += Spaces(21 - static_cast<int>(method.size()));
    method += Spaces(14 * (c - 1)) + Spaces(12);
    if (summary) {
        // Each total stands under its column; "Material" and "Money" per bar have none.
        method += RightField(NumberText(m.WasteBarsTotal), 7) + Spaces(10) +
                  RightField(PictureText(matWaste, "#####0.00"), 10);
        if (money) {
            method += Spaces(10) + RightField(PictureText(monWaste, "#####0.00"), 10);
        }
    }
    tiny1.push_back(method);

    const std::string costField = RightField(PictureText(totalCost, "##########0.00"), 14);
    tiny1.push_back(money ? "Total  Cost" + std::string("    =>  ") + costField : Spaces(33));

    // The "=" signs end under the last digit of the total cost, one under each character.
    std::string underline = "----------------" + Spaces(3);
    if (money) {
        const std::size_t firstDigit = costField.find_first_not_of(' ');
        const int costLength =
            firstDigit == std::string::npos ? 0 : static_cast<int>(costField.size() - firstDigit);
        underline +=
            Spaces(14 - costLength) + std::string(static_cast<std::size_t>(costLength), '=');
    } else {
        underline += Spaces(14);
    }
    underline += Spaces(14 * c - 14);
    if (summary) {
        underline +=
            Spaces(4) + "Waste Material =" + RightField(PictureText(matPercent, "#0.00"), 5) + " %";
        if (money) {
            underline += "      Money =" + RightField(PictureText(monPercent, "#0.00"), 5) + " %";
        }
    }
    tiny1.push_back(underline);

    if (m.ShowReference) {
        tiny1.emplace_back();
        tiny1.push_back("Reference      =>   " + m.ReferenceText);
    }
}

}  // namespace brennik
