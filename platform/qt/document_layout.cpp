#include "platform/qt/document_layout.h"

#include <QGuiApplication>
#include <QImage>
#include <QTextCursor>
#include <QTextTable>
#include <QUrl>
#include <algorithm>

#include "platform/qt/measures.h"

namespace varno {
namespace {

QString ToQString(const std::u16string& text) {
    return QString::fromStdU16String(text);
}

QFont::StyleHint HintOf(RtfFontFamily family) {
    switch (family) {
        case RtfFontFamily::Serif:
            return QFont::Serif;
        case RtfFontFamily::FixedPitch:
            return QFont::Monospace;
        case RtfFontFamily::Script:
            return QFont::Cursive;
        case RtfFontFamily::Decorative:
            return QFont::Fantasy;
        case RtfFontFamily::SansSerif:
        case RtfFontFamily::Any:
            break;
    }
    return QFont::SansSerif;
}

Qt::Alignment ToQt(RtfAlignment alignment) {
    switch (alignment) {
        case RtfAlignment::Centre:
            return Qt::AlignHCenter;
        case RtfAlignment::Right:
            return Qt::AlignRight;
        case RtfAlignment::Justify:
            return Qt::AlignJustify;
        case RtfAlignment::Left:
            break;
    }
    return Qt::AlignLeft;
}

class Layouter {
  public:
    Layouter(const RtfDocument& source, QTextDocument& target) : source_(source), target_(target) {}

    void Run() {
        target_.clear();
        target_.setUndoRedoEnabled(false);
        AddPictures();
        QTextCursor cursor(&target_);
        cursor.beginEditBlock();
        LayOutBlocks(source_.blocks, cursor);
        cursor.endEditBlock();
    }

  private:
    void AddPictures();
    // The cursor stands in an empty block at the start; each block after the first opens its own.
    void LayOutBlocks(const std::vector<RtfBlock>& blocks, QTextCursor& cursor);
    void LayOut(const RtfParagraph& paragraph, QTextCursor& cursor);
    void LayOut(const RtfTable& table, QTextCursor& cursor);
    void LayOut(const RtfRun& run, QTextCursor& cursor);
    QTextBlockFormat BlockFormat(const RtfParagraph& paragraph) const;
    QTextCharFormat CharFormatOf(const RtfStyle& style) const;
    static QString PictureName(int index) { return QStringLiteral("picture:%1").arg(index); }

