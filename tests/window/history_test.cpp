// What the window keeps of the operator's work, whatever becomes of it.
#include "history/history.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <algorithm>
#include <filesystem>
#include <memory>

#include "block/block_file.h"
#include "codec/encoder.h"
#include "codec/utf8.h"
#include "history/history_keeper.h"
#include "platform/files.h"
#include "platform/qt/paper_sheet.h"
#include "platform/rtf/rtf_reader.h"
#include "tests/codec/picture.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

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

TEST_F(HistoryOfTheWindow, HoldsWhatEachCommandTookAway) {
    const Message overwriteTicket{"Overwrite Ticket #300?", "Existing Ticket Number",
                                  Buttons::YesNo, Icon::Question};
    const Message overwriteFile{"\"Other.VRT\" exists.\r\n\r\nOverwrite?", "Existing File",
                                Buttons::YesNo, Icon::Question};
    {
        RealWindow window(folder);
        window.Start();
        auto& dialogs = window.platform.dialogs;
        window.TypeTicket("one");
        window.Put("300");
        EXPECT_EQ(Kept(), "");  // a new ticket takes nothing away
        dialogs.Expect(overwriteTicket, Answer::No);
        window.Put("300");
        dialogs.Expect(overwriteTicket, Answer::Yes);
        window.TypeTicket("two");
        window.Put("300");
        window.Put("301");
        window.ClickRow(1);
        window.Click("DeleteButton");

        WriteText(folder.Path("Other.VRT"), "{\\rtf1 other}");
        dialogs.Expect(SaveTicketQuestion, Answer::No);
        dialogs.ExpectOpen(ChosenFile{folder.Path("Other.VRT"), "Other.VRT"});
        window.Choose("LoadTicket");
        window.TypeTicket("more");
        dialogs.ExpectSave(ChosenFile{folder.Path("Other.VRT"), "Other.VRT"});
        dialogs.Expect(overwriteFile, Answer::Yes);
        window.Choose("SaveTicketAs");
        window.TypeTicket("again");
        window.Get<Timer>("SafekeepingTimer").OnTimer();
        window.Get<Timer>("SafekeepingTimer").OnTimer();  // nothing new
        window.TypeTicket("!");
        window.Get<Timer>("SafekeepingTimer").OnTimer();
        dialogs.Expect(SaveTicketQuestion, Answer::No);
        dialogs.Expect(SaveBlockQuestion, Answer::No);
        window.Choose("Exit");
    }
    EXPECT_EQ(Kept(),
              "put_.VRB: 300\n"
              "delete_.VRB: 301 300\n"
              "open_.VRT: onetwo\n"
              "save_Other.VRT: other\n"
              "working_Other.VRT: moreagainother\n"
              "close_.VRB: 300\n"
              "close_Other.VRT: moreagain!other\n");
}

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

constexpr const char* Rtf = "{\\rtf1 old\\par}";

std::string Block(std::initializer_list<int> tickets) {
    TicketBlock block;
    for (const int number : tickets) {
        EXPECT_EQ(block.PutRecord(number, EncodeTicket(FromPicture("Net"), number)),
                  PutResult::Put);
    }
    return BlockFileBytes(block.TicketBuffer);
}

// The same content makes no second copy.
TEST_F(WindowOfTheHistory, HoldsTheBlockBeforeAndAfterATransfer) {
    window.Start();
    window.Open(ImageIn(Block({300, 301})));
    script.Expect({"Start TICKET BUFFER CAPTURING in Varno (parameter 78),\r\n"
                   "then click OK button.",
                   "", Buttons::OkCancel, Icon::Exclamation},
                  Answer::Ok);
    bool isDeleted = false;
    window.platform.onDoEvents = [&] {
        if (!std::exchange(isDeleted, true)) {
            window.ClickRow(1);
            window.Click("DeleteButton");
        }
    };
    window.Click("DownloadButton");
    script.Expect(
        {"Items in ticket block will be lost.", "Warning", Buttons::OkCancel, Icon::Critical},
        Answer::Ok);
    window.Click("UploadButton");
    window.TypeTicket("late");  // while the indicator is awaited
    window.Put("302");
    window.platform.line->Arrive("#" + Block({205}));
    EXPECT_EQ(window.Rows(), "205");
    const std::string all =
        "download-COM1_Opened.VRB: 301 300\n"  // what the line took is not what is open
        "upload-COM1_Opened.VRB: 302 300\n"
        "upload_.VRT: late\n"
        "uploaded-COM1_Opened.VRB: 205\n";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Kept() == all; })) << Kept();
}

