// Questions to the operator. Each call returns when the operator has answered.
#pragma once

#include <optional>
#include <string>

namespace varno {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Question, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No };

struct FileDialog {
    std::string initDir;     // empty: the dialog's choice
    std::string fileName;    // offered name, or the pattern of the filter
    std::string defaultExt;  // added to a name typed without one
    std::string filter;      // "description|pattern"; the description is shown
};

struct ChosenFile {
    std::string fileName;   // full path
    std::string fileTitle;  // name without folder
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // Enter presses the first button unless another has the focus. Esc and the close box answer
    // Cancel, or Ok where that is the only button; without a Cancel they do nothing, so that nobody
    // says No by closing a question. Without a title the title bar is empty.
    virtual Answer ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                               Icon icon) = 0;
    // The edited text; empty when cancelled.
    virtual std::string InputBox(const std::string& prompt, const std::string& title,
                                 const std::string& defaultText) = 0;
    // Nothing when cancelled. Whatever name is typed is the file meant, quotation marks included.
    // The open dialog takes only a file that exists; the save dialog does not ask about one that
    // does: its caller does.
    virtual std::optional<ChosenFile> ShowOpen(const FileDialog& dialog) = 0;
    virtual std::optional<ChosenFile> ShowSave(const FileDialog& dialog) = 0;
};

}  // namespace varno
