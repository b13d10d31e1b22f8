// The PDF and the SVG of a solution, read back as a user's tools read them: the pages and text
// of the PDF by poppler's pdfinfo and pdftotext, the SVG by Qt's renderer.
#include "paint/solution_files.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QSvgRenderer>
#include <cstdio>
#include <sstream>

#include "files/text_lines.h"
#include "press_fixture.h"
#include "problem_families.h"

namespace brennik {
namespace {

using testing::Bench;

std::string Output(const std::string& command) {
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
            output.append(buffer, n);
        }
        pclose(pipe);
    }
    return output;
}

int PdfPages(const std::string& path) {
    const std::string info = Output("pdfinfo '" + path + "'");
    const std::size_t at = info.find("Pages:");
    return at == std::string::npos ? 0 : std::stoi(info.substr(at + 6));
}

// Runs of blanks as one, so that lines compare however the PDF spaced them.
std::string Collapsed(const std::string& text) {
    std::istringstream words(text);
    std::string collapsed;
    for (std::string word; words >> word;) {
        collapsed += word + " ";
    }
    return collapsed;
}

std::string Report(Bench& bench, const testing::Rows& stock, const testing::Rows& cuts,
                   const testing::PressOptions& options = {}) {
    bench.Press(stock, cuts, options);
    return bench.Read("last.sol");
}

TEST(SolutionPdf, ANarrowReportIsOnePageAndTheDiagramAnother) {
    Bench bench;
    bench.surface.SetNextInput("U channel Aluminium.");
    const std::string report =
        Report(bench, testing::kTwelveStock, testing::kTwelveCuts, {.reference = true});
    const std::string pdf = bench.folder.PathOf("plan.pdf");
    ASSERT_TRUE(WriteSolutionPdf(pdf, {"last.sol", report, 66}));
    EXPECT_EQ(PdfPages(pdf), 2);
    const std::string text = Collapsed(Output("pdftotext -layout '" + pdf + "' -"));
    for (const std::string& line : SplitLines(report)) {
        EXPECT_NE(text.find(Collapsed(line)), std::string::npos) << line;
    }
    for (const char* words : {"Page 1 of 2", "Page 2 of 2", "06-Apr-1999", "Cutting diagram",
                              "Reference: U channel Aluminium."}) {
        EXPECT_NE(text.find(Collapsed(words)), std::string::npos) << words;
    }
}

TEST(SolutionPdf, AWideReportIsPrintedInSlicesOfThePageWidth) {
    Bench bench;
    const bench::ProblemText metres = bench::WorkedExamples()[0];
    const std::string report = Report(bench, metres.stock, metres.cuts, {.wasteSummary = true});
    const std::vector<std::string> lines = SplitLines(report);
    const std::size_t width = 60;
    const std::size_t slices = (lines.front().size() + width - 1) / width;
    ASSERT_GE(slices, 2u);
    const std::string pdf = bench.folder.PathOf("wide.pdf");
    ASSERT_TRUE(WriteSolutionPdf(pdf, {"last.sol", report, static_cast<int>(width)}));
    EXPECT_GT(PdfPages(pdf), static_cast<int>(slices));
    const std::string text = Collapsed(Output("pdftotext -layout '" + pdf + "' -"));
    for (std::size_t slice = 0; slice < slices; ++slice) {
        EXPECT_NE(text.find("Columns " + std::to_string(slice * width + 1) + " to"),
                  std::string::npos);
        for (const std::string& line : lines) {
            const std::string part =
                line.size() > slice * width ? line.substr(slice * width, width) : "";
            EXPECT_NE(text.find(Collapsed(part)), std::string::npos) << part;
        }
    }
}

TEST(SolutionSvg, TheDiagramParsesAndDraws) {
    Bench bench;
    const std::string report = Report(bench, {{"6", ""}}, {{"2.5", "4"}, {"1", "2"}});
    const std::string svg = bench.folder.PathOf("plan.svg");
    ASSERT_TRUE(WriteDiagramSvg(svg, report));
    const QSvgRenderer renderer(QString::fromStdString(svg));
    EXPECT_TRUE(renderer.isValid());
    EXPECT_GT(renderer.viewBoxF().height(), 100);
    const std::string contents = bench.Read("plan.svg");
    for (const char* text : {"Cutting diagram", "x 2", "Standard length 6"}) {
        EXPECT_NE(contents.find(text), std::string::npos) << text;
    }
    EXPECT_FALSE(WriteDiagramSvg(bench.folder.PathOf("no/such/folder/plan.svg"), report));
    EXPECT_FALSE(
        WriteSolutionPdf(bench.folder.PathOf("no/such/folder/plan.pdf"), {"last.sol", report, 66}));
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
