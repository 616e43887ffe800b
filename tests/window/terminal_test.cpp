// The terminal in its real window: every character as it came and as it was typed, and quick
// however it comes. Only the line is a stand-in.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include "codec/windows1252.h"
#include "link/terminal_design.h"
#include "platform/qt/qt_window.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

QString ToText(const std::string& bytes) {
    return QString::fromStdU16String(FromWindows1252(bytes));
}

class Line : public testing::Test {
  protected:
    Line() {
        window_.Show();
        area.OnKeyPress = [this](unsigned char character) { sent += static_cast<char>(character); };
    }

    // In bursts of a thousand characters, events handled between them.
    qint64 Receive(const std::string& text) {
        QElapsedTimer timer;
        timer.start();
        for (std::size_t at = 0; at < text.size(); at += 1000) {
            area.Append(std::string_view(text).substr(at, 1000));
            QApplication::processEvents();
        }
        return timer.nsecsElapsed();
    }
    void Compose(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(view, &event);
    }
    // What assistive technology reads.
    QAccessibleTextInterface& Accessible() {
        return *QAccessible::queryAccessibleInterface(view)->textInterface();
    }
    QString Text() { return Accessible().text(0, Accessible().characterCount()); }

  private:
    QtWindow window_{TerminalDesign, nullptr};

  protected:
    TextArea& area = window_.Get<TextArea>("Text1");
    QPlainTextEdit* view = window_.Widget()->findChild<QPlainTextEdit*>();
    std::string sent;
};

TEST_F(Line, GivesBackWhatCame) {
    const std::string pieces[] = {"one\r\n",
                                  "two\r",
                                  "\n",
                                  "lone\rand\nother\n\r\n",
                                  "\x80 \xE9\xA0\x01",
                                  std::string(9000, 'x'),
                                  std::string(5000, 'y').append("\r\n"),
                                  "",
                                  "\r\n",
                                  "end"};
    std::string all;
    for (const std::string& piece : pieces) {
        all += piece;
        area.Append(piece);
        EXPECT_TRUE(view->textCursor().atEnd());
        EXPECT_TRUE(Text() == ToText(all)) << piece.substr(0, 20);
    }
    const QString read = ToText(all);
    view->selectAll();
    view->copy();
    EXPECT_TRUE(QGuiApplication::clipboard()->text() == read);

    QAccessibleTextInterface& text = Accessible();
    for (int offset = 0; offset < 40; ++offset) {
        EXPECT_EQ(text.text(offset, offset + 1), read.mid(offset, 1)) << offset;
    }
    const int x = static_cast<int>(read.indexOf('x'));
    for (const int offset : {0, 5, x, x + 1023, x + 1024, x + 1025, x + 13999}) {
        EXPECT_EQ(text.text(offset, offset + 3), read.mid(offset, 3));
        text.setCursorPosition(offset);
        EXPECT_EQ(text.cursorPosition(), offset);
        EXPECT_EQ(text.offsetAtPoint(text.characterRect(offset).center()), offset);
        text.setSelection(0, offset, offset + 2000);
        view->copy();
        EXPECT_TRUE(QGuiApplication::clipboard()->text() == read.mid(offset, 2000));
    }
    area.Clear();
    EXPECT_EQ(Text(), "");
}

