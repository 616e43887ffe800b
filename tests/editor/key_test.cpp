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
    EXPECT_EQ(AnswerKey({}, 'A', ShiftAlt, 2).digitRun, 0) << "and so does a command";
}

}  // namespace
}  // namespace varno
