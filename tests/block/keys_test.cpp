#include <gtest/gtest.h>

#include "tests/block/block_samples.h"

namespace varno {
namespace {

TEST(Keys, FollowTheRows) {
    using Rows = std::vector<std::string>;
    struct {
        Rows before;
        std::size_t selected;
        int key;
        bool bind;
        Rows after;
        KeyTickets keys;
    } const table[] = {
        {{"212", "300  P"}, 0, 0, true, {"212  P", "300"}, {212, 0, 0, 0}},
        {{"212  P", "300"}, 0, 1, true, {"212  S", "300"}, {0, 212, 0, 0}},
        {{"212  P", "300"}, 0, 0, false, {"212", "300"}, {}},
        {{"212  O", "300 P"}, 0, 0, false, {"212", "300 P"}, {300, 0, 0, 0}},
        {{"212", "300 P"}, 0, 3, true, {"212  O", "300 P"}, {300, 0, 0, 212}},
        {{"212", "300"}, 1, 2, true, {"212", "300  I"}, {0, 0, 300, 0}},
        {{"212 S", "300"}, 0, 1, true, {"212  S", "300"}, {0, 212, 0, 0}},
        {{"212 S", "300 S"}, 0, 0, false, {"212", "300 S"}, {0, 300, 0, 0}},
    };
    for (const auto& t : table) {
        Rows rows = t.before;
        AssignKey(rows, t.selected, t.key, t.bind);
        EXPECT_EQ(rows, t.after);
        EXPECT_EQ(KeysOf(rows), t.keys) << t.before[0] << ", " << t.before[1];
    }
}

TEST(Keys, StandInTheImageUnlessItHasNoEndMarker) {
    const std::string records = Record(212, "A") + Record(300, "B");
    for (const std::string& tail : {Tail({212, 0, 0, 212}), std::string()}) {
        TicketBlock block = BlockOf(SealTicketBuffer(records + tail));
        block.SetKeys({0, 300, 0, 212});
        EXPECT_EQ(block.KeyTicket, (KeyTickets{0, 300, 0, 212}));
        EXPECT_EQ(block.TicketBuffer,
                  SealTicketBuffer(records + (tail.empty() ? tail : Tail({0, 300, 0, 212}))));
        EXPECT_TRUE(block.BlockChanged);
    }
}

}  // namespace
}  // namespace varno
