#include "tests/block/block_window.h"

namespace varno {
namespace {

TEST(NumberBox, TakesDigitsAndTellsWhatPutDoes) {
    BlockWindow w;
    w.TicketNumber.Type("2-1 a22");
    EXPECT_EQ(w.TicketNumber.Text(), "212");
    EXPECT_EQ(w.PutButton.ToolTip(), "Put ticket 212 into ticket block.");
    EXPECT_EQ(w.log,
              (Rows{"focus TicketNumber", "number changed", "number changed", "number changed"}));
    EXPECT_TRUE(PutCommand::TicketNumber_KeyPress(8));
    EXPECT_FALSE(PutCommand::TicketNumber_KeyPress(U'\u0662'));  // a digit, but not of ours
}

TEST(Put, OnlyNumbersFrom200To999) {
    for (const char* text : {"", "0", "199", "1000", "2", "99999999999999999999", "x"}) {
        BlockWindow w;
        w.TicketNumber.SetText(text);
        w.log.clear();
        w.dialogs.Expect({"Enter a valid ticket number (200..999).", "Bad Ticket Number",
                          Buttons::Ok, Icon::Exclamation},
                         Answer::Ok);
        w.PutButton.Click();
        EXPECT_EQ(w.log, (Rows{"focus TicketNumber", "put ended"})) << text;
        EXPECT_EQ(w.block.TicketBuffer, "") << text;
        EXPECT_FALSE(w.block.BlockChanged) << text;
    }
}

TEST(Put, ReplacingUnbindsTheTicket) {
    BlockWindow w;
    w.Load(SealTicketBuffer(Record(300, u"A") + Record(212, u"B") + Tail({212, 300, 0, 212})));
    EXPECT_EQ(w.TicketList.Rows(), (Rows{"212 P", "300 S"}));
    const std::string before = w.block.TicketBuffer;
    w.ExpectOverwriting(212, Answer::No);
    w.Put(212, u"new");
    EXPECT_EQ(w.block.TicketBuffer, before);
    EXPECT_FALSE(w.block.BlockChanged);
    EXPECT_EQ(w.log, Rows{"number changed"});

    w.log.clear();
    w.RichText.Select(1, 2);
    w.ExpectOverwriting(212, Answer::Yes);
    w.PutButton.Click();
    EXPECT_EQ(w.RichText.SelStart(), 1);
    EXPECT_EQ(w.RichText.SelLength(), 0);
    EXPECT_EQ(w.SealedMemory(), Record(212, u"new") + Record(300, u"A") + Tail({0, 300, 0, 0}));
    EXPECT_EQ(w.TicketList.Rows(), (Rows{"212", "300 S"}));
    EXPECT_TRUE(w.block.BlockChanged);
    EXPECT_EQ(w.block.KeyTicket, (Keys{0, 300, 0, 0}));
    EXPECT_EQ(w.log, (Rows{"focus RichText", "put ended"}));
}

// 1995 words hold all records; a record needs two beside its body.
TEST(Put, FillsTheMemoryToTheLastWord) {
    BlockWindow w;
    w.ExpectTooBig();
    w.Put(212, std::u16string(1994, u'A'));
    EXPECT_EQ(w.block.TicketBuffer, NewTicketBuffer());
    EXPECT_EQ(w.TicketList.ListCount(), 0);
    EXPECT_FALSE(w.block.BlockChanged);
    EXPECT_EQ(w.log, (Rows{"number changed", "focus RichText", "put ended"}));

    w.Put(212, std::u16string(1993, u'A'));
    EXPECT_EQ(w.SealedMemory(), Record(212, std::u16string(1993, u'A')) + Tail({}));

    // The old ticket still takes its room when the new one is measured.
    w.ExpectOverwriting(212, Answer::Yes);
    w.ExpectTooBig();
    w.Put(212, u"");
    EXPECT_EQ(w.SealedMemory(), Record(212, std::u16string(1993, u'A')) + Tail({}));
    EXPECT_EQ(w.TicketList.Rows(), Rows{"212"});
}

TEST(Put, IntoWhatIsNoImage) {
    const std::string memory = Record(300, u"A") + Tail({});
    const std::string whole = SealTicketBuffer(memory);
    for (const std::string& image : {std::string(), whole.substr(0, 8006), "?" + whole.substr(1)}) {
        BlockWindow w;
        w.Load(image);
        w.Put(212, u"B");
        EXPECT_EQ(w.SealedMemory(), Record(212, u"B") + Tail({}));
        EXPECT_EQ(w.TicketList.Rows(), image.empty() ? Rows{"212"} : (Rows{"212", "300"}));
    }
    BlockWindow w;  // an image without end marker: its tickets stay
    w.Put(999, u"before");
    w.Load(SealTicketBuffer(Record(300, u"A")));
    w.ExpectTooBig();
    w.Put(212, u"B");
    EXPECT_EQ(w.block.TicketBuffer, SealTicketBuffer(Record(300, u"A")));
}

TEST(Remove, TakesOutOneRecord) {
    const std::string a = Record(212, u"AB"), b = Record(300, u"C"), c = Record(400, u"");
    struct {
        const char* what;
        std::string before;
        int number;
        std::string after;
    } const table[] = {
        {"first", a + b + c + Tail({212, 300, 212, 0}), 212, b + c + Tail({0, 300, 0, 0})},
        {"middle", a + b + c + Tail({}), 300, a + c + Tail({})},
        {"last", a + b + c + Tail({0, 0, 400, 400}), 400, a + b + Tail({})},
        {"no record", a + Tail({300, 212, 0, 0}), 300, a + Tail({300, 212, 0, 0})},
        {"behind the end marker", a + Tail({}) + b, 300, a + Tail({}) + b},
        {"no ticket end", a + "092C0043" + Tail({212, 0, 0, 300}), 300, a + Tail({212, 0, 0, 0})},
        {"key words compare whole",
         a + "8000"
             "F8D4"
             "00D4"
             "08D4"
             "0000",
         212,
         "8000"
         "F8D4"
         "0000"
         "08D4"
         "0000"},
        {"no end marker", a + b, 212, b},
    };
    for (const auto& t : table) {
        TicketBlock block;
        block.TicketBuffer = SealTicketBuffer(t.before);
        block.RemoveTicketRecord(t.number);
        EXPECT_EQ(block.TicketBuffer, SealTicketBuffer(t.after)) << t.what;
    }
}

TEST(Delete, RemovesTheSelectedTicket) {
    BlockWindow w;
    w.Load(SealTicketBuffer(Record(212, u"A") + Record(300, u"B") + Tail({300, 0, 212, 212})));
    w.DeleteButton.Click();  // no row selected
    EXPECT_FALSE(w.block.BlockChanged);
    w.TicketList.ClickRow(0);
    w.log.clear();
    w.TicketList.OnKeyUp(KeyBackspace);
    EXPECT_EQ(w.TicketList.ListCount(), 2);
    w.TicketList.OnKeyUp(KeyDelete);
    EXPECT_EQ(w.SealedMemory(), Record(300, u"B") + Tail({300, 0, 0, 0}));
    EXPECT_EQ(w.TicketList.Rows(), Rows{"300 P"});
    EXPECT_TRUE(w.block.BlockChanged);
    EXPECT_FALSE(w.KeyAssignment[2].Value());
    EXPECT_EQ(w.log, (Rows{"focus RichText", "deleted"}));
}

}  // namespace
}  // namespace varno
