// Test support: reads a finished last.sol back into its figures, column by column as the report
// lays them out, so that a test can hold lines, group summaries and foot totals against each
// other and against the problem that was asked for.
#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/text_lines.h"

namespace brennik::testing {

struct ReportItem {
    int pieces = 0;
    double length = 0;
};

// The waste columns of a cutting line; the money total only when the report shows money.
struct WasteColumns {
    int bars = 0;
    double perBar = 0;
    double total = 0;
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

struct ParsedReport {
    bool wasteSummary = false;  // the head has the WASTE SUMMARY columns
    bool money = false;         // the head has prices
    std::vector<ReportGroup> groups;
    std::string methodLabel;   // "Method Used    => AA " and the like
    WasteColumns wasteTotals;  // under the waste columns, when the summary is shown
    std::optional<double> totalCost;
    std::vector<std::string> faults;  // every line not laid out as its place wants, and why
};

namespace report_reader {

// The number in `width` columns from `from`, blanks around it allowed; nothing for other text.
inline std::optional<double> Number(std::string_view line, std::size_t from, std::size_t width) {
    std::string_view field = from < line.size() ? line.substr(from, width) : std::string_view();
    const std::size_t first = field.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    field = field.substr(first, field.find_last_not_of(' ') + 1 - first);
    double value = 0;
    const auto [stop, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error != std::errc() || stop != field.data() + field.size()) {
        return std::nullopt;
    }
    return value;
}

// The waste columns from `block` to the end of the line: bars, per bar, total, then money per
// bar and total when the report shows money. The foot's totals leave the per-bar columns blank.
inline std::optional<WasteColumns> ReadWaste(std::string_view line, std::size_t block, bool money,
                                             bool perBar) {
    const auto bars = Number(line, block, 7);
    const auto total = Number(line, block + 17, 10);
    const auto moneyTotal = Number(line, block + 37, 10);
    if (line.size() != block + (money ? 47 : 27) || !bars || !total ||
        Number(line, block + 7, 10).has_value() != perBar ||
        (money && (!moneyTotal || Number(line, block + 27, 10).has_value() != perBar))) {
        return std::nullopt;
    }
    return WasteColumns{static_cast<int>(*bars), Number(line, block + 7, 10).value_or(0), *total,
                        moneyTotal};
}

// Length, bars, an item "ppppp x lllllll" in each used slot from the first, then the waste
// columns when the line has any; nothing when the line is laid out otherwise.
inline std::optional<CuttingLine> ReadCuttingLine(std::string_view line, std::size_t body,
                                                  const ParsedReport& r) {
    const auto length = Number(line, 0, 7);
    const auto bars = Number(line, 7, 9);
    if (line.size() < body || !length || !bars || line.substr(16, 3) != "   ") {
        return std::nullopt;
    }
    CuttingLine cut{*length, static_cast<int>(*bars), {}, {}};
    for (std::size_t at = 19; at < body; at += 14) {
        const auto pieces = Number(line, at, 5);
        const auto itemLength = Number(line, at + 7, 7);
        if (pieces && itemLength && line.substr(at + 5, 2) == " x" &&
            cut.items.size() == (at - 19) / 14) {
            cut.items.push_back({static_cast<int>(*pieces), *itemLength});
        } else if (line.substr(at, 14).find_first_not_of(' ') != std::string_view::npos) {
            return std::nullopt;
        }
    }
    if (line.size() > body) {
        cut.waste = ReadWaste(line, body, r.money, true);
        if (!r.wasteSummary || !cut.waste) {
            return std::nullopt;
        }
    }
    return cut;
}

}  // namespace report_reader

// Reads the bytes of a finished report: six head lines, the groups of cutting lines each closed
// by its summary and divided by lines of one space, then the foot from its rule on.
inline ParsedReport ParseReport(std::string_view contents) {
    using report_reader::Number;
    ParsedReport r;
    const std::vector<std::string> lines = SplitLines(contents);
    const auto fault = [&r](std::string_view line, const char* why) {
        r.faults.push_back(std::string(why) + ": \"" + std::string(line) + "\"");
    };
    if (lines.size() < 6) {
        fault(contents, "fewer than six head lines");
        return r;
    }
    r.wasteSummary = lines[0].find(" WASTE SUMMARY") != std::string::npos;
    r.money = lines[4].starts_with("   (Price)(Total)");
    // The rule under the titles runs from column 21 over the slots, 13 dashes over the first and
    // 14 over every other, so it ends on column 14 x slots + 19, where the waste columns begin.
    const std::size_t body = std::min(lines[5].find_first_not_of('-', 20), lines[5].size());
    if (body < 33 || (body - 19) % 14 != 0) {
        fault(lines[5], "head rule of unexpected width");
        return r;
    }

    ReportGroup group;
    std::size_t at = 6;
    for (; at < lines.size() && !lines[at].starts_with("-"); ++at) {
        const std::string& line = lines[at];
        if (line == " ") {
            if (!group.lines.empty()) {
                fault(line, "group without summary before a dividing line");
            }
        } else if (line.size() == 17 && line[10] == '(' && line[16] == ')') {
            // "   (20.00)(  160)" with a price, "          (    3)" without.
            const std::size_t open = line.find('(');
            const auto bars = Number(line, 11, 5);
            group.price = r.money && open < 9 ? Number(line, open + 1, 8 - open) : std::nullopt;
            if (!bars ||
                (r.money ? line[9] != ')' || !group.price : !line.starts_with("          "))) {
                fault(line, "group summary out of place");
            }
            group.bars = static_cast<int>(bars.value_or(0));
            r.groups.push_back(group);
            group = ReportGroup{};
        } else if (const auto cut = report_reader::ReadCuttingLine(line, body, r)) {
            group.lines.push_back(*cut);
        } else {
            fault(line, "cutting line out of its layout");
        }
    }
    if (!group.lines.empty()) {
        fault(lines[at - 1], "cutting lines after the last summary");
    }
    if (at + 4 > lines.size()) {
        fault(lines.back(), "foot too short");
        return r;
    }
    // The foot: its rule, the method line, the total cost and its underline.
    const std::string& method = lines[at + 1];
    r.methodLabel = method.substr(0, 21);
    if (r.wasteSummary) {
        const auto totals = report_reader::ReadWaste(method, body, r.money, false);
        if (!totals) {
            fault(method, "waste totals out of place");
        }
        r.wasteTotals = totals.value_or(WasteColumns{-1, -1, -1, {}});
    }
    const std::string& cost = lines[at + 2];
    if (r.money) {
        r.totalCost = Number(cost, 19, 14);
        if (!cost.starts_with("Total  Cost    =>  ") || !r.totalCost) {
            fault(cost, "total cost out of place");
        }
    }
    return r;
}

}  // namespace brennik::testing
