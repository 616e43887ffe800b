#include <algorithm>

#include "tests/block/block_window.h"

namespace varno {
namespace {

TEST(List, SelectionSetsTipsAndKeyButtons) {
    BlockWindow w;
    w.TicketList.AddItem("212");
    w.TicketList.AddItem("305  O");
    w.view.TicketList_GotFocus();  // no row selected: nothing
    EXPECT_EQ(w.log, Events{});
    w.KeyAssignment[0].SetValue(true);
    w.TicketList.ClickRow(1);
    EXPECT_EQ(w.EditButton.ToolTip(), "Move ticket 305  O  to editor.");
    for (std::size_t key = 0; key < KeyNames.size(); ++key)
        EXPECT_EQ(w.KeyAssignment[key].ToolTip(),
                  "Assign ticket 305  O  to Varno '" + std::string(KeyNames[key]) + "' key.");
    EXPECT_EQ(w.DeleteButton.ToolTip(), "Delete ticket 305  O  from ticket block.");
    EXPECT_EQ(w.PressedKeys(), "O");
    w.TicketList.SetListIndex(0);
    w.view.TicketList_GotFocus();
    EXPECT_EQ(w.PressedKeys(), "");
    EXPECT_EQ(w.EditButton.ToolTip(), "Move ticket 212  to editor.");
    EXPECT_EQ(w.log, (Events{CommandEvent::ListSelected, CommandEvent::ListSelected}));
    EXPECT_FALSE(w.block.BlockChanged);
}

struct EditWindow : BlockWindow {
    explicit EditWindow(const char* text = "old") {
        Load(SealTicketBuffer(Record(300, "é") + Record(212, "A B¬") + Tail({})));
        RichText.SetContent(FromPicture(text));
        TicketName.SetCaption("Shop1");
        TicketNumber.SetText("700");
    }
    void Edit(int row) {
        TicketList.SetListIndex(row);
        view.EditButton_Click();
    }
    // All that the edit command may change.
    std::string State() const {
        return ToPicture(RichText.Marked()) + "|" + TicketName.Caption() + "|" +
               TicketNumber.Text() + (TicketChanged ? "|changed" : "");
    }
    void ExpectQuestion(Answer answer, std::function<void()> meanwhile = {}) {
        dialogs.Expect(
            {"Save the current ticket?", "Ticket changed", Buttons::YesNoCancel, Icon::Question},
            answer, std::move(meanwhile));
    }
};

TEST(Edit, AsksWhileTheTicketIsUnsaved) {
    struct {
        const char* what;
        bool changed;
        const char* text;
        std::vector<Answer> answers;
        int savesNeeded;  // earlier ones are called off
        const char* after;
    } const table[] = {
        {"nothing changed", false, "old", {}, 0, "A÷B¬\n||"},
        {"nothing to save", true, "", {}, 0, "A÷B¬\n||"},
        {"no", true, "old", {Answer::No}, 0, "A÷B¬\n||"},
        {"saved", true, "old", {Answer::Yes}, 1, "A÷B¬\n||"},
        {"saved at last", true, "old", {Answer::Yes, Answer::Yes}, 2, "A÷B¬\n||"},
        {"cancel", true, "old", {Answer::Cancel}, 0, "old|Shop1|700|changed"},
        {"not saved", true, "old", {Answer::Yes, Answer::Cancel}, 9, "old|Shop1|700|changed"},
    };
    for (const auto& c : table) {
        SCOPED_TRACE(c.what);
        EditWindow w(c.text);
        w.TicketChanged = c.changed;
        int saves = 0;
        w.saveTicket = [&] { w.TicketChanged = ++saves < c.savesNeeded; };
        for (const Answer answer : c.answers) w.ExpectQuestion(answer);
        w.Edit(0);
        EXPECT_EQ(w.State(), c.after);
        EXPECT_EQ(saves, std::count(c.answers.begin(), c.answers.end(), Answer::Yes));
        EXPECT_FALSE(w.block.BlockChanged);
    }
}

TEST(Edit, IsOneStepThatLeavesTheCaretBehindTheTicket) {
    EditWindow w;
    w.TicketChanged = false;
    w.Edit(1);
    EXPECT_EQ(ToPicture(w.RichText.Marked()), "{m}A233{g} ");
    EXPECT_EQ(w.RichText.SelStart(), 5);
    EXPECT_EQ(w.RichText.TypingFormat(), CharFormat{});
    EXPECT_TRUE(w.RichText.HasFocus());
    w.RichText.Undo();
    EXPECT_EQ(ToPicture(w.RichText.Marked()), "old");
}

TEST(Edit, NeedsARowButNoRecord) {
    EditWindow w;
    w.Edit(-1);
    EXPECT_EQ(w.State(), "old|Shop1|700|changed");
    w.ExpectQuestion(Answer::No, [&] { w.TicketList.Clear(); });  // an upload began meanwhile
    w.Edit(0);
    EXPECT_EQ(w.State(), "old|Shop1|700|changed");
    w.TicketList.AddItem("400");
    w.ExpectQuestion(Answer::No);
    w.Edit(0);
    EXPECT_EQ(w.State(), "||");
}

}  // namespace
}  // namespace varno
