// What the pictures of the editor's keys cannot show.
#include <gtest/gtest.h>

#include "editor/key_rules.h"

namespace varno {
namespace {

// A digit key with Shift types what it types, and ends the run of digits.
TEST(KeyRules, LeaveADigitKeyWithShiftAlone) {
    for (const int digit : std::initializer_list<int>{'0', '9', KeyPad0, KeyPad9}) {
        const KeyAnswer answer = AnswerKey({.typingColour = AsciiCodeColour}, digit, ShiftShift, 2);
        EXPECT_EQ(answer.fate, KeyFate::Pass);
        EXPECT_EQ(answer.typing, TypingChange::None);
        EXPECT_EQ(answer.insert, u"");
        EXPECT_EQ(answer.digitRun, 0);
    }
}

// Alt with a letter that inserts nothing is the desktop's.
TEST(KeyRules, TakeTheKeysOfTheirCommandsOnly) {
    for (const char key : {'A', 'B', 'C', 'F', 'P', 'Z'}) {
        const KeyAnswer answer = AnswerKey({}, key, ShiftAlt, 2);
        const bool inserts = key == 'A' || key == 'C' || key == 'P';
        EXPECT_EQ(answer.fate, inserts ? KeyFate::Drop : KeyFate::Pass) << key;
        EXPECT_EQ(answer.digitRun, 0) << key;
    }
}

}  // namespace
}  // namespace varno
