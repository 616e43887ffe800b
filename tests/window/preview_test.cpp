// The preview window beside the real main window: it follows, and it changes nothing.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QLabel>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QToolTip>

#include "platform/qt/paper_sheet.h"
#include "tests/window/caret_picture.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

constexpr const char* Codes =
    "width 24\n17 bold on\n18 bold off\n5 feed 1\nP12 8 \"12480\"\nP15 \"kg\"\n";

class PreviewTest : public testing::Test {
  protected:
    PreviewTest() { WriteText(folder.Path("Varno Code Effects.txt"), Codes); }

    void SetUp() override { window.Start(); }

    void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    // Makes a window the active one, as the desktop would.
    static void GoTo(QWidget* shell) {
        QApplication::processEvents();
        QApplication::setActiveWindow(shell);
    }
    void OpenPreview() {
        GoTo(window.TopLevel());
        Press(Qt::Key_F7);
        preview = window.TopLevel()->findChild<QWidget*>("Preview");
        ASSERT_NE(preview, nullptr);
        sheet = preview->findChild<PaperSheet*>("Paper");
        GoTo(window.TopLevel());
    }
    void Load(const char* picture) {
        auto& editor = window.Get<RichTextBox>("RichText");
        editor.SetContent(FromPicture(picture));
        window.form.Form_Load();  // clears the flag, as loading a file does
    }
    // What assistive technology reads.
    QAccessibleTextInterface& Accessible() {
        return *QAccessible::queryAccessibleInterface(sheet)->textInterface();
    }
    QString Text() { return Accessible().text(0, Accessible().characterCount()); }
    bool Shows(const QString& text) {
        return QTest::qWaitFor([&] { return Text() == text; });
    }
    QString Label(const char* name) { return preview->findChild<QLabel*>(name)->text(); }
    void ClickCell(PaperPlace place) {
        QTest::mouseClick(sheet->viewport(), Qt::LeftButton, {},
                          sheet->CellAt(place).center().toPoint());
    }

    TestFolder folder;
    RealWindow window{folder, "", folder.Folder()};
    QWidget* preview = nullptr;
    PaperSheet* sheet = nullptr;
};

TEST_F(PreviewTest, FollowsTheEditorAndTheList) {
    QTextEdit* editor = window.Widget<QTextEdit>("RichText");
    OpenPreview();
    const struct {
        const char* what;
        std::function<void()> act;
        QString paper;
        QString title = "Ticket in the editor";
    } steps[] = {
        {"nothing yet", [] {}, ""},
        {"typing", [&] { window.TypeTicket("Net 5"); }, "Net 5\n"},
        {"a ticket put, which leads to an empty number box", [&] { window.Put("212"); }, "Net 5\n"},
        {"more typing", [&] { window.TypeTicket("7"); }, "Net 57\n"},
        {"a row of the list", [&] { window.ClickRow(0); }, "Net 5\n", "Ticket 212"},
        {"the editor again", [&] { editor->setFocus(); }, "Net 57\n"},
        {"the list again", [&] { window.Widget<QWidget>("TicketList")->setFocus(); }, "Net 5\n",
         "Ticket 212"},
        {"the row deleted", [&] { Press(Qt::Key_Delete); }, "Net 57\n"},
        {"undo",
         [&] {
             editor->setFocus();
             Press(Qt::Key_Z, Qt::ControlModifier);
         },
         ""},
    };
    for (const auto& step : steps) {
        step.act();
        EXPECT_TRUE(Shows(step.paper)) << step.what << ": " << Text().toStdString();
        EXPECT_TRUE(QTest::qWaitFor([&] { return Label("ShownTicket") == step.title; }))
            << step.what;
    }
    // Closed it follows nothing; shown again it is up to date.
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(preview->isVisible());
    window.TypeTicket("x");
    OpenPreview();
    EXPECT_TRUE(Shows("x\n"));
}

TEST_F(PreviewTest, ChangesNothingInTheMainWindow) {
    QTextEdit* editor = window.Widget<QTextEdit>("RichText");
    auto& text = window.Get<RichTextBox>("RichText");
    Load("a{r}C017{g} BOLD{k}\nbc{b}P012{g} NET{k}\n¬\n");
    text.SetSelStart(6);
    const MarkedText before = text.Content();
    const int steps = editor->document()->availableUndoSteps();
    OpenPreview();
    EXPECT_TRUE(Shows("abc   12480\n"));
    for (const int width : {1, 2, 0}) {
        auto* widths = preview->findChild<QComboBox*>("PaperWidth");
        widths->setCurrentIndex(width);
        emit widths->activated(width);
    }
    QTest::keyClick(sheet, Qt::Key_Plus, Qt::ControlModifier);
    QTest::keyClick(sheet, Qt::Key_End);
    QTest::keyClick(sheet, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "abc   12480\n");
    QTest::mouseClick(sheet->viewport(), Qt::RightButton);
    QTest::keyClick(sheet, Qt::Key_F7);
    EXPECT_EQ(ToPicture(text.Content()), ToPicture(before));
    EXPECT_EQ(text.SelStart(), 6);
    EXPECT_EQ(editor->document()->availableUndoSteps(), steps);
    EXPECT_FALSE(window.form.State().TicketChanged);
}

