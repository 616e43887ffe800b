#include "block/key_assignment.h"

#include <string>
#include <vector>

namespace varno {

namespace {

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
    AssignRows(index, bind);
    announce_(CommandEvent::KeyAssigned);
    controls_.TicketList.SetFocus();
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

// The list as it would be; only rows that change are set.
void KeyAssignmentCommand::AssignRows(int index, bool bind) {
    ListBox& list = controls_.TicketList;
    std::vector<std::string> rows;
    rows.reserve(static_cast<std::size_t>(list.ListCount()));
    for (int i = 0; i < list.ListCount(); ++i) {
        rows.push_back(list.List(i));
    }
    const std::vector<std::string> before = rows;
    AssignKey(rows, static_cast<std::size_t>(list.ListIndex()), index, bind);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] != before[i]) {
            list.SetItem(static_cast<int>(i), rows[i]);
        }
    }
    block_.SetKeys(KeysOf(rows));
}

}  // namespace varno
