// The part of the main window that works on the ticket block.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "block/key_assignment.h"
#include "block/parse.h"
#include "block/put.h"
#include "block/ticket_list_view.h"
#include "codec/encoder.h"
#include "tests/codec/picture.h"
#include "tests/fakes/fake_controls.h"
#include "tests/fakes/fake_dialogs.h"
#include "tests/fakes/fake_rich_text.h"

namespace varno {

using Rows = std::vector<std::string>;
using Events = std::vector<CommandEvent>;
using Keys = std::array<int, KeyCount>;

inline std::string Record(int number, const std::string& picture) {
    return EncodeTicket(FromPicture(picture), number);
}

// The end marker and its key words.
inline std::string Tail(const Keys& keys) {
    std::string digits = WordHex(EndMarker);
    for (const int key : keys) digits += WordHex(static_cast<Word>(key));
    return digits;
}

struct BlockWindow {
    FakeTextBox TicketNumber;
    FakeButton PutButton, EditButton, DeleteButton;
    std::array<FakeToggleButton, KeyCount> KeyAssignment;
    FakeListBox TicketList;
    FakeRichTextBox RichText;
    FakeLabel TicketName, Message;
    FakeDialogs dialogs;
    TicketBlock block;
    bool TicketChanged = false;
    std::vector<CommandEvent> log;  // announcements, in order
    Announce announce = [this](CommandEvent event) { log.push_back(event); };
    std::function<void()> saveTicket;

    BlockControls controls{
        TicketNumber, PutButton,
        EditButton,   {&KeyAssignment[0], &KeyAssignment[1], &KeyAssignment[2], &KeyAssignment[3]},
        DeleteButton, TicketList,
        RichText,     TicketName};
    PutCommand put{controls, dialogs, block, announce};
    DeleteCommand del{controls, block, announce};
    KeyAssignmentCommand keys{controls, block};
    TicketListView view{
        controls, dialogs, block, TicketChanged, {"", ""}, del, [this] { saveTicket(); }, announce};

    BlockWindow() {
        RichText.OnChange = [this] { TicketChanged = true; };
        TicketList.OnClick = [this] { view.TicketList_Click(); };
    }

    // Loads an image as the commands that open a block do.
    void Load(const std::string& image) {
        block.TicketBuffer = image;
        TicketList.Clear();
        ParseTicketBuffer(block, TicketList, Message);
    }
    void ExpectTooBig() {
        dialogs.Expect({"too big", "Varno Ticket Formatter", Buttons::Ok, Icon::None}, Answer::Ok);
    }
    // The image holds just this in front of its fill, and is sealed.
    void ExpectMemory(std::string memory) const {
        memory.resize(8000, '0');
        EXPECT_EQ(block.TicketBuffer, ":" + memory + "00" + BufferCrc(memory));
    }
    std::string PressedKeys() const {
        std::string letters;
        for (std::size_t key = 0; key < KeyCount; ++key) {
            if (KeyAssignment[key].Value()) letters += KeyNames[key].front();
        }
        return letters;
    }
};

}  // namespace varno
