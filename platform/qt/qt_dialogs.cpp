#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>

#include "platform/qt/measures.h"

namespace varno {
namespace {

QMessageBox::StandardButtons ToQt(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon ToQt(Icon icon) {
    switch (icon) {
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// Esc and the close box answer this one.
QMessageBox::StandardButton EscapeOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok:
            return QMessageBox::Ok;
        case Buttons::YesNo:
            return QMessageBox::No;
        default:
            return QMessageBox::Cancel;
    }
}

Answer FromQt(int button) {
    switch (button) {
        case QMessageBox::Ok:
            return Answer::Ok;
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

// "*.VRT" lists "*.vrt" as well.
QString NameFilter(const std::string& filter) {
    const QString text = varno::ToQt(filter);
    const QString description = text.section(u'|', 0, 0);
    const QString pattern = text.section(u'|', 1, 1);
    return QStringLiteral("%1 (%2 %3)").arg(description, pattern, pattern.toLower());
}

std::optional<ChosenFile> Choose(const FileDialog& description, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(QApplication::activeWindow());
    const bool open = mode == QFileDialog::AcceptOpen;
    dialog.setAcceptMode(mode);
    dialog.setFileMode(open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(varno::ToQt(description.defaultExt));
    dialog.setNameFilter(NameFilter(description.filter));
    const QString folder = varno::ToQt(description.initDir);
    if (!folder.isEmpty() && QDir(folder).exists()) {
        dialog.setDirectory(folder);
    }
    if (!open) {
        dialog.selectFile(varno::ToQt(description.fileName));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    const QString path = dialog.selectedFiles().constFirst();
    return ChosenFile{.fileName = varno::FromQt(QDir::toNativeSeparators(path)),
                      .fileTitle = varno::FromQt(QFileInfo(path).fileName())};
}

}  // namespace

Answer QtDialogs::ShowMessage(const std::string& text, const std::string& title, Buttons buttons,
                              Icon icon) {
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(text));
    box.setWindowTitle(ToQt(title));
    box.setIcon(ToQt(icon));
    box.setStandardButtons(ToQt(buttons));
    box.setEscapeButton(EscapeOf(buttons));
    return FromQt(box.exec());
}

std::string QtDialogs::InputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultText) {
    QInputDialog box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("InputBox"));
    box.setWindowTitle(ToQt(title));
    box.setLabelText(ToQt(prompt).replace(QStringLiteral("\r\n"), "\n"));
    box.setTextValue(ToQt(defaultText));
    return box.exec() == QDialog::Accepted ? varno::FromQt(box.textValue()) : std::string();
}

std::optional<ChosenFile> QtDialogs::ShowOpen(const FileDialog& dialog) {
    return Choose(dialog, QFileDialog::AcceptOpen);
}

std::optional<ChosenFile> QtDialogs::ShowSave(const FileDialog& dialog) {
    return Choose(dialog, QFileDialog::AcceptSave);
}

}  // namespace varno
