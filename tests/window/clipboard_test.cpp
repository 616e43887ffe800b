// Copying, pasting and undoing in the ticket editor.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QMimeData>
#include <QTextEdit>
#include <QTextFrame>

#include "platform/rtf/rtf_reader.h"
#include "tests/codec/picture.h"
#include "tests/window/main_window.h"

namespace varno {
namespace {

class Clipboard : public testing::Test {
  protected:
    TestFolder folder;
    MainWindow window{folder};
    RichTextBox& editor = window.Get<RichTextBox>("RichText");
    QTextEdit* edit = window.Widget<QTextEdit>("RichText");

    void SetUp() override { window.Start(); }

    void Press(Qt::Key key) { QTest::keyClick(edit, key, Qt::ControlModifier); }
    std::string Shown() { return ToPicture(editor.Content()); }
    void Paste(const char* type, const QByteArray& bytes) {
        auto* offered = new QMimeData;
        offered->setData(QLatin1String(type), bytes);
        QGuiApplication::clipboard()->setMimeData(offered);
        Press(Qt::Key_V);
    }
};

TEST_F(Clipboard, MarksKeepTheirMeaningFromTicketToTicket) {
    const std::string marks = "{k}Net÷{r}C005{g} LINE FEED{k}¬\n{b}P012{m}A27";
    editor.SetContent(FromPicture(marks));
    Press(Qt::Key_A);
    Press(Qt::Key_C);
    editor.SetContent({});
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
        {"text/html", "<p style='font:30pt Serif'>Net <b>5</b></p>", "{k}Net {kB}5"},
        {"text/html", "a<img src='data:image/png;base64,iVBORw0KGgo='>b", "{k}ab"},
        {"text/html", "<a href='http://localhost/'>here</a>", "{k}here"},
        {"text/html", "<span style='color:#ff0000'>C005</span>", "{r}C005"},
        {"text/html", "<table><tr><td>1</td><td>2</td></tr></table>", "{k}\n1\n2\n"},
        {"text/rtf", "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1 C005\\par}", "{r}C005"},
        {"text/rtf", "{\\rtf1 a{\\pict\\pngblip 89504e47}b}", "{k}ab"},
        {"text/plain", "two\r\nlines", "{k}two\nlines"},
    };
    for (const Row& row : rows) {
        editor.SetContent({});
        Paste(row.type, row.offered);
        EXPECT_EQ(Shown(), ToPicture(FromPicture(row.shown))) << row.offered.toStdString();
        EXPECT_TRUE(edit->document()->rootFrame()->childFrames().isEmpty());
    }
}

TEST_F(Clipboard, BringsBackATicketLostToEdit) {
    window.TypeTicket("AB");
    window.Put("212");
    window.Type("C");
    window.ClickRow(0);
    window.platform.dialogs.Expect(
        {"Save the current ticket?", "Ticket changed", Buttons::YesNoCancel, Icon::Question},
        Answer::No);
    window.Click("EditButton");
    EXPECT_EQ(window.Ticket(), u"AB");
    Press(Qt::Key_Z);
    EXPECT_EQ(window.Ticket(), u"ABC");
}

}  // namespace
}  // namespace varno
