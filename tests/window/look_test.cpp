// What every window shows: whole captions, names for assistive technology, a way there by keyboard.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QStyleOptionButton>
#include <QTextEdit>
#include <cmath>

#include "app/main_window_design.h"
#include "editor/ascii_picker.h"
#include "editor/code_picker.h"
#include "history/history_design.h"
#include "link/terminal_design.h"
#include "platform/qt/face_button.h"
#include "platform/qt/simple_controls.h"
#include "preview/preview_design.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

const WindowDesign* const Designs[] = {&MainWindowDesign(), &ControlCodesList(), &PrintCodesList(),
                                       &AsciiCodesList(),   &TerminalDesign,     &TutorialDesign(),
                                       &PreviewDesign(),    &HistoryDesign()};

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

double Luminance(const QColor& colour) {
    const auto linear = [](double part) { return std::pow(part, 2.2); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// Each border of a list, an editor, a field or a check box can be told from the window around it,
// in light and dark colours, at the scale of the screen that the test runs at.
TEST_P(EveryWindow, ShowsTheBordersOfItsControls) {
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    for (const QPalette& palette : {light, dark}) {
        QApplication::setPalette(palette);
        const QImage picture = shell_->grab().toImage();
        const double around = Luminance(palette.color(QPalette::Window));
        const auto standsOut = [&](const QWidget* widget, QPointF place) {
            const QPointF at = widget->mapTo(shell_, place) * picture.devicePixelRatio();
            const double here = Luminance(picture.pixelColor(int(at.x()), int(at.y())));
            return (std::max(here, around) + 0.05) / (std::min(here, around) + 0.05) > 2.5;
        };
        for (QWidget* widget : shell_->findChildren<QWidget*>()) {
            if (qobject_cast<QHeaderView*>(widget) != nullptr) {
                continue;  // inside the border of its table
            }
            QStyleOptionButton option;
            option.initFrom(widget);
            QRectF all = widget->rect();
            if (qobject_cast<QCheckBox*>(widget) != nullptr) {
                all =
                    widget->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, widget);
            } else if (qobject_cast<QAbstractScrollArea*>(widget) == nullptr &&
                       qobject_cast<QLineEdit*>(widget) == nullptr) {
                continue;
            }
            all.adjust(0.5, 0.5, -0.5, -0.5);
            for (const QPointF& edge :
                 {QPointF(all.left(), all.center().y()), QPointF(all.right(), all.center().y()),
                  QPointF(all.center().x(), all.top()), QPointF(all.center().x(), all.bottom())}) {
                EXPECT_TRUE(!widget->isVisible() || standsOut(widget, edge))
                    << Where(widget) << " at " << edge.x() << ", " << edge.y();
            }
        }
    }
    QApplication::setPalette(light);
}

// Only what can be of another size can be maximised, and only the main window goes to the task bar.
TEST_P(EveryWindow, OffersTheButtonsThatItCanFollow) {
    const auto offers = [this](Qt::WindowType hint) {
        return shell_->windowFlags().testFlag(hint);
    };
    EXPECT_EQ(offers(Qt::WindowMaximizeButtonHint), shell_->minimumSize() != shell_->maximumSize());
    EXPECT_EQ(offers(Qt::WindowMinimizeButtonHint), GetParam() == &MainWindowDesign());
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

using MainLook = WindowTest;

// The seven items of the menu bar stand side by side at the smallest width.
TEST_F(MainLook, MenuBarShowsAllItems) {
    auto* bar = window.TopLevel()->findChild<QMenuBar*>();
    QApplication::processEvents();
    for (const QAction* action : bar->actions()) {
        const QRect place = bar->actionGeometry(const_cast<QAction*>(action));
        EXPECT_TRUE(bar->rect().contains(place)) << action->text().toStdString();
    }
}

// No visible control hides a part of another one, from the smallest size on by single pixels until
// the list shows one row more.
TEST_F(MainLook, ControlsDoNotOverlap) {
    for (int grow = 0; grow <= 300; grow += 15) {
        window.form.MainWindow().SetOuterPlace(
            {0, 0, MinimumWidth + 3 * grow, MinimumHeight + grow});
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

// Needs a screen that has room for a larger window.
using Layout = MainLook;

TEST_F(Layout, ControlsFollowTheWindow) {
    struct {
        const char* control;
        QRect atTheSmallest;
        QRect larger;
    } const table[] = {
        {"Message", {8, 4, 488, 17}, {8, 4, 588, 17}},
        {"TicketName", {12, 24, 274, 13}, {12, 24, 374, 13}},
        {"RichText", {8, 40, 362, 279}, {8, 40, 462, 428}},
        {"Frame1", {373, 40, 53, 69}, {473, 40, 53, 69}},
        {"Frame2", {373, 112, 53, 157}, {473, 112, 53, 157}},
        {"ListName", {463, 24, 31, 13}, {563, 24, 31, 13}},
        {"TicketList", {429, 40, 65, 227}, {529, 40, 65, 377}},
        {"UploadButton", {424, 274, 37, 45}, {524, 423, 37, 45}},
        {"DownloadButton", {464, 274, 37, 45}, {564, 423, 37, 45}},
    };
    for (const bool larger : {false, true}) {
        const int step = larger ? 15 : 0;
        window.form.MainWindow().SetOuterPlace(
            {0, 0, MinimumWidth + 100 * step, MinimumHeight + 150 * step});
        QApplication::processEvents();
        for (const auto& row : table) {
            const QRect place = window.Widget<QWidget>(row.control)->geometry();
            EXPECT_EQ(place, larger ? row.larger : row.atTheSmallest)
                << row.control << ": {" << place.x() << ", " << place.y() << ", " << place.width()
                << ", " << place.height() << "}";
        }
    }
}

TEST_F(MainLook, LongLinesDoNotWrap) {
    window.TypeTicket(QString(300, u'x'));
    EXPECT_EQ(window.Widget<QTextEdit>("RichText")->document()->lineCount(), 1);
}

// Names that are too long for their places are cut, beside each other, and whole in a tool tip.
TEST_F(MainLook, NamesOfAnyLengthHaveRoom) {
    auto* ticket = window.Widget<QLabel>("TicketName");
    auto* block = window.Widget<QLabel>("ListName");
    for (const int length : {1, 22, 300}) {
        const std::string name(static_cast<std::size_t>(length), 'W');
        window.Get<Label>("TicketName").SetCaption(name);
        window.Get<Label>("ListName").SetCaption(name);
        EXPECT_FALSE(ticket->geometry().intersects(block->geometry())) << length;
        EXPECT_EQ(block->geometry().right(),
                  window.Widget<QWidget>("TicketList")->geometry().right());
        for (QLabel* label : {ticket, block}) {
            label->grab();
            const int needed = label->fontMetrics().horizontalAdvance(label->text());
            EXPECT_EQ(label->toolTip().isEmpty(), needed <= label->width()) << length;
        }
    }
    EXPECT_GT(block->toolTip().size(), 200);
}

// A selected row can be read in light and dark colours, whichever window has the focus.
TEST_F(MainLook, WhatIsSelectedCanBeRead) {
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::HighlightedText, QColor(252, 252, 252));
    QPalette yellow = dark;
    yellow.setColor(QPalette::Highlight, QColor(120, 110, 0));
    yellow.setColor(QPalette::HighlightedText, Qt::black);
    window.Open(NewTicketBuffer());
    auto* list = window.Widget<QListWidget>("TicketList");
    list->addItem("212");
    list->setCurrentRow(0);
    const QRect row = list->visualItemRect(list->item(0));
    const QPalette light = QApplication::palette();
    for (QPalette palette : {light, dark, yellow}) {
        QApplication::style()->polish(palette);
        const auto isReadable = [&](QPalette::ColorGroup group, const QColor& face) {
            const double paper = Luminance(face);
            const double ink = Luminance(palette.color(group, QPalette::HighlightedText));
            return (std::max(paper, ink) + 0.05) / (std::min(paper, ink) + 0.05) >= 4.5;
        };
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            EXPECT_TRUE(isReadable(group, palette.color(group, QPalette::Highlight))) << group;
        }
        list->setPalette(palette);
        const QImage picture = list->viewport()->grab().toImage();
        const auto at = [&](int y) {
            return picture.pixelColor(QPoint(row.right() - 3, y) * picture.devicePixelRatio());
        };
        EXPECT_EQ(at(row.center().y()).rgb(), palette.color(QPalette::Highlight).rgb());
        for (int y = row.top(); y <= row.bottom(); ++y) {  // it is shaded
            EXPECT_TRUE(isReadable(QPalette::Active, at(y))) << at(y).name().toStdString();
        }
    }
}

// Assistive technology takes the current row for one that has the focus.
TEST_F(MainLook, OnlyAListWithTheFocusHasACurrentRow) {
    auto* list = window.Widget<QListWidget>("TicketList");
    for (const char* row : {"200", "212", "300"}) {
        list->addItem(row);
    }
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->currentRow(), 1);
    for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::MouseFocusReason}) {
        window.Widget<QWidget>("RichText")->setFocus();
        EXPECT_EQ(list->currentRow(), -1);
        EXPECT_EQ(window.Get<ListBox>("TicketList").ListIndex(), 1);
        list->setFocus(reason);
        EXPECT_EQ(list->currentRow(), 1);
    }
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(window.Get<ListBox>("TicketList").ListIndex(), 2);
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