TEST_F(WindowOfTheHistory, OpensACopyInPlaceOfTheRestOfAnUpload) {
    Keep("20260101T000000000Z_delete_Plant.VRB", Block({300, 301}));
    window.Start();
    window.Click("UploadButton");
    window.platform.line->Arrive(Block({205}).substr(0, 4000));
    Open();
    Press("OpenButton");
    EXPECT_EQ(window.Rows(), "300|301");
    EXPECT_FALSE(window.platform.line->PortOpen());
    window.platform.line->Arrive(Block({205}).substr(4000));
    EXPECT_EQ(window.Rows(), "300|301");
}

TEST_F(WindowOfTheHistory, TellsOfEachCopyAndFindsIt) {
    std::string damaged = Block({212});
    damaged[9] = damaged[9] == '0' ? '1' : '0';
    Keep("20260101T000000000Z_download-COM3_Plant.VRB", Block({300, 212}));
    Keep("20260102T000000000Z_uploaded-COM3_Plant.VRB", damaged);
    Keep("20260103T000000000Z_save_Shop1.VRT", Rtf);
    Keep("20260104T000000000Z_save_Shop2.VRT", "no rtf");
    Keep("20260105T000000000Z_unsaved_Shop1.VRT", Rtf);
    Keep("20260106T000000000Z_delete_.VRB", "");
    Keep("notes.txt", "of somebody else");
    ASSERT_EQ(MakeFolder(HistoryFolder() + "/20260107T000000000Z_delete_.VRB"), std::nullopt);
    window.Start();
    Open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Rows().find("212, 300") != std::string::npos; }));
    const std::string all = Rows();
    EXPECT_TRUE(
        all.starts_with("Never saved: program not closed|ticket|Shop1||sound|\n"
                        "Before a ticket was deleted|block||none|"))
        << all;
    EXPECT_NE(all.find("After an upload from COM3|block|Plant|212|The checksum"), std::string::npos)
        << all;
    EXPECT_NE(all.find("Shop2||The file is not "), std::string::npos) << all;
    EXPECT_TRUE(all.ends_with("Before a download to COM3|block|Plant|212, 300|sound|\n")) << all;
    EXPECT_EQ(Summary(), "6 copies");

    const std::pair<const char*, int> finds[] = {
        {"shop1", 2}, {"COM3", 2}, {"300", 1}, {"checksum", 1}, {"plant sound", 1}, {"nothing", 0}};
    for (const auto& [words, count] : finds) {
        Find(words);
        const std::string rows = Rows();
        EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), count) << words << "\n" << rows;
    }
    EXPECT_FALSE(history->findChild<QWidget*>("OpenButton")->isEnabled());
    EXPECT_EQ(Differences(), "");
    Find("");
    EXPECT_EQ(Rows(), all);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);  // opens nothing
    EXPECT_EQ(window.Ticket(), u"");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(history->isVisible());
}