    const RtfDocument& source_;
    QTextDocument& target_;
};

// A document shrinks its pictures roughly as it paints them; better once, with care. A picture that
// is shown larger than it is stays as it is.
QImage Shrunk(const QImage& image, const RtfPicture& picture) {
    const QSizeF shown =
        QSizeF(ToPixels(picture.width), ToPixels(picture.height)) * qGuiApp->devicePixelRatio();
    if (shown.isEmpty() || shown.width() >= image.width()) {
        return image;
    }
    // A picture with a palette would be shrunk into its few colours.
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(shown.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void Layouter::AddPictures() {
    for (std::size_t i = 0; i < source_.pictures.size(); ++i) {
        const RtfPicture& picture = source_.pictures[i];
        const QImage image = QImage::fromData(
            QByteArray(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size())));
        if (!image.isNull()) {
            target_.addResource(QTextDocument::ImageResource,
                                QUrl(PictureName(static_cast<int>(i))), Shrunk(image, picture));
        }
    }
}

void Layouter::LayOutBlocks(const std::vector<RtfBlock>& blocks, QTextCursor& cursor) {
    bool first = true;
    for (const RtfBlock& block : blocks) {
        if (const auto* paragraph = std::get_if<RtfParagraph>(&block.content)) {
            if (!first) {
                cursor.insertBlock();
            }
            LayOut(*paragraph, cursor);
        } else {
            LayOut(std::get<RtfTable>(block.content), cursor);
        }
        first = false;
    }
}

QTextBlockFormat Layouter::BlockFormat(const RtfParagraph& paragraph) const {
    const RtfParagraphFormat& format = paragraph.format;
    QTextBlockFormat result;
    result.setAlignment(ToQt(format.alignment));
    result.setLeftMargin(ToPixels(format.leftIndent));
    result.setRightMargin(ToPixels(format.rightIndent));
    result.setTextIndent(ToPixels(format.firstIndent));
    result.setTopMargin(ToPixels(format.spaceBefore));
    result.setBottomMargin(ToPixels(format.spaceAfter));
    result.setHeadingLevel(format.heading);
    if (format.background) {
        result.setBackground(varno::ToQt(*format.background));
    }
    if (!paragraph.label.empty()) {  // the label hangs out to the left of the item's text
        QTextOption::Tab tab;
        tab.position = ToPixels(std::max(0, -format.firstIndent));
        if (tab.position > 0) {
            result.setTabPositions({tab});
        }
    }
    return result;
}

QTextCharFormat Layouter::CharFormatOf(const RtfStyle& style) const {
    QTextCharFormat result;
    if (style.font >= 0 && static_cast<std::size_t>(style.font) < source_.fonts.size()) {
        const RtfFont& font = source_.fonts[static_cast<std::size_t>(style.font)];
        result.setFontFamilies({ToQString(font.name)});
        result.setFontStyleHint(HintOf(font.family));
    }
    result.setFontPointSize(style.halfPoints / 2.0);
    result.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
    result.setFontItalic(style.italic);
    result.setFontUnderline(style.underline);
    result.setFontStrikeOut(style.strikeThrough);
    result.setForeground(varno::ToQt(style.colour.value_or(TextColour)));
    if (style.background) {
        result.setBackground(varno::ToQt(*style.background));
    }
    if (style.script != RtfScript::Normal) {
        result.setVerticalAlignment(style.script == RtfScript::Superscript
                                        ? QTextCharFormat::AlignSuperScript
                                        : QTextCharFormat::AlignSubScript);
    }
    return result;
}

void Layouter::LayOut(const RtfParagraph& paragraph, QTextCursor& cursor) {
    cursor.setBlockFormat(BlockFormat(paragraph));
    cursor.setBlockCharFormat(CharFormatOf(paragraph.mark));
    for (const RtfRun& run : paragraph.label) {
        LayOut(run, cursor);
    }
    if (!paragraph.label.empty()) {
        cursor.insertText(QStringLiteral("\t"), CharFormatOf(paragraph.label.back().style));
    }
    for (const RtfRun& run : paragraph.runs) {
        LayOut(run, cursor);
    }
}

void Layouter::LayOut(const RtfRun& run, QTextCursor& cursor) {
    if (run.picture >= 0) {
        const QUrl name(PictureName(run.picture));
        if (!target_.resource(QTextDocument::ImageResource, name).isValid()) {
            return;
        }
        const RtfPicture& picture = source_.pictures[static_cast<std::size_t>(run.picture)];
        QTextImageFormat image;
        image.setName(name.toString());
        if (picture.width > 0 && picture.height > 0) {
            image.setWidth(ToPixels(picture.width));
            image.setHeight(ToPixels(picture.height));
        }
        cursor.insertImage(image);
        return;
    }
    QString text = ToQString(run.text);
    text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
    cursor.insertText(text, CharFormatOf(run.style));
}

void Layouter::LayOut(const RtfTable& table, QTextCursor& cursor) {
    std::size_t columns = 0;
    for (const RtfRow& row : table.rows) {
        columns = std::max(columns, row.cells.size());
    }
    const RtfRow& widest = *std::max_element(
        table.rows.begin(), table.rows.end(),
        [](const RtfRow& a, const RtfRow& b) { return a.cells.size() < b.cells.size(); });

    QTextTableFormat format;
    format.setBorder(widest.bordered ? 1 : 0);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Qt::gray);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(std::max(3, ToPixels(widest.gap)));
    QList<QTextLength> widths;
    int left = widest.leftEdge;
    for (const RtfCell& cell : widest.cells) {
        widths += cell.rightEdge > left
                      ? QTextLength(QTextLength::FixedLength, ToPixels(cell.rightEdge - left))
                      : QTextLength();
        left = std::max(left, cell.rightEdge);
    }
    format.setColumnWidthConstraints(widths);

    QTextTable* grid =
        cursor.insertTable(static_cast<int>(table.rows.size()), static_cast<int>(columns), format);
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        const std::vector<RtfCell>& cells = table.rows[row].cells;
        for (std::size_t column = 0; column < cells.size(); ++column) {
            QTextTableCell cell = grid->cellAt(static_cast<int>(row), static_cast<int>(column));
            if (cells[column].background) {
                QTextCharFormat cellFormat = cell.format();
                cellFormat.setBackground(varno::ToQt(*cells[column].background));
                cell.setFormat(cellFormat);
            }
            if (cells[column].joinsPrevious && column > 0) {
                grid->mergeCells(static_cast<int>(row), static_cast<int>(column) - 1, 1, 2);
                continue;
            }
            QTextCursor inside = cell.firstCursorPosition();
            LayOutBlocks(cells[column].blocks, inside);
        }
    }
    cursor = grid->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextBlock);
}

}  // namespace

void LayOutDocument(const RtfDocument& source, QTextDocument& target) {
    Layouter(source, target).Run();
}

}  // namespace varno
