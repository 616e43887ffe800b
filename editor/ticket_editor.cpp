#include "editor/ticket_editor.h"

#include <utility>

#include "codec/insert.h"
#include "editor/caret.h"

namespace varno {

TicketEditor::TicketEditor(RichTextBox& richText, bool& ticketChanged,
                           InsertCommands& insertCommands, std::function<void()> put,
                           Announce announce)
    : richText_(richText),
      ticketChanged_(ticketChanged),
      insertCommands_(insertCommands),
      put_(std::move(put)),
      announce_(std::move(announce)) {}

void TicketEditor::RichText_Change() {
    ticketChanged_ = true;
    announce_(CommandEvent::EditorChanged);
}

void TicketEditor::RichText_Click() {
    FollowCaret(richText_);
}

void TicketEditor::RichText_DblClick() {
    if (richText_.HasText()) {
        put_();
    }
}

KeyFate TicketEditor::RichText_KeyDown(int keyCode, int shift) {
    const KeyAnswer answer = AnswerKey(LookAround(richText_), keyCode, shift, digitRun_);
    digitRun_ = answer.digitRun;
    if (answer.typing == TypingChange::PlainBlack) {
        InsertPlain(richText_);
    }
    if (answer.typing == TypingChange::Comment) {
        InsertComment(richText_);
    }
    InsertText(richText_, answer.insert);
    Run(answer.command);
    return answer.fate;
}

void TicketEditor::RichText_KeyUp() {
    FollowCaret(richText_);
}

void TicketEditor::RichText_GotFocus() {
    announce_(CommandEvent::EditorFocused);
}

void TicketEditor::Run(InsertCommand command) {
    switch (command) {
        case InsertCommand::None:
            break;
        case InsertCommand::Ascii:
            insertCommands_.InsertAsciiCode();
            break;
        case InsertCommand::Control:
            insertCommands_.InsertControlCode();
            break;
        case InsertCommand::Print:
            insertCommands_.InsertPrintCode();
            break;
    }
}

}  // namespace varno
