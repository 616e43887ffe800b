// The pickers and the insert commands that show them, operated as an operator would.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScrollBar>
#include <QTextEdit>
#include <QTimer>
#include <QWheelEvent>
#include <vector>

#include "codec/catalogue.h"
#include "editor/ascii_picker.h"
#include "editor/code_picker.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/row_list.h"
#include "tests/window/caret_picture.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

void ClickRow(const QListWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

// A picker while it is shown.
struct Shown {
    QWidget& window;

    template <class T>
    T* Get(const char* name) const {
        return window.findChild<T*>(QString::fromUtf8(name));
    }
    QString Text(const char* field) const { return Get<QLineEdit>(field)->text(); }
    void Click(const char* button) const {
        QTest::mouseClick(Get<QWidget>(button), Qt::LeftButton);
    }
    void ClickEntry(const char* list, int row) const { ClickRow(Get<QListWidget>(list), row); }
    void DragTo(const char* list, int row) const {
        auto* rows = Get<QListWidget>(list);
        const auto centre = [rows](int of) {
            return rows->visualItemRect(rows->item(of)).center();
        };
        QTest::mousePress(rows->viewport(), Qt::LeftButton, {}, centre(0));
        QTest::mouseMove(rows->viewport(), centre(row));
        QTest::mouseRelease(rows->viewport(), Qt::LeftButton, {}, centre(row));
    }
    void DoubleClickEntry(const char* list, int row) const {
        ClickEntry(list, row);
        auto* rows = Get<QListWidget>(list);
        QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {},
                           rows->visualItemRect(rows->item(row)).center());
    }
    // To whatever has the focus.
    static void Press(const std::vector<Qt::Key>& keys) {
        for (const Qt::Key key : keys) {
            QTest::keyClick(QApplication::focusWidget(), key);
        }
    }
    static void Type(const QString& text) {
        for (const QChar character : text) {
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                                QString(character), Qt::NoModifier);
        }
    }
    void TypeInto(const char* field, const QString& text) const {
        Get<QLineEdit>(field)->setFocus();
        Get<QLineEdit>(field)->selectAll();
        Type(text);
    }

    // The three boxes, and whether Insert is offered.
    QString Boxes() const {
        return Text("CodeComboBox.Edit") + '/' + Text("UnsortedCommentComboBox.Edit") + '/' +
               Text("SortedCommentComboBox.Edit") +
               (Get<QWidget>("OkButton")->isEnabled() ? "/on" : "/off");
    }
    QString Entries(const char* name) const {
        const auto* list = Get<QListWidget>(name);
        QStringList entries;
        for (int row = 0; row < list->count(); ++row) {
            entries += list->item(row)->text();
        }
        return entries.join('/');
    }
    // In each list in sight the entry of its field is selected, and in sight.
    void ExpectChoiceInSight() const {
        for (const auto* list : window.findChildren<RowList*>()) {
            if (!list->isVisible()) {
                continue;
            }
            const QListWidgetItem* entry = list->item(list->SelectedRow());
            ASSERT_NE(entry, nullptr) << list->objectName().toStdString();
            const auto* field = list->parentWidget()->findChild<QLineEdit*>();
            EXPECT_EQ(entry->text(), field->text());
            EXPECT_EQ(list->currentItem(), list->hasFocus() ? entry : nullptr);
            EXPECT_TRUE(list->viewport()->rect().contains(list->visualItemRect(entry).center()));
        }
    }
};

class Pickers : public WindowTest {
  protected:
    using Script = std::function<void(const Shown&)>;

