// The File menu on the real window: dialogs, questions, labels, folders and flags.
#include "platform/files.h"

#include <gtest/gtest.h>

#include "tests/window/real_window.h"

namespace varno {
namespace {

const std::string Block212 = [] {  // one ticket "AB", number 212, bound to Print
    std::string memory = "08D4004100421000800000D4000000000000";
    memory.resize(8000, '0');
    return ":" + memory + "0027F4";
}();

ChosenFile Chosen(const TestFolder& folder, const std::string& name) {
    return {folder.Path(name), name};
}

Message Existing(const std::string& name) {
    return {"\"" + name + "\" exists.\r\n\r\nOverwrite?", "Existing File", Buttons::YesNo,
            Icon::Question};
}

using FileMenu = WindowTest;

TEST_F(FileMenu, TicketGoesToDiskAndComesBack) {
    window.TypeTicket("Net 5");
    script.ExpectSave(Chosen(folder, "Shop1.VRT"));
    window.Choose("SaveTicket");  // no name yet: asks for one
    EXPECT_EQ(window.Caption("TicketName"), "Shop1");
    EXPECT_EQ(State().folders.SaveTicketFolder, folder.Folder());
    EXPECT_FALSE(State().TicketChanged);
    const std::string saved = FileText(folder.Path("Shop1.VRT"));

    window.Type("x");
    EXPECT_TRUE(State().TicketChanged);
    window.Choose("SaveTicket");  // has a name: no dialog, no question
    EXPECT_NE(FileText(folder.Path("Shop1.VRT")), saved);
    EXPECT_FALSE(State().TicketChanged);

    window.Type("y");
    script.Expect(SaveTicketQuestion, Answer::No);
    script.ExpectOpen(Chosen(folder, "Shop1.VRT"));
    window.Get<TextBox>("TicketNumber").SetText("212");
    window.Choose("LoadTicket");
    EXPECT_EQ(window.Ticket(), u"Net\u00F75x");
    EXPECT_EQ(window.Get<TextBox>("TicketNumber").Text(), "");
    EXPECT_EQ(State().folders.LoadTicketFolder, folder.Folder());
    EXPECT_FALSE(State().TicketChanged);

    QTest::keyClick(window.Widget<QWidget>("RichText"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window.Ticket(), u"Net\u00F75xy") << "a ticket lost to Open comes back";
}

TEST_F(FileMenu, BlockGoesToDiskAndComesBack) {
    window.TypeTicket("AB");
    window.Put("212");
    EXPECT_EQ(window.Rows(), "212");
    script.ExpectSave(Chosen(folder, "Plant.VRB"));
    window.Choose("SaveList");
    ASSERT_FALSE(script.fileDialogs.empty());
    EXPECT_EQ(script.fileDialogs.back().fileName, " .VRB");
    EXPECT_EQ(window.Caption("ListName"), "Plant");
    EXPECT_FALSE(State().block.BlockChanged);
    const std::string saved = FileText(folder.Path("Plant.VRB"));
    EXPECT_EQ(saved.size(), 8009U);
    EXPECT_EQ(saved.substr(0, 37), ":08D40041004210008000" + std::string(16, '0'));

    WriteText(folder.Path("Other.vrb"), Block212 + "\r\n");
    script.ExpectOpen(Chosen(folder, "Other.vrb"));
    window.Choose("LoadList");
    EXPECT_EQ(window.Rows(), "212 P");
    EXPECT_EQ(window.Caption("ListName"), "Other");
    EXPECT_EQ(State().block.TicketBuffer, Block212);
    EXPECT_TRUE(window.Get<Button>("DownloadButton").Enabled());
}

// Yes, then a cancelled dialog, brings the question back; No goes on; cancelling then keeps all.
TEST_F(FileMenu, AsksUntilSavedOrGivenUp) {
    window.TypeTicket("AB");
    window.Put("212");
    script.Expect(SaveTicketQuestion, Answer::Yes);
    script.ExpectSave(std::nullopt);
    script.Expect(SaveTicketQuestion, Answer::No);
    script.ExpectOpen(std::nullopt);
    window.Choose("LoadTicket");
    EXPECT_EQ(window.Ticket(), u"AB");
    EXPECT_TRUE(State().TicketChanged);

    script.Expect(SaveBlockQuestion, Answer::Yes);
    script.ExpectSave(std::nullopt);
    script.Expect(SaveBlockQuestion, Answer::Yes);
    script.ExpectSave(Chosen(folder, "Plant.VRB"));
    script.ExpectOpen(std::nullopt);
    window.Choose("LoadList");
    EXPECT_EQ(window.Rows(), "212");
    EXPECT_EQ(window.Caption("ListName"), "Plant");
}

TEST_F(FileMenu, AsksBeforeOverwriting) {
    WriteText(folder.Path("shop1.vrt"), "old");
    window.TypeTicket("AB");
    script.ExpectSave(Chosen(folder, "Shop1.VRT"));  // differs in case only
    script.Expect(Existing("Shop1.VRT"), Answer::No);
    script.ExpectSave(std::nullopt);
    window.Choose("SaveTicketAs");
    EXPECT_EQ(FileText(folder.Path("shop1.vrt")), "old");

    script.ExpectSave(Chosen(folder, "Shop1.VRT"));
    script.Expect(Existing("Shop1.VRT"), Answer::Yes);
    window.Choose("SaveTicketAs");
    EXPECT_EQ(FileText(folder.Path("shop1.vrt")).substr(0, 5), "{\\rtf");
    EXPECT_FALSE(FileExists(folder.Path("Shop1.VRT"))) << "one file, not two";
    EXPECT_EQ(window.Caption("TicketName"), "Shop1");
}

// One message; label, folder, flag and the old file stay.
TEST_F(FileMenu, SaysWhatCannotBeWritten) {
    const std::string path = folder.Path("none/Shop1.VRT");
    const Message failure{path + ": No such file or directory", "Varno Ticket Formatter",
                          Buttons::Ok, Icon::Critical};
    window.TypeTicket("AB");
    window.Put("212");
    script.ExpectSave(ChosenFile{path, "Shop1.VRT"});
    script.Expect(failure, Answer::Ok);
    window.Choose("SaveTicketAs");
    EXPECT_TRUE(State().TicketChanged);
    EXPECT_EQ(window.Caption("TicketName"), "");
    EXPECT_EQ(State().folders.SaveTicketFolder, "");

    script.ExpectSave(ChosenFile{path, "Shop1.VRT"});
    script.Expect(failure, Answer::Ok);
    window.Choose("SaveList");
    EXPECT_TRUE(State().block.BlockChanged);
    EXPECT_EQ(window.Caption("ListName"), " ");
}

// A file that cannot be opened is passed over in silence; the steps after it still run.
TEST_F(FileMenu, OpensWhatCanBeOpened) {
    window.TypeTicket("AB");
    window.Put("212");
    WriteText(folder.Path("Picture.VRT"), "no rich text");
    script.Expect(SaveTicketQuestion, Answer::No);
    script.ExpectOpen(Chosen(folder, "Picture.VRT"));
    window.Get<TextBox>("TicketNumber").SetText("300");
    window.Choose("LoadTicket");
    EXPECT_EQ(window.Ticket(), u"AB");
    EXPECT_TRUE(State().TicketChanged);
    EXPECT_EQ(window.Get<TextBox>("TicketNumber").Text(), "");
    EXPECT_EQ(State().folders.LoadTicketFolder, folder.Folder());

    const std::string before = State().block.TicketBuffer;
    script.Expect(SaveBlockQuestion, Answer::No);
    script.ExpectOpen(Chosen(folder, "gone.VRB"));
    window.Choose("LoadList");
    EXPECT_EQ(window.Rows(), "");
    EXPECT_EQ(State().block.TicketBuffer, before);
    EXPECT_TRUE(State().block.BlockChanged);
    EXPECT_FALSE(window.Get<Button>("DownloadButton").Enabled());

    WriteText(folder.Path("Named.txt"), Block212 + ",more\r\n");
    script.ExpectOpen(Chosen(folder, "Named.txt"));
    window.Choose("LoadList");  // an empty list never asks
    EXPECT_EQ(window.Rows(), "212 P");
    EXPECT_EQ(State().block.TicketBuffer, Block212);
    EXPECT_EQ(window.Caption("ListName"), " ");
    EXPECT_TRUE(State().block.BlockChanged) << "without a label the flag is not reached";
}

// Any content and any length of a block file is read without harm, and can be put into.
TEST_F(FileMenu, SurvivesAnyBlockFile) {
    std::string noise;
    for (unsigned i = 0; i < 200000; ++i) {
        noise += static_cast<char>(i * i % 253 + 1);
    }
    const std::string contents[] = {"",
                                    "\r\n",
                                    ",",
                                    ":",
                                    "08D4",
                                    Block212 + "00",
                                    noise,
                                    ":08D",
                                    ":08D4004",
                                    ":g",
                                    std::string(20000, '8'),
                                    Block212.substr(0, 4000)};
    for (const std::string& content : contents) {
        if (!window.Rows().empty() && State().block.BlockChanged) {
            script.Expect(SaveBlockQuestion, Answer::No);
        }
        window.Open(content);
        EXPECT_EQ(State().block.TicketBuffer, content.substr(0, content.find_first_of(",\r\n")));
        window.Get<RichTextBox>("RichText").SetContent({});
        window.TypeTicket("AB");
        if (window.Rows().find("999") == std::string::npos) {
            window.Put("999");
            EXPECT_EQ(State().block.TicketBuffer[0], ':');
            EXPECT_GE(State().block.TicketBuffer.size(), 8007U);
        }
    }
}

}  // namespace
}  // namespace varno
