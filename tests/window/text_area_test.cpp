// The terminal's text: every character as it came, and quick however it comes.
#include "platform/qt/text_area.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>

#include "link/terminal_design.h"
#include "platform/qt/qt_window.h"

namespace varno {
namespace {

class Line : public testing::Test {
  protected:
    Line() { window_.Show(); }

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

  private:
    QtWindow window_{TerminalDesign, nullptr};

  protected:
    QtTextArea& area = dynamic_cast<QtTextArea&>(window_.Get<TextArea>("Text1"));
};

TEST_F(Line, KeepsWhatCame) {
    const std::string pieces[] = {"one\r\n",
                                  "two\r",
                                  "\n",
                                  "\x80 \xE9\x01",
                                  std::string(9000, 'x'),
                                  std::string(5000, 'y') + "\r\n",
                                  "",
                                  "\r\n",
                                  "end"};
    std::string all;
    for (const std::string& piece : pieces) {
        all += piece;
        area.Append(piece);
        EXPECT_TRUE(area.Get()->textCursor().atEnd());
    }
    EXPECT_TRUE(area.Text() == all);
    area.Clear();
    EXPECT_EQ(area.Text(), "");
}

// A megabyte without a single line break costs about what one with line breaks does, and only the
// oldest text goes.
TEST_F(Line, StaysQuickWithoutLineBreaks) {
    constexpr std::size_t Megabyte = 1 << 20;
    std::string lines(Megabyte + 200000, 'a');
    for (std::size_t i = 63; i < lines.size(); i += 64) {
        lines[i] = '\n';
    }
    const qint64 withBreaks = Receive(lines);
    area.Clear();
    std::string endless(Megabyte + 200000, ' ');
    for (std::size_t i = 0; i < endless.size(); ++i) {
        endless[i] = static_cast<char>('A' + i % 26);
    }
    EXPECT_LT(Receive(endless), 8 * withBreaks);
    const std::string kept = area.Text();
    EXPECT_LE(kept.size(), Megabyte);
    EXPECT_GE(kept.size(), Megabyte * 7 / 8);
    EXPECT_TRUE(std::string_view(endless).ends_with(kept));
}

}  // namespace
}  // namespace varno
