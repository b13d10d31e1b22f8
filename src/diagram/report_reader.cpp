#include "diagram/report_reader.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>

#include "files/text_lines.h"

namespace brennik {

namespace {

constexpr std::string_view ReferenceLead = "Reference      =>   ";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// The number in `width` columns from `from`, blanks around it allowed; nothing for other text.
std::optional<double> Number(std::string_view line, std::size_t from, std::size_t width) {
    const std::string_view field = Trimmed(from < line.size() ? line.substr(from, width) : "");
    double value = 0;
    const auto [stop, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (field.empty() || error != std::errc() || stop != field.data() + field.size()) {
        return std::nullopt;
    }
    return value;
}

std::optional<int64_t> Count(std::string_view line, std::size_t from, std::size_t width) {
    const std::optional<double> value = Number(line, from, width);
    if (!value || *value < 0 || *value != static_cast<double>(static_cast<int64_t>(*value))) {
        return std::nullopt;
    }
    return static_cast<int64_t>(*value);
}

// The waste columns from `block` to the end of the line: bars, per bar, total, then money per
// bar and total when the report shows money. The foot's totals leave the per-bar columns blank.
std::optional<WasteColumns> ReadWaste(std::string_view line, std::size_t block, bool money,
                                      bool perBar) {
    const auto bars = Count(line, block, 7);
    const auto material = Number(line, block + 7, 10);
    const auto total = Number(line, block + 17, 10);
    const auto moneyPerBar = Number(line, block + 27, 10);
    const auto moneyTotal = Number(line, block + 37, 10);
    if (line.size() != block + (money ? 47 : 27) || !bars || !total ||
        material.has_value() != perBar ||
        (money && (!moneyTotal || moneyPerBar.has_value() != perBar))) {
        return std::nullopt;
    }
    return WasteColumns{*bars, material.value_or(0), *total, moneyPerBar, moneyTotal};
}

// Length, bars, an item "ppppp x lllllll" in each used slot from the first, then the waste
// columns when the line has any; nothing when the line is laid out otherwise.
std::optional<ReportLine> ReadCuttingLine(std::string_view line, std::size_t body,
                                          const SolutionReport& r) {
    const auto length = Number(line, 0, 7);
    const auto bars = Count(line, 7, 9);
    if (line.size() < body || !length || !bars || line.substr(16, 3) != "   ") {
        return std::nullopt;
    }
    ReportLine cut{*length, *bars, {}, {}};
    for (std::size_t at = 19; at < body; at += 14) {
        const auto pieces = Count(line, at, 5);
        const auto itemLength = Number(line, at + 7, 7);
        if (pieces && itemLength && line.substr(at + 5, 2) == " x" &&
            cut.items.size() == (at - 19) / 14) {
            cut.items.push_back({*pieces, *itemLength});
        } else if (!Trimmed(line.substr(at, 14)).empty()) {
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

// The stamp at the end of a head line, behind the last of its titles.
std::string StampBehind(std::string_view line, std::initializer_list<std::string_view> titles) {
    for (const std::string_view title : titles) {
        if (const std::size_t at = line.rfind(title); at != std::string_view::npos) {
            return std::string(Trimmed(line.substr(at + title.size())));
        }
    }
    return {};
}

// The foot from its rule on: the method line, the total cost, the percentages under the
// waste columns, and the reference note.
void ReadFoot(const std::vector<std::string>& lines, std::size_t at, std::size_t body,
              SolutionReport& r) {
    const std::string& method = lines[at + 1];
    r.methodLabel = method.substr(0, 21);
    if (!r.methodLabel.starts_with("Method Used    => ")) {
        r.faults.push_back("method line out of place: \"" + method + "\"");
    }
    r.method = std::string(Trimmed(std::string_view(r.methodLabel).substr(18)));
    if (r.wasteSummary) {
        const auto totals = ReadWaste(method, body, r.money, false);
        if (!totals) {
            r.faults.push_back("waste totals out of place: \"" + method + "\"");
        }
        r.wasteTotals = totals.value_or(WasteColumns{-1, -1, -1, {}, {}});
    }
    const std::string& cost = lines[at + 2];
    if (r.money) {
        r.totalCost = Number(cost, 19, 14);
        if (!cost.starts_with("Total  Cost    =>  ") || !r.totalCost) {
            r.faults.push_back("total cost out of place: \"" + cost + "\"");
        }
    }
    const std::string& percents = lines[at + 3];
    if (const std::size_t material = percents.find("Waste Material ="); r.wasteSummary) {
        r.materialPercent = Number(percents, material + 16, 5);
        const std::size_t money = percents.find("Money =", material);
        if (r.money && money != std::string::npos) {
            r.moneyPercent = Number(percents, money + 7, 5);
        }
        if (!r.materialPercent || r.money != r.moneyPercent.has_value()) {
            r.faults.push_back("waste percentages out of place: \"" + percents + "\"");
        }
    }
    for (std::size_t k = at + 4; k < lines.size(); ++k) {
        if (lines[k].starts_with(ReferenceLead)) {
            r.reference = lines[k].substr(ReferenceLead.size());
        }
    }
}

}  // namespace

SolutionReport ReadReport(std::string_view contents) {
    SolutionReport r;
    const std::vector<std::string> lines = SplitLines(contents);
    const auto fault = [&r](std::string_view line, const char* why) {
        r.faults.push_back(std::string(why) + ": \"" + std::string(line) + "\"");
    };
    if (lines.size() < 6 || !lines[0].starts_with("STANDARD LENGTHS    CUTTING DETAI")) {
        fault(lines.empty() ? "" : lines[0], "not the head of a solution report");
        return r;
    }
    r.wasteSummary = lines[0].find(" WASTE SUMMARY") != std::string::npos;
    r.money = lines[4].starts_with("   (Price)(Total)");
    r.date = StampBehind(lines[0], {"SUMMARY", "DETAILS", "DETAI"});
    r.time = StampBehind(lines[1], {"-"});
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
            const auto bars = Count(line, 11, 5);
            group.price = r.money && open < 9 ? Number(line, open + 1, 8 - open) : std::nullopt;
            if (!bars ||
                (r.money ? line[9] != ')' || !group.price : !line.starts_with("          "))) {
                fault(line, "group summary out of place");
            }
            group.bars = bars.value_or(0);
            r.groups.push_back(group);
            group = ReportGroup{};
        } else if (const auto cut = ReadCuttingLine(line, body, r)) {
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
    ReadFoot(lines, at, body, r);
    return r;
}

}  // namespace brennik
