#include "bench_press.h"

#include <unistd.h>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "files/file_system.h"
#include "report/clock.h"
#include "run/find_press.h"
#include "surface/memory_surface.h"

namespace brennik::bench {

namespace {

std::tm FixedMoment() {
    std::tm moment{};
    moment.tm_year = 126;
    moment.tm_mday = 1;
    return moment;
}

}  // namespace

std::string MakeWorkFolder() {
    namespace fs = std::filesystem;
    const fs::path memory = "/dev/shm";
    const fs::path base = fs::is_directory(memory) && access(memory.c_str(), W_OK) == 0
                              ? memory
                              : fs::temp_directory_path();
    const fs::path folder = base / ("brennik-bench-" + std::to_string(getpid()));
    fs::create_directories(folder);
    return folder.string();
}

std::unique_ptr<Module1> Press(const ProblemText& problem, bool methodB,
                               const std::string& folder) {
    auto m = std::make_unique<Module1>();
    MemorySurface surface;
    surface.SetRecording(false);
    for (std::size_t r = 0; r < problem.stock.size(); ++r) {
        surface.SetText({Ctl::txtSL, static_cast<int>(r + 1)}, problem.stock[r].first);
        surface.SetText({Ctl::txtSP, static_cast<int>(r + 1)}, problem.stock[r].second);
    }
    for (std::size_t i = 0; i < problem.cuts.size(); ++i) {
        surface.SetText({Ctl::txtL, static_cast<int>(i + 1)}, problem.cuts[i].first);
        surface.SetText({Ctl::txtN, static_cast<int>(i + 1)}, problem.cuts[i].second);
    }
    surface.SetValue({methodB ? Ctl::Option2 : Ctl::Option1}, true);
    surface.SetValue({Ctl::Check1}, true);
    DiskFileSystem files(folder, folder);
    FixedClock clock(FixedMoment());
    Platform platform{surface, files, clock};
    cmdFind_Click(*m, platform);
    if (m->EntryError || m->LengthError || m->FileError) {
        std::fprintf(stderr, "a benchmark problem was refused: %s\n",
                     surface.Text({Ctl::txtLong}).c_str());
        std::abort();
    }
    return m;
}

void ForEveryPress(const std::vector<Family>& families,
                   const std::function<void(const std::string& name, const Family& family,
                                            const ProblemText& problem, bool methodB)>& visit) {
    for (const Family& family : families) {
        for (std::size_t k = 0; k < family.problems.size(); ++k) {
            for (bool methodB : {false, true}) {
                visit(family.name + "/" + std::to_string(k + 1) + "/" + (methodB ? "B" : "A"),
                      family, family.problems[k], methodB);
            }
        }
    }
}

}  // namespace brennik::bench
