#include "tests/block/block_window.h"

namespace varno {
namespace {

TEST(NumberBox, TakesDigitsAndTellsOfThem) {
    std::u32string kept = U"\b-0189 a/:\u0662";
    std::erase_if(kept, [](char32_t c) { return !PutCommand::TicketNumber_KeyPress(c); });
    EXPECT_EQ(kept, U"\b0189");
    BlockWindow w;
    w.put.TicketNumber_Change();
    EXPECT_EQ(w.log, Events{CommandEvent::NumberChanged});
}

TEST(Put, OnlyNumbersFrom200To999) {
    for (const char* text : {"200", "999", "", "0", "199", "1000", "2", "9999999999999999999"}) {
        SCOPED_TRACE(text);
        const bool good = std::string(text) == "200" || std::string(text) == "999";
        BlockWindow w;
        if (!good) {
            w.dialogs.Expect({"Enter a valid ticket number (200..999).", "Bad Ticket Number",
                              Buttons::Ok, Icon::Exclamation},
                             Answer::Ok);
        }
        w.TicketNumber.SetText(text);
        w.put.PutButton_Click();
        EXPECT_EQ(w.TicketNumber.HasFocus(), !good);
        EXPECT_EQ(w.TicketList.Rows(), good ? Rows{text} : Rows{});
        EXPECT_EQ(w.block.BlockChanged, good);
        EXPECT_EQ(w.log, Events{CommandEvent::PutEnded});
    }
}

TEST(Put, PutsReplacesOrRefuses) {
    const std::string a = Record(300, "A"), b = Record(212, "B"), c = Record(212, "C");
    // 1995 words hold all records; a record needs two beside its body.
    const std::string longest(1993, 'A'), full = Record(212, longest) + Tail({});
    struct {
        const char* what;
        std::string before;
        std::string ticket;
        const char* asked;  // "y", "n": overwrite it? "!": too big
        std::string after;
    } const table[] = {
        {"first record", a + Tail({300}), "C", "", c + a + Tail({300})},
        {"replaced", a + b + Tail({212, 300, 0, 212}), "C", "y", c + a + Tail({0, 300})},
        {"kept", a + b + Tail({212, 300, 0, 212}), "C", "n", a + b + Tail({212, 300, 0, 212})},
        {"fits", Tail({}), longest, "", full},
        {"does not fit", Tail({}), longest + "A", "!", Tail({})},
        {"the old one still counts", full, "", "y!", full},
        {"no end marker: full", a, "C", "!", a},
    };
    for (const auto& t : table) {
        SCOPED_TRACE(t.what);
        BlockWindow w, afterwards;
        w.block.BufferFree = 7980;  // of a block before
        w.Load(SealTicketBuffer(t.before));
        w.RichText.SetContent(FromPicture(t.ticket));
        w.RichText.Select(0, 1);
        w.TicketNumber.SetText("212");
        const std::string asked = t.asked;
        if (asked.find_first_of("yn") == 0) {
            w.dialogs.Expect({"Overwrite Ticket #212?", "Existing Ticket Number", Buttons::YesNo,
                              Icon::Question},
                             asked[0] == 'y' ? Answer::Yes : Answer::No);
        }
        if (asked.ends_with('!')) w.ExpectTooBig();
        w.put.PutButton_Click();
        afterwards.Load(SealTicketBuffer(t.after));
        EXPECT_EQ(w.block.TicketBuffer, afterwards.block.TicketBuffer);
        EXPECT_EQ(w.block.KeyTicket, afterwards.block.KeyTicket);
        EXPECT_EQ(w.TicketList.Rows(), afterwards.TicketList.Rows());
        EXPECT_EQ(w.block.BlockChanged, t.before != t.after);
        EXPECT_EQ(w.RichText.HasFocus(), asked != "n");
        EXPECT_EQ(w.RichText.SelLength(), asked == "n" ? 1 : 0);
        EXPECT_EQ(w.log, asked == "n" ? Events{} : Events{CommandEvent::PutEnded});
    }
}

TEST(Put, IntoWhatIsNoImage) {
    const std::string whole = SealTicketBuffer(Record(300, "A") + Tail({}));
    for (const std::string& image : {std::string(), whole.substr(0, 8006), "?" + whole.substr(1)}) {
        BlockWindow w;
        w.Load(image);
        w.TicketNumber.SetText("212");
        w.put.PutButton_Click();
        w.ExpectMemory(Record(212, "") + Tail({}));
    }
}

TEST(Remove, TakesOutOneRecord) {
    const std::string a = Record(212, "AB"), b = Record(300, "C"), c = Record(400, "");
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
        {"key words compare whole", a + Tail({0xF8D4, 212}), 212, Tail({0xF8D4, 0})},
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
    w.Load(SealTicketBuffer(Record(212, "A") + Record(300, "B") + Tail({300, 0, 212, 212})));
    w.del.DeleteButton_Click();  // no row selected
    EXPECT_FALSE(w.block.BlockChanged);
    w.TicketList.ClickRow(0);
    w.view.TicketList_KeyUp(KeyBackspace);
    EXPECT_EQ(w.TicketList.ListCount(), 2);
    w.view.TicketList_KeyUp(KeyDelete);
    w.ExpectMemory(Record(300, "B") + Tail({300, 0, 0, 0}));
    EXPECT_EQ(w.TicketList.Rows(), Rows{"300 P"});
    EXPECT_TRUE(w.block.BlockChanged);
    EXPECT_EQ(w.PressedKeys(), "");
    EXPECT_TRUE(w.RichText.HasFocus());
    EXPECT_EQ(w.log.back(), CommandEvent::TicketDeleted);
}

}  // namespace
}  // namespace varno
