// The ticket block in the window: tickets go in, are bound to keys, go out and come back.
#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/block/block_samples.h"
#include "tests/window/caret_picture.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

class BlockCommands : public WindowTest {
  protected:
    QListWidget* list = window.Widget<QListWidget>("TicketList");

    bool HasFocus(const char* name) {
        return QApplication::focusWidget() == window.Widget<QWidget>(name);
    }
    std::string ToolTip(const char* name) {
        return window.Widget<QWidget>(name)->toolTip().toStdString();
    }
};

TEST_F(BlockCommands, PutTakesNumbersFrom200To999) {
    window.TypeTicket("A");
    for (const char* number : {"", "0", "2", "199"}) {
        script.Expect({"Enter a valid ticket number (200..999).", "Bad Ticket Number", Buttons::Ok,
                       Icon::Exclamation},
                      Answer::Ok);
        window.Put(number);
        EXPECT_TRUE(HasFocus("TicketNumber")) << number;
    }
    EXPECT_FALSE(State().block.BlockChanged);
    for (const char* number : {"300", "999", "200", "212"}) {
        window.Put(number);
    }
    EXPECT_EQ(window.Rows(), "200|212|300|999");
    EXPECT_TRUE(HasFocus("RichText"));
}

TEST_F(BlockCommands, PutReplacesWithConsentWhatHasRoom) {
    const std::string a = Record(300, "A");
    const std::string before = SealTicketBuffer(a + Record(212, "B") + Tail({212, 300, 0, 212}));
    const std::string after = SealTicketBuffer(Record(212, "C") + a + Tail({0, 300}));
    const Message overwrite{"Overwrite Ticket #212?", "Existing Ticket Number", Buttons::YesNo,
                            Icon::Question};
    const Message tooBig{"too big", "Varno Ticket Formatter", Buttons::Ok, Icon::None};
    struct {
        std::string ticket;
        std::vector<std::pair<Message, Answer>> asked;
        std::string image;
        const char* rows;
    } const table[] = {
        {"C", {{overwrite, Answer::No}}, before, "212 P|300 S"},
        {std::string(1995, 'C'),
         {{overwrite, Answer::Yes}, {tooBig, Answer::Ok}},
         before,
         "212 P|300 S"},
        {"C", {{overwrite, Answer::Yes}}, after, "212|300 S"},
    };
    window.Open(before);
    for (const auto& t : table) {
        box.SetContent(FromPicture(t.ticket));
        edit->selectAll();
        for (const auto& [message, answer] : t.asked) {
            script.Expect(message, answer);
        }
        window.Put("212");
        script.ExpectNoMore();
        EXPECT_EQ(State().block.TicketBuffer, t.image);
        EXPECT_EQ(State().block.BlockChanged, t.image != before);
        EXPECT_EQ(window.Rows(), t.rows);
        const bool kept = t.asked.back().second == Answer::No;
        EXPECT_EQ(HasFocus("RichText"), !kept);
        EXPECT_EQ(box.SelLength(), kept ? 1 : 0);
    }
}

TEST_F(BlockCommands, DeleteRemovesTheSelectedTicket) {
    window.Open(SealTicketBuffer(Record(212, "A") + Record(300, "B") + Tail({300, 0, 212, 212})));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);  // no row selected
    EXPECT_FALSE(State().block.BlockChanged);
    window.ClickRow(0);
    EXPECT_EQ(window.PressedKeys(), "I");
    QTest::keyClick(list, Qt::Key_Backspace);
    EXPECT_EQ(window.Rows(), "212 I|300 P");
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(State().block.TicketBuffer, SealTicketBuffer(Record(300, "B") + Tail({300})));
    EXPECT_EQ(window.Rows(), "300 P");
    EXPECT_TRUE(State().block.BlockChanged);
    EXPECT_EQ(window.PressedKeys(), "");
    EXPECT_TRUE(HasFocus("RichText"));
}

