// Intake of the entry boxes: turns the text of the standard and cutting rows into the problem's
// arrays, writes each accepted value back in normal form and refuses rows that cannot be cut;
// then checks that every cutting length fits a standard length.
#pragma once

#include <cstdint>

#include "surface/surface.h"
#include "state/module1.h"

namespace brennik {

// Reads every row of the boxes into StdLength, StdPrice, CutLength and CutQty and normalises the
// boxes. A standard row or price that makes no sense is emptied in silence; the first cutting row
// that makes no sense sets EntryError, is shown red with the focus on it, and ends the reading.
void ReadEntries(Module1& m, Surface& surface);

// Sets LengthError unless every cutting length fits some standard length, and tells the first
// row that does not.
void CheckCutLengths(Module1& m, Surface& surface);

// Writes the standard rows back to their boxes after they have been ordered or rearranged, and
// empties the bars column of the Method in use.
void ShowStdEntries(const Module1& m, Surface& surface);

// A number put into an f32 field. One too large for the field is held at the largest f32 of its
// sign, which lies beyond every limit of the intake, so that the intake refuses it.
float HoldAsFloat(double value);

// A whole number put into an i32 field, held at the largest or the most negative i32 when it is
// too large for the field.
int32_t HoldAsInt32(double wholeValue);

}  // namespace brennik
