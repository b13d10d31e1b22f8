// A solution's PDF, read back by poppler's pdftotext, and its SVG, read by Qt's renderer.
#include "paint/solution_files.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QSvgRenderer>
#include <algorithm>
#include <cstdlib>

#include "files/text_lines.h"
#include "press_fixture.h"
#include "problem_families.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::Collapsed;

// The report as a PDF of pages `width` columns wide, read back by pdftotext: a form feed ends each.
std::string PrintedText(Bench& bench, const std::string& report, int width) {
    const std::string pdf = bench.folder.PathOf("plan.pdf");
    EXPECT_TRUE(WriteSolutionPdf(pdf, {"last.sol", report, width}));
    const std::string command = "pdftotext -layout '" + pdf + "' '" + pdf + ".txt'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return bench.Read("plan.pdf.txt");
}

// The PDF of a narrow report is one page and the diagram another; the SVG holds the diagram.
TEST(SolutionFiles, ANarrowReportIsOnePageAndTheDiagramAnotherOrAnSvg) {
    Bench bench;
    bench.surface.SetNextInput("U channel Aluminium.");
    bench.Press(testing::kTwelveStock, testing::kTwelveCuts, {.reference = true});
    const std::string report = bench.Read("last.sol");
    const std::string text = PrintedText(bench, report, 66);
    EXPECT_EQ(std::ranges::count(text, '\f'), 2) << "pages";
    std::vector<std::string> lines = SplitLines(report);
    lines.insert(lines.end(), {"Page 1 of 2", "Page 2 of 2", "06-Apr-1999", "Cutting diagram",
                               "Reference: U channel Aluminium."});
    for (const std::string& line : lines) {
        EXPECT_NE(Collapsed(text).find(Collapsed(line)), std::string::npos) << line;
    }

    const std::string svg = bench.folder.PathOf("plan.svg");
    ASSERT_TRUE(WriteDiagramSvg(svg, report));
    const QSvgRenderer renderer(QString::fromStdString(svg));
    EXPECT_TRUE(renderer.isValid());
    EXPECT_GT(renderer.viewBoxF().height(), 100);
    for (const char* shown : {"Cutting diagram", "x 20", "Standard length 12"}) {
        EXPECT_NE(bench.Read("plan.svg").find(shown), std::string::npos) << shown;
    }
    EXPECT_FALSE(WriteDiagramSvg(bench.folder.PathOf("no/such/folder/plan.svg"), report));
    EXPECT_FALSE(
        WriteSolutionPdf(bench.folder.PathOf("no/such/folder/plan.pdf"), {"last.sol", report, 66}));
}

TEST(SolutionPdf, AWideReportIsPrintedInSlicesOfThePageWidth) {
    Bench bench;
    const bench::ProblemText metres = bench::WorkedExamples()[0];
    bench.Press(metres.stock, metres.cuts, {.wasteSummary = true});
    const std::string report = bench.Read("last.sol");
    const std::vector<std::string> lines = SplitLines(report);
    const std::size_t width = 60;
    const std::size_t slices = (lines.front().size() + width - 1) / width;
    ASSERT_GE(slices, 2u);
    const std::string text = PrintedText(bench, report, static_cast<int>(width));
    EXPECT_GT(std::ranges::count(text, '\f'), static_cast<long>(slices)) << "pages";
    const std::string words = Collapsed(text);
    for (std::size_t slice = 0; slice < slices; ++slice) {
        EXPECT_NE(words.find("Columns " + std::to_string(slice * width + 1) + " to"),
                  std::string::npos);
        for (const std::string& line : lines) {
            const std::string part =
                line.size() > slice * width ? line.substr(slice * width, width) : "";
            EXPECT_NE(words.find(Collapsed(part)), std::string::npos) << part;
        }
    }
}

}  // namespace
}  // namespace brennik

// Qt draws only with an application object; the offscreen platform needs no display.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
