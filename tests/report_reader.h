// Test support: reads a finished last.sol back into its figures, column by column as the report
// lays them out, so that a test can hold the report's lines, group summaries and foot totals
// against each other and against the problem that was asked for.
#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/text_lines.h"

namespace brennik::testing {

// One item of the cutting details: so many pieces of one length from every bar of the line.
struct ReportItem {
    int pieces = 0;
    double length = 0;
};

// The waste columns of a cutting line; the money pair only when the report shows money.
struct WasteColumns {
    int bars = 0;
    double perBar = 0;
    double total = 0;
    std::optional<double> moneyPerBar;
    std::optional<double> moneyTotal;
};

struct CuttingLine {
    double stdLength = 0;
    int bars = 0;
    std::vector<ReportItem> items;
    std::optional<WasteColumns> waste;  // none on a line without waste
};

// The cutting lines of one standard length and its summary "(price)(bars)".
struct ReportGroup {
    std::vector<CuttingLine> lines;
    std::optional<double> price;
    int bars = 0;
};

struct FootTotals {
    std::string methodLabel;  // "Method Used    => AA " and the like, 21 characters
    int wasteBars = 0;
    double materialWaste = 0;
    std::optional<double> moneyWaste;
    std::optional<double> totalCost;
};

struct ParsedReport {
    bool wasteSummary = false;  // the head has the WASTE SUMMARY columns
    bool money = false;         // the head has the money columns, or prices
    int slots = 0;              // G: the items of the widest cutting line
    std::vector<ReportGroup> groups;
    FootTotals foot;
    // Every line that does not have the layout of its place, with the reason.
    std::vector<std::string> faults;
};

// The number that a fixed field holds, blanks around it allowed; nothing for any other text.
inline std::optional<double> FieldNumber(std::string_view field) {
    const std::size_t first = field.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t last = field.find_last_not_of(' ');
    const char* begin = field.data() + first;
    const char* end = field.data() + last + 1;
    double value = 0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

namespace report_reader {

inline std::string_view Columns(std::string_view line, std::size_t from, std::size_t width) {
    return from < line.size() ? line.substr(from, width) : std::string_view();
}

inline bool StartsWith(std::string_view line, std::string_view text) {
    return line.substr(0, text.size()) == text;
}

// "   (20.00)(  160)" with a price, "          (    3)" without: 17 columns.
inline bool IsSummaryLine(std::string_view line) {
    return line.size() == 17 && (line[9] == ')' || line[9] == ' ') && line[10] == '(' &&
           line[16] == ')';
}

class Reader {
public:
    explicit Reader(ParsedReport& report) : report_(report) {}

    void Head(const std::vector<std::string>& lines) {
        report_.wasteSummary = lines[0].find(" WASTE SUMMARY") != std::string::npos;
        report_.money = StartsWith(lines[4], "   (Price)(Total)");
        // The rule under the titles runs from column 21 over the slots, 13 dashes over the first
        // and 14 over every other, so it ends on column 14 x G + 19.
        const std::string_view rule = lines[5];
        const std::size_t ends = std::min(rule.find_first_not_of('-', 20), rule.size());
        report_.slots = static_cast<int>((ends - 19) / 14);
        if (ends < 33 || (ends - 19) % 14 != 0) {
            Fault(rule, "head rule of unexpected width");
        }
    }

    void CuttingLineOf(std::string_view line, ReportGroup& group) {
        CuttingLine cut;
        const std::size_t body = 14 * static_cast<std::size_t>(report_.slots) + 19;
        const auto length = FieldNumber(Columns(line, 0, 7));
        const auto bars = FieldNumber(Columns(line, 7, 9));
        if (line.size() < body || !length || !bars || Columns(line, 16, 3) != "   ") {
            Fault(line, "cutting line without length, quantity or body");
            return;
        }
        cut.stdLength = *length;
        cut.bars = static_cast<int>(*bars);
        bool slotsEnded = false;
        for (int slot = 0; slot < report_.slots; ++slot) {
            const std::string_view text =
                Columns(line, 19 + 14 * static_cast<std::size_t>(slot), 14);
            if (text.find_first_not_of(' ') == std::string_view::npos) {
                slotsEnded = true;
                continue;
            }
            const auto pieces = FieldNumber(text.substr(0, 5));
            const auto itemLength = FieldNumber(text.substr(7, 7));
            if (slotsEnded || text.substr(5, 2) != " x" || !pieces || !itemLength) {
                Fault(line, "item out of its slot");
                return;
            }
            cut.items.push_back({static_cast<int>(*pieces), *itemLength});
        }
        if (line.size() > body) {
            cut.waste = WasteOf(line.substr(body));
            if (!cut.waste) {
                Fault(line, "waste columns out of place");
                return;
            }
        }
        group.lines.push_back(cut);
    }

    void SummaryOf(std::string_view line, ReportGroup& group) {
        const std::size_t open = line.find('(');
        if (report_.money) {
            group.price = FieldNumber(line.substr(open + 1, 9 - open - 1));
        }
        const auto bars = FieldNumber(line.substr(11, 5));
        if ((report_.money && (open >= 9 || !group.price)) ||
            (!report_.money && Columns(line, 0, 10) != "          ") || !bars) {
            Fault(line, "group summary out of place");
            return;
        }
        group.bars = static_cast<int>(*bars);
        report_.groups.push_back(group);
    }

    void Foot(const std::vector<std::string>& lines, std::size_t first) {
        if (lines.size() < first + 4) {
            Fault(lines.back(), "foot too short");
            return;
        }
        const std::string_view method = lines[first + 1];
        FootTotals& foot = report_.foot;
        foot.methodLabel = std::string(Columns(method, 0, 21));
        if (report_.wasteSummary) {
            const std::size_t block = 14 * static_cast<std::size_t>(report_.slots) + 19;
            const auto bars = FieldNumber(Columns(method, block, 7));
            const auto material = FieldNumber(Columns(method, block + 17, 10));
            if (!bars || !material) {
                Fault(method, "waste totals out of place");
                return;
            }
            foot.wasteBars = static_cast<int>(*bars);
            foot.materialWaste = *material;
            if (report_.money) {
                foot.moneyWaste = FieldNumber(Columns(method, block + 37, 10));
            }
        }
        const std::string_view cost = lines[first + 2];
        if (report_.money) {
            foot.totalCost = FieldNumber(Columns(cost, 19, 14));
            if (!StartsWith(cost, "Total  Cost    =>  ") || !foot.totalCost) {
                Fault(cost, "total cost out of place");
            }
        }
    }

private:
    std::optional<WasteColumns> WasteOf(std::string_view block) const {
        if (!report_.wasteSummary || block.size() != (report_.money ? 47u : 27u)) {
            return std::nullopt;
        }
        const auto bars = FieldNumber(block.substr(0, 7));
        const auto perBar = FieldNumber(block.substr(7, 10));
        const auto total = FieldNumber(block.substr(17, 10));
        if (!bars || !perBar || !total) {
            return std::nullopt;
        }
        WasteColumns waste{static_cast<int>(*bars), *perBar, *total, {}, {}};
        if (report_.money) {
            waste.moneyPerBar = FieldNumber(block.substr(27, 10));
            waste.moneyTotal = FieldNumber(block.substr(37, 10));
            if (!waste.moneyPerBar || !waste.moneyTotal) {
                return std::nullopt;
            }
        }
        return waste;
    }

    void Fault(std::string_view line, const char* why) {
        report_.faults.push_back(std::string(why) + ": \"" + std::string(line) + "\"");
    }

    ParsedReport& report_;
};

}  // namespace report_reader

// Reads the bytes of a finished report: six head lines, the groups of cutting lines each closed
// by its summary and divided by lines of one space, then the foot from its rule on.
inline ParsedReport ParseReport(std::string_view contents) {
    ParsedReport report;
    const std::vector<std::string> lines = SplitLines(contents);
    if (lines.size() < 6) {
        report.faults.push_back("fewer than six head lines");
        return report;
    }
    report_reader::Reader reader(report);
    reader.Head(lines);
    ReportGroup group;
    std::size_t at = 6;
    for (; at < lines.size() && !report_reader::StartsWith(lines[at], "-"); ++at) {
        const std::string& line = lines[at];
        if (line == " ") {
            if (!group.lines.empty()) {
                report.faults.push_back("group without summary before a dividing line");
            }
        } else if (report_reader::IsSummaryLine(line)) {
            reader.SummaryOf(line, group);
            group = ReportGroup{};
        } else {
            reader.CuttingLineOf(line, group);
        }
    }
    if (!group.lines.empty()) {
        report.faults.push_back("cutting lines after the last summary");
    }
    if (at == lines.size()) {
        report.faults.push_back("no foot");
        return report;
    }
    reader.Foot(lines, at);
    return report;
}

}  // namespace brennik::testing
