#include <cctype>

#include "tests/block/block_window.h"

namespace varno {
namespace {

// How a key is assigned: a letter or blank typed in the list, or a digit for a button used with
// the left mouse button ("0"), the right one ("r0") or the keyboard ("k0"), or used by the left
// one while the list keeps the focus ("f0").
void Assign(BlockWindow& w, const std::string& how) {
    if (!std::isdigit(static_cast<unsigned char>(how.back()))) {
        w.TicketList.SetFocus();
        w.TicketList.OnKeyPress(static_cast<unsigned char>(how.front()));
        return;
    }
    FakeToggleButton& button = w.KeyAssignment[static_cast<std::size_t>(how.back() - '0')];
    switch (how.front()) {
        case 'r':
            return button.RightClick();
        case 'k':
            return button.PressByKey();
        case 'f':
            button.SetValue(!button.Value());
            return button.OnMouseUp();
        default:
            return button.LeftClick();
    }
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
        {{"212", "300 P"}, 0, "k0", {"212  P", "300"}, {212, 0, 0, 0}, "P"},
        {{"212  P", "300"}, 0, "1", {"212  S", "300"}, {0, 212, 0, 0}, "S"},
        {{"212  P", "300"}, 0, "f1", {"212  S", "300"}, {0, 212, 0, 0}, "S"},
        {{"212  P", "300"}, 0, "0", {"212", "300"}, {}, ""},
        {{"212 P", "300"}, 0, "k0", {"212", "300"}, {}, ""},
        {{"212  O", "300 P"}, 0, " ", {"212", "300 P"}, {300, 0, 0, 0}, ""},
        {{"212", "300 P"}, 0, "o", {"212  O", "300 P"}, {300, 0, 0, 212}, "O"},
        {{"212", "300 P"}, 0, "P", {"212  P", "300"}, {212, 0, 0, 0}, "P"},
        {{"212", "300"}, 1, "s", {"212", "300  S"}, {0, 300, 0, 0}, "S"},
        {{"212", "300"}, 1, "I", {"212", "300  I"}, {0, 0, 300, 0}, "I"},
        {{"212 S", "300"}, 0, "r0", {"212", "300"}, {}, ""},  // not toggled: unbinds
        {{"212 S", "300"}, 0, "r1", {"212  S", "300"}, {0, 212, 0, 0}, "S"},
    };
    for (const auto& c : table) {
        SCOPED_TRACE(c.before[0] + ", " + c.before[1] + ": " + c.how);
        BlockWindow w;
        const std::string records = Record(212, u"A") + Record(300, u"B");
        w.block.TicketBuffer = SealTicketBuffer(records + Tail({212, 0, 0, 212}));
        for (const std::string& row : c.before) {
            w.TicketList.AddItem(row);
        }
        w.block.KeyTicket = {300, 300, 212, 212};
        w.TicketList.ClickRow(c.selected);
        Assign(w, c.how);
        EXPECT_EQ(w.TicketList.Rows(), c.after);
        EXPECT_EQ(w.block.KeyTicket, c.keys);
        EXPECT_EQ(w.SealedMemory(), records + Tail(c.keys));
        EXPECT_TRUE(w.block.BlockChanged);
        EXPECT_TRUE(w.TicketList.HasFocus());
        EXPECT_EQ(w.TicketList.ListIndex(), c.selected);
        std::string pressed;
        for (int key = 0; key < KeyCount; ++key) {
            pressed += w.KeyAssignment[static_cast<std::size_t>(key)].Value()
                           ? std::string(1, KeyLetter(key))
                           : "";
        }
        EXPECT_EQ(pressed, c.pressed);
    }
}

TEST(Keys, NothingWithoutASelectedRowOrForAnotherCharacter) {
    const std::string image = SealTicketBuffer(Record(212, u"A") + Tail({0, 0, 0, 212}));
    for (const char* how : {"p", " ", "0", "r1", "k2"}) {
        BlockWindow w;
        w.Load(image);
        Assign(w, how);
        EXPECT_EQ(w.TicketList.Rows(), Rows{"212 O"}) << how;
        EXPECT_EQ(w.block.TicketBuffer, image) << how;
        EXPECT_FALSE(w.block.BlockChanged) << how;
        for (const FakeToggleButton& button : w.KeyAssignment) {
            EXPECT_FALSE(button.Value()) << how;
        }
    }
    BlockWindow w;
    w.Load(image);
    w.TicketList.ClickRow(0);
    w.TicketList.OnKeyPress(U'x');
    w.TicketList.OnKeyPress(U'0');
    EXPECT_EQ(w.TicketList.Rows(), Rows{"212 O"});
    EXPECT_TRUE(w.KeyAssignment[3].Value());
    EXPECT_FALSE(w.block.BlockChanged);
}

TEST(Keys, WithoutAnEndMarkerOnlyTheImageStays) {
    BlockWindow w;
    w.Load(":08D41000");
    w.TicketList.ClickRow(0);
    w.TicketList.OnKeyPress(U'p');
    EXPECT_EQ(w.TicketList.Rows(), Rows{"212  P"});
    EXPECT_EQ(w.block.KeyTicket, (Keys{212, 0, 0, 0}));
    EXPECT_EQ(w.block.TicketBuffer, ":08D41000");
    EXPECT_TRUE(w.block.BlockChanged);
}

}  // namespace
}  // namespace varno
