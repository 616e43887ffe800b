// The two rich-text controls: the ticket editor, and the viewer of the tutorial.
#pragma once

#include <functional>
#include <string>

#include "codec/marked_editor.h"
#include "platform/controls.h"
#include "platform/error.h"

namespace varno {

// What becomes of a key once the program has looked at it.
enum class KeyFate {
    Pass,           // the control handles it
    Drop,           // nothing more happens
    PassAndRepeat,  // the control handles it, then it comes again without Shift and Ctrl; the two,
                    // or as many as it becomes, are one step of undo
};

class RichTextBox : public Control, public MarkedEditor {
  public:
    // Puts all changes made while `change` runs into one step of undo.
    virtual void AsOneStep(const std::function<void()>& change) = 0;

    // Frames around codes and hatching under what is in no ticket; painted only.
    virtual bool ShowsMarks() const = 0;
    virtual void SetShowsMarks(bool shows) = 0;

    // A note at the caret, or at the front of the selection, until the caret moves or Esc is
    // pressed.
    virtual void ShowNote(const std::string& text) = 0;

    std::function<void()> OnChange;  // the text changed, whoever changed it
    // A change that would have made the text longer than an editor takes was left out; `why` is for
    // the operator.
    std::function<void(const std::string& why)> OnRefused;
    std::function<void()> OnSelChange;  // the caret moved, whoever moved it
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;
    std::function<KeyFate(int keyCode, int shift)> OnKeyDown;
    std::function<void()> OnKeyUp;
};

// Shows a document with its own formatting. Read only.
class DocumentView : public Control {
  public:
    // Replaces the content with the RTF document in the file.
    [[nodiscard]] virtual Error LoadFile(const std::string& path) = 0;
};

}  // namespace varno
