// Fuzzes the settings file. The bytes are brennik.cnf as the program finds it on starting:
// whatever it holds, the settings read are a valid page width and two flags, the file is left
// as it was, and the settings written back by the panel's Ok read back the same.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "files/file_system.h"
#include "files/settings.h"
#include "fuzz_check.h"
#include "surface/memory_surface.h"
#include "state/module1.h"
#include "temp_folder.h"

namespace brennik {
namespace {

using fuzzing::Require;

const testing::TempFolder& Folder() {
    static const testing::TempFolder folder;
    return folder;
}

bool IsFlag(Flag flag) {
    return flag == kFalse || flag == kTrue;
}

void CheckSettings(const Module1& m) {
    Require(m.PageWidth >= 60 && m.PageWidth <= 200, "the page width is from 60 to 200");
    Require(IsFlag(m.ShowWasteSummary) && IsFlag(m.ShowReference), "the settings are flags");
}

}  // namespace
}  // namespace brennik

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    using namespace brennik;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    DiskFileSystem files(Folder().Path(), Folder().Path());
    files.WriteFile("brennik.cnf", bytes);

    Module1 m;
    MemorySurface surface;
    LoadSettings(m, surface, files);
    CheckSettings(m);
    std::string after;
    Require(files.ReadFile("brennik.cnf", after) && after == bytes, "reading leaves the file");
    Require(PageWidthFrom(bytes) >= 60 && PageWidthFrom(bytes) <= 200, "any typed page width");

    // The panel opened on these settings and closed with Ok writes them as they are.
    OpenSettingsPanel(m, surface);
    ApplySettings(m, surface, files);
    Module1 reread;
    LoadSettings(reread, surface, files);
    CheckSettings(reread);
    Require(reread.PageWidth == m.PageWidth && reread.ShowWasteSummary == m.ShowWasteSummary &&
                reread.ShowReference == m.ShowReference,
            "the settings written read back the same");
    return 0;
}
