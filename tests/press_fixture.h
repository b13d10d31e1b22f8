// Test support for whole presses: a problem typed into the entry boxes of an in-memory screen,
// a fresh temporary folder as the current folder, and a fixed clock.
#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "report/clock.h"
#include "run/platform.h"
#include "shell/memory_surface.h"
#include "state/module1.h"
#include "state/number_texts.h"

namespace brennik::testing {

// A folder of its own for one test, removed with everything in it afterwards.
class TempFolder {
public:
    TempFolder() {
        static int serial = 0;
        const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
        path_ = std::filesystem::temp_directory_path() /
                ("brennik-test-" + std::to_string(stamp) + "-" + std::to_string(++serial));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string Path() const { return path_.string(); }
    // The names of the files in the folder, sorted.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path path_;
};

inline std::tm Moment(int year, int month, int day, int hour, int minute) {
    std::tm moment{};
    moment.tm_year = year - 1900;
    moment.tm_mon = month - 1;
    moment.tm_mday = day;
    moment.tm_hour = hour;
    moment.tm_min = minute;
    return moment;
}

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
