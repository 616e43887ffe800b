#include <gtest/gtest.h>

#include "tests/block/block_samples.h"

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
        std::vector<int> tickets;
        KeyTickets keys;
    } const table[] = {
        {"nothing", "", {}, {1, 2, 3, 4}},
        {"no memory", ":", {}, {1, 2, 3, 4}},
        {"empty image", NewTicketBuffer(), {}, {}},
        {"in their order", ":08D408C9" + Tail({0, 201, 212}), {212, 201}, {0, 201, 212, 0}},
        {"stops at the end marker", ":08C91000" + Tail({}) + "09F4", {201}, {}},
        {"no end marker, keys of before", ":0802100008CA", {2, 202}, {1, 2, 3, 4}},
        {"lower case", ":08fa1000800000fa", {250}, {250, 0, 0, 0}},
        {"only 11 bits of a key word", ":08D410008000F8D4", {212}, {212, 0, 0, 0}},
        {"no colon", "?08D41000", {212}, {1, 2, 3, 4}},
        {"no digits", ":x8Dg\xFF\x80\xE9\xFFg000", {208}, {1, 2, 3, 4}},
        {"word boundaries only", ":0008D4100080001", {}, {1, 2, 3, 4}},
        {"cut header", ":08", {0}, {1, 2, 3, 4}},
        {"cut end marker", ":08D48", {212}, {}},
    };
    for (const auto& c : table) {
        SCOPED_TRACE(c.what);
        TicketBlock block{.TicketBuffer = c.image, .KeyTicket = {1, 2, 3, 4}};
        block.LoadKeys();
        EXPECT_EQ(block.Tickets(), c.tickets);
        EXPECT_EQ(block.KeyTicket, c.keys);
        EXPECT_EQ(block.TicketBuffer, c.image);
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
        if (length > 200 && length < 7900) {
            continue;  // the commands see no difference in the fill
        }
        TicketBlock bound = cut;
        bound.SetKeys({0, 212, 0, 0});
        bound.LoadKeys();
        ASSERT_EQ(bound.Tickets(), tickets);
        ASSERT_EQ(bound.KeyTicket, (KeyTickets{0, 212, 0, 0}));
        ASSERT_EQ(bound.TicketBuffer.size(), FindEndMarker(cut.TicketBuffer) ? 8007U : length);
        if (tickets.empty()) {
            continue;
        }
        cut.RemoveTicketRecord(tickets.front());
        ASSERT_EQ(cut.Tickets(), std::vector<int>(tickets.begin() + 1, tickets.end()));
        ASSERT_EQ(cut.TicketBuffer.size(), 8007U);
    }
}

// Text of a wrong file: megabytes, tickets without end, an end marker far beyond the memory.
TEST(Image, FarTooLongImageLosesNothing) {
    std::string memory;
    for (int i = 0; i < 150000; ++i) {
        memory += "08D41000";
    }
    TicketBlock block = BlockOf(":" + memory + Record(300, "A") + Tail({300, 0, 0, 0}));
    block.RemoveTicketRecord(300);
    EXPECT_EQ(block.PutRecord(300, Record(300, "")), PutResult::TooBig);
    EXPECT_EQ(block.TicketBuffer, SealTicketBuffer(memory + Tail({})));
}

}  // namespace
}  // namespace varno
