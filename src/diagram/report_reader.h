// Reads a finished report of this program (last.sol, cheaper.sol) back into what it says: the
// stamps of the head, the groups of cutting lines with their summaries, the totals of the foot
// and the reference note. Every line not laid out as the program lays it out is named a fault.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brennik {

// "Num. x Length": so many pieces of one cutting length from each bar of the line.
struct ReportItem {
    int64_t pieces = 0;
    double length = 0;
};

// The waste columns of a cutting line, or their totals in the foot (no per-bar figures there);
// the money columns only when the report shows money.
struct WasteColumns {
    int64_t bars = 0;
    double perBar = 0;
    double total = 0;
    std::optional<double> moneyPerBar;
    std::optional<double> moneyTotal;
};

struct ReportLine {
    double stdLength = 0;
    int64_t bars = 0;
    std::vector<ReportItem> items;
    std::optional<WasteColumns> waste;  // none on a line without waste
};

// The cutting lines of one standard length and its summary "(price)(bars)".
struct ReportGroup {
    std::vector<ReportLine> lines;
    std::optional<double> price;
    int64_t bars = 0;
};

struct SolutionReport {
    bool wasteSummary = false;  // the head has the WASTE SUMMARY columns
    bool money = false;         // the head has prices
    std::string date;           // the stamps of the head, empty when it has none
    std::string time;
    std::vector<ReportGroup> groups;
    std::string methodLabel;   // the first 21 columns of the method line, "Method Used    => AA "
    std::string method;        // the method alone: "A", "BA", "AA+" and the like
    WasteColumns wasteTotals;  // under the waste columns, when the summary is shown
    std::optional<double> totalCost;
    std::optional<double> materialPercent;
    std::optional<double> moneyPercent;
    std::optional<std::string> reference;
    std::vector<std::string> faults;  // every line out of its layout, and why
};

SolutionReport ReadReport(std::string_view contents);

}  // namespace brennik
