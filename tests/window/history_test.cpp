// What the window keeps of the operator's work, whatever becomes of it.
#include "history/history.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "block/block_file.h"
#include "codec/utf8.h"
#include "platform/rtf/rtf_reader.h"
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
        dialogs.Expect(SaveTicketQuestion, Answer::No);
        dialogs.Expect(SaveBlockQuestion, Answer::No);
        window.Choose("Exit");
    }
    EXPECT_EQ(Kept(),
              "put_.VRB: 300\n"
              "delete_.VRB: 301 300\n"
              "open_.VRT: onetwo\n"
              "save_Other.VRT: other\n"
              "close_Other.VRT: moreagainother\n"
              "close_.VRB: 300\n"
              "close_Other.VRT: moreagain!other\n");
}

}  // namespace
}  // namespace varno
