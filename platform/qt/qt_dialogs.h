// Message boxes, the input box and the file dialogs.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/dialogs.h"

namespace varno {

class QtDialogs final : public Dialogs {
  public:
    void SetMainWindow(QWidget* window) { mainWindow_ = window; }

    Answer ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                       Icon icon) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;
    std::optional<ChosenFile> ShowOpen(const FileDialog& dialog) override;
    std::optional<ChosenFile> ShowSave(const FileDialog& dialog) override;

  private:
    // The window that a box stands over.
    QWidget* Owner() const;

    QPointer<QWidget> mainWindow_;
};

}  // namespace varno
