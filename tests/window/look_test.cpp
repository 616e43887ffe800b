// What every window shows: whole captions, names for assistive technology, a way there by keyboard.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMenuBar>
#include <QTextEdit>

#include "app/main_window_design.h"
#include "editor/ascii_picker.h"
#include "editor/code_picker.h"
#include "link/terminal_design.h"
#include "platform/qt/face_button.h"
#include "platform/qt/simple_controls.h"
#include "tests/window/main_window.h"

namespace varno {
namespace {

const WindowDesign* const Designs[] = {&MainWindowDesign(), &ControlCodesList(), &PrintCodesList(),
                                       &AsciiCodesList(),   &TerminalDesign,     &TutorialDesign()};

class EveryWindow : public testing::TestWithParam<const WindowDesign*> {
  protected:
    EveryWindow() : window_(*GetParam(), nullptr) {
        shell_ = window_.Widget();
        shell_->show();
        QApplication::processEvents();
    }
    std::string Where(const QWidget* widget) {
        return std::string(GetParam()->name) + "." + widget->objectName().toStdString();
    }

    QtWindow window_;
    QWidget* shell_ = nullptr;
};

TEST_P(EveryWindow, ShowsItsCaptionsWhole) {
    constexpr int Wrap = Qt::TextWordWrap | Qt::TextShowMnemonic;
    const auto expectFits = [&](const QWidget* widget, const QFont& font, const QRect& room,
                                const QString& caption, int flags) {
        const QRect needed = QFontMetrics(font).boundingRect(room, flags, caption);
        EXPECT_LE(needed.width(), room.width()) << Where(widget);
        EXPECT_LE(needed.height(), room.height()) << Where(widget);
    };
    for (const FaceButton* button : shell_->findChildren<FaceButton*>()) {
        expectFits(button, button->CaptionFont(), button->CaptionRect(), button->text(), Wrap);
        EXPECT_GE(button->CaptionFont().pointSizeF(), 6.5) << Where(button);
    }
    for (const auto* box : shell_->findChildren<WrappingCheckBox*>()) {
        expectFits(box, box->font(), box->CaptionRect(), box->text(), Wrap);
    }
    for (const QLabel* label : shell_->findChildren<ElidingLabel*>()) {
        expectFits(label, label->font(), label->rect(), label->text(), Qt::TextSingleLine);
    }
}

TEST_P(EveryWindow, NamesEveryControl) {
    for (const ControlDesign& design : GetParam()->controls) {
        if (design.kind == ControlKind::Timer) {
            continue;
        }
        const auto* widget = shell_->findChild<QWidget*>(ToQt(design.name));
        ASSERT_NE(widget, nullptr) << design.name;
        const bool speaks = !design.accessibleName.empty() || !design.caption.empty() ||
                            !design.accessibleDescription.empty() ||
                            design.kind == ControlKind::Frame ||
                            design.kind == ControlKind::StatusStrip;
        EXPECT_TRUE(speaks) << Where(widget) << " says nothing of itself";
    }
    for (const MenuDesign& design : GetParam()->menus) {
        EXPECT_NE(shell_->findChild<QAction*>(ToQt(design.name)), nullptr) << design.name;
    }
}

TEST_P(EveryWindow, LetsTheKeyboardReachEveryControl) {
    for (QWidget* widget : shell_->findChildren<QWidget*>()) {
        widget->setEnabled(true);
    }
    QSet<QString> reached;
    for (int i = 0; i < 60; ++i) {
        if (const QWidget* focus = QApplication::focusWidget()) {
            reached += focus->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } else {
            shell_->activateWindow();
            QTest::keyClick(shell_, Qt::Key_Tab);
        }
    }
    for (const ControlDesign& design : GetParam()->controls) {
        const auto* widget = shell_->findChild<QWidget*>(ToQt(design.name));
        if (widget == nullptr || !widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) {
            continue;
        }
        const QWidget* target = widget->focusProxy() != nullptr ? widget->focusProxy() : widget;
        EXPECT_TRUE(reached.contains(target->objectName())) << Where(target);
    }
}

INSTANTIATE_TEST_SUITE_P(Look, EveryWindow, testing::ValuesIn(Designs),
                         [](const auto& row) { return std::string(row.param->name); });

class MainLook : public testing::Test {
  protected:
    TestFolder folder;
    MainWindow window{folder};

    void SetUp() override { window.Start(); }
};

// The seven items of the menu bar stand side by side at the smallest width.
TEST_F(MainLook, MenuBarShowsAllItems) {
    auto* bar = window.Shell()->findChild<QMenuBar*>();
    QApplication::processEvents();
    for (const QAction* action : bar->actions()) {
        const QRect place = bar->actionGeometry(const_cast<QAction*>(action));
        EXPECT_TRUE(bar->rect().contains(place)) << action->text().toStdString();
    }
}

// No visible control hides a part of another one, at the smallest size and beyond.
TEST_F(MainLook, ControlsDoNotOverlap) {
    for (const Place& place : {Place{0, 0, 0, 0}, Place{0, 0, 9000, 7000}}) {
        window.form.MainWindow().SetOuterPlace(place);
        QApplication::processEvents();
        std::vector<QWidget*> shown;
        for (const ControlDesign& design : MainWindowDesign().controls) {
            if (design.kind != ControlKind::Timer && design.container.empty()) {
                shown.push_back(window.Widget<QWidget>(std::string(design.name).c_str()));
            }
        }
        for (std::size_t a = 0; a < shown.size(); ++a) {
            EXPECT_TRUE(shown[a]->parentWidget()->rect().contains(shown[a]->geometry()))
                << shown[a]->objectName().toStdString();
            for (std::size_t b = a + 1; b < shown.size(); ++b) {
                EXPECT_FALSE(shown[a]->geometry().intersects(shown[b]->geometry()))
                    << shown[a]->objectName().toStdString() << " and "
                    << shown[b]->objectName().toStdString();
            }
        }
    }
}

TEST_F(MainLook, LongLinesDoNotWrapAndLongNamesStayWhole) {
    window.TypeTicket(QString(300, u'x'));
    const auto* editor = window.Widget<QTextEdit>("RichText");
    EXPECT_EQ(editor->document()->lineCount(), 1);
    window.Get<Label>("ListName").SetCaption("Weighbridge north gate");
    const auto* label = window.Widget<QLabel>("ListName");
    EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text()));
    EXPECT_TRUE(label->parentWidget()->rect().contains(label->geometry()));
}

// The paper stays white and the inks as they are in a dark theme.
TEST_F(MainLook, PaperIsWhiteInADarkTheme) {
    const QPalette light = QApplication::palette();
    QPalette dark = light;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Window, Qt::black);
    QApplication::setPalette(dark);
    QApplication::processEvents();
    const QPalette shown = window.Widget<QWidget>("RichText")->palette();
    EXPECT_EQ(shown.color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(shown.color(QPalette::Text), QColor(Qt::black));
    QApplication::setPalette(light);
}

}  // namespace
}  // namespace varno
