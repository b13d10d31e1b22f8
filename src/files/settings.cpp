#include "files/settings.h"

#include <cmath>
#include <optional>
#include <vector>

#include "files/text_lines.h"
#include "state/number_texts.h"

namespace brennik {

namespace {

constexpr const char* SettingsFile = "brennik.cnf";
constexpr const char* TrueText = "#TRUE#";
constexpr const char* FalseText = "#FALSE#";

std::string_view TrimBlanks(std::string_view field) {
    const std::size_t first = field.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return field.substr(first, field.find_last_not_of(" \t") - first + 1);
}

// The first three comma-separated fields of the file's first line; any more mean nothing.
std::vector<std::string_view> FieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    while (fields.size() < 3) {
        const std::size_t comma = line.find(',', start);
        fields.push_back(TrimBlanks(line.substr(start, comma - start)));
        if (comma == std::string_view::npos) {
            return fields;
        }
        start = comma + 1;
    }
    return fields;
}

std::string SettingsLine(const Module1& m) {
    return std::string(m.ShowWasteSummary ? TrueText : FalseText) + "," +
           (m.ShowReference ? TrueText : FalseText) + "," + std::to_string(m.PageWidth);
}

constexpr const char* WriteFailure = " Cannot write the settings file !.";

// Written aside and then put in place in one step, so that a failing disk never leaves the
// settings half written.
bool WriteSettings(const Module1& m, FileSystem& files) {
    const std::string aside = std::string(SettingsFile) + ".new";
    if (files.WriteFile(aside, JoinLines({SettingsLine(m)})) &&
        files.ReplaceFile(aside, SettingsFile)) {
        return true;
    }
    files.RemoveFile(aside);
    return false;
}

void TellWriteOutcome(Surface& surface, bool written) {
    if (!written) {
        SetStatus(surface, White, Red, WriteFailure);
        surface.Refresh({Ctl::txtLong});
    } else {
        ClearStatusOf(surface, WriteFailure);
    }
}

}  // namespace

int16_t PageWidthFrom(std::string_view text) {
    const double width = NumberValue(text);
    if (width >= 60 && width <= 200) {
        return static_cast<int16_t>(std::nearbyint(width));
    }
    return DefaultPageWidth;
}

void LoadSettings(Module1& m, Surface& surface, FileSystem& files) {
    std::string contents;
    if (!files.FileExists(SettingsFile)) {
        m.ShowWasteSummary = kFalse;
        m.ShowReference = kFalse;
        m.PageWidth = DefaultPageWidth;
        TellWriteOutcome(surface, WriteSettings(m, files));
        return;
    }
    // A file that cannot be read, or holds something else, leaves false where no flag was
    // read and a page width of 66 where no valid one was.
    m.ShowWasteSummary = kFalse;
    m.ShowReference = kFalse;
    m.PageWidth = DefaultPageWidth;
    if (!files.ReadFile(SettingsFile, contents)) {
        return;
    }
    const std::vector<std::string> lines = SplitLines(contents, 1);
    if (lines.empty()) {
        return;
    }
    const std::vector<std::string_view> fields = FieldsOf(lines.front());
    m.ShowWasteSummary = ToFlag(fields[0] == TrueText);
    if (fields.size() > 1) {
        m.ShowReference = ToFlag(fields[1] == TrueText);
    }
    if (fields.size() > 2) {
        const std::optional<double> width = WholeNumberValue(fields[2]);
        if (width) {
            m.PageWidth = PageWidthFrom(fields[2]);
        }
    }
}

void OpenSettingsPanel(const Module1& m, Surface& surface) {
    surface.SetVisible({Ctl::Frame1}, true);
    surface.SetValue({Ctl::Check2}, m.ShowWasteSummary != 0);
    surface.SetValue({Ctl::Check3}, m.ShowReference != 0);
    surface.SetText({Ctl::Text7}, NumberText(static_cast<int32_t>(m.PageWidth)));
}

void ApplySettings(Module1& m, Surface& surface, FileSystem& files) {
    m.ShowWasteSummary = ToFlag(surface.Value({Ctl::Check2}));
    m.ShowReference = ToFlag(surface.Value({Ctl::Check3}));
    m.PageWidth = PageWidthFrom(surface.Text({Ctl::Text7}));
    TellWriteOutcome(surface, WriteSettings(m, files));
    surface.SetVisible({Ctl::Frame1}, false);
}

}  // namespace brennik
