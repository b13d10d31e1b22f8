// Test support: a folder of its own for one test, and a fixed moment for the report's stamps.
#pragma once

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace brennik::testing {

// An empty folder under the system's temporary one, removed with all in it when the test ends.
class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("brennik-test-" + std::to_string(random()) + "-" + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string Path() const { return path_.string(); }
    std::string PathOf(const std::string& name) const { return (path_ / name).string(); }

    // The names of the files in the folder, sorted.
    std::vector<std::string> FileNames() const {
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

// A local date and time as the clock gives it; month from 1.
inline std::tm Moment(int year, int month, int day, int hour, int minute) {
    std::tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = minute;
    return t;
}

}  // namespace brennik::testing
