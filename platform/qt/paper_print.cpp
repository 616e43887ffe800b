#include "platform/qt/paper_print.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <numeric>

#include "platform/qt/measures.h"
#include "platform/qt/paper_painter.h"

namespace varno {
namespace {

constexpr qreal ColumnInches = 0.1;
constexpr int Edge = 2;       // columns on both sides
constexpr int NoteLines = 3;  // below the last row: an empty one and what the colours mean
constexpr qreal LongestPageInches = 190;  // a PDF reader may take no more than 200
constexpr qreal MillimetresPerInch = 25.4;

// A font whose characters are so wide on this device.
PaperGrid GridOf(qreal column, const QPaintDevice& device) {
    QFont font = ToQt(FontFace::FixedWidth);
    font.setPixelSize(1000);
    const qreal width = QFontMetricsF(font, &device).horizontalAdvance(u'0') / 1000;
    font.setPixelSize(std::max(1, qRound(column / width)));
    return GridFor(font, &device);
}

int LinesOf(const Paper& paper) {
    return std::accumulate(paper.rows.begin(), paper.rows.end(), 0,
                           [](int lines, const PaperRow& row) { return lines + LinesOf(row); });
}

QSizeF PageSize(const Paper& paper) {
    const qreal width = (paper.width + 2 * Edge) * ColumnInches;
    const qreal height = (LinesOf(paper) + NoteLines + 1 + Edge) * 2 * ColumnInches;
    return QSizeF(width, std::min(height, LongestPageInches)) * MillimetresPerInch;
}

}  // namespace

bool DrawPages(const Paper& paper, QPagedPaintDevice& device) {
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    const qreal fitting = static_cast<qreal>(device.width()) / (paper.width + 2 * Edge);
    const PaperGrid grid = GridOf(std::min(ColumnInches * device.logicalDpiX(), fitting), device);
    const QPointF origin(Edge * grid.column, Edge * grid.column);
    const int linesOfPage =
        std::max(2, static_cast<int>((device.height() - 2 * origin.y()) / grid.Line()));
    PaperPainter paperPainter(painter, grid, paper.width);
    int line = 0;
    const auto makeRoom = [&](int lines) {
        if (line > 0 && line + lines > linesOfPage) {
            device.newPage();
            line = 0;
        }
    };
    for (const PaperRow& row : paper.rows) {
        makeRoom(LinesOf(row));
        paperPainter.DrawRow(row, origin, line);
        line += LinesOf(row);
    }
    makeRoom(NoteLines);
    for (const std::string_view note : PaperLegend) {
        paperPainter.DrawNote(ToQt(note), origin, 0, ++line, NoteColour);
    }
    return painter.end();
}

std::string PaperPdf(const Paper& paper, const std::string& title) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&bytes);
        writer.setTitle(ToQt(title));
        writer.setCreator(QStringLiteral("Varno Ticket Formatter"));
        writer.setPageSize(
            QPageSize(PageSize(paper), QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
        writer.setPageMargins({});
        DrawPages(paper, writer);
    }
    return bytes.data().toStdString();
}

Error PrintPaper(const Paper& paper, const std::string& title, QWidget* owner) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(ToQt(title));
    QPrintDialog dialog(&printer, owner);
    dialog.setObjectName(QStringLiteral("PrintDialog"));
    dialog.setOption(QAbstractPrintDialog::PrintToFile);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    if (DrawPages(paper, printer) && printer.printerState() != QPrinter::Error) {
        return std::nullopt;
    }
    const QString target =
        printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
    return "The ticket could not be printed on \"" + FromQt(target) + "\".";
}

}  // namespace varno
