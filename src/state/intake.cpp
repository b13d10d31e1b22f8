#include "state/intake.h"

#include <array>
#include <cfloat>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "state/number_texts.h"

namespace brennik {

namespace {

// An entered length or price: rounded to 2 decimals on its value, stored as f32.
float EntryLength(std::string_view text) {
    return HoldAsFloat(RoundEven2(NumberValue(text)));
}

// An entered quantity, rounded down to a whole number: 3.9 gives 3, -0.5 gives -1.
int32_t EntryQuantity(std::string_view text) {
    return HoldAsInt32(std::floor(NumberValue(text)));
}

bool WithinEntryLimit(float value) {
    return value > 0 && value <= EntryLimit;
}

// A cutting row is complete (both values above 0 and within their limits) or absent (both 0).
bool IsAcceptableCutRow(float length, int32_t quantity) {
    return length <= EntryLimit && length >= 0 && quantity <= MaxQuantity && quantity >= 0 &&
           !(length > 0 && quantity == 0) && !(quantity > 0 && length == 0);
}

void ReadStdRows(Module1& m, Surface& surface) {
    for (int row = 1; row <= MaxStdLengths; ++row) {
        const Control lengthBox{Ctl::txtSL, row};
        const Control priceBox{Ctl::txtSP, row};

        m.StdLength(row) = EntryLength(surface.Text(lengthBox));
        if (WithinEntryLimit(m.StdLength(row))) {
            surface.SetText(lengthBox, FloatText(m.StdLength(row)));
        } else {
            m.StdLength(row) = 0;
            m.StdPrice(row) = 0;
            surface.SetText(lengthBox, "");
            surface.SetText(priceBox, "");
        }

        // The price box may just have been emptied with its length; it then reads as 0.
        m.StdPrice(row) = EntryLength(surface.Text(priceBox));
        if (WithinEntryLimit(m.StdPrice(row))) {
            surface.SetText(priceBox, FloatText(m.StdPrice(row)));
        } else {
            m.StdPrice(row) = 0;
            surface.SetText(priceBox, "");
        }
    }
}

// Reads the cutting rows down to the first bad one; gives that row's number, or 0 when every
// row was acceptable. The message of an earlier press and the red of earlier bad rows are
// cleared row by row as the loop passes them.
int ReadCutRows(Module1& m, Surface& surface) {
    for (int row = 1; row <= MaxCutLengths; ++row) {
        const Control lengthBox{Ctl::txtL, row};
        const Control quantityBox{Ctl::txtN, row};

        surface.SetForeColor({Ctl::txtLong}, Black);
        surface.SetText({Ctl::txtLong}, "");
        surface.SetForeColor(lengthBox, Black);
        surface.SetForeColor(quantityBox, Black);
        m.EntryError = kFalse;

        const float length = EntryLength(surface.Text(lengthBox));
        m.CutLength(row) = length;
        const int32_t quantity = EntryQuantity(surface.Text(quantityBox));
        m.CutQty(row) = quantity;

        if (!IsAcceptableCutRow(length, quantity)) {
            m.EntryError = kTrue;
            return row;
        }
        if (length > 0 && quantity > 0) {
            surface.SetText(lengthBox, FloatText(length));
            surface.SetText(quantityBox, std::to_string(quantity));
        } else {
            surface.SetText(lengthBox, "");
            surface.SetText(quantityBox, "");
        }
    }
    return 0;
}

}  // namespace

float HoldAsFloat(double value) {
    if (value >= FLT_MAX) {
        return FLT_MAX;
    }
    if (value <= -FLT_MAX) {
        return -FLT_MAX;
    }
    return static_cast<float>(value);
}

int32_t HoldAsInt32(double wholeValue) {
    if (wholeValue >= static_cast<double>(std::numeric_limits<int32_t>::max())) {
        return std::numeric_limits<int32_t>::max();
    }
    if (wholeValue <= static_cast<double>(std::numeric_limits<int32_t>::min())) {
        return std::numeric_limits<int32_t>::min();
    }
    return static_cast<int32_t>(wholeValue);
}

void ReadEntries(Module1& m, Surface& surface) {
    m.StdLength.Fill(0);
    m.StdPrice.Fill(0);
    m.CutLength.Fill(0);
    m.CutQty.Fill(0);

    ReadStdRows(m, surface);
    const int badRow = ReadCutRows(m, surface);
    if (badRow > 0) {
        SetStatus(surface, White, Red, " Unacceptable Entry !.");
        surface.SetForeColor({Ctl::txtL, badRow}, Red);
        surface.SetForeColor({Ctl::txtN, badRow}, Red);
        surface.SetFocus({Ctl::txtL, badRow});
    }
}

void CheckCutLengths(Module1& m, Surface& surface) {
    surface.SetText({Ctl::txtLong}, "");
    surface.SetForeColor({Ctl::txtLong}, Black);
    // An empty cutting row above the first length is no reason to complain.
    bool lengthSeen = false;
    for (int row = 1; row <= MaxCutLengths; ++row) {
        if (m.CutLength(row) > 0) {
            lengthSeen = true;
        }
        m.LengthError = kTrue;
        surface.SetForeColor({Ctl::txtL, row}, Black);
        for (int stdRow = 1; stdRow <= MaxStdLengths; ++stdRow) {
            if (m.StdLength(stdRow) > 0 && !(m.StdLength(stdRow) < m.CutLength(row))) {
                m.LengthError = kFalse;
                break;
            }
        }
        if (m.LengthError && lengthSeen) {
            SetStatus(surface, White, Red, " This length exceeds the longest standard length !.");
            surface.SetForeColor({Ctl::txtL, row}, Red);
            return;
        }
    }
}

namespace {

// The text of a standard length or price in its box, empty for none. An Advanced search shows
// the same few values in hundreds of orders, so the texts of the last ones shown are kept.
std::string ShownEntry(float value) {
    if (!(value > 0)) {
        return {};
    }
    struct Shown {
        float value = 0;
        std::string text;
    };
    thread_local std::array<Shown, 2 * MaxStdLengths> shown;
    thread_local std::size_t oldest = 0;
    for (const Shown& known : shown) {
        if (known.value == value) {
            return known.text;
        }
    }
    Shown& kept = shown[oldest];
    oldest = (oldest + 1) % shown.size();
    kept = {value, FloatText(value)};
    return kept.text;
}

}  // namespace

void ShowStdEntries(const Module1& m, Surface& surface) {
    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (m.MethodA) {
            surface.SetText({Ctl::txtMon, row}, "");
            surface.Refresh({Ctl::txtMon, row});
        }
        if (m.MethodB) {
            surface.SetText({Ctl::txtMat, row}, "");
            surface.Refresh({Ctl::txtMat, row});
        }
        surface.SetText({Ctl::txtSL, row}, ShownEntry(m.StdLength(row)));
        surface.SetText({Ctl::txtSP, row}, ShownEntry(m.StdPrice(row)));
    }
}

}  // namespace brennik
