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

class Edit : public ::testing::Test {
  protected:
    Edit() {
        w.Load(SealTicketBuffer(Record(300, u"no") + Record(212, u"A B\u00AC") +
                                Tail({212, 0, 0, 0})));
        w.RichText.SetContent(Plain(u"old"));
        w.TicketName.SetCaption("Shop1");
        w.TicketNumber.SetText("700");
        w.view.SaveTicket = [this] { ++saves; };
        w.log.clear();
    }
    void ExpectQuestion(Answer answer, std::function<void()> meanwhile = {}) {
        w.dialogs.Expect(
            {"Save the current ticket?", "Ticket changed", Buttons::YesNoCancel, Icon::Question},
            answer, std::move(meanwhile));
    }
    void ExpectEdited() {
        EXPECT_EQ(w.RichText.Marked().Text(), u"A\u00F7B\u00AC\r\n");
        EXPECT_EQ(w.RichText.SelStart(), 6);
        EXPECT_EQ(w.TicketName.Caption(), "");
        EXPECT_EQ(w.TicketNumber.Text(), "");
        EXPECT_FALSE(w.TicketChanged);
        EXPECT_TRUE(w.RichText.HasFocus());
        EXPECT_FALSE(w.block.BlockChanged);
        EXPECT_EQ(w.TicketList.Rows(), (Rows{"212 P", "300"}));
    }
    void ExpectUntouched() {
        EXPECT_EQ(w.RichText.Marked().Text(), u"old");
        EXPECT_EQ(w.TicketName.Caption(), "Shop1");
        EXPECT_EQ(w.TicketNumber.Text(), "700");
        EXPECT_TRUE(w.TicketChanged);
    }

    BlockWindow w;
    int saves = 0;
};

TEST_F(Edit, MovesTheTicketIntoTheEditorAsOneStep) {
    w.TicketChanged = false;
    w.TicketList.DoubleClickRow(0);
    ExpectEdited();
    EXPECT_EQ(w.log,
              (Rows{"focus TicketList", "list selected", "focus RichText", "number changed"}));
    w.RichText.Undo();
    EXPECT_EQ(w.RichText.Marked().Text(), u"old");
}

TEST_F(Edit, CancelChangesNothing) {
    ExpectQuestion(Answer::Cancel);
    w.TicketList.DoubleClickRow(0);
    ExpectUntouched();
    EXPECT_EQ(saves, 0);
}

TEST_F(Edit, AsksAgainWhileTheTicketIsUnsaved) {
    ExpectQuestion(Answer::Yes);
    ExpectQuestion(Answer::Yes,
                   [this] { w.view.SaveTicket = [this] { w.TicketChanged = false; }; });
    w.TicketList.DoubleClickRow(0);
    ExpectEdited();
    EXPECT_EQ(saves, 1);
}

TEST_F(Edit, NoGoesOnAndAnEmptyEditorIsNotAskedAbout) {
    ExpectQuestion(Answer::No);
    w.TicketList.DoubleClickRow(0);
    ExpectEdited();
    w.RichText.SetContent({});
    EXPECT_TRUE(w.TicketChanged);
    w.TicketList.DoubleClickRow(0);
    ExpectEdited();
}

TEST_F(Edit, NothingWithoutASelectedRow) {
    w.EditButton.Click();
    ExpectUntouched();
    w.TicketList.ClickRow(0);
    ExpectQuestion(Answer::No, [this] { w.TicketList.Clear(); });  // an upload began meanwhile
    w.EditButton.Click();
    ExpectUntouched();
}

TEST_F(Edit, RowWithoutRecordEmptiesTheEditor) {
    w.TicketChanged = false;
    w.TicketList.AddItem("400");
    w.TicketList.DoubleClickRow(2);
    EXPECT_FALSE(w.RichText.HasText());
    EXPECT_FALSE(w.TicketChanged);
}

}  // namespace
}  // namespace varno
