// The tutorial window: shows the document that lies beside the program.
#pragma once

#include "platform/dialog_form.h"

namespace varno {

inline constexpr const char* TutorialName = "Varno Ticket Formatter Tutorial.rtf";
inline constexpr const char* TutorialPageName = "Varno Ticket Formatter Tutorial.html";

const WindowDesign& TutorialDesign();

class TutorialForm final : public DialogForm {
  public:
    explicit TutorialForm(Platform& platform);

    // Says why the document cannot be read, if so, and shows no window then.
    void Show();

  private:
    void Form_Resize() override;

    Dialogs& dialogs_;
    Error unreadable_;
};

class Tutorial {
  public:
    explicit Tutorial(Platform& platform)
        : platform_(platform),
          form_([&platform] { return std::make_unique<TutorialForm>(platform); }) {}

    // Hidden, the window keeps the place in the document; closed, it reads the document again at
    // its next showing.
    void ShowTutorial_Click() { form_.AsLeft().Show(); }

    // The same in the browser, to be read while working.
    void ShowTutorialPage_Click();

  private:
    Platform& platform_;
    KeptDialog<TutorialForm> form_;
};

}  // namespace varno
