// Which commands are offered, event by event, as an operator causes the events.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>

#include "tests/window/real_window.h"

namespace varno {
namespace {

using States = WindowTest;

TEST_F(States, FollowTheTable) {
    struct Row {
        const char* what;
        std::function<void()> act;
        const char* shown;
    };
    const auto openMenu = [&](const char* menu) {
        emit window.Widget<QAction>(menu)->menu()->aboutToShow();
    };
    const Row rows[] = {
        {"at the start", [] {}, "RUSTdablpex0123"},
        {"Varno menu, no rows", [&] { openMenu("Varno"); }, "RUStdablpex0123"},
        {"number typed, editor empty",
         [&] {
             window.Widget<QWidget>("TicketNumber")->setFocus();
             window.Type("212");
         },
         "RUStdablpex0123"},
        {"text typed", [&] { window.TypeTicket("A"); }, "RUStdABlPex0123"},
        {"put", [&] { window.Put("212"); }, "RUStDABlPex0123"},
        {"File menu", [&] { openMenu("FileMenu"); }, "RUStDABLPex0123"},
        {"Varno menu, rows", [&] { openMenu("Varno"); }, "RUSTDABLPex0123"},
        {"row selected", [&] { window.ClickRow(0); }, "RUSTDABLpEXKKKK"},
        {"editor focused", [&] { edit->setFocus(Qt::TabFocusReason); }, "RUSTDABLpex0123"},
        {"list focused again",
         [&] { window.Widget<QWidget>("TicketList")->setFocus(Qt::TabFocusReason); },
         "RUSTDABLpEXKKKK"},
        {"number changed", [&] { window.Get<TextBox>("TicketNumber").SetText("213"); },
         "RUSTDABLPEXKKKK"},
        {"edit",
         [&] {
             script.Expect(EditQuestion, Answer::No);
             window.Click("EditButton");
         },
         "RUSTDABLPex0123"},
        {"editor emptied", [&] { QTest::keyClick(edit, Qt::Key_Backspace); }, "RUSTDabLpex0123"},
        {"row selected by key",
         [&] { window.Widget<QWidget>("TicketList")->setFocus(Qt::TabFocusReason); },
         "RUSTDabLpEXKKKK"},
        {"deleted", [&] { QTest::keyClick(window.Widget<QWidget>("TicketList"), Qt::Key_Delete); },
         "RUSTdabLpex0123"},
    };
    for (const Row& row : rows) {
        row.act();
        EXPECT_EQ(window.Offered(), row.shown) << row.what;
    }
}

// The commands beside the list always have the row they are offered for.
TEST_F(States, ASelectedRowStaysSelected) {
    window.TypeTicket("A");
    window.Put("212");
    window.Put("300");
    auto* list = window.Widget<QListWidget>("TicketList");
    const QPoint row = list->visualItemRect(list->item(0)).center();
    const QPoint beside(row.x(), list->viewport()->height() - 2);
    const auto press = [&](Qt::KeyboardModifiers held, QPoint from, QPoint to) {
        QTest::mousePress(list->viewport(), Qt::LeftButton, held, from);
        QTest::mouseMove(list->viewport(), to);
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, held, to);
    };
    const std::function<void()> acts[] = {
        [&] { press({}, beside, beside); },
        [&] { press({}, row, beside); },
        [&] { press({}, beside, row); },
        [&] { press(Qt::ControlModifier, row, row); },
        [&] { press(Qt::ControlModifier, beside, beside); },
        [&] { QTest::keyClick(list, Qt::Key_Space, Qt::ControlModifier); },
        [&] { QTest::keyClick(list, Qt::Key_Space); },
        [&] { QTest::keyClick(list, 'p'); },
    };
    window.ClickRow(0);
    for (const auto& act : acts) {
        act();
        EXPECT_EQ(window.Get<ListBox>("TicketList").ListIndex(), 0) << &act - acts;
        EXPECT_TRUE(window.Get<Command>("DeleteButton").Enabled());
    }
}

TEST_F(States, NumberBoxTakesThreeDigits) {
    auto* field = window.Widget<QLineEdit>("TicketNumber");
    field->setFocus();
    window.Type("2a1-2x34");
    EXPECT_EQ(field->text(), "212");
    field->clear();
    for (const char* pasted : {"-2/", "\u06621:"}) {
        QGuiApplication::clipboard()->setText(pasted);
        field->paste();
    }
    EXPECT_EQ(field->text(), "21");
    window.Type("2");
    EXPECT_EQ(window.Widget<QWidget>("PutButton")->toolTip(), "Put ticket 212 into ticket block.");
}

}  // namespace
}  // namespace varno