// A click leads to what printed there, and from there the caret shows that place again.
TEST_F(PreviewTest, PutsTheCaretWhereThePaperIsClicked) {
    auto& text = window.Get<RichTextBox>("RichText");
    Load("ab¬\n{r}C017{g} BOLD{k}\n{b}P012{g} NET{k}\n÷kg¬\n");
    OpenPreview();
    const struct {
        PaperPlace click;
        const char* caret;
        PaperPlace shown;
    } table[] = {
        {{0, 1}, "a|b¬\n{r}C017{g} BOLD{k}\n{b}P012{g} NET{k}\n÷kg¬\n", {0, 1}},
        {{0, 20}, "ab|¬\n{r}C017{g} BOLD{k}\n{b}P012{g} NET{k}\n÷kg¬\n", {0, 2}},
        {{1, 6}, "ab¬\n{r}C017{g} BOLD{k}\n{b}|P012{g} NET{k}\n÷kg¬\n", {1, 0}},
        {{1, 10}, "ab¬\n{r}C017{g} BOLD{k}\n{b}P012{g} NET{k}\n÷k|g¬\n", {1, 10}},
        {{7, 0}, "ab¬\n{r}C017{g} BOLD{k}\n{b}P012{g} NET{k}\n÷kg¬\n|", {2, 0}},
    };
    for (const auto& row : table) {
        ClickCell(row.click);
        EXPECT_EQ(text.SelStart(), FromCaretPicture(row.caret).start) << row.caret;
        EXPECT_TRUE(QTest::qWaitFor([&] { return sheet->Caret() == row.shown; })) << row.caret;
    }
    Accessible().setCursorPosition(4);  // "12480" begins with three blanks
    EXPECT_EQ(text.SelStart(), FromCaretPicture(table[2].caret).start);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Accessible().cursorPosition() == 3; }));

    // A ticket of the block is not in the editor.
    window.Put("212");
    window.ClickRow(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet->Caret(); }));
    ClickCell({0, 1});
    EXPECT_EQ(text.SelStart(), FromCaretPicture(table[2].caret).start);
}

TEST_F(PreviewTest, TakesTheWidthOfTheEffectsOrAnother) {
    window.TypeTicket(QString(30, u'x'));
    OpenPreview();
    const QString broken = QString(24, u'x') + QStringLiteral("\u21B5\nxxxxxx\n");
    EXPECT_TRUE(Shows(broken));
    EXPECT_EQ(Label("Faults"), "");
    auto* widths = preview->findChild<QComboBox*>("PaperWidth");
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widths);
    EXPECT_EQ(spoken->text(QAccessible::Value), "24 columns (code effects)");
    EXPECT_EQ(spoken->text(QAccessible::Description), "Paper width");
    QTest::keyClick(widths, Qt::Key_Down);
    QTest::keyClick(widths, Qt::Key_Down);  // 24 again, then 32
    EXPECT_TRUE(Shows(QString(30, u'x') + u'\n'));

    // Read anew at each showing; what is wrong is named, and the width that was chosen stays.
    WriteText(folder.Path("Varno Code Effects.txt"), "width 8\nbold\nbolder\n");
    OpenPreview();
    EXPECT_EQ(widths->itemText(0), "8 columns (code effects)");
    EXPECT_EQ(widths->currentText(), "32 columns");
    EXPECT_TRUE(Label("Faults").startsWith("2 faults: line 2: ")) << Label("Faults").toStdString();
}

