// The real main window, the history it keeps, and the window that shows it.
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <algorithm>

#include "block/block_file.h"
#include "codec/encoder.h"
#include "codec/utf8.h"
#include "history/history.h"
#include "platform/rtf/rtf_reader.h"
#include "tests/codec/picture.h"
#include "tests/window/real_window.h"

namespace varno {

class HistoryOfTheWindow : public testing::Test {
  protected:
    // Oldest first: cause, name, and of a ticket its text, of a block the numbers of its tickets.
    std::string Kept() const {
        std::string kept;
        std::vector<Copy> copies = History(HistoryFolder()).Copies();
        std::reverse(copies.begin(), copies.end());
        for (const Copy& copy : copies) {
            std::string bytes;
            EXPECT_EQ(History(HistoryFolder()).Read(copy, bytes), std::nullopt);
            const std::string fileName = FileNameOf(copy);
            kept += fileName.substr(fileName.find('_') + 1) + ":";
            kept += copy.kind == CopyKind::Block ? Numbers(ImageIn(bytes)) : TextOf(bytes);
            kept += "\n";
        }
        return kept;
    }

    TestFolder folder;

  private:
    static std::string Numbers(const std::string& image) {
        std::string numbers;
        for (const int number : TicketBlock{.TicketBuffer = image}.Tickets()) {
            numbers += " " + std::to_string(number);
        }
        return numbers;
    }
    static std::string TextOf(const std::string& rtf) {
        MarkedText ticket;
        EXPECT_EQ(LoadMarkedText(rtf, ticket), std::nullopt);
        return " " + ToUtf8(ticket.Text());
    }
};

// The window that F6 opens.
class WindowOfTheHistory : public HistoryOfTheWindow {
  protected:
    void Keep(const std::string& fileName, const std::string& bytes) {
        ASSERT_EQ(MakeFolder(HistoryFolder()), std::nullopt);
        WriteText(HistoryFolder() + "/" + fileName, bytes);
    }
    void Open() {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        history = window.TopLevel()->findChild<QWidget*>("History");
        ASSERT_TRUE(history != nullptr && history->isVisible());
        QApplication::setActiveWindow(history);
        history->move(window.TopLevel()->geometry().right(), 0);  // as on a large screen
    }
    std::string Rows(const char* table = "Copies", int firstColumn = 1) {
        const QAbstractItemModel& model = *history->findChild<QTreeView*>(table)->model();
        std::string rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = firstColumn; column < model.columnCount(); ++column) {
                rows += model.index(row, column).data().toString().toStdString() + "|";
            }
            rows += "\n";
        }
        return rows;
    }
    std::string Differences() { return Rows("Differences", 0); }
    std::string Summary() { return history->findChild<QLabel*>("Summary")->text().toStdString(); }
    void Press(const char* button) {
        QTest::mouseClick(history->findChild<QWidget*>(button), Qt::LeftButton);
    }
    void Choose(int row) {
        auto* copies = history->findChild<QTreeView*>("Copies");
        copies->setFocus();
        QTest::keyClick(copies, Qt::Key_Home);
        for (int i = 0; i < row; ++i) {
            QTest::keyClick(copies, Qt::Key_Down);
        }
    }
    void Find(const char* words) {
        auto* find = history->findChild<QLineEdit*>("Find");
        find->clear();
        QTest::keyClicks(find, words);
    }

    RealWindow window{folder};
    ScriptedDialogs& script = window.platform.dialogs;
    QWidget* history = nullptr;
};

inline constexpr const char* Rtf = "{\\rtf1 old\\par}";

inline std::string Block(std::initializer_list<int> tickets) {
    TicketBlock block;
    for (const int number : tickets) {
        EXPECT_EQ(block.PutRecord(number, EncodeTicket(FromPicture("Net"), number)),
                  PutResult::Put);
    }
    return BlockFileBytes(block.TicketBuffer);
}

}  // namespace varno
