// Which commands are offered, event by event, as an operator causes the events.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>

#include "tests/window/main_window.h"

namespace varno {
namespace {

// One letter for each command, in this order; a capital letter where it is offered.
struct Offered {
    const char* command;
    char letter;
};
constexpr Offered Commands[] = {
    {"Retrieve", 'r'},         {"UploadButton", 'u'},     {"Serial", 's'},
    {"Transmit", 't'},         {"DownloadButton", 'd'},   {"SaveTicket", 'a'},
    {"SaveTicketAs", 'b'},     {"SaveList", 'l'},         {"PutButton", 'p'},
    {"EditButton", 'e'},       {"DeleteButton", 'x'},     {"KeyAssignment(0)", '0'},
    {"KeyAssignment(1)", '1'}, {"KeyAssignment(2)", '2'}, {"KeyAssignment(3)", '3'},
};

class States : public testing::Test {
  protected:
    TestFolder folder;
    MainWindow window{folder};

    void SetUp() override { window.Start(); }

    std::string Shown() {
        std::string shown;
        for (const Offered& row : Commands) {
            const bool digit = row.letter <= '9';
            const bool enabled = window.Get<Command>(row.command).Enabled();
            shown += enabled ? (digit ? 'K' : static_cast<char>(row.letter - 32)) : row.letter;
        }
        return shown + (window.Get<MenuItem>("Abort").Visible() ? "+abort" : "");
    }
    void OpenMenu(const char* menu) { emit window.Widget<QAction>(menu)->menu()->aboutToShow(); }
};

TEST_F(States, FollowTheTable) {
    struct Row {
        const char* what;
        std::function<void()> act;
        const char* shown;
    };
    QWidget* editor = window.Widget<QWidget>("RichText");
    const Row rows[] = {
        {"at the start", [] {}, "RUSTdablpex0123"},
        {"Varno menu, no rows", [&] { OpenMenu("Varno"); }, "RUStdablpex0123"},
        {"number typed, editor empty",
         [&] {
             window.Widget<QWidget>("TicketNumber")->setFocus();
             window.Type("212");
         },
         "RUStdablpex0123"},
        {"text typed", [&] { window.TypeTicket("A"); }, "RUStdABlPex0123"},
        {"put", [&] { window.Put("212"); }, "RUStDABlPex0123"},
        {"File menu", [&] { OpenMenu("FileMenu"); }, "RUStDABLPex0123"},
        {"Varno menu, rows", [&] { OpenMenu("Varno"); }, "RUSTDABLPex0123"},
        {"row selected", [&] { window.ClickRow(0); }, "RUSTDABLpEXKKKK"},
        {"editor focused", [&] { editor->setFocus(Qt::TabFocusReason); }, "RUSTDABLpex0123"},
        {"list focused again",
         [&] { window.Widget<QWidget>("TicketList")->setFocus(Qt::TabFocusReason); },
         "RUSTDABLpEXKKKK"},
        {"number changed", [&] { window.Get<TextBox>("TicketNumber").SetText("213"); },
         "RUSTDABLPEXKKKK"},
        {"edit",
         [&] {
             window.platform.dialogs.Expect({"Save the current ticket?", "Ticket changed",
                                             Buttons::YesNoCancel, Icon::Question},
                                            Answer::No);
             window.Click("EditButton");
         },
         "RUSTDABLPex0123"},
        {"editor emptied", [&] { QTest::keyClick(editor, Qt::Key_Backspace); }, "RUSTDabLpex0123"},
        {"row selected by key",
         [&] { window.Widget<QWidget>("TicketList")->setFocus(Qt::TabFocusReason); },
         "RUSTDabLpEXKKKK"},
        {"deleted", [&] { QTest::keyClick(window.Widget<QWidget>("TicketList"), Qt::Key_Delete); },
         "RUSTdabLpex0123"},
    };
    for (const Row& row : rows) {
        row.act();
        EXPECT_EQ(Shown(), row.shown) << row.what;
    }
}

// A key bound by mouse, by letter and by the button's own keyboard handling: each runs once.
TEST_F(States, KeysBindOnce) {
    window.TypeTicket("A");
    window.Put("212");
    window.Put("300");
    QWidget* list = window.Widget<QWidget>("TicketList");
    struct Row {
        std::function<void()> act;
        const char* rows;
    };
    const auto button = [&](const char* name) { return window.Widget<QWidget>(name); };
    const Row rows[] = {
        {[&] { window.ClickRow(0); }, "212|300"},
        {[&] { QTest::keyClick(list, 's', Qt::AltModifier); }, "212|300"},
        {[&] { QTest::keyClick(list, 'p', Qt::MetaModifier); }, "212|300"},
        {[&] { QTest::keyClick(list, 'i', Qt::ControlModifier); }, "212|300"},
        {[&] { window.Click("KeyAssignment(0)"); }, "212  P|300"},
        {[&] { QTest::keyClick(list, 's', Qt::NoModifier); }, "212  S|300"},
        {[&] { QTest::keyClick(list, Qt::Key_Down); }, "212  S|300"},
        {[&] { QTest::keyClick(list, 'S', Qt::ShiftModifier); }, "212|300  S"},
        {[&] { QTest::keyClick(list, Qt::Key_Space); }, "212|300"},
        {[&] { QTest::keyClick(button("KeyAssignment(3)"), Qt::Key_Space); }, "212|300  O"},
        {[&] { QTest::keyClick(button("KeyAssignment(2)"), Qt::Key_Return); }, "212|300  I"},
        {[&] {
             QTest::mouseClick(button("KeyAssignment(1)"), Qt::RightButton);  // does not toggle
         },
         "212|300"},
    };
    for (const Row& row : rows) {
        row.act();
        EXPECT_EQ(window.Rows(), row.rows) << &row - rows;
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
    auto* box = window.Widget<QLineEdit>("TicketNumber");
    box->setFocus();
    window.Type("2a1-2x34");
    EXPECT_EQ(box->text(), "212");
    box->clear();
    QGuiApplication::clipboard()->setText("-21");
    box->paste();
    EXPECT_EQ(box->text(), "21");
    window.Type("2");
    EXPECT_EQ(window.Widget<QWidget>("PutButton")->toolTip(), "Put ticket 212 into ticket block.");
}

}  // namespace
}  // namespace varno
