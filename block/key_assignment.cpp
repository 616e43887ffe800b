#include "block/key_assignment.h"

#include <string>

namespace varno {

namespace {

constexpr int NoKey = -1;

// The key whose letter was typed, or NoKey.
int KeyOfLetter(char32_t character) {
    const char32_t upper = character >= U'a' && character <= U'z' ? character - 32 : character;
    for (int key = 0; key < KeyCount; ++key) {
        if (upper == static_cast<char32_t>(KeyLetter(key))) {
            return key;
        }
    }
    return NoKey;
}

}  // namespace

void KeyAssignmentCommand::KeyAssignment_MouseUp(int index) {
    if (controls_.TicketList.ListIndex() < 0) {
        PressOnly(NoKey);
        return;
    }
    const bool bind = controls_.KeyAssignment[static_cast<std::size_t>(index)]->Value();
    PressOnly(bind ? index : NoKey);
    MarkRows(index, bind);
    block_.BlockChanged = true;
    controls_.TicketList.SetFocus();
    RebuildKeyTicket();
    block_.WriteKeyWords();
}

void KeyAssignmentCommand::TicketList_KeyPress(char32_t character) {
    const int key = KeyOfLetter(character);
    if (key == NoKey && character != U' ') {
        return;
    }
    PressOnly(key);
    KeyAssignment_MouseUp(key == NoKey ? 0 : key);
}

// At most one of the buttons is pressed.
void KeyAssignmentCommand::PressOnly(int index) {
    for (int key = 0; key < KeyCount; ++key) {
        controls_.KeyAssignment[static_cast<std::size_t>(key)]->SetValue(key == index);
    }
}

void KeyAssignmentCommand::MarkRows(int index, bool bind) {
    ListBox& list = controls_.TicketList;
    const char letter = KeyLetter(index);
    for (int i = 0; bind && i < list.ListCount(); ++i) {
        const std::string row = list.List(i);
        if (RowKeyLetter(row) == letter) {
            list.SetItem(i, UnboundRow(row));
        }
    }
    const int selected = list.ListIndex();
    const std::string row = list.List(selected);
    list.SetItem(selected, bind ? BoundRow(row, letter) : UnboundRow(row));
}

void KeyAssignmentCommand::RebuildKeyTicket() {
    block_.KeyTicket.fill(0);
    for (int i = 0; i < controls_.TicketList.ListCount(); ++i) {
        const std::string row = controls_.TicketList.List(i);
        for (int key = 0; key < KeyCount; ++key) {
            if (RowKeyLetter(row) == KeyLetter(key)) {
                block_.KeyTicket[static_cast<std::size_t>(key)] = LeadingNumber(row);
            }
        }
    }
}

}  // namespace varno