// Whatever is shown of what is typed is sent, and the other way round.
TEST_F(Line, ShowsAndSendsWhatIsTyped) {
    const std::string full(1024, 'x');  // what is shown in one piece
    const auto press = [this](Qt::Key key, const char* text, Qt::KeyboardModifiers held = {}) {
        return [=, this] { QTest::sendKeyEvent(QTest::Click, view, key, text, held); };
    };
    const auto compose = [this](const char* text) { return [=, this] { Compose(text); }; };
    struct {
        const char* what;
        std::string before;
        int caret;  // -1: at the end
        std::function<void()> act;
        std::string after;
        const char* sent;
    } const cases[] = {
        {"letter", "ab", 1, press(Qt::Key_C, "c"), "acb", "c"},
        {"Enter", "ab", 1, press(Qt::Key_Return, "\r"), "a\r\nb", "\r"},
        {"Enter on the pad", "ab", -1, press(Qt::Key_Enter, "\r", Qt::KeypadModifier), "ab\r\n",
         "\r"},
        {"Esc", "ab", -1, press(Qt::Key_Escape, "\x1B"), "ab", "\x1B"},
        {"Ctrl", "ab", -1, press(Qt::Key_G, "\a", Qt::ControlModifier), "ab", "\a"},
        {"Euro", "", -1, press(Qt::Key_unknown, "€"), "\x80", "\x80"},
        {"Ctrl and a digit", "", -1, press(Qt::Key_1, "1", Qt::ControlModifier), "", ""},
        {"AltGr", "", -1, press(Qt::Key_At, "@", Qt::ControlModifier | Qt::AltModifier), "@", "@"},
        {"Alt", "", -1, press(Qt::Key_X, "x", Qt::AltModifier), "", ""},
        {"Super", "", -1, press(Qt::Key_X, "x", Qt::MetaModifier), "", ""},
        {"Tab", "", -1, press(Qt::Key_Tab, "\t"), "", ""},
        {"outside the set", "", -1, press(Qt::Key_unknown, "Ω"), "", ""},
        {"dead key", "e", -1, compose("é"), "e\xE9", "\xE9"},
        {"decomposed", "", -1, compose("e\u0301"), "\xE9", "\xE9"},
        {"word", "", -1, compose("naïveβ"), "na\xEFve", "na\xEFve"},
        {"Backspace", "ab", -1, press(Qt::Key_Backspace, "\b"), "a", "\b"},
        {"Backspace in a long line", full + "yz", 1024, press(Qt::Key_Backspace, "\b"),
         full.substr(1) + "yz", "\b"},
        {"Delete in a long line", full + "yz", 1024, press(Qt::Key_Delete, "\x7F"), full + "z", ""},
        {"in front of a long line's rest", full + "yz", 1024, press(Qt::Key_A, "a"), full + "ayz",
         "a"},
        {"pasted", "a", -1,
         [this] {
             QGuiApplication::clipboard()->setText("b\n\u03B2");
             view->paste();
         },
         "ab\n?", ""},
    };
    for (const auto& row : cases) {
        area.Clear();
        area.Append(row.before);
        sent.clear();
        if (row.caret >= 0) {
            Accessible().setCursorPosition(row.caret);
        }
        row.act();
        EXPECT_EQ(Text(), ToText(row.after)) << row.what;
        EXPECT_EQ(sent, row.sent) << row.what;
    }
}

// Text without a single line break costs about what text with line breaks does.
TEST_F(Line, StaysQuickWithoutLineBreaks) {
    std::string lines(200000, 'a');
    for (std::size_t i = 63; i < lines.size(); i += 64) {
        lines[i] = '\n';
    }
    const qint64 withBreaks = Receive(lines);
    area.Clear();
    EXPECT_LT(Receive(std::string(lines.size(), 'a')), 8 * withBreaks);
}

TEST_F(Line, DropsOnlyTheOldest) {
    constexpr int Megabyte = 1 << 20;
    std::string endless(Megabyte + 200000, ' ');
    for (std::size_t i = 0; i < endless.size(); ++i) {
        endless[i] = static_cast<char>('A' + i % 26);
    }
    area.Append(std::string_view(endless).substr(0, Megabyte));
    area.Append(std::string_view(endless).substr(Megabyte));
    const QString kept = Text();
    EXPECT_LE(kept.size(), Megabyte);
    EXPECT_GE(kept.size(), Megabyte * 7 / 8);
    EXPECT_TRUE(ToText(endless).endsWith(kept));
}

struct Shown {
    QWidget& window;
    QPlainTextEdit* text = window.findChild<QPlainTextEdit*>("Text1");

    void Click(const char* button) {
        QTest::mouseClick(window.findChild<QWidget*>(button), Qt::LeftButton);
    }
    Place PlaceOf(const char* button) const {
        const QRect place = window.findChild<QWidget*>(button)->geometry();
        return {15 * place.x(), 15 * place.y(), 15 * place.width(), 15 * place.height()};
    }
};

class TerminalTest : public WindowTest {
  protected:
    using Script = std::function<void(Shown)>;