TEST_F(BlockCommands, SelectionSetsTipsAndKeyButtons) {
    window.Open(SealTicketBuffer(Record(212, "A") + Record(305, "B") + Tail({0, 0, 0, 305})));
    window.ClickRow(1);
    EXPECT_EQ(ToolTip("EditButton"), "Move ticket 305 O  to editor.");
    EXPECT_EQ(ToolTip("DeleteButton"), "Delete ticket 305 O  from ticket block.");
    const std::pair<const char*, const char*> keys[] = {{"KeyAssignment(0)", "Print"},
                                                        {"KeyAssignment(1)", "Start"},
                                                        {"KeyAssignment(2)", "In"},
                                                        {"KeyAssignment(3)", "Out"}};
    for (const auto& [button, key] : keys) {
        EXPECT_EQ(ToolTip(button), "Assign ticket 305 O  to Varno '" + std::string(key) + "' key.");
    }
    EXPECT_EQ(window.PressedKeys(), "O");
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(window.PressedKeys(), "");
    EXPECT_EQ(ToolTip("EditButton"), "Move ticket 212  to editor.");
    EXPECT_FALSE(State().block.BlockChanged);
}

// A key bound by mouse, by letter and by the button's own keyboard handling: each runs once.
TEST_F(BlockCommands, KeysBindOnce) {
    const std::string records = Record(300, "B") + Record(212, "A");
    window.Open(SealTicketBuffer(records + Tail({300})));
    const auto button = [&](const char* name) { return window.Widget<QWidget>(name); };
    const auto type = [&](char letter, Qt::KeyboardModifiers held = {}) {
        return [=, this] { QTest::keyClick(list, letter, held); };
    };
    struct {
        std::function<void()> act;
        const char* rows;
        KeyTickets keys;
        const char* pressed;
    } const table[] = {
        {[&] { window.ClickRow(0); }, "212|300 P", {300}, ""},
        {type('s', Qt::AltModifier), "212|300 P", {300}, ""},
        {type('p', Qt::MetaModifier), "212|300 P", {300}, ""},
        {type('i', Qt::ControlModifier), "212|300 P", {300}, ""},
        {type('o'), "212  O|300 P", {300, 0, 0, 212}, "O"},
        {type('x'), "212  O|300 P", {300, 0, 0, 212}, "O"},
        {[&] { window.Click("KeyAssignment(0)"); }, "212  P|300", {212}, "P"},
        {[&] { window.Click("KeyAssignment(0)"); }, "212|300", {}, ""},
        {type('s'), "212  S|300", {0, 212}, "S"},
        {[&] { QTest::keyClick(list, Qt::Key_Down); }, "212  S|300", {0, 212}, ""},
        {type('S', Qt::ShiftModifier), "212|300  S", {0, 300}, "S"},
        {[&] { QTest::keyClick(list, Qt::Key_Space); }, "212|300", {}, ""},
        {[&] { QTest::keyClick(button("KeyAssignment(3)"), Qt::Key_Space); },
         "212|300  O",
         {0, 0, 0, 300},
         "O"},
        {[&] { QTest::keyClick(button("KeyAssignment(2)"), Qt::Key_Return); },
         "212|300  I",
         {0, 0, 300},
         "I"},
        {[&] { QTest::mouseClick(button("KeyAssignment(1)"), Qt::RightButton); },  // toggles not
         "212|300",
         {},
         ""},
    };
    for (const auto& row : table) {
        row.act();
        EXPECT_EQ(window.Rows(), row.rows) << &row - table;
        EXPECT_EQ(State().block.KeyTicket, row.keys) << &row - table;
        EXPECT_EQ(State().block.TicketBuffer, SealTicketBuffer(records + Tail(row.keys)));
        EXPECT_EQ(window.PressedKeys(), row.pressed) << &row - table;
        EXPECT_TRUE(HasFocus("TicketList")) << &row - table;
    }
}