TEST_F(WindowOfTheHistory, TellsWhatDiffersFromWhatIsOpen) {
    Keep("20260101T000000000Z_delete_Plant.VRB", Block({300, 212}));
    Keep("20260102T000000000Z_save_Shop1.VRT", Rtf);
    Keep("20250101T000000000Z_save_Long.VRT", "{\\rtf1 " + std::string(4001, 'x') + "}");
    window.Start();
    window.TypeTicket("new");
    Open();
    EXPECT_EQ(Differences(), "  - new|\n  + old|\n");
    auto* paper = history->findChild<PaperSheet*>("Paper");
    EXPECT_EQ(paper->Text(), "old\n");
    Choose(2);  // more than a block takes
    EXPECT_EQ(paper->Text().count('x'), 4000);
    EXPECT_EQ(history->findChild<QComboBox*>("CopyTicket")->currentText(),
              "the beginning of the ticket");
    Choose(1);
    EXPECT_EQ(Differences(), "ticket 212 is only in the copy|\nticket 300 is only in the copy|\n");
    EXPECT_EQ(paper->Text(), "Net\n");

    window.Put("300");  // the window follows
    const std::string follows =
        "ticket 212 is only in the copy|\n"
        "ticket 300 differs:|\n  - new|\n  + Net|\n";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Differences() == follows; })) << Differences();
    window.ClickRow(0);
    QTest::keyClick(window.Widget<QWidget>("TicketList"), Qt::Key_P);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Differences() == follows + "key Print prints 300 in the window, none in the copy|\n";
    })) << Differences();
}

TEST_F(WindowOfTheHistory, OpensACopyAndLosesNothing) {
    Keep("20260101T000000000Z_delete_Plant.VRB", Block({300, 212}));
    Keep("20260102T000000000Z_save_Shop1.VRT", Rtf);
    WriteText(folder.Path("Shop1.VRT"), "newer");
    window.Start();
    window.TypeTicket("mine");
    Open();
    script.Expect(SaveTicketQuestion, Answer::Yes);
    script.ExpectSave(std::nullopt);  // called off: asked again
    script.Expect(SaveTicketQuestion, Answer::No);
    Press("OpenButton");
    EXPECT_EQ(window.Ticket(), u"old");
    EXPECT_EQ(window.Caption("TicketName"), "Shop1");
    EXPECT_TRUE(window.form.State().TicketChanged);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Kept().find("open_.VRT: mine") != std::string::npos;
    })) << Kept();

    // Its name is no file that was chosen: Save asks for one.
    script.ExpectSave(ChosenFile{folder.Path("Shop3.VRT"), "Shop3.VRT"});
    window.Choose("SaveTicket");
    EXPECT_EQ(FileText(folder.Path("Shop1.VRT")), "newer");
    EXPECT_EQ(window.Caption("TicketName"), "Shop3");
    window.TypeTicket("!");
    window.Choose("SaveTicket");  // now it has
    EXPECT_FALSE(window.form.State().TicketChanged);

    window.Put("205");
    Find("plant");
    script.Expect(SaveBlockQuestion, Answer::No);
    Press("OpenButton");
    EXPECT_EQ(window.Rows(), "212|300");
    EXPECT_EQ(window.Caption("ListName"), "Plant");
    EXPECT_TRUE(window.form.State().block.BlockChanged);
    EXPECT_TRUE(window.Widget<QWidget>("DownloadButton")->isEnabled());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Kept().find("open_.VRB: 205") != std::string::npos; }))
        << Kept();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Differences() == "Nothing: the same block is open.|\n";
    })) << Differences();

    script.ExpectSave(ChosenFile{folder.Path("Copy.VRB"), "Copy.VRB"});
    Press("SaveCopyButton");
    EXPECT_EQ(FileText(folder.Path("Copy.VRB")), Block({300, 212}));
    EXPECT_EQ(script.fileDialogs.back().fileName, "Plant.VRB");
}

// Until it is saved it is lost work, and never again.
TEST_F(WindowOfTheHistory, GivesLostWorkBack) {
    Keep("20260101T000000000Z_unsaved_Shop1.VRT", Rtf);
    window.Start();
    Open();
    Press("OpenButton");
    window.Get<Timer>("SafekeepingTimer").OnTimer();
    script.ExpectSave(ChosenFile{folder.Path("Shop1.VRT"), "Shop1.VRT"});
    window.Choose("SaveTicket");
    const std::string row = "While it was worked on|ticket|Shop1||sound|\n";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Rows() == row + row; })) << Rows();

    history->move(window.TopLevel()->pos());  // it would hide what was opened
    Press("OpenButton");
    EXPECT_FALSE(history->isVisible());
}