    // Opens the terminal, which the operator has to leave, or leaves while events run before the
    // port is opened.
    void Open(const Script& operate, bool early = false) {
        const auto run = [&operate] { operate({*QApplication::activeModalWidget()}); };
        QTimer timer;
        timer.setSingleShot(true);
        timer.callOnTimeout(run);
        platform.onDoEvents = [&] { early ? run() : timer.start(0); };
        window.Choose("OpenTerminalWindow");
        EXPECT_FALSE(platform.terminalLine != nullptr && platform.terminalLine->PortOpen());
    }
    void ExpectError(const char* text) {
        script.Expect({text, "Error", Buttons::Ok, Icon::Critical}, Answer::Ok);
    }

    ScriptedPlatform& platform = window.platform;
    ScriptedLine& mainPort = *platform.line;
};

TEST_F(TerminalTest, TakesThePortOverEachTimeItIsShown) {
    EXPECT_FALSE(mainPort.SetCommPort(4) || mainPort.SetSettings("4800,e,7,1"));
    EXPECT_FALSE(mainPort.OpenPort());  // an upload waits
    Open([&](Shown shown) {
        ScriptedLine& port = *platform.terminalLine;
        EXPECT_FALSE(mainPort.PortOpen());
        EXPECT_EQ(port.CommPort(), 4);
        EXPECT_EQ(port.Settings(), "4800,e,7,1");
        port.Arrive("ready\r\n");
        QTest::keyClicks(shown.text, "A");
        QTest::keyClick(shown.text, Qt::Key_Return);
        EXPECT_EQ(shown.text->toPlainText(), "ready\nA\n");
        EXPECT_EQ(port.sent, "A\r");
        shown.Click("Command1");
        port.Arrive("more");
        shown.Click("Command2");
    });
    EXPECT_FALSE(mainPort.OpenPort());
    Open([&](Shown shown) {
        EXPECT_FALSE(mainPort.PortOpen());
        EXPECT_TRUE(platform.terminalLine->PortOpen());
        EXPECT_EQ(shown.text->toPlainText(), "more");  // Exit has only hidden it
        shown.window.close();
    });
    Open([&](Shown shown) {
        EXPECT_EQ(shown.text->toPlainText(), "");
        shown.Click("Command2");
    });
}

TEST_F(TerminalTest, OpensNoPortBehindAWindowThatIsLeft) {
    Open([](Shown shown) { shown.Click("Command2"); }, true);
    Open([](Shown shown) { shown.window.resize(320, 10); }, true);
    Open([&](Shown shown) {
        EXPECT_TRUE(platform.terminalLine->PortOpen());
        shown.Click("Command2");
    });
    Open(
        [&](Shown shown) {
            shown.window.close();
            EXPECT_FALSE(platform.terminalLine->PortOpen());
        },
        true);
}

TEST_F(TerminalTest, SaysOnceThatThereIsNoLine) {
    Open([&](Shown shown) { shown.Click("Command2"); });
    platform.terminalLine->openError = "in use";
    ExpectError("in use");
    Open([&](Shown shown) {
        QTest::keyClicks(shown.text, "abc");
        EXPECT_TRUE(shown.window.isVisible());
        shown.Click("Command2");
    });
    platform.terminalLine->openError.reset();
    Open([&](Shown shown) {
        platform.terminalLine->broken = true;
        ExpectError("cannot send");
        QTest::keyClicks(shown.text, "abc");
        EXPECT_FALSE(platform.terminalLine->PortOpen());
        EXPECT_EQ(shown.text->toPlainText(), "abcabc");
        shown.Click("Command2");
    });
}

TEST_F(TerminalTest, LaysItselfOutOrClosesWhenTooSmall) {
    Open([&](Shown shown) {
        shown.window.resize(392, 440);
        EXPECT_EQ(shown.PlaceOf("Text1"), (Place{120, 60, 5655, 5865}));
        EXPECT_EQ(shown.PlaceOf("Command1"), (Place{120, 6060, 855, 495}));
        EXPECT_EQ(shown.PlaceOf("Command2"), (Place{4905, 6060, 855, 495}));
        shown.window.resize(392, 49);
        EXPECT_TRUE(shown.window.isVisible());
        shown.window.resize(392, 48);
        EXPECT_FALSE(shown.window.isVisible());
    });
    Open([&](Shown shown) {
        shown.window.resize(14, 440);
        EXPECT_FALSE(shown.window.isVisible());
    });
    Open([&](Shown shown) {
        EXPECT_TRUE(shown.window.isVisible());  // at its first size again
        shown.Click("Command2");
    });
}

}  // namespace
}  // namespace varno
