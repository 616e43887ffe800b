// What the window keeps of the operator's work, and what it says when it cannot.
#include "app/safekeeping.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "tests/window/history_window.h"

namespace varno {
namespace {

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
