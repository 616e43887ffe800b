#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QInputDialog>

#include "platform/qt/file_box.h"
#include "platform/qt/measures.h"
#include "platform/qt/message_box.h"

namespace varno {
namespace {

// The program's line ends are CR LF.
QString Lines(const std::string& text) {
    return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

}  // namespace

// Not the active window: between two boxes the desktop has not made any active yet.
QWidget* QtDialogs::Owner() const {
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        return dialog;
    }
    return mainWindow_ != nullptr && mainWindow_->isVisible() ? mainWindow_.data() : nullptr;
}

Answer QtDialogs::ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                              Icon icon) {
    return MessageBox(Lines(text), ToQt(title), buttons, icon, Owner()).Ask();
}

std::string QtDialogs::InputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) {
    QInputDialog box(Owner());
    box.setObjectName(QStringLiteral("InputBox"));
    box.setWindowTitle(ToQt(title));
    box.setLabelText(Lines(prompt));
    box.setTextValue(ToQt(defaultText));
    box.resize(box.sizeHint().expandedTo({WidthForTitle(box.windowTitle()), 0}));
    return box.exec() == QDialog::Accepted ? FromQt(box.textValue()) : std::string();
}

std::optional<ChosenFile> QtDialogs::ShowOpen(const FileDialog& dialog) {
    return FileBox(dialog, QFileDialog::AcceptOpen, Owner()).Ask();
}

std::optional<ChosenFile> QtDialogs::ShowSave(const FileDialog& dialog) {
    return FileBox(dialog, QFileDialog::AcceptSave, Owner()).Ask();
}

}  // namespace varno
