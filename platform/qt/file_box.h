// The dialog that asks for a file name. A QFileDialog splits what is typed at quotation marks, and
// finds a file only by the very case of its letters.
#pragma once

#include <QFileDialog>
#include <optional>

#include "platform/dialogs.h"

class QLineEdit;

namespace varno {

class FileBox final : public QFileDialog {
  public:
    // `parent`: the window that the dialog stands over; may be null.
    FileBox(const FileDialog& description, AcceptMode mode, QWidget* parent);
    std::optional<ChosenFile> Ask();

    void accept() override;

  private:
    // What is typed is one name, whatever characters it holds.
    QString PathMeant() const;

    QLineEdit* name_;
    QString pattern_;
    QString chosen_;
};

}  // namespace varno
