// A message box as dialogs.h describes it; a QMessageBox takes No for a way out.
#pragma once

#include <QMessageBox>

#include "platform/dialogs.h"

namespace varno {

class MessageBox final : public QMessageBox {
  public:
    // `parent`: the window that the box stands over; may be null.
    MessageBox(const QString& text, const QString& title, Buttons buttons, varno::Icon icon,
               QWidget* parent);
    Answer Ask();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

}  // namespace varno