TEST_F(WindowOfTheHistory, LeavesTheWorkOfAnotherProgramToIt) {
    auto other = std::make_unique<HistoryKeeper>(HistoryFolder());
    other->Keep({.name = "Shop1", .kind = CopyKind::Ticket}, std::string(Rtf));
    window.Start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !other->IsBusy(); }));
    Keep("20260101T000000000Z_unsaved_Shop2.VRT", Rtf);
    Open();
    EXPECT_TRUE(Rows().starts_with("Never saved: program not closed|ticket|Shop2|")) << Rows();
    EXPECT_NE(Rows().find("\nNot saved: program still open|ticket|Shop1|"), std::string::npos);
    Choose(1);
    Press("OpenButton");
    window.Get<Timer>("SafekeepingTimer").OnTimer();
    script.Expect(SaveTicketQuestion, Answer::No);
    window.Choose("Exit");
    const std::string kept =
        "unsaved_Shop2.VRT: old\nunsaved_Shop1.VRT: old\nclose_Shop1.VRT: old\n";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Kept() == kept; })) << Kept();
    other.reset();  // as one that is killed
    Open();
    EXPECT_TRUE(Rows().starts_with("Never saved: program not closed|ticket|Shop1|")) << Rows();
}

TEST_F(WindowOfTheHistory, SaysThatNothingCanBeKept) {
    WriteText(folder.Path("VarnoTicketFormatter"), "no folder");
    window.Start();
    window.TypeTicket("x");
    Open();
    EXPECT_TRUE(Summary().starts_with("The copies cannot be read. ")) << Summary();
    window.Get<Timer>("SafekeepingTimer").OnTimer();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Summary().find(". The last copy could not be kept. ") != std::string::npos;
    })) << Summary();

    // The text is the same as before, and is kept now, also as what it is again when nothing
    // opened.
    ASSERT_EQ(RemoveFile(folder.Path("VarnoTicketFormatter")), std::nullopt);
    window.Get<Timer>("SafekeepingTimer").OnTimer();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Kept() == "unsaved_.VRT: x\n"; })) << Kept();
    script.Expect(SaveTicketQuestion, Answer::No);
    script.ExpectOpen(ChosenFile{folder.Path("none.VRT"), "none.VRT"});
    window.Choose("LoadTicket");
    window.Get<Timer>("SafekeepingTimer").OnTimer();
    const std::string kept = "open_.VRT: x\nunsaved_.VRT: x\n";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Kept() == kept; })) << Kept();
}

TEST_F(WindowOfTheHistory, SaysThatWhatWasReplacedIsTooLongToBeKept) {
    const std::string path = folder.Path("Film.VRT");
    window.Start();
    window.TypeTicket("x");
    const auto saysAfterReplacing = [&](std::uintmax_t bytes, const std::string& summary) {
        WriteText(path, "");
        std::filesystem::resize_file(path, bytes);
        script.ExpectSave(ChosenFile{path, "Film.VRT"});
        script.Expect({"\"Film.VRT\" exists.\r\n\r\nOverwrite?", "Existing File", Buttons::YesNo,
                       Icon::Question},
                      Answer::Yes);
        window.Choose("SaveTicketAs");
        Open();
        EXPECT_TRUE(QTest::qWaitFor([&] { return Summary() == summary; })) << Summary();
    };
    const std::string why = "What the file held that was replaced is not kept. " + path +
                            ": the file is longer than any ticket or block";
    saysAfterReplacing(16'000'001, "0 copies. " + why);
    window.Put("300");
    window.Get<Timer>("SafekeepingTimer").OnTimer();  // makes up for nothing
    EXPECT_TRUE(QTest::qWaitFor([&] { return Summary() == "1 copy. " + why; })) << Summary();
    saysAfterReplacing(16'000'000, "2 copies");
}

}  // namespace
}  // namespace varno
