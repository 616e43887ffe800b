#include <algorithm>

#include "tests/block/block_window.h"

namespace varno {
namespace {

TEST(List, SelectionSetsTipsAndKeyButtons) {
    BlockWindow w;
    w.TicketList.AddItem("212");
    w.TicketList.AddItem("305  O");
    w.TicketList.SetFocus();  // no row selected: nothing
    EXPECT_EQ(w.log, Rows{"focus TicketList"});
    w.KeyAssignment[0].SetValue(true);
    w.TicketList.ClickRow(1);
    EXPECT_EQ(w.EditButton.ToolTip(), "Move ticket 305  O  to editor.");
    EXPECT_EQ(w.KeyAssignment[1].ToolTip(), "Assign ticket 305  O  to Varno 'Start' key.");
    EXPECT_EQ(w.DeleteButton.ToolTip(), "Delete ticket 305  O  from ticket block.");
    EXPECT_TRUE(w.KeyAssignment[3].Value());
    EXPECT_FALSE(w.KeyAssignment[0].Value());

    w.TicketList.SetListIndex(0);
    w.RichText.SetFocus();
    w.log.clear();
    w.TicketList.SetFocus();  // back to a selected row
    EXPECT_EQ(w.log, (Rows{"focus TicketList", "list selected"}));
    EXPECT_EQ(w.KeyAssignment[0].ToolTip(), "Assign ticket 212  to Varno 'Print' key.");
    EXPECT_FALSE(w.KeyAssignment[3].Value());
    EXPECT_FALSE(w.block.BlockChanged);
}

struct EditWindow : BlockWindow {
    explicit EditWindow(const std::u16string& text = u"old") {
        Load(SealTicketBuffer(Record(300, u"\u00E9") + Record(212, u"A B\u00AC") +
                              Tail({212, 0, 0, 0})));
        RichText.SetContent(Plain(text));
        TicketName.SetCaption("Shop1");
        TicketNumber.SetText("700");
        log.clear();
    }
    // All that the edit command may change.
    std::u16string State() const {
        const std::string rest = "|" + TicketName.Caption() + "|" + TicketNumber.Text();
        return RichText.Marked().Text() + std::u16string(rest.begin(), rest.end()) +
               (TicketChanged ? u"|changed" : u"");
    }
    void ExpectQuestion(Answer answer, std::function<void()> meanwhile = {}) {
        dialogs.Expect(
            {"Save the current ticket?", "Ticket changed", Buttons::YesNoCancel, Icon::Question},
            answer, std::move(meanwhile));
    }
};

TEST(Edit, AsksWhileTheTicketIsUnsaved) {
    const std::u16string edited = u"A\u00F7B\u00AC\r\n||";
    struct {
        const char* what;
        bool changed;
        const char16_t* text;
        std::vector<Answer> answers;
        int savesNeeded;  // earlier ones are called off
        std::u16string after;
    } const table[] = {
        {"nothing changed", false, u"old", {}, 0, edited},
        {"nothing to save", true, u"", {}, 0, edited},
        {"no", true, u"old", {Answer::No}, 0, edited},
        {"saved", true, u"old", {Answer::Yes}, 1, edited},
        {"saved at last", true, u"old", {Answer::Yes, Answer::Yes}, 2, edited},
        {"cancel", true, u"old", {Answer::Cancel}, 0, u"old|Shop1|700|changed"},
        {"not saved", true, u"old", {Answer::Yes, Answer::Cancel}, 9, u"old|Shop1|700|changed"},
    };
    for (const auto& c : table) {
        SCOPED_TRACE(c.what);
        EditWindow w(c.text);
        w.TicketChanged = c.changed;
        int saves = 0;
        w.view.SaveTicket = [&] { w.TicketChanged = ++saves < c.savesNeeded; };
        for (const Answer answer : c.answers) {
            w.ExpectQuestion(answer);
        }
        w.TicketList.DoubleClickRow(0);
        EXPECT_EQ(w.State(), c.after);
        EXPECT_EQ(saves, std::count(c.answers.begin(), c.answers.end(), Answer::Yes));
        EXPECT_EQ(w.TicketList.Rows(), (Rows{"212 P", "300"}));
        EXPECT_FALSE(w.block.BlockChanged);
    }
}

TEST(Edit, IsOneStepThatLeavesTheCaretBehindTheTicket) {
    EditWindow w;
    w.TicketChanged = false;
    w.TicketList.DoubleClickRow(1);
    EXPECT_EQ(w.RichText.Marked().Text(), u"A233 ");  // the space is green
    EXPECT_EQ(w.RichText.SelStart(), 5);
    EXPECT_EQ(w.RichText.TypingFormat(), CharFormat{});
    EXPECT_EQ(w.log,
              (Rows{"focus TicketList", "list selected", "focus RichText", "number changed"}));
    w.RichText.Undo();
    EXPECT_EQ(w.RichText.Marked().Text(), u"old");
}

TEST(Edit, NeedsARowButNoRecord) {
    EditWindow w;
    w.EditButton.Click();
    EXPECT_EQ(w.State(), u"old|Shop1|700|changed");
    w.TicketList.ClickRow(0);
    w.ExpectQuestion(Answer::No, [&] { w.TicketList.Clear(); });  // an upload began meanwhile
    w.EditButton.Click();
    EXPECT_EQ(w.State(), u"old|Shop1|700|changed");
    w.TicketList.AddItem("400");
    w.ExpectQuestion(Answer::No);
    w.TicketList.DoubleClickRow(0);
    EXPECT_EQ(w.State(), u"||");
}

}  // namespace
}  // namespace varno
