// Copying, pasting and undoing in the ticket box.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QMimeData>
#include <QTextEdit>
#include <QTextFrame>

#include "codec/text_limits.h"
#include "platform/rtf/rtf_reader.h"
#include "tests/codec/picture.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

class Clipboard : public WindowTest {
  protected:
    void Press(Qt::Key key) { QTest::keyClick(edit, key, Qt::ControlModifier); }
    std::string Shown() { return ToPicture(box.Content()); }
    void Paste(const char* type, const QByteArray& bytes) {
        auto* offered = new QMimeData;
        offered->setData(QLatin1String(type), bytes);
        QGuiApplication::clipboard()->setMimeData(offered);
        Press(Qt::Key_V);
    }
};

TEST_F(Clipboard, MarksKeepTheirMeaningFromTicketToTicket) {
    const std::string marks = "{k}Net÷{r}C005{g} LINE FEED{k}¬\na b\n\n{b}P012{m}A27";
    box.SetContent(FromPicture(marks));
    Press(Qt::Key_A);
    Press(Qt::Key_C);
    box.SetContent({});
    Press(Qt::Key_V);
    EXPECT_EQ(Shown(), ToPicture(FromPicture(marks)));
    Press(Qt::Key_Z);
    EXPECT_EQ(Shown(), "");

    const QMimeData* offered = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(offered->text().toStdU16String(), FromPicture(marks).Text());
    EXPECT_TRUE(offered->hasHtml());
    MarkedText fromRtf;
    ASSERT_FALSE(LoadMarkedText(offered->data("text/rtf").toStdString(), fromRtf));
    EXPECT_TRUE(fromRtf == FromPicture(marks));
}

// What a word processor or a browser offers: only text, colour and styles come in.
TEST_F(Clipboard, TakesTextColourAndStylesOnly) {
    struct Row {
        const char* type;
        QByteArray offered;
        const char* shown;
    };
    const Row rows[] = {
        {"text/html", "<p style='font:30pt Serif'>Net <b>5</b></p>", "{k}Net÷{kB}5"},
        {"text/html", "a<img src='data:image/png;base64,iVBORw0KGgo='>b", "{k}ab"},
        {"text/html", "<a href='http://localhost/'>here</a>", "{k}here"},
        {"text/html", "<span style='color:#ff0000'>C005</span>", "{r}C005"},
        {"text/html", "<table><tr><td>1</td><td>2</td></tr></table>", "{k}¬\n1¬\n2¬\n"},
        {"text/rtf", "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1 C005\\par}", "{r}C005"},
        {"text/rtf", "{\\rtf1 a{\\pict\\pngblip 89504e47}b}", "{k}ab"},
        {"text/plain", "two\r\nli\tnes", "{k}two¬\nli÷nes"},
        {"text/plain", "Ne\u0301t \u20ac \uFB01\u0142\u0107 \u65e5", "{k}N\u00e9t÷\u20ac÷filc÷?"},
    };
    for (const Row& row : rows) {
        box.SetContent({});
        Paste(row.type, row.offered);
        EXPECT_EQ(Shown(), ToPicture(FromPicture(row.shown))) << row.offered.toStdString();
        EXPECT_TRUE(edit->document()->rootFrame()->childFrames().isEmpty());
    }
    box.SetContent(FromPicture("{r}C005"));
    QTest::keyClick(edit, Qt::Key_End);
    Paste("text/plain", "5");
    Paste("text/html", "<img src='x'>");  // nothing of use to a ticket
    EXPECT_EQ(Shown(), "{r}C005{k}5") << "a code's colour is not for pasted text";
}

// What would make the text too long stays out, and a box says so; the editor can still be used.
TEST_F(Clipboard, TakesNoMoreThanTheEditorLaysOut) {
    MarkedText lines;
    for (std::size_t i = 0; i < MostLines - 2; ++i) {
        lines.Append(u"\u00AC\r\n", {});
    }
    box.SetContent(lines);
    const auto refuses = [&](std::size_t kept, auto&& change) {
        script.Expect({TooLongForATicket, ApplicationTitle, Buttons::Ok, Icon::Exclamation},
                      Answer::Ok);
        change();
        QApplication::processEvents();
        script.ExpectNoMore();
        EXPECT_EQ(SizeOf(box.Content().Text()).lineBreaks, kept);
    };
    refuses(MostLines - 2, [&] { Paste("text/plain", "1\n2\n"); });
    refuses(MostLines - 2, [&] { Paste("text/rtf", "{\\rtf1 1\\par 2\\par\\par}"); });
    refuses(MostLines - 2, [&] { Paste("text/html", QByteArray(8 * MostCharacters + 1, 'x')); });
    refuses(MostLines - 2, [&] { Paste("text/html", QByteArray("<b>x").repeated(100'000)); });
    refuses(MostLines - 2, [&] { lines.Append(u"\r\n\r\n", {}), box.SetContent(lines); });
    QTest::keyClick(edit, Qt::Key_Return);
    refuses(MostLines - 1, [&] { QTest::keyClick(edit, Qt::Key_Return); });
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(edit, &held);
    QApplication::processEvents();  // says nothing more
    Press(Qt::Key_A);
    Paste("text/plain", "1\n2\n");
    EXPECT_EQ(Shown(), "1¬\n2¬\n");
}

TEST_F(Clipboard, BringsBackATicketLostToEdit) {
    window.TypeTicket("AB");
    window.Put("212");
    window.Type("C");
    window.ClickRow(0);
    script.Expect(EditQuestion, Answer::No);
    window.Click("EditButton");
    EXPECT_EQ(window.Ticket(), u"AB");
    Press(Qt::Key_Z);
    EXPECT_EQ(window.Ticket(), u"ABC");
}

}  // namespace
}  // namespace varno