    Pickers() : WindowTest(Catalogues::InFolder) {
        Write(ControlCatalogueName,
              "heading\r\n009 Tab\r\n005 Line feed\r\n007 Bell\r\n005 again\r\n");
        Write(PrintCatalogueName, "012 Net\r\n010 Gr\xF6\xDF\r\n");
    }
    void Write(std::string_view catalogue, const std::string& text) {
        WriteText(folder.Path(std::string(catalogue)), text);
    }
    // Shows the picker of a menu item and operates it.
    void Pick(const char* menuItem, const Script& operate) {
        bool shown = false;
        QTimer timer;
        timer.setSingleShot(true);
        timer.callOnTimeout([&] {
            shown = true;
            QWidget* picker = QApplication::activeModalWidget();
            ASSERT_NE(picker, nullptr);
            QApplication::setActiveWindow(picker);
            operate({*picker});
            if (picker->isVisible()) {
                ADD_FAILURE() << "still open";
                picker->close();
            }
        });
        timer.start(0);
        window.Choose(menuItem);
        EXPECT_TRUE(shown);
        QApplication::processEvents();
    }
    // What is in the editor after a pick over this content. It goes in one step of undo.
    std::string PickOver(const std::string& before, const char* menuItem, const Script& operate) {
        const CaretPicture content = FromCaretPicture(before);
        box.SetContent(content.text);
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(ToQtPosition(*edit->document(), content.start));
        cursor.setPosition(ToQtPosition(*edit->document(), content.start + content.length),
                           QTextCursor::KeepAnchor);
        edit->setTextCursor(cursor);
        Pick(menuItem, operate);
        const CaretPicture after{box.Content(), box.SelStart(), 0, box.TypingFormat()};
        if (after.text != content.text) {
            edit->undo();
            EXPECT_EQ(ToPicture(box.Content()), ToPicture(content.text)) << "one step of undo";
        }
        return ToPicture(after);
    }
    std::string PickControl(const Script& operate) {
        return PickOver("|", "ControlCodes", operate);
    }
};

constexpr const char* Code = "CodeComboBox.Edit";
constexpr const char* Codes = "CodeComboBox.List";
constexpr const char* Comment = "UnsortedCommentComboBox.Edit";
constexpr const char* Comments = "UnsortedCommentComboBox.List";
constexpr const char* SortedComments = "SortedCommentComboBox.List";

