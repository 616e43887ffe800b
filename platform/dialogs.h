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
    std::string fileName;    // offered name, or a pattern such as "*.VRT"
    std::string defaultExt;  // added to a name typed without one
    std::string filter;      // "description|pattern"
};

struct ChosenFile {
    std::string fileName;   // full path
    std::string fileTitle;  // name without folder
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // Closing the box by Esc or its close box answers Cancel, or No where there is no Cancel, or
    // Ok where there is only that.
    virtual Answer ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                               Icon icon) = 0;
    // The edited text; empty when cancelled.
    virtual std::string InputBox(const std::string& prompt, const std::string& title,
                                 const std::string& defaultText) = 0;
    // Nothing when cancelled. The save dialog does not ask about an existing file: its caller does.
    virtual std::optional<ChosenFile> ShowOpen(const FileDialog& dialog) = 0;
    virtual std::optional<ChosenFile> ShowSave(const FileDialog& dialog) = 0;
};

}  // namespace varno
