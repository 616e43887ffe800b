// What the ticket editor gives to the clipboard and takes from it or from a drop: text, colour and
// the four styles. Pictures, tables, links and fonts are left behind. What does not come from a
// ticket becomes text that a ticket prints as it looks.
#include <QMimeData>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFrame>
#include <algorithm>
#include <array>
#include <optional>

#include "codec/printable.h"
#include "codec/text_limits.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/measures.h"
#include "platform/qt/rich_text_box.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"

namespace varno {
namespace {

// Rich text under the program's own name comes from a ticket, and is one already.
constexpr const char* TicketType = "application/x-varno-ticket";
constexpr std::array RtfTypes{TicketType, "text/rtf", "application/rtf", "text/richtext"};

// In UTF-16 units: reading it takes about a second. Markup is several times as long as its text.
constexpr qsizetype LongestSource = 8 * MostCharacters;

// Qt's reader takes a second for so many elements within each other, and for more the square of it.
constexpr int DeepestMarkup = 10'000;

// Whether more elements are open at once; those that are never closed count, but for the two that
// never need to be.
bool IsTooDeep(const QString& html) {
    int depth = 0;
    for (qsizetype at = html.indexOf(u'<'); at >= 0; at = html.indexOf(u'<', at + 1)) {
        const QStringView tag = QStringView(html).mid(at + 1, 3);
        const bool isSingle = tag.startsWith(u"br", Qt::CaseInsensitive) ||
                              tag.startsWith(u"img", Qt::CaseInsensitive);
        if (tag.startsWith(u'/')) {
            depth = std::max(depth - 1, 0);
        } else if (!tag.isEmpty() && tag.front().isLetter() && !isSingle &&
                   ++depth > DeepestMarkup) {
            return true;
        }
    }
    return false;
}

std::u16string Decomposed(char32_t c) {
    return QString::fromUcs4(&c, 1).normalized(QString::NormalizationForm_KD).toStdU16String();
}

std::u16string Composed(std::u16string_view text) {
    return QStringView(text).toString().normalized(QString::NormalizationForm_C).toStdU16String();
}

MarkedText AsTicketText(const MarkedText& text) {
    MarkedText composed;
    for (std::size_t start = 0; start < text.Length(); start = text.RunEnd(start)) {
        const std::size_t length = text.RunEnd(start) - start;
        composed.Append(Composed(std::u16string_view(text.Text()).substr(start, length)),
                        text.FormatAt(start));
    }
    return Printable(composed, Decomposed);
}

// Nothing when it is no rich text, or too long; `tooLong` is set then.
std::optional<MarkedText> FromRtf(const QMimeData& source, bool& tooLong) {
    for (const char* type : RtfTypes) {
        const QByteArray bytes = source.data(QLatin1String(type));
        MarkedText text;
        const Error error = LoadMarkedText({bytes.constData(), std::size_t(bytes.size())}, text);
        if (!error) {
            return type == TicketType ? text : AsTicketText(text);
        }
        tooLong = tooLong || *error == TooLongForATicket;
    }
    return std::nullopt;
}

// Tables read better as plain text, if there is any: cells in a row, not one below the other.
MarkedText FromHtml(const QString& html, const MarkedText& plain) {
    QTextDocument document;
    document.setHtml(html);
    const bool hasTables = !document.rootFrame()->childFrames().isEmpty();
    return hasTables && !plain.Empty() ? plain
                                       : ReadMarked(document, 0, document.characterCount() - 1);
}

// What is offered, in the richest form that can be read. Nothing when it is too long. `typing` is
// the colour that plain text takes.
std::optional<MarkedText> Offered(const QMimeData& source, Colour typing) {
    bool tooLong = false;
    if (auto text = FromRtf(source, tooLong)) {
        return text;
    }
    const QString html = source.html();
    const QString text = source.text();
    if (tooLong || std::max(html.size(), text.size()) > LongestSource || IsTooDeep(html)) {
        return std::nullopt;
    }
    MarkedText plain;
    plain.Append(text.toStdU16String(), {typing});
    return AsTicketText(html.isEmpty() ? plain : FromHtml(html, plain));
}

}  // namespace

QMimeData* RichTextView::createMimeDataFromSelection() const {
    const MarkedText selection = control_->Selection();
    const std::string rtf = WriteRtf(selection);
    auto* offered = new QMimeData;
    offered->setText(QString::fromStdU16String(selection.Text()));
    offered->setHtml(textCursor().selection().toHtml());
    for (const char* type : {RtfTypes[0], RtfTypes[1], RtfTypes[2]}) {
        offered->setData(QLatin1String(type), QByteArray::fromStdString(rtf));
    }
    return offered;
}

bool RichTextView::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() || source->hasHtml() ||
           std::any_of(RtfTypes.begin(), RtfTypes.end(), [source](const char* type) {
               return source->hasFormat(QLatin1String(type));
           });
}

void RichTextView::insertFromMimeData(const QMimeData* source) {
    // Plain text is the ticket's, unless it goes into a comment.
    const bool comment = control_->SelColor() == CommentColour;
    const auto text = Offered(*source, comment ? CommentColour : TextColour);
    text ? control_->Paste(*text) : control_->Refuse();
}

// Keys type what the ticket prints; a comment takes any character.
void RichTextView::Type(const QString& text) {
    const std::u16string typed = text.toStdU16String();
    const bool black = control_->TypingFormat().colour == TextColour;
    control_->SetSelText(black ? PrintableForm(Composed(typed), Decomposed) : typed);
}

}  // namespace varno