TEST_F(Pickers, KeepTheBoxesInStep) {
    struct {
        const char* what;
        Script act;
        const char* boxes;
        const char* inserted;  // a code and its comment
    } const cases[] = {
        {"code typed", [](auto& p) { p.Type("007"); }, "007/BELL/BELL/on", "007 BELL"},
        {"too long", [](auto& p) { p.Type("0071"); }, "007/BELL/BELL/on", "007 BELL"},
        {"two bytes each", [](auto& p) { p.Type("äöüx"); }, "äöü///off", ""},
        {"without its zeros", [](auto& p) { p.Type("5"); }, "5///off", ""},
        {"spoilt again", [](auto& p) { p.Type("007"), p.Press({Qt::Key_Backspace}); },
         "00/BELL/BELL/off", ""},
        {"code dragged to", [](auto& p) { p.DragTo(Codes, 2); }, "007/BELL/BELL/on", "007 BELL"},
        {"by keys",
         [](auto& p) {
             p.Press({Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Up});
         },
         "007/BELL/BELL/on", "007 BELL"},
        {"typed behind keys", [](auto& p) { p.Press({Qt::Key_Down}), p.Type("007"); },
         "007/BELL/BELL/on", "007 BELL"},
        {"comment typed", [](auto& p) { p.TypeInto(Comment, "TAB"); }, "009/TAB/TAB/on", "009 TAB"},
        {"lower case", [](auto& p) { p.TypeInto(Comment, "tab"); }, "/tab//off", ""},
        {"file order", [](auto& p) { p.ClickEntry(Comments, 0); }, "009/TAB/TAB/on", "009 TAB"},
        {"sorted", [](auto& p) { p.Click("SortAlphabetically"), p.ClickEntry(SortedComments, 1); },
         "007/BELL/BELL/on", "007 BELL"},
        {"second comment",
         [](auto& p) { p.Click("SortAlphabetically"), p.ClickEntry(SortedComments, 0); },
         "005/LINE FEED/LINE FEED/on", "005 AGAIN"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        const std::string inserted = row.inserted;
        const std::string shown = PickControl([&](const Shown& p) {
            row.act(p);
            EXPECT_EQ(p.Boxes(), QString::fromUtf8(row.boxes));
            if (!inserted.empty()) {
                p.ExpectChoiceInSight();
            }
            p.Click(inserted.empty() ? "CancelButton" : "OkButton");
        });
        EXPECT_EQ(shown, inserted.empty() ? "|"
                                          : "{r}C" + inserted.substr(0, 3) + "{g}" +
                                                inserted.substr(3) + "{k}\n|");
        // Closed by its box the picker forgets, so that each case starts afresh.
        EXPECT_EQ(PickControl([](auto& p) { p.window.close(); }), "|");
    }
}

TEST_F(Pickers, AreHiddenAndComeBackAsTheyWere) {
    PickControl([](const Shown& p) {
        EXPECT_EQ(p.Entries(Codes), "005/005/007/009");
        EXPECT_EQ(p.Entries(Comments), "TAB/LINE FEED/BELL/AGAIN");
        EXPECT_EQ(p.Entries(SortedComments), "AGAIN/BELL/LINE FEED/TAB");
        EXPECT_FALSE(p.Get<QWidget>(SortedComments)->isVisible());
        p.Click("SortAlphabetically");
        EXPECT_FALSE(p.Get<QWidget>(Comments)->isVisible());
        p.DoubleClickEntry(SortedComments, 1);
    });
    Write(ControlCatalogueName, "001 new\r\n");
    EXPECT_EQ(PickControl([](const Shown& p) {
                  EXPECT_EQ(p.Boxes(), "007/BELL/BELL/on");
                  EXPECT_TRUE(p.Get<QWidget>(SortedComments)->isVisible());
                  p.Click("CancelButton");
              }),
              "|");
    EXPECT_EQ(PickControl([](auto& p) { p.Press({Qt::Key_Return}); }), "{r}C007{g} BELL{k}\n|");
    // What is typed takes the place of the code that was kept.
    EXPECT_EQ(PickControl([](auto& p) { p.Type("009"), p.Press({Qt::Key_Return}); }),
              "{r}C009{g} TAB{k}\n|");
    PickControl([](auto& p) { p.window.close(); });
    PickControl([](const Shown& p) {
        EXPECT_EQ(p.Boxes(), "///off");
        EXPECT_EQ(p.Entries(Codes), "001");
        p.Press({Qt::Key_Escape});
    });
}

TEST_F(Pickers, ShowRowsSideBySideInFileOrder) {
    std::string rows;
    for (int code = 101; code < 150; ++code) {
        rows +=
            std::to_string(code) + " " + std::string(static_cast<std::size_t>(code), 'x') + "\r\n";
    }
    Write(ControlCatalogueName, rows);
    const auto wheel = [](const char* list, int steps) {
        return [=](const Shown& p) {
            QWidget* place = p.Get<QListWidget>(list)->viewport();
            QWheelEvent event(QPointF(5, 5), place->mapToGlobal(QPointF(5, 5)), {},
                              {0, -120 * steps}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(place, &event);
        };
    };
    const auto keys = [](const char* half, const std::vector<Qt::Key>& pressed) {
        return [=](const Shown& p) {
            p.Get<QWidget>(half)->setFocus();
            p.Press(pressed);
        };
    };
    const auto drag = [](const char* list, int to) {
        return [=](const Shown& p) { p.Get<QListWidget>(list)->verticalScrollBar()->setValue(to); };
    };
    struct {
        Script act;
        int top;
    } const cases[] = {
        {wheel(Codes, 2), 6},
        {wheel(Comments, 3), 15},
        {keys(Code, {Qt::Key_Down}), 0},
        {keys(Comment, {Qt::Key_PageDown, Qt::Key_PageDown}), 8},
        {keys(Codes, {Qt::Key_End}), 40},
        {wheel(Comments, -1), 37},
        {[](auto& p) { p.ClickEntry(Comments, 37); }, 37},
        {keys(Comments, {Qt::Key_Home}), 0},
        {drag(Codes, 40), 40},
        {drag(Comments, 3), 3},
        {[](auto& p) { p.TypeInto(Code, "12"); }, 19},
        {keys(Code, {Qt::Key_Down}), 19},
        {[](auto& p) { p.TypeInto(Code, "149"); }, 40},
        {[](auto& p) { p.TypeInto(Comment, "X"); }, 0},
        {[&](auto& p) {
             p.Click("SortAlphabetically"), drag(Codes, 30)(p), p.Click("SortAlphabetically");
         },
         30},
    };
    PickControl([&](const Shown& p) {
        const auto* codes = p.Get<QListWidget>(Codes);
        const auto* comments = p.Get<QListWidget>(Comments);
        for (const auto& row : cases) {
            row.act(p);
            const int top = codes->indexAt({5, 5}).row();
            EXPECT_EQ(top, row.top) << &row - cases;
            for (int i = 0; i < codes->count(); ++i) {
                EXPECT_EQ(codes->visualItemRect(codes->item(i)).top(),
                          comments->visualItemRect(comments->item(i)).top())
                    << &row - cases << ", row " << i;
            }
        }
        p.window.close();
    });
}

TEST_F(Pickers, SayOnceThatTheCatalogueIsMissingAndStayEmpty) {
    std::filesystem::remove(folder.Path(std::string(ControlCatalogueName)));
    script.Expect({"No such file or directory", "", Buttons::Ok, Icon::Critical}, Answer::Ok);
    for (int showing = 0; showing < 2; ++showing) {
        PickControl([](const Shown& p) {
            p.Press({Qt::Key_Down, Qt::Key_Return});
            EXPECT_EQ(p.Boxes(), "///off");
            p.Press({Qt::Key_Escape});
        });
    }
}

TEST_F(Pickers, TakeANumberUpTo999) {
    struct {
        const char* typed;
        const char* text;
        const char* inserted;  // behind an "a"
    } const cases[] = {
        {"", "", "|"},
        {"1000", "100", "d|"},
        {"0001", "000", "{m}A000{g} {k}|"},
        {"7", "7", "{m}A7{g} {k}|"},
        {"31", "31", "{m}A31{g} {k}|"},
        {"032", "032", "÷|"},
        {"33", "33", "!|"},
        {"126", "126", "~|"},
        {"127", "127", "{m}A127{g} {k}|"},
        {"9999", "999", "{m}A999{g} {k}|"},
        {"a1-b 2", "12", "{m}A12{g} {k}|"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.typed);
        const auto shown = PickOver("a|", "ascii", [&](const Shown& p) {
            EXPECT_EQ(p.Text("Text1"), "");
            p.Type(row.typed);
            EXPECT_EQ(p.Text("Text1"), row.text);
            p.Press({Qt::Key_Return});
            if (*row.typed == '\0') {
                p.Press({Qt::Key_Escape});
            }
        });
        EXPECT_EQ(shown, std::string("a") + row.inserted);
    }
}

TEST_F(Pickers, AreOperatedByKeyboardAndMouse) {
    struct {
        Script act;
        const char* inserted;
    } const cases[] = {
        {[](auto& p) {
             p.Press(
                 {Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
         },
         "{m}A1{g} {k}|"},
        {[](auto& p) {
             p.Type("7"), p.Press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return});
         },
         "{m}A7{g} {k}|"},
        {[](auto& p) { p.Type("7"), p.Press({Qt::Key_Escape}); }, "|"},
        {[](auto& p) {
             p.Type("7"), p.Press({Qt::Key_Backtab, Qt::Key_Return});
         },
         "|"},  // on Cancel
        {[](auto& p) { p.Type("7"), p.window.close(); }, "|"},
        {[](auto& p) { p.DoubleClickEntry("List1", 7); }, "{m}A7{g} {k}|"},
        {[](auto& p) { p.ClickEntry("List1", 7), p.Click("Command1"); }, "{m}A7{g} {k}|"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(PickOver("|", "ascii", row.act), row.inserted) << &row - cases;
    }
}

TEST_F(Pickers, InsertACodeOnALineOfItsOwn) {
    const std::pair<const char*, const char*> cases[] = {
        {"|", "{b}P010{g} GRÖß{k}\n|"},
        {"|ab", "{b}P010{g} GRÖß{k}\n|ab"},
        {"a|b", "a\n{b}P010{g} GRÖß{k}\n|b"},
        {"ab¬\n|cd", "ab¬\n{b}P010{g} GRÖß{k}\n|cd"},
        {"ab|¬\ncd", "ab\n{b}P010{g} GRÖß{k}\n|¬\ncd"},
        {"a[xy]b", "a\n{b}P010{g} GRÖß{k}\n|b"},
        {"[xy]b", "{b}P010{g} GRÖß{k}\n|b"},
    };
    for (const auto& [before, after] : cases) {
        EXPECT_EQ(PickOver(before, "PrintCodes", [](auto& p) { p.DoubleClickEntry(Codes, 0); }),
                  after);
    }
}

}  // namespace
}  // namespace varno
