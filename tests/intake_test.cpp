// The intake of the entry boxes at and beyond every limit: what it takes and writes back in normal
// form, what it drops in silence and what it refuses, on numbers and on texts that hold none.
#include "state/intake.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Rows;
using Texts = std::vector<std::string>;

Texts Joined(Texts texts, const Texts& more) {
    texts.insert(texts.end(), more.begin(), more.end());
    return texts;
}

// The rows, then each of the texts paired with `shown`.
Rows Cases(Rows rows, const Texts& texts, const std::string& shown) {
    for (const std::string& text : texts) {
        rows.emplace_back(text, shown);
    }
    return rows;
}

// Texts without any number, of up to a box's seven characters, bytes below 32 and above 127 too.
const Texts kNoNumbers = {
    "abcdefg", "#$%&*()", "-------", ".......", "+-+-+-+",        "e1e1e1e",        "nan", "inf",
    "-inf",    "NaN(1)",  "       ", "x0x0x0x", "\t\t\t\t\t\t\t", "\1\2\3\4\5\6\7", "ééé!"};
// Texts that give no length: too large for a length or any field, below a hundredth, no number.
const Texts kNoLength =
    Joined({"99999.91", "100000", "9999999", "1e308", "1e999", "1e+9999", "3.4e38", "3.5e38",
            "0.001", "0.004", "-0.01", "-1e999", "0x10", "1e-999"},
           kNoNumbers);

// A form with the rows typed in, from the first, read once by the intake.
struct Form : testing::Bench {
    Form(const Rows& stock, const Rows& cuts) {
        Type(stock, cuts);
        ReadEntries(m, surface);
    }
    std::string Text(Ctl box, int row = 0) const { return surface.Text({box, row}); }
};

// A half goes to the even digit; 0.005 lies a little above the half as a double, so it rounds
// up. Beyond the limits or without a number, a standard row goes whole, a price alone; a cutting
// row without a number in either box is emptied in silence, and a quantity up to 99999 is taken,
// rounded down. Each form tries, in turn, a length in standard row 1, a price in standard row 2,
// an empty cutting row 1 and a quantity in cutting row 2.
TEST(EntryRows, AreWrittenBackInNormalFormOrDroppedInSilence) {
    const Rows keptLengths = {
        {"99999.9", "99999.9"}, {"99999.899", "99999.9"}, {"0.005", "0.01"}, {"1.2.3.4", "1.2"},
        {"12abcde", "12"},      {"1,5,0,0", "1"},         {"+5", "5"},       {"5e", "5"},
        {"  7  ", "7"},         {"6.126", "6.13"}};
    const Rows lengths = Cases(keptLengths, Joined(kNoLength, {"0"}), "");
    const Rows prices =
        Cases({{"99999.9", "99999.9"}, {".8", "0.8"}, {" 2.125", "2.12"}},
              Joined(kNoNumbers, {"99999.91", "100000", "1e999", "-1e999", "-0.01", "0.004"}), "");
    Rows emptyRows = {{"0.001", ""}};
    for (const std::string& text : kNoNumbers) {
        emptyRows.emplace_back(text, text);
    }
    const Rows quantities = {{"99999", "99999"}, {"99999.9", "99999"}, {"99999.999", "99999"},
                             {"1.9", "1"},       {"3e2", "300"},       {"12abcde", "12"}};
    for (std::size_t k = 0; k < std::max(lengths.size(), prices.size()); ++k) {
        const auto& [length, shownLength] = lengths[k % lengths.size()];
        const auto& [price, shownPrice] = prices[k % prices.size()];
        const auto& [quantity, shownQuantity] = quantities[k % quantities.size()];
        const auto& emptyRow = emptyRows[k % emptyRows.size()];
        SCOPED_TRACE(length + " / " + price + " / " + emptyRow.first + " / " + quantity);
        const Form form({{length, "10"}, {"12", price}},
                        {emptyRow, {"99999.9", quantity}, {"0.005", "2"}});
        EXPECT_EQ(form.m.EntryError, kFalse);
        EXPECT_EQ(form.Text(Ctl::txtSL, 1), shownLength);
        EXPECT_EQ(form.Text(Ctl::txtSP, 1), shownLength.empty() ? "" : "10");
        EXPECT_EQ(form.m.StdLength(1), shownLength.empty() ? 0.0f : std::stof(shownLength));
        EXPECT_EQ(form.m.StdPrice(1), shownLength.empty() ? 0.0f : 10.0f);
        EXPECT_EQ(form.Text(Ctl::txtSL, 2) + "/" + form.Text(Ctl::txtSP, 2), "12/" + shownPrice);
        EXPECT_EQ(form.m.StdPrice(2), shownPrice.empty() ? 0.0f : std::stof(shownPrice));
        EXPECT_EQ(form.Text(Ctl::txtLong), "");
        EXPECT_EQ(form.Text(Ctl::txtL, 1) + form.Text(Ctl::txtN, 1), "");
        EXPECT_EQ(form.m.CutLength(1), 0.0f);
        EXPECT_EQ(form.Text(Ctl::txtN, 2), shownQuantity);
        EXPECT_EQ(form.m.CutQty(2), std::stoi(shownQuantity));
        EXPECT_EQ(form.m.CutLength(2), EntryLimit);
        EXPECT_EQ(form.Text(Ctl::txtL, 3), "0.01");
    }
}

