// The real boxes: what keys and the close box answer, which file a typed name means.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QProxyStyle>
#include <QTimer>

#include "platform/qt/qt_dialogs.h"
#include "platform/qt/style.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

// Lets the operator act in the box that `ask` opens, and closes it where it is open still.
template <class Ask, class Act>
auto While(Ask ask, Act act) {
    QTimer::singleShot(0, [act] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(QTest::qWaitForWindowActive(box));  // it has its focus then
        act(box);
        if (box->isVisible()) {
            box->done(QDialog::Rejected);
        }
    });
    return ask();
}

void Press(const QDialog* box, Qt::Key key) {
    QTest::keyClick(box->focusWidget(), key);
}

// The style on a desktop that puts the buttons of a box in another order.
class Desktop final : public QProxyStyle {
  public:
    explicit Desktop(int layout) : QProxyStyle(new Style), layout_(layout) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_DialogButtonLayout ? layout_
                                             : QProxyStyle::styleHint(hint, option, widget, result);
    }

  private:
    int layout_;
};

// The same on every desktop: Enter, Enter on the last button, Esc, the close box.
TEST(MessageBox, IsAnsweredByItsButtonsOnly) {
    const auto enter = [](QDialog* box) { Press(box, Qt::Key_Return); };
    const std::function<void(QDialog*)> ways[] = {
        enter,
        [&](QDialog* box) {
            box->findChild<QDialogButtonBox*>()->buttons().last()->setFocus();
            enter(box);
        },
        [](QDialog* box) { Press(box, Qt::Key_Escape); },
        [](QDialog* box) { box->close(); },
    };
    constexpr const char* Answers[] = {"Ok ", "Cancel ", "Yes ", "No "};
    const std::pair<Buttons, std::string> rows[] = {
        {Buttons::Ok, "Ok Ok Ok Ok "},
        {Buttons::OkCancel, "Ok Cancel Cancel Cancel "},
        {Buttons::YesNo, "Yes No stays stays "},
        {Buttons::YesNoCancel, "Yes No Cancel Cancel "},
    };
    for (const auto layout : {QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout,
                              QDialogButtonBox::KdeLayout, QDialogButtonBox::GnomeLayout}) {
        QApplication::setStyle(new Desktop(layout));
        for (const auto& [buttons, expected] : rows) {
            std::string answers;
            for (const auto& act : ways) {
                bool stays = false;
                const Answer answer = While(
                    [&, offered = buttons] {
                        return QtDialogs().ShowMessage("Sure?", "", offered, Icon::Question);
                    },
                    [&](QDialog* box) {
                        act(box);
                        stays = box->isVisible();
                    });
                answers += stays ? "stays " : Answers[static_cast<int>(answer)];
            }
            EXPECT_EQ(answers, expected) << "layout " << layout;
        }
    }
    QApplication::setStyle(new Style);
}

// A box that follows another one belongs to the window too, though that is not active yet.
TEST(MessageBox, BelongsToTheWindow) {
    QWidget window;
    window.show();
    QtDialogs dialogs;
    dialogs.SetMainWindow(&window);
    for (int i = 0; i < 2; ++i) {
        While([&] { return dialogs.ShowMessage("", "", Buttons::Ok, Icon::None); },
              [&](QDialog* box) {
                  EXPECT_EQ(box->parentWidget(), &window);
                  EXPECT_EQ(box->font(), window.font());
              });
        QApplication::setActiveWindow(nullptr);
    }
}

// Types a name and Enter; the file that is chosen, nothing when the dialog stays open.
std::string Choose(bool open, const std::string& folder, const char* typed) {
    const FileDialog dialog{folder, "*.VRT", "VRT", "Varno Ticket|*.VRT"};
    const auto chosen = While(
        [&] { return open ? QtDialogs().ShowOpen(dialog) : QtDialogs().ShowSave(dialog); },
        [&](QDialog* box) {
            auto* field = box->findChild<QLineEdit*>("fileNameEdit");
            EXPECT_EQ(field->selectedText(), "*.VRT");
            EXPECT_EQ(box->findChild<QComboBox*>("fileTypeCombo")->currentText(), "Varno Ticket");
            QTest::keyClicks(field, typed);
            QTimer::singleShot(0, [] {  // there is no such file
                if (auto* says = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    says->close();
                }
            });
            Press(box, Qt::Key_Return);
        });
    return chosen ? chosen->fileName.substr(folder.size()) : "";
}

TEST(FileDialogs, TakeTheNameThatIsTyped) {
    const TestFolder folder;
    for (const char* name : {"a\"b.VRT", "b.VRT", "lower.vrt"}) {
        WriteText(folder.Path(name), "");
    }
    QDir(QString::fromStdString(folder.Folder())).mkdir("sub");
    struct Row {
        const char* typed;
        const char* saved;
        const char* opened;
    };
    const Row rows[] = {
        {"new", "new.VRT", ""},
        {"a\"b", "a\"b.VRT", "a\"b.VRT"},
        {"\"b.VRT\"", "\"b.VRT\"", ""},
        {":a.txt", ":a.txt", ""},
        {"sub/a", "sub/a.VRT", ""},
        {"LOWER", "LOWER.VRT", "lower.vrt"},
        {"sub", "", ""},
        {"*.VRT", "", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Choose(false, folder.Folder(), row.typed), row.saved) << row.typed;
        EXPECT_EQ(Choose(true, folder.Folder(), row.typed), row.opened) << row.typed;
    }
}

}  // namespace
}  // namespace varno
