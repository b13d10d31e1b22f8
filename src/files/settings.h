// The three settings (waste summary, reference note, page width), kept in brennik.cnf in the
// current folder: read once when the main form loads, edited on the panel Frame1, and written
// on every Ok of that panel.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/file_system.h"
#include "surface/surface.h"
#include "state/module1.h"

namespace brennik {

inline constexpr int16_t DefaultPageWidth = 66;

// The page width a typed text gives: its number, when at least 60 and at most 200, rounded to
// the nearest whole number with a half going to the even one; 66 for anything else.
int16_t PageWidthFrom(std::string_view text);

// Reads the settings; on a first start, with no file there, writes the defaults at once.
void LoadSettings(Module1& m, Surface& surface, FileSystem& files);

// Shows Frame1 with the settings in force.
void OpenSettingsPanel(const Module1& m, Surface& surface);

// Takes the panel's values, writes the file and hides Frame1.
void ApplySettings(Module1& m, Surface& surface, FileSystem& files);

}  // namespace brennik
