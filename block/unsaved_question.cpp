#include "block/unsaved_question.h"

namespace varno {

bool AskToSave(Dialogs& dialogs, const UnsavedQuestion& question, Buttons buttons,
               const bool& changed, const std::function<void()>& save) {
    while (changed) {
        const Answer answer =
            dialogs.ShowMessage(question.text, question.title, buttons, Icon::Question);
        if (answer != Answer::Yes) {
            return answer == Answer::No;
        }
        save();
    }
    return true;
}

}  // namespace varno
