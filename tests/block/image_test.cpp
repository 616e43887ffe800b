#include "tests/block/block_window.h"

namespace varno {
namespace {

TEST(Image, CheckValues) {
    EXPECT_EQ(BufferCrc("313233343536373839"), "4B37");
    EXPECT_EQ(BufferCrc("abcdef"), BufferCrc("ABCDEF"));
    EXPECT_EQ(NewTicketBuffer(), ":8000" + std::string(7996, '0') + "00D492");
    EXPECT_EQ(SealTicketBuffer("08D4004100421000800000D4000000000000").substr(8001), "0027F4");
    EXPECT_EQ(WordsOf(":08D44"), (std::vector<Word>{0x08D4, 0x4000}));  // the last one cut short
}

TEST(Image, ReadsAnythingAsSomethingDefined) {
    struct {
        const char* what;
        std::string image;
        Rows rows;
        Keys keys;
    } const table[] = {
        {"nothing", "", {}, {1, 2, 3, 4}},
        {"no memory", ":", {}, {1, 2, 3, 4}},
        {"empty image", NewTicketBuffer(), {}, {}},
        {"first key",
         ":08D408C9" + Tail({0, 201, 212, 212}),
         {"201 S", "212 I"},
         {0, 201, 212, 212}},
        {"stops at the end marker", ":08C91000" + Tail({}) + "09F4", {"201"}, {}},
        {"no end marker, key of before", ":0802100008CA", {"2 S", "202"}, {1, 2, 3, 4}},
        {"lower case", ":08fa1000800000fa", {"250 P"}, {250, 0, 0, 0}},
        {"only 11 bits of a key word", ":08D410008000F8D4", {"212 P"}, {212, 0, 0, 0}},
        {"no colon", "?08D41000", {"212"}, {1, 2, 3, 4}},
        {"no digits", ":x8Dg\xFF\x80\xE9\xFFg000", {"208"}, {1, 2, 3, 4}},
        {"word boundaries only", ":0008D4100080001", {}, {1, 2, 3, 4}},
        {"cut header", ":08", {"0"}, {1, 2, 3, 4}},
        {"cut end marker", ":08D48", {"212"}, {}},
    };
    for (const auto& c : table) {
        SCOPED_TRACE(c.what);
        BlockWindow w;
        w.block.KeyTicket = {1, 2, 3, 4};
        w.Message.SetCaption("Receiving");
        w.Load(c.image);
        EXPECT_EQ(w.TicketList.Rows(), c.rows);
        EXPECT_EQ(w.block.KeyTicket, c.keys);
        EXPECT_EQ(w.Message.Caption(), "");
        EXPECT_EQ(w.block.TicketBuffer, c.image);
    }
}

// A cut image reads like one that was filled up with 0, and every command leaves it well formed.
TEST(Image, CutAtEveryLength) {
    const std::string whole = SealTicketBuffer(Record(212, "AB") + Record(300, "C") +
                                               Record(999, "") + Tail({300, 0, 212, 999}));
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        TicketBlock cut, filled;
        cut.TicketBuffer = whole.substr(0, length);
        filled.TicketBuffer = cut.TicketBuffer + (length > 1 ? "000" : "");
        const std::vector<int> tickets = cut.Tickets();
        ASSERT_EQ(tickets, filled.Tickets());
        cut.LoadKeys();
        filled.LoadKeys();
        ASSERT_EQ(cut.KeyTicket, filled.KeyTicket);
        if (length > 200 && length < 7900) continue;  // the commands see no difference in the fill
        TicketBlock bound = cut;
        bound.SetKeys({0, 212, 0, 0});
        bound.LoadKeys();
        ASSERT_EQ(bound.Tickets(), tickets);
        ASSERT_EQ(bound.KeyTicket, (Keys{0, 212, 0, 0}));
        ASSERT_EQ(bound.TicketBuffer.size(), FindEndMarker(cut.TicketBuffer) ? 8007U : length);
        if (tickets.empty()) continue;
        cut.RemoveTicketRecord(tickets.front());
        ASSERT_EQ(cut.Tickets(), std::vector<int>(tickets.begin() + 1, tickets.end()));
        ASSERT_EQ(cut.TicketBuffer.size(), 8007U);
    }
}

// Text of a wrong file: megabytes, tickets without end, an end marker far beyond the memory.
TEST(Image, FarTooLongImageLosesNothing) {
    std::string memory;
    for (int i = 0; i < 150000; ++i) memory += "08D41000";
    BlockWindow w;
    w.Load(":" + memory + Record(300, "A") + Tail({300, 0, 0, 0}));
    w.TicketList.ClickRow(150000);
    w.del.DeleteButton_Click();
    w.TicketNumber.SetText("300");
    w.ExpectTooBig();
    w.put.PutButton_Click();
    EXPECT_EQ(w.block.TicketBuffer, SealTicketBuffer(memory + Tail({})));
}

}  // namespace
}  // namespace varno
