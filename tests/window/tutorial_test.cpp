// The tutorial: read when its window is first shown, and again after that was closed or failed.
#include "app/tutorial.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTimer>

#include "tests/window/real_window.h"

namespace varno {
namespace {

class TutorialTest : public WindowTest {
  protected:
    TutorialTest() : WindowTest(Catalogues::InFolder) {}

    void Write(const std::string& document) {
        WriteText(folder.Path(TutorialName), "{\\rtf1 " + document + "}");
    }
    // The text that is shown until the window is left; "none" if there is no window.
    QString ShownUntil(const std::function<void(QWidget&)>& leave) {
        QString text = "none";
        QTimer::singleShot(0, [&] {
            if (QWidget* shown = QApplication::activeModalWidget()) {
                text = shown->findChild<QTextEdit*>("RichTextBox1")->toPlainText();
                leave(*shown);
            }
        });
        window.Choose("ShowTutorial");
        QCoreApplication::processEvents();
        return text;
    }
};

TEST_F(TutorialTest, IsReadAgainWhenItWasClosedOrUnreadable) {
    const auto exit = [](QWidget& shown) {
        shown.findChild<QAbstractButton*>("ExitButton")->click();
    };
    const auto exitLarger = [&exit](QWidget& shown) {
        const auto* button = shown.findChild<QWidget*>("ExitButton");
        const auto* text = shown.findChild<QWidget*>("RichTextBox1");
        shown.resize(shown.size() + QSize(30, 15));
        QCoreApplication::processEvents();
        const QPoint place = button->pos();
        const QSize room = text->size();
        shown.resize(shown.size() + QSize(100, 50));
        QCoreApplication::processEvents();
        EXPECT_EQ(button->pos() - place, QPoint(100, 50));
        EXPECT_EQ(text->size() - room, QSize(100, 50));
        exit(shown);
    };
    const auto close = [](QWidget& shown) { shown.close(); };
    int messages = 0;
    window.platform.dialogs.Listen([&messages](const Message& message) {
        EXPECT_NE(message.text.find("Varno Ticket Formatter Tutorial."), std::string::npos);
        ++messages;
    });
    EXPECT_EQ(ShownUntil(exit), "none");
    EXPECT_EQ(ShownUntil(exit), "none");
    EXPECT_EQ(messages, 2);
    Write("first");
    EXPECT_EQ(ShownUntil(exitLarger), "first");
    Write("second");
    EXPECT_EQ(ShownUntil(close), "first");
    EXPECT_EQ(ShownUntil(close), "second");
    EXPECT_EQ(messages, 2);
    QTest::keyClick(window.Widget<QWidget>("RichText"), Qt::Key_F1);  // without such a file
    EXPECT_EQ(window.platform.opened, std::vector{folder.Folder() + "/" + TutorialPageName});
    EXPECT_EQ(messages, 3);
}

}  // namespace
}  // namespace varno