// Refused at cutting row 2: the message, the row's boxes red, their texts kept and the focus on
// its length; the row above black and read, the one below unread. Mended, the next bad row is told.
TEST(CuttingRows, TheFirstRowThatCannotBeCutIsRefused) {
    Rows cases = Cases({{"", "3"}, {"abc", "-0.5"}}, kNoLength, "3");
    for (const std::string& text :
         Joined(kNoNumbers, {"100000", "99999999", "1e308", "1e999", "-1e999", "2147483648",
                             "-2147483649", "0.999", "0", "-0.5", "0x10", ""})) {
        cases.emplace_back("4", text);
    }
    for (const auto& [length, quantity] : cases) {
        SCOPED_TRACE(length + " / " + quantity);
        Form form({{"99999.9", "1"}}, {{"2", "4"}, {length, quantity}, {"-3", "5"}});
        EXPECT_EQ(form.m.EntryError, kTrue);
        const ControlState& status = form.surface.State({Ctl::txtLong});
        EXPECT_EQ(std::tie(status.text, status.back, status.fore),
                  std::tuple(" Unacceptable Entry !.", White, Red));
        EXPECT_EQ(form.surface.State({Ctl::txtL, 2}).fore, Red);
        EXPECT_EQ(form.surface.State({Ctl::txtN, 2}).fore, Red);
        EXPECT_EQ(form.surface.State({Ctl::txtL, 1}).fore, Black);
        EXPECT_EQ(form.surface.Focus(), (Control{Ctl::txtL, 2}));
        EXPECT_EQ(form.Text(Ctl::txtL, 2) + "/" + form.Text(Ctl::txtN, 2), length + "/" + quantity);
        EXPECT_EQ(form.surface.State({Ctl::txtL, 3}).fore, Black) << "rows below are not read";
        EXPECT_EQ(form.m.CutQty(1), 4);

        form.surface.SetText({Ctl::txtL, 2}, "3");
        form.surface.SetText({Ctl::txtN, 2}, "7");
        ReadEntries(form.m, form.surface);
        EXPECT_EQ(form.surface.State({Ctl::txtL, 2}).fore, Black);
        EXPECT_EQ(form.surface.State({Ctl::txtL, 3}).fore, Red);
        EXPECT_EQ(form.surface.Focus(), (Control{Ctl::txtL, 3}));
    }
}

TEST(CheckCutLengths, TellsTheFirstRowThatFitsNoStandardLength) {
    MemorySurface surface;
    Module1 m;
    m.StdLength(1) = 5;
    m.StdLength(3) = 6;  // rows without a length are passed over
    m.CutLength(1) = 6;  // equal to the longest
    m.CutLength(2) = 6.01f;
    m.CutLength(3) = 9;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kTrue);
    const ControlState& status = surface.State({Ctl::txtLong});
    EXPECT_EQ(std::tie(status.text, status.back, status.fore),
              std::tuple(" This length exceeds the longest standard length !.", White, Red));
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Red);
    EXPECT_EQ(surface.State({Ctl::txtN, 2}).fore, Black);
    EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Black) << "not reached";

    m.CutLength(2) = 2;
    m.CutLength(3) = 0;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kFalse);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, "");
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Black);
}

}  // namespace
}  // namespace brennik
