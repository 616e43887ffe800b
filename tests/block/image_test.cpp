#include "tests/block/block_window.h"

namespace varno {
namespace {

TEST(Image, CheckValues) {
    EXPECT_EQ(BufferCrc("313233343536373839"), "4B37");
    EXPECT_EQ(BufferCrc("abcdef"), BufferCrc("ABCDEF"));
    EXPECT_EQ(NewTicketBuffer(), ":8000" + std::string(7996, '0') + "00D492");
    const std::string sealed = SealTicketBuffer("08D4004100421000800000D4000000000000");
    EXPECT_EQ(sealed.substr(8001), "0027F4");
    EXPECT_EQ(SealTicketBuffer("123456789ABC").substr(0, 8001),
              ":123456789ABC" + std::string(7988, '0'));
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
        {"one ticket on a key",
         SealTicketBuffer("08D4004100421000" + Tail({212, 0, 0, 0})),
         {"212 P"},
         {212, 0, 0, 0}},
        {"first of P, S, I, O",
         SealTicketBuffer("08D4100008C91000" + Tail({0, 201, 212, 212})),
         {"201 S", "212 I"},
         {0, 201, 212, 212}},
        {"stops at the end marker",
         SealTicketBuffer("08C91000" + Tail({}) + "09F41000"),
         {"201"},
         {}},
        {"no end marker", ":08C9100008CA1000", {"201", "202"}, {1, 2, 3, 4}},
        {"no end marker, key of before", ":08021000", {"2 S"}, {1, 2, 3, 4}},
        {"lower case", ":08fa1000800000fa", {"250 P"}, {250, 0, 0, 0}},
        {"only 11 bits of a key word", ":08D410008000F8D4", {"212 P"}, {212, 0, 0, 0}},
        {"no colon", "?08D41000", {"212"}, {1, 2, 3, 4}},
        {"not a digit counts as 0", ":x8Dg10008000", {"208"}, {}},
        {"word boundaries only", ":0008D4100080001", {}, {1, 2, 3, 4}},
        {"cut header", ":08", {"0"}, {1, 2, 3, 4}},
        {"cut end marker", ":08D48", {"212"}, {}},
        {"bytes above 127",
         ":08D4\xFF\x80\xE9\xFF"
         "8000",
         {"212"},
         {}},
    };
    for (const auto& c : table) {
        BlockWindow w;
        w.block.KeyTicket = {1, 2, 3, 4};
        w.Message.SetCaption("Receiving");
        w.Load(c.image);
        EXPECT_EQ(w.TicketList.Rows(), c.rows) << c.what;
        EXPECT_EQ(w.block.KeyTicket, c.keys) << c.what;
        EXPECT_EQ(w.Message.Caption(), "") << c.what;
        EXPECT_EQ(w.block.TicketBuffer, c.image) << c.what;
    }
}

TEST(Image, EndMarkerGivesSizes) {
    TicketBlock block;
    block.TicketBuffer = SealTicketBuffer("08D4004100421000" + Tail({}));
    EXPECT_TRUE(block.LocateEndMarker());
    EXPECT_EQ(block.BufferUsed, 16);
    EXPECT_EQ(block.BufferFree, 7964);
    block.TicketBuffer = ":08D4";
    EXPECT_FALSE(block.LocateEndMarker());
    EXPECT_EQ(block.BufferUsed, 16);
    EXPECT_EQ(block.BufferFree, 7964);
    block.TicketBuffer = NewTicketBuffer();
    EXPECT_TRUE(block.LocateEndMarker());
    EXPECT_EQ(block.BufferUsed, 0);
    EXPECT_EQ(block.BufferFree, 7980);
}

// A cut image reads like one that was filled up with 0, and every command leaves it well formed.
TEST(Image, CutAtEveryLength) {
    const std::string whole = SealTicketBuffer(Record(212, u"AB") + Record(300, u"C") +
                                               Record(999, u"") + Tail({300, 0, 212, 999}));
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        TicketBlock cut, filled;
        cut.TicketBuffer = whole.substr(0, length);
        filled.TicketBuffer = cut.TicketBuffer + (length > 1 ? "000" : "");
        const std::vector<int> tickets = cut.ReadTickets();
        ASSERT_EQ(tickets, filled.ReadTickets());
        ASSERT_EQ(cut.KeyTicket, filled.KeyTicket);
        if (length > 200 && length < 7900) {
            continue;  // a cut in the fill: the commands see no difference
        }
        TicketBlock bound = cut;
        bound.KeyTicket = {0, 212, 0, 0};
        bound.WriteKeyWords();
        ASSERT_EQ(bound.ReadTickets(), tickets);
        ASSERT_EQ(bound.KeyTicket, (Keys{0, 212, 0, 0}));
        ASSERT_EQ(bound.TicketBuffer.size(), FindEndMarker(cut.TicketBuffer) ? 8007U : length);
        if (!tickets.empty()) {
            cut.RemoveTicketRecord(tickets.front());
            ASSERT_EQ(cut.ReadTickets(), std::vector<int>(tickets.begin() + 1, tickets.end()));
            ASSERT_EQ(cut.TicketBuffer.size(), 8007U);
        }
    }
}

// Text of a wrong file: megabytes, tickets without end, an end marker far beyond the memory.
TEST(Image, FarTooLongImageLosesNothing) {
    std::string memory;
    for (int i = 0; i < 300000; ++i) {
        memory += i % 2 == 0 ? "08D4" : "1000";
    }
    BlockWindow w;
    w.Load(":" + memory + Record(300, u"A") + Tail({300, 0, 0, 0}));
    EXPECT_EQ(w.TicketList.ListCount(), 150001);
    w.TicketList.ClickRow(150000);
    w.DeleteButton.Click();
    EXPECT_EQ(w.block.TicketBuffer.substr(0, 1 + memory.size() + 20), ":" + memory + Tail({}));
    w.ExpectTooBig();
    w.Put(300, u"B");
    EXPECT_EQ(w.block.TicketBuffer.substr(0, 1 + memory.size() + 20), ":" + memory + Tail({}));
}

}  // namespace
}  // namespace varno
