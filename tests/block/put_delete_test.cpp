#include <gtest/gtest.h>

#include "tests/block/block_samples.h"

namespace varno {
namespace {

TEST(Put, PutsReplacesOrRefuses) {
    const std::string a = Record(300, "A"), b = Record(212, "B"), c = Record(212, "C");
    // 1995 words hold all records; a record needs two beside its body.
    const std::string longest = Record(212, std::string(1993, 'A'));
    struct {
        const char* what;
        std::string before;
        std::string record;
        std::string after;  // the same: it is too big
    } const table[] = {
        {"first record", a + Tail({300}), c, c + a + Tail({300})},
        {"replaced", a + b + Tail({212, 300, 0, 212}), c, c + a + Tail({0, 300})},
        {"fits", Tail({}), longest, longest + Tail({})},
        {"does not fit", Tail({}), Record(212, std::string(1994, 'A')), Tail({})},
        {"the old one still counts", longest + Tail({}), b, longest + Tail({})},
        {"no end marker: full", a, c, a},
    };
    for (const auto& t : table) {
        SCOPED_TRACE(t.what);
        TicketBlock block = BlockOf(SealTicketBuffer(t.before));
        const TicketBlock after = BlockOf(SealTicketBuffer(t.after));
        block.BufferFree = 7980;  // of a block before
        const bool fits = t.before != t.after;
        EXPECT_EQ(block.PutRecord(212, t.record), fits ? PutResult::Put : PutResult::TooBig);
        EXPECT_EQ(block.TicketBuffer, after.TicketBuffer);
        EXPECT_EQ(block.KeyTicket, after.KeyTicket);
        EXPECT_EQ(block.BlockChanged, fits);
    }
}

TEST(Put, IntoWhatIsNoImage) {
    const std::string whole = SealTicketBuffer(Record(300, "A") + Tail({}));
    for (const std::string& image : {std::string(), whole.substr(0, 8006), "?" + whole.substr(1)}) {
        TicketBlock block = BlockOf(image);
        EXPECT_EQ(block.PutRecord(212, Record(212, "")), PutResult::Put);
        EXPECT_EQ(block.TicketBuffer, SealTicketBuffer(Record(212, "") + Tail({})));
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

}  // namespace
}  // namespace varno
