#include "paint/solution_pages.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <vector>

#include "diagram/report_reader.h"
#include "files/text_lines.h"
#include "paint/diagram_painter.h"

namespace brennik {

namespace {

// Sizes on the page in points.
constexpr double LargestReportFont = 10;
constexpr double LineSpacing = 1.2;
constexpr double ReferenceSize = 100;

// What one page shows: lines of one slice of the report, or bands of the diagram.
struct Page {
    bool report = true;
    std::size_t slice = 0;
    std::size_t first = 0;
    std::size_t last = 0;
};

QFont ReportFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(static_cast<int>(ReferenceSize));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

class SolutionPages {
public:
    SolutionPages(const SolutionDocument& document, QSizeF page)
        : document_(document),
          lines_(SplitLines(document.report)),
          read_(ReadReport(document.report)),
          page_(page),
          head_(HeadBand(0, 0)),
          diagram_(DiagramOf(read_, page.width())) {
        const std::size_t width = static_cast<std::size_t>(std::max(document.pageWidth, 1));
        const std::size_t reportWidth = lines_.empty() ? 0 : lines_.front().size();
        slices_ = std::max<std::size_t>(1, (reportWidth + width - 1) / width);
        const double advance = QFontMetricsF(ReportFont()).horizontalAdvance(QString(width, 'M'));
        fontSize_ = std::min(LargestReportFont, page.width() * ReferenceSize / advance);
        const double caption = slices_ > 1 ? TextHeight(TextStyle::Small) + 4 : 0;
        const double room = page.height() - head_.height - caption;
        const auto perPage =
            static_cast<std::size_t>(std::max(1.0, std::floor(room / (fontSize_ * LineSpacing))));
        for (std::size_t slice = 0; slice < slices_; ++slice) {
            for (std::size_t first = 0; first < std::max<std::size_t>(lines_.size(), 1);
                 first += perPage) {
                pages_.push_back({true, slice, first, std::min(first + perPage, lines_.size())});
            }
        }
        PlanDiagramPages(page.height() - head_.height);
    }

    void Paint(QPainter& painter, std::size_t index) const {
        const Page& page = pages_[index];
        PaintBand(painter, HeadBand(index + 1, pages_.size()));
        painter.save();
        painter.translate(0, head_.height);
        if (page.report) {
            PaintReport(painter, page);
        } else {
            PaintBands(painter, diagram_, page.first, page.last);
        }
        painter.restore();
    }

    std::size_t Count() const { return pages_.size(); }

private:
    // Bands one after another while they fit; a heading goes over to the next page with the
    // band it heads.
    void PlanDiagramPages(double room) {
        const std::vector<DiagramBand>& bands = diagram_.bands;
        std::size_t first = 0;
        while (first < bands.size()) {
            std::size_t last = first;
            double used = 0;
            while (last < bands.size() && (last == first || used + bands[last].height <= room)) {
                used += bands[last++].height;
            }
            while (last > first + 1 && last < bands.size() && bands[last - 1].keepWithNext) {
                --last;
            }
            pages_.push_back({false, 0, first, last});
            first = last;
        }
    }

    DiagramBand HeadBand(std::size_t number, std::size_t count) const {
        constexpr Colour Ink{0, 0, 0};
        const double line = TextHeight(TextStyle::Small);
        const double width = page_.width();
        DiagramBand band;
        std::string stamp = document_.fileName;
        if (!read_.date.empty()) {
            stamp += "    " + read_.date + (read_.time.empty() ? "" : "  " + read_.time);
        }
        band.texts.push_back({0, 0, width, line, stamp, TextStyle::Small, Align::Left, Ink});
        band.texts.push_back({0, 0, width, line,
                              "Page " + std::to_string(number) + " of " + std::to_string(count),
                              TextStyle::Small, Align::Right, Ink});
        double height = line;
        if (read_.reference) {
            band.texts.push_back({0, line, width, line, "Reference: " + *read_.reference,
                                  TextStyle::Small, Align::Left, Ink});
            height += line;
        }
        band.boxes.push_back({0, height + 2, width, 0.5, Shade::Rule, {90, 90, 90}});
        band.height = height + 10;
        return band;
    }

    void PaintReport(QPainter& painter, const Page& page) const {
        const std::size_t width = static_cast<std::size_t>(std::max(document_.pageWidth, 1));
        const std::size_t from = page.slice * width;
        double top = 0;
        if (slices_ > 1) {
            const std::size_t reportWidth = lines_.front().size();
            DiagramBand caption;
            caption.texts.push_back({0,
                                     0,
                                     page_.width(),
                                     TextHeight(TextStyle::Small),
                                     "Columns " + std::to_string(from + 1) + " to " +
                                         std::to_string(std::min(from + width, reportWidth)) +
                                         " of " + std::to_string(reportWidth),
                                     TextStyle::Small,
                                     Align::Left,
                                     {90, 90, 90}});
            PaintBand(painter, caption);
            top = TextHeight(TextStyle::Small) + 4;
        }
        const double scale = fontSize_ / ReferenceSize;
        const QFont font = ReportFont();
        const double ascent = QFontMetricsF(font).ascent();
        painter.save();
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.translate(0, top);
        painter.scale(scale, scale);
        for (std::size_t k = page.first; k < page.last; ++k) {
            const std::string& line = lines_[k];
            const std::string slice = from < line.size() ? line.substr(from, width) : "";
            const double baseline =
                static_cast<double>(k - page.first) * ReferenceSize * LineSpacing + ascent;
            painter.drawText(QPointF(0, baseline),
                             QString::fromUtf8(slice.data(), static_cast<qsizetype>(slice.size())));
        }
        painter.restore();
    }

    const SolutionDocument& document_;
    std::vector<std::string> lines_;
    SolutionReport read_;
    QSizeF page_;
    DiagramBand head_;
    Diagram diagram_;
    std::size_t slices_ = 1;
    double fontSize_ = LargestReportFont;
    std::vector<Page> pages_;
};

}  // namespace

int PrintSolution(QPagedPaintDevice& device, const SolutionDocument& document) {
    const QRectF paintRect = device.pageLayout().paintRect(QPageLayout::Point);
    const SolutionPages pages(document, paintRect.size());
    QPainter painter;
    if (!painter.begin(&device)) {
        return 0;
    }
    // The painter draws in points from the top left corner of the printable area.
    painter.scale(device.logicalDpiX() / 72.0, device.logicalDpiY() / 72.0);
    for (std::size_t k = 0; k < pages.Count(); ++k) {
        if (k > 0) {
            device.newPage();
        }
        pages.Paint(painter, k);
    }
    painter.end();
    return static_cast<int>(pages.Count());
}

}  // namespace brennik
