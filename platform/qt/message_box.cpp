#include "platform/qt/message_box.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>

#include "platform/qt/measures.h"

namespace varno {
namespace {

struct ButtonRules {
    QMessageBox::StandardButtons offered;
    QMessageBox::StandardButton first;   // the default
    QMessageBox::StandardButton escape;  // Esc and the close box press it; NoButton: nothing
};

ButtonRules RulesOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
        case Buttons::YesNo:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::NoButton};
        case Buttons::YesNoCancel:
            return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                    QMessageBox::Cancel};
        case Buttons::Ok:
            break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
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

}  // namespace

MessageBox::MessageBox(const QString& text, const QString& title, Buttons buttons, varno::Icon icon,
                       QWidget* parent)
    : QMessageBox(parent) {
    setObjectName(QStringLiteral("MessageBox"));
    setTextFormat(Qt::PlainText);
    setText(text);
    // For a window without a title the desktop shows the program's name.
    setWindowTitle(title.isEmpty() ? QStringLiteral(" ") : title);
    setIcon(ToQt(icon));
    auto* grid = static_cast<QGridLayout*>(layout());
    grid->addItem(new QSpacerItem(WidthForTitle(title), 0), 0, 0, 1, -1);
    const ButtonRules rules = RulesOf(buttons);
    setStandardButtons(rules.offered);
    setDefaultButton(rules.first);
    setEscapeButton(rules.escape);
}

Answer MessageBox::Ask() {
    return FromQt(exec());
}

// Of its own accord QMessageBox takes No for a way out.
void MessageBox::keyPressEvent(QKeyEvent* event) {
    if (escapeButton() != nullptr || !event->matches(QKeySequence::Cancel)) {
        QMessageBox::keyPressEvent(event);
    }
}

void MessageBox::closeEvent(QCloseEvent* event) {
    if (escapeButton() != nullptr) {
        QMessageBox::closeEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace varno
