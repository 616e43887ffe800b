// The part of the main window that works on the ticket block, wired as the main window wires it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "block/key_assignment.h"
#include "block/parse.h"
#include "block/put.h"
#include "block/ticket_list_view.h"
#include "codec/encoder.h"
#include "tests/fakes/fake_controls.h"
#include "tests/fakes/fake_dialogs.h"
#include "tests/fakes/fake_rich_text.h"

namespace varno {

// A ticket without codes, one word a character.
inline MarkedText Plain(const std::u16string& characters) {
    MarkedText ticket;
    ticket.Append(characters, {});
    return ticket;
}

inline std::string Record(int number, const std::u16string& characters) {
    return EncodeTicket(Plain(characters), number);
}

inline std::string Tail(const std::array<int, 4>& keys) {
    std::string digits = WordHex(EndMarker);
    for (const int key : keys) {
        digits += WordHex(static_cast<Word>(key));
    }
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
    std::vector<std::string> log;  // focus moves and announcements, in order

    BlockControls controls{
        TicketNumber, PutButton,
        EditButton,   {&KeyAssignment[0], &KeyAssignment[1], &KeyAssignment[2], &KeyAssignment[3]},
        DeleteButton, TicketList,
        RichText,     TicketName};
    PutCommand put{controls, dialogs, block};
    DeleteCommand del{controls, block};
    KeyAssignmentCommand keys{controls, block};
    TicketListView view{controls, dialogs, block, TicketChanged, {"", ""}, del};

    BlockWindow() {
        TicketNumber.maxLength = 3;
        TicketNumber.OnKeyPress = PutCommand::TicketNumber_KeyPress;
        TicketNumber.OnChange = [this] { put.TicketNumber_Change(); };
        TicketNumber.OnGotFocus = Log("focus TicketNumber");
        PutButton.OnClick = [this] { put.PutButton_Click(); };
        put.OnNumberChanged = Log("number changed");
        put.OnPutEnded = Log("put ended");
        DeleteButton.OnClick = [this] { del.DeleteButton_Click(); };
        del.OnDeleted = Log("deleted");
        for (std::size_t key = 0; key < KeyAssignment.size(); ++key) {
            const auto assign = [this, key] { keys.KeyAssignment_MouseUp(static_cast<int>(key)); };
            KeyAssignment[key].OnMouseUp = assign;
            KeyAssignment[key].OnClick = assign;
        }
        TicketList.OnClick = [this] { view.TicketList_Click(); };
        TicketList.OnDblClick = [this] { view.TicketList_DblClick(); };
        TicketList.OnKeyPress = [this](char32_t c) { keys.TicketList_KeyPress(c); };
        TicketList.OnKeyUp = [this](int key) { view.TicketList_KeyUp(key); };
        TicketList.OnGotFocus = [this] {
            log.emplace_back("focus TicketList");
            view.TicketList_GotFocus();
        };
        view.OnListSelected = Log("list selected");
        EditButton.OnClick = [this] { view.EditButton_Click(); };
        RichText.OnGotFocus = Log("focus RichText");
        RichText.OnChange = [this] { TicketChanged = true; };
    }

    std::function<void()> Log(std::string entry) {
        return [this, entry = std::move(entry)] { log.push_back(entry); };
    }

    // Loads an image as the commands that open a block do.
    void Load(const std::string& image) {
        block.TicketBuffer = image;
        TicketList.Clear();
        ParseTicketBuffer(block, TicketList, Message);
        block.BlockChanged = false;
    }

    void Put(int number, const std::u16string& characters) {
        RichText.SetContent(Plain(characters));
        TicketNumber.SetText(std::to_string(number));
        PutButton.Click();
    }

    void ExpectOverwriting(int number, Answer answer) {
        dialogs.Expect({"Overwrite Ticket #" + std::to_string(number) + "?",
                        "Existing Ticket Number", Buttons::YesNo, Icon::Question},
                       answer);
    }
    void ExpectTooBig() {
        dialogs.Expect({"too big", "Varno Ticket Formatter", Buttons::Ok, Icon::None}, Answer::Ok);
    }

    // The memory without its fill; fails unless the image is well formed and sealed.
    std::string SealedMemory() const {
        EXPECT_EQ(block.TicketBuffer.size(), 8007U);
        const std::string memory = block.TicketBuffer.substr(1, 8000);
        EXPECT_EQ(block.TicketBuffer, ":" + memory + "00" + BufferCrc(memory));
        const std::size_t used = FindEndMarker(block.TicketBuffer) - FirstWord + EndMarkerDigits;
        EXPECT_EQ(memory.find_first_not_of('0', used), std::string::npos);
        return memory.substr(0, used);
    }
};

using Rows = std::vector<std::string>;
using Keys = std::array<int, 4>;

}  // namespace varno
