// Test support for whole presses: a problem typed into the entry boxes of an in-memory screen,
// a fresh temporary folder as the current folder, and a fixed clock.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "report/clock.h"
#include "run/platform.h"
#include "surface/memory_surface.h"
#include "state/module1.h"
#include "state/number_texts.h"
#include "temp_folder.h"

namespace brennik::testing {

// Everything a press works on, with the form opened as the program opens it (Method A).
struct Bench {
    TempFolder folder;
    Module1 m;
    MemorySurface surface;
    DiskFileSystem files{folder.Path(), folder.Path()};
    FixedClock clock{Moment(1999, 4, 6, 20, 16)};
    Platform platform{surface, files, clock};

    Bench() { surface.SetValue({Ctl::Option1}, true); }

    // Types the rows into the boxes as a user would: texts, in the order given.
    void Type(const std::vector<std::pair<std::string, std::string>>& stdRows,
              const std::vector<std::pair<std::string, std::string>>& cutRows) {
        for (std::size_t r = 0; r < stdRows.size(); ++r) {
            surface.SetText({Ctl::txtSL, static_cast<int>(r + 1)}, stdRows[r].first);
            surface.SetText({Ctl::txtSP, static_cast<int>(r + 1)}, stdRows[r].second);
        }
        for (std::size_t i = 0; i < cutRows.size(); ++i) {
            surface.SetText({Ctl::txtL, static_cast<int>(i + 1)}, cutRows[i].first);
            surface.SetText({Ctl::txtN, static_cast<int>(i + 1)}, cutRows[i].second);
        }
    }

    std::string Read(const std::string& name) {
        std::string contents;
        files.ReadFile(name, contents);
        return contents;
    }

    std::string Status() const { return surface.Text({Ctl::txtLong}); }
};

}  // namespace brennik::testing