TEST_F(PreviewTest, KeepsItsScrollPlaceAndZooms) {
    window.Get<RichTextBox>("RichText").SetContent(FromPicture([] {
        std::string picture;
        for (int line = 0; line < 200; ++line) {
            picture += "line " + std::to_string(line) + "¬\n";
        }
        return picture;
    }()));
    OpenPreview();
    QScrollBar* bar = sheet->verticalScrollBar();
    bar->setValue(900);
    window.TypeTicket("x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text().startsWith("xline"); }));
    EXPECT_EQ(bar->value(), 0) << "the caret moved on the paper: it is to be seen";
    bar->setValue(900);
    Press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text().startsWith("xine"); }));
    EXPECT_EQ(bar->value(), 900);

    const qreal column = sheet->CellAt({0, 0}).width();
    QWheelEvent up({9, 9}, sheet->mapToGlobal(QPointF(9, 9)), {}, {0, 120}, Qt::NoButton,
                   Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(sheet->viewport(), &up);
    EXPECT_GT(sheet->CellAt({0, 0}).width(), column);
    QTest::keyClick(sheet, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(sheet->CellAt({0, 0}).width(), column);
}

// By mouse, Menu key and Shift+F10, in the editor behind the editor's own commands.
TEST_F(PreviewTest, OpensFromContextMenus) {
    for (const char* name : {"RichText", "TicketList"}) {
        auto* control = window.Widget<QAbstractScrollArea>(name);
        const QPoint middle = control->viewport()->rect().center();
        const std::function<void()> ways[] = {
            [&] {
                QContextMenuEvent event(QContextMenuEvent::Mouse, middle,
                                        control->viewport()->mapToGlobal(middle));
                QApplication::sendEvent(control->viewport(), &event);
            },
            [&] { Press(Qt::Key_F10, Qt::ShiftModifier); },
        };
        for (const auto& open : ways) {
            GoTo(window.TopLevel());
            control->setFocus();
            open();
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr) << name;
            QTest::keyClick(menu, Qt::Key_V);
            preview = window.TopLevel()->findChild<QWidget*>("Preview");
            ASSERT_TRUE(preview != nullptr && preview->isVisible()) << name;
            preview->close();
        }
    }
}

// With F2, in a note that the next key takes away.
TEST_F(PreviewTest, TellsWhereTheCaretIs) {
    Load("ab¬\n{r}C017{g} BOLD <b>{k}\nc");
    auto& text = window.Get<RichTextBox>("RichText");
    auto* editor = window.Widget<QTextEdit>("RichText");
    const MarkedText before = text.Content();
    const struct {
        int caret, length;
        const char* note;
    } table[] = {
        {0, 0, "Printed line 1, column 1 of the paper. The character \"a\"."},
        {1, 1, "Printed line 1, column 2 of the paper. The character \"b\"."},
        {5, 0, "Printed line 2, column 1 of the paper. Control code 017 switches bold on."}};
    for (const auto& row : table) {
        text.SetSelStart(row.caret + row.length);
        QTextCursor cursor = editor->textCursor();
        cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, row.length);
        editor->setTextCursor(cursor);
        const int steps = editor->document()->availableUndoSteps();
        QTest::keyClick(editor, Qt::Key_F2);
        const QString shown = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
        EXPECT_EQ(shown.toStdString(), row.note);
        EXPECT_EQ(text.Content(), before);
        EXPECT_EQ(text.SelLength(), row.length);
        EXPECT_EQ(editor->document()->availableUndoSteps(), steps);
        QTest::keyClick(editor, row.length > 0 ? Qt::Key_Escape : Qt::Key_Right);
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << row.note;
    }
    // The same note at a new place is another one, and stays, under the pointer too, which leaves
    // the text by that.
    for (const int caret : {9, 10}) {
        text.SetSelStart(caret);
        QTest::keyClick(editor, Qt::Key_F2);
    }
    const QPoint atCaret = editor->cursorRect().bottomLeft();
    QCursor::setPos(editor->viewport()->mapToGlobal(atCaret + QPoint(20, 30)));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(editor->viewport(), &leave);
    QTest::qWait(500);
    EXPECT_TRUE(QToolTip::isVisible());
    // On the paper as it was last shown.
    OpenPreview();
    preview->findChild<QComboBox*>("PaperWidth")->setCurrentIndex(1);
    emit preview->findChild<QComboBox*>("PaperWidth")->activated(1);
    text.SetContent(FromPicture("123456789012345678901234567890"));
    text.SetSelStart(25);
    window.Widget<QWidget>("TicketList")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
    EXPECT_TRUE(QToolTip::text().contains("line 2, column 2 ")) << QToolTip::text().toStdString();
}

// The key rules come first: a letter behind a mark is black, whatever key came between.
TEST_F(PreviewTest, ItsKeyIsOneOfTheEditorsKeys) {
    auto& text = window.Get<RichTextBox>("RichText");
    text.SetContent(FromPicture("{r}C017"));
    text.SetSelStart(4);
    EXPECT_EQ(text.TypingFormat().colour, ControlCodeColour);
    OpenPreview();
    EXPECT_EQ(text.TypingFormat().colour, TextColour);
}

TEST_F(PreviewTest, SavesPdf) {
    window.TypeTicket("x");
    OpenPreview();
    const std::string path = folder.Path("Ticket.pdf");
    const auto save = [&] {
        window.platform.dialogs.ExpectSave(ChosenFile{path, "Ticket.pdf"});
        QTest::mouseClick(preview->findChild<QWidget*>("PdfButton"), Qt::LeftButton);
    };
    save();
    EXPECT_TRUE(FileText(path).starts_with("%PDF-"));
    window.platform.dialogs.ExpectSave(std::nullopt);
    QTest::mouseClick(preview->findChild<QWidget*>("PdfButton"), Qt::LeftButton);
}

}  // namespace
}  // namespace varno
