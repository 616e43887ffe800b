#include "tests/block/block_window.h"

namespace varno {
namespace {

// How a key is assigned: a letter or blank typed in the list, or the digit of a button, used by
// mouse or keyboard; "-" in front: by the right mouse button, which does not toggle it.
void Assign(BlockWindow& w, const std::string& how) {
    const char key = how.back();
    if (key < '0' || key > '3') return w.keys.TicketList_KeyPress(static_cast<unsigned char>(key));
    w.KeyAssignment[static_cast<std::size_t>(key - '0')].Use(
        [&] { w.keys.KeyAssignment_MouseUp(key - '0'); }, how.front() != '-');
}

TEST(Keys, RowsKeyTicketAndImageInStep) {
    struct {
        Rows before;
        int selected;
        const char* how;
        Rows after;
        Keys keys;
        const char* pressed;  // the letters of the buttons left pressed
    } const table[] = {
        {{"212", "300  P"}, 0, "0", {"212  P", "300"}, {212, 0, 0, 0}, "P"},
        {{"212  P", "300"}, 0, "1", {"212  S", "300"}, {0, 212, 0, 0}, "S"},
        {{"212  P", "300"}, 0, "0", {"212", "300"}, {}, ""},
        {{"212  O", "300 P"}, 0, " ", {"212", "300 P"}, {300, 0, 0, 0}, ""},
        {{"212", "300 P"}, 0, "o", {"212  O", "300 P"}, {300, 0, 0, 212}, "O"},
        {{"212", "300 P"}, 0, "P", {"212  P", "300"}, {212, 0, 0, 0}, "P"},
        {{"212", "300"}, 1, "s", {"212", "300  S"}, {0, 300, 0, 0}, "S"},
        {{"212", "300"}, 1, "I", {"212", "300  I"}, {0, 0, 300, 0}, "I"},
        {{"212 S", "300"}, 0, "-0", {"212", "300"}, {}, ""},
        {{"212 S", "300"}, 0, "-1", {"212  S", "300"}, {0, 212, 0, 0}, "S"},
    };
    for (const auto& c : table) {
        SCOPED_TRACE(c.before[0] + ", " + c.before[1] + ": " + c.how);
        BlockWindow w;
        const std::string records = Record(212, "A") + Record(300, "B");
        w.block.TicketBuffer = SealTicketBuffer(records + Tail({212, 0, 0, 212}));
        for (const std::string& row : c.before) w.TicketList.AddItem(row);
        w.block.KeyTicket = {300, 300, 212, 212};
        w.TicketList.ClickRow(c.selected);
        Assign(w, c.how);
        EXPECT_EQ(w.TicketList.Rows(), c.after);
        EXPECT_EQ(w.block.KeyTicket, c.keys);
        w.ExpectMemory(records + Tail(c.keys));
        EXPECT_TRUE(w.block.BlockChanged);
        EXPECT_TRUE(w.TicketList.HasFocus());
        EXPECT_EQ(w.TicketList.ListIndex(), c.selected);
        EXPECT_EQ(w.PressedKeys(), c.pressed);
    }
}

TEST(Keys, NothingWithoutASelectedRowOrForAnotherCharacter) {
    const std::string image = SealTicketBuffer(Record(212, "A") + Tail({0, 0, 0, 212}));
    for (const char* how : {"p", " ", "0", "-1", "x", "9"}) {
        SCOPED_TRACE(how);
        const bool selected = *how == 'x' || *how == '9';
        BlockWindow w;
        w.Load(image);
        if (selected) w.TicketList.ClickRow(0);
        Assign(w, how);
        EXPECT_EQ(w.TicketList.Rows(), Rows{"212 O"});
        EXPECT_EQ(w.block.TicketBuffer, image);
        EXPECT_FALSE(w.block.BlockChanged);
        EXPECT_EQ(w.PressedKeys(), selected ? "O" : "");
    }
}

TEST(Keys, WithoutAnEndMarkerOnlyTheImageStays) {
    BlockWindow w;
    w.Load(":08D41000");
    w.TicketList.ClickRow(0);
    Assign(w, "p");
    EXPECT_EQ(w.TicketList.Rows(), Rows{"212  P"});
    EXPECT_EQ(w.block.KeyTicket, (Keys{212, 0, 0, 0}));
    EXPECT_EQ(w.block.TicketBuffer, ":08D41000");
    EXPECT_TRUE(w.block.BlockChanged);
}

}  // namespace
}  // namespace varno
