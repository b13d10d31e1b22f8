// Module1: the one block of shared state through which every procedure of the program talks.
// Field names and widths are those the procedures speak of; tables count their rows from 1.
// f32 = float, f64 = double; a flag is an int16_t holding 0 (false) or -1 (true).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "state/rows.h"

namespace brennik {

using Flag = int16_t;
inline constexpr Flag kFalse = 0;
inline constexpr Flag kTrue = -1;
inline constexpr Flag ToFlag(bool value) {
    return value ? kTrue : kFalse;
}

inline constexpr int MaxStdLengths = 6;
inline constexpr int MaxCutLengths = 40;

// Largest length or price an entry may hold; as an f32 its value is 99999.8984375.
inline constexpr float EntryLimit = 99999.9f;
inline constexpr int32_t MaxQuantity = 99999;

// Markers of the pattern search: a length the pattern does not use, a row without a pattern,
// a row without a pattern or without a usable price.
inline constexpr int32_t NoBarLimit = 99998;
inline constexpr float NoPatternWaste = 99998.0f;
inline constexpr float NoPatternRate = 99999.0f;

template <typename T>
using StdRows = Rows<T, MaxStdLengths>;
template <typename T>
using CutRows = Rows<T, MaxCutLengths>;

// One cutting line of a pass as it was written: the standard row that cut it (as the pass
// numbered its rows), that row's length and price, the bars cut, and the pieces of each cutting
// row in one bar.
struct CutLineRecord {
    uint8_t row = 0;
    float stdLength = 0;
    float stdPrice = 0;
    int32_t bars = 0;
    CutRows<int32_t> pieces;
};

struct Module1 {
    // The problem.
    StdRows<float> StdLength;
    StdRows<float> StdPrice;
    CutRows<float> CutLength;
    CutRows<int32_t> CutQty;
    CutRows<float> MasterCutLength;
    CutRows<int32_t> MasterCutQty;
    int16_t StdCount = 0;
    int16_t PriceCount = 0;
    int16_t CutCount = 0;
    Flag AllPriced = kFalse;

    // The run's mode and errors.
    Flag MethodA = kFalse;
    Flag MethodB = kFalse;
    Flag Advanced = kFalse;
    Flag BetterFound = kFalse;
    Flag EntryError = kFalse;
    Flag LengthError = kFalse;
    Flag ReferenceAsked = kFalse;
    // A work file or last.sol could not be written; the pass kept the previous last.sol.
    Flag FileError = kFalse;
    std::string ReferenceText;

    // The step that the engine has just chosen.
    float ChosenStd = 0;  // a row number held as a float
    float ChosenWaste = 0;
    int32_t ChosenBars = 0;
    int32_t TotalPieces = 0;
    int32_t PiecesLeft = 0;
    float PercentCut = 0;

    // Accumulators of a pass, Method B family.
    double StepMatWasteB = 0;
    double TotalMatWasteB = 0;
    double TotalLengthB = 0;
    double TotalCostB = 0;
    double BarMonWasteB = 0;
    double StepMonWasteB = 0;
    double TotalMonWasteB = 0;
    double MatWastePctB = 0;
    double MonWastePctB = 0;
    StdRows<float> BarsUsedB;

    // Accumulators of a pass, Method A family.
    double StepMatWasteA = 0;
    double TotalMatWasteA = 0;
    double TotalLengthA = 0;
    double TotalCostA = 0;
    double BarMonWasteA = 0;
    double StepMonWasteA = 0;
    double TotalMonWasteA = 0;
    double MatWastePctA = 0;
    double MonWastePctA = 0;
    StdRows<float> BarsUsedA;

    StdRows<int32_t> BarsBought;

    // Working tables of the engine. Counts of a length in one bar are held in 32 bits, so
    // every admissible entry (up to 99999 pieces of one length) has a representation.
    StdRows<float> SeqLength;
    StdRows<float> SeqPrice;
    uint8_t EngineStd = 0;
    StdRows<int32_t> PatternBars;
    Table<int32_t, MaxStdLengths, MaxCutLengths> PatternPieces;
    Table<float, MaxStdLengths, 2> RankMat;
    Table<float, MaxStdLengths, 2> RankMon;

    // The Advanced search.
    StdRows<float> BestStdLength;
    StdRows<float> BestStdPrice;
    double BestCost = 0;
    double BestMatWaste = 0;
    float BasicFigure = 0;
    float SavedAmount = 0;
    StdRows<uint8_t> SeqPos;
    int16_t SeqStep = 0;

    // The report.
    float ItemsInLine = 0;
    float MaxItemsInLine = 0;
    float WasteBarsTotal = 0;
    std::string LineText;
    // Every cutting line of this pass, in the order of the lines, so that every line reaches
    // the group of its own row, and so that the plan of the pass can be looked at afterwards.
    std::vector<CutLineRecord> PassLines;

    // Settings.
    Flag ShowWasteSummary = kFalse;
    Flag ShowReference = kFalse;
    int16_t PageWidth = 66;
};

}  // namespace brennik
