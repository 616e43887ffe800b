// What the ticket editor gives to the clipboard and takes from it or from a drop: text, colour and
// the four styles. Pictures, tables, links and fonts are left behind.
#include <QMimeData>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <array>

#include "platform/qt/marked_cursor.h"
#include "platform/qt/measures.h"
#include "platform/qt/rich_text_box.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"

namespace varno {
namespace {

constexpr std::array RtfTypes{"text/rtf", "application/rtf", "text/richtext"};

// Pictures and tables leave these characters in the text.
bool IsLeftBehind(char16_t c) {
    return c == QChar::ObjectReplacementCharacter || c == u'\0';
}

MarkedText WithoutObjects(const MarkedText& text) {
    MarkedText kept;
    for (std::size_t i = 0; i < text.Length(); ++i) {
        if (!IsLeftBehind(text.At(i))) {
            kept.Append(std::u16string_view(text.Text()).substr(i, 1), text.FormatAt(i));
        }
    }
    return kept;
}

bool FromRtf(const QMimeData& source, MarkedText& text) {
    for (const char* type : RtfTypes) {
        const QByteArray bytes = source.data(QLatin1String(type));
        if (!bytes.isEmpty() &&
            !LoadMarkedText(
                std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())),
                text)) {
            return true;
        }
    }
    return false;
}

MarkedText FromHtml(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return ReadMarked(document, 0, document.characterCount() - 1);
}

}  // namespace

QMimeData* TicketEdit::createMimeDataFromSelection() const {
    const MarkedText selection = control_->Selection();
    const std::string rtf = WriteRtf(selection);
    auto* offered = new QMimeData;
    offered->setText(QString::fromStdU16String(selection.Text()));
    offered->setHtml(textCursor().selection().toHtml());
    for (const char* type : {RtfTypes[0], RtfTypes[1]}) {
        offered->setData(QLatin1String(type), QByteArray::fromStdString(rtf));
    }
    return offered;
}

bool TicketEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() || source->hasHtml() ||
           source->hasFormat(QLatin1String(RtfTypes[0])) ||
           source->hasFormat(QLatin1String(RtfTypes[1]));
}

void TicketEdit::insertFromMimeData(const QMimeData* source) {
    MarkedText text;
    if (!FromRtf(*source, text)) {
        if (source->hasHtml()) {
            text = FromHtml(source->html());
        } else {
            text.Append(source->text().toStdU16String(), control_->TypingFormat());
        }
    }
    control_->Paste(WithoutObjects(text));
}

}  // namespace varno
