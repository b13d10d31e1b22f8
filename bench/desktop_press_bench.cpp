// Times an Advanced press in the desktop program beside the same press headless: the problem is
// typed into the real main screen (offscreen platform, the form shown, so that every repaint is
// drawn) and Find Solution clicked, on every problem of the realistic families in both Methods.
// CPU time is the figure to compare; everything runs on the one thread.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <string>

#include "bench_press.h"
#include "problem_families.h"
#include "shell/qt/form2.h"

namespace brennik::bench {

namespace {

void TypeProblem(const Form2Controls& c, const ProblemText& problem, bool methodB) {
    for (int r = 1; r <= MaxStdLengths; ++r) {
        const bool given = r <= static_cast<int>(problem.stock.size());
        c.txtSL[r]->setText(given ? QString::fromStdString(problem.stock[r - 1].first) : "");
        c.txtSP[r]->setText(given ? QString::fromStdString(problem.stock[r - 1].second) : "");
    }
    for (int i = 1; i <= MaxCutLengths; ++i) {
        const bool given = i <= static_cast<int>(problem.cuts.size());
        c.txtL[i]->setText(given ? QString::fromStdString(problem.cuts[i - 1].first) : "");
        c.txtN[i]->setText(given ? QString::fromStdString(problem.cuts[i - 1].second) : "");
    }
    (methodB ? c.Option2 : c.Option1)->setChecked(true);
    c.Check1->setChecked(true);
}

}  // namespace

}  // namespace brennik::bench

int main(int argc, char** argv) {
    using namespace brennik::bench;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const std::string folder = MakeWorkFolder();
    brennik::Form2 form(folder);
    form.Load();
    form.show();
    QApplication::processEvents();

    static std::vector<Family> families = MakeFamilies(3, 20261122);
    std::erase_if(families, [](const Family& family) { return !family.realistic; });
    ForEveryPress(families, [&](const std::string& name, const Family&, const ProblemText& problem,
                                bool methodB) {
        const ProblemText* pressed = &problem;
        benchmark::RegisterBenchmark((name + "/headless").c_str(), [=](benchmark::State& state) {
            for (auto _ : state) {
                Press(*pressed, methodB, folder);
            }
        })->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/desktop").c_str(), [&form, pressed, methodB](
                                                                      benchmark::State& state) {
            for (auto _ : state) {
                state.PauseTiming();
                TypeProblem(form.Controls(), *pressed, methodB);
                QApplication::processEvents();
                state.ResumeTiming();
                form.Controls().cmdFind->click();
                QApplication::processEvents();
            }
        })->Unit(benchmark::kMillisecond);
    });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::filesystem::remove_all(folder);
    return 0;
}