TEST_F(BlockCommands, KeysNeedARowButNoEndMarker) {
    window.Open(":08D41000");
    list->setFocus();
    for (const char letter : {'p', ' '}) {
        QTest::keyClick(list, letter);
    }
    EXPECT_EQ(window.Rows(), "212");
    EXPECT_EQ(window.PressedKeys(), "");
    EXPECT_FALSE(State().block.BlockChanged);
    window.ClickRow(0);
    QTest::keyClick(list, 'p');
    EXPECT_EQ(window.Rows(), "212  P");
    EXPECT_EQ(State().block.KeyTicket, KeyTickets{212});
    EXPECT_EQ(State().block.TicketBuffer, ":08D41000");
    EXPECT_TRUE(State().block.BlockChanged);
}

class EditCommand : public BlockCommands {
  protected:
    EditCommand() {
        window.Open(SealTicketBuffer(Record(300, "é") + Record(212, "A B¬") + Tail({})));
        window.Get<Label>("TicketName").SetCaption("Shop1");
        window.Get<TextBox>("TicketNumber").SetText("700");
    }
    void Edit(int row) {
        window.ClickRow(row);
        window.Click("EditButton");
        script.ExpectNoMore();
    }
    void ExpectSave(Answer answer, const char* file) {
        script.Expect(EditQuestion, answer);
        if (answer == Answer::Yes) {
            script.ExpectSave(file == nullptr ? std::nullopt
                                              : std::optional(ChosenFile{folder.Path(file), file}));
        }
    }
    // All that the command may change.
    std::string Shown() {
        return ToPicture(box.Content()) + "|" + window.Caption("TicketName") + "|" +
               window.Get<TextBox>("TicketNumber").Text() + (State().TicketChanged ? "|!" : "");
    }
};

TEST_F(EditCommand, AsksWhileTheTicketIsUnsaved) {
    window.Get<Label>("TicketName").SetCaption("");
    box.SetContent(FromPicture("old"));
    struct {
        std::vector<std::pair<Answer, const char*>> answers;  // with the file that Yes saves
        const char* after;
    } const table[] = {
        {{{Answer::Cancel, nullptr}}, "old||700|!"},
        {{{Answer::Yes, nullptr}, {Answer::Cancel, nullptr}}, "old||700|!"},
        {{{Answer::Yes, nullptr}, {Answer::Yes, "Old.VRT"}}, "A÷B¬\n||"},
        {{}, "A÷B¬\n||"},  // not changed since
    };
    for (const auto& t : table) {
        for (const auto& [answer, file] : t.answers) {
            ExpectSave(answer, file);
        }
        Edit(0);
        EXPECT_EQ(Shown(), t.after);
    }
    EXPECT_TRUE(FileExists(folder.Path("Old.VRT")));
    EXPECT_FALSE(State().block.BlockChanged);
    box.SetContent({});
    EXPECT_TRUE(State().TicketChanged);
    Edit(0);  // nothing to save
    EXPECT_EQ(Shown(), "A÷B¬\n||");
}

TEST_F(EditCommand, LeavesTheCaretBehindTheTicket) {
    window.TypeTicket("old");
    ExpectSave(Answer::No, nullptr);
    Edit(1);
    EXPECT_EQ(Shown(), "{m}A233{g} ||");
    EXPECT_EQ(box.SelStart(), 5);
    EXPECT_EQ(box.TypingFormat(), CharFormat{});
    EXPECT_TRUE(HasFocus("RichText"));
}

TEST_F(EditCommand, NeedsARow) {
    window.TypeTicket("old");
    script.Expect(EditQuestion, Answer::No, [&] {  // an upload begins meanwhile
        script.Expect(
            {"Items in ticket block will be lost.", "Warning", Buttons::OkCancel, Icon::Critical},
            Answer::Ok);
        window.Choose("Retrieve");
        window.platform.line->Arrive(":");
    });
    Edit(0);
    EXPECT_EQ(Shown(), "|Shop1|700|!");
    EXPECT_EQ(window.Rows(), "");
}

}  // namespace
}  // namespace varno
