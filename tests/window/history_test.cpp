// The window of the history, over the real main window.
#include <gtest/gtest.h>

#include <QComboBox>

#include "history/history_keeper.h"
#include "history/history_window.h"
#include "platform/files.h"
#include "platform/qt/paper_sheet.h"
#include "tests/window/history_window.h"

namespace varno {
namespace {

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

}  // namespace
}  // namespace varno
