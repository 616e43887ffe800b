// How the program starts and ends: settings, command line, and the questions at closing.
#include <gtest/gtest.h>

#include "app/settings.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

const std::string SampleBlock = std::string(VARNO_SAMPLES) + "/Plant.VRB";

class StartAndClose : public testing::Test {
  protected:
    TestFolder folder;

    std::string Settings() { return FileText(folder.Path("VarnoTicketFormatter.ini")); }
    bool Stored(const std::string& line) {
        return ("\n" + Settings()).find("\n" + line + "\n") != std::string::npos;
    }
};

TEST_F(StartAndClose, FirstStartAndWhatIsWrittenAtItsEnd) {
    {
        RealWindow window(folder);
        window.Start();
        EXPECT_EQ(window.TopLevel()->windowTitle(), "VarnoTicketFormatter 1.0.2");
        EXPECT_EQ(window.form.MainWindow().OuterPlace(), (Place{0, 0, 7725, 5610}))
            << "the minimum, in whole pixels of 15 twips";
        EXPECT_FALSE(window.form.State().TicketChanged);
        window.Choose("Exit");
        EXPECT_TRUE(window.platform.hasQuit);
    }
    for (const char* line :
         {"LoadTicket=", "SaveTicket=", "LoadList=", "SaveList=", "COM=1",
          "Settings=\"9600,n,8,1\"", "State=0", "Top=0", "Left=0", "Width=7725", "Height=5610"}) {
        EXPECT_TRUE(Stored(line)) << line << " in\n" << Settings();
    }
}

TEST_F(StartAndClose, ComesBackAsItWasLeft) {
    WriteText(folder.Path("VarnoTicketFormatter.ini"),
              "[Communications]\nCOM=3\nSettings=\"1200,e,7,2\"\n");
    {
        RealWindow window(folder);
        window.Start();
        window.form.MainWindow().SetOuterPlace({300, 450, 9000, 7500});
        window.Choose("Exit");
    }
    RealWindow window(folder);
    window.Start();
    EXPECT_EQ(window.form.MainWindow().OuterPlace(), (Place{300, 450, 9000, 7500}));
    EXPECT_EQ(window.Get<RichTextBox>("RichText").GetPlace(), (Place{120, 600, 6705, 6075}));
    window.Choose("Exit");
    EXPECT_TRUE(Stored("COM=3") && Stored("Settings=\"1200,e,7,2\"")) << Settings();
}

// Minimised and maximised windows keep the place of their normal state.
TEST_F(StartAndClose, KeepsThePlaceOfTheNormalState) {
    for (const WindowState state : {WindowState::Minimised, WindowState::Maximised}) {
        WriteText(folder.Path("VarnoTicketFormatter.ini"),
                  "[WindowSize]\nTop=450\nLeft=300\nWidth=9000\nHeight=7500\nState=" +
                      std::to_string(static_cast<int>(state)) + "\n");
        {
            RealWindow window(folder);
            window.Start();
            EXPECT_EQ(window.form.MainWindow().State(), state);
            window.Choose("Exit");
        }
        EXPECT_TRUE(Stored("Top=450") && Stored("Left=300")) << Settings();
        EXPECT_TRUE(Stored("Width=9000") && Stored("Height=7500")) << Settings();
        EXPECT_TRUE(Stored("State=" + std::to_string(static_cast<int>(state)))) << Settings();
    }
}

// What cannot be used falls back; a place on no screen is moved onto one.
TEST_F(StartAndClose, BearsDamagedSettings) {
    for (const char* communications :
         {"COM=zero\nSettings=fast", "COM=0\nSettings=", "COM=99999999999\nSettings=9600,n,8,1",
          "COM=\nSettings=\"9600,x,8,1\""}) {
        WriteText(
            folder.Path("VarnoTicketFormatter.ini"),
            "[Communications]\n" + std::string(communications) +
                "\n[WindowSize]\nTop=-900000\nLeft=7000000\nWidth=wide\nHeight=-5\nState=9\n");
        {
            RealWindow window(folder);
            window.Start();
            const Place place = window.form.MainWindow().OuterPlace();
            EXPECT_EQ(place.width, 7725);
            EXPECT_EQ(place.height, 5610);
            EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().intersects(
                window.TopLevel()->frameGeometry()));
            window.Choose("Exit");
        }
        EXPECT_TRUE(Stored("COM=1") && Stored("Settings=\"9600,n,8,1\"")) << Settings();
    }
}

TEST_F(StartAndClose, FitsOnTheScreenWhateverIsStored) {
    WriteText(folder.Path("VarnoTicketFormatter.ini"),
              "[WindowSize]\nTop=450\nLeft=300\nWidth=90000\nHeight=70000\n");
    RealWindow window(folder);
    window.Start();
    EXPECT_TRUE(window.TopLevel()->screen()->availableGeometry().contains(
        window.TopLevel()->frameGeometry()));
}

TEST_F(StartAndClose, OpensTheFileOfTheCommandLine) {
    const std::string ticket = std::string(VARNO_SAMPLES) + "/Shop1.VRT";
    WriteText(folder.Path("small.vrb"), FileText(SampleBlock));
    struct Row {
        std::string commandLine;
        std::string rows;
        const char* listName;
        const char* ticketName;
    };
    const Row rows[] = {
        {"", "", " ", ""},
        {SampleBlock, "200 I|210 O|212 P|220|300|900", "Plant", ""},
        {folder.Path("small.vrb"), "200 I|210 O|212 P|220|300|900", "small", ""},
        {ticket, "", " ", "Shop1"},
        {"\"" + SampleBlock + "\"", "", " ", ""},  // quotation marks are not taken off
        {SampleBlock + " ", "", " ", ""},
    };
    for (const Row& row : rows) {
        RealWindow window(folder, row.commandLine);
        window.Start();
        EXPECT_EQ(window.Rows(), row.rows) << row.commandLine;
        EXPECT_EQ(window.Caption("ListName"), row.listName) << row.commandLine;
        EXPECT_EQ(window.Caption("TicketName"), row.ticketName) << row.commandLine;
        EXPECT_EQ(window.Ticket().empty(), row.ticketName[0] == '\0') << row.commandLine;
        EXPECT_FALSE(window.form.State().TicketChanged);
        window.Choose("Exit");
    }
}

TEST_F(StartAndClose, SaysWhichFileOfTheCommandLineCannotBeOpened) {
    WriteText(folder.Path("Picture.VRT"), "no rich text");
    for (const std::string& name : {std::string("gone.VRB"), std::string("Picture.VRT")}) {
        RealWindow window(folder, folder.Path(name));
        std::string said;
        window.platform.dialogs.Listen([&](const Message& message) {
            said += message.title + "|" + message.text;
            EXPECT_EQ(message.icon, Icon::Critical);
        });
        window.Start();
        EXPECT_EQ(said.find("Varno Ticket Formatter|" + folder.Path(name) + ": "), 0U) << said;
        EXPECT_EQ(window.Rows() + window.Caption("TicketName"), "");
        EXPECT_TRUE(window.Ticket().empty());
    }
}

TEST_F(StartAndClose, AsksAboutUnsavedWork) {
    {
        RealWindow window(folder);
        window.Start();
        window.TypeTicket("AB");
        window.Put("212");
        ScriptedDialogs& script = window.platform.dialogs;
        script.Expect(SaveTicketQuestion, Answer::Yes);
        script.ExpectSave(std::nullopt);  // cancelled: asks again
        script.Expect(SaveTicketQuestion, Answer::No);
        script.Expect(SaveBlockQuestion, Answer::Yes);
        script.ExpectSave(ChosenFile{folder.Path("Plant.VRB"), "Plant.VRB"});
        window.Choose("Exit");
        script.ExpectNoMore();
        EXPECT_TRUE(window.platform.hasQuit);
    }
    EXPECT_EQ(FileText(folder.Path("Plant.VRB")).size(), 8009U);
    EXPECT_TRUE(Stored("SaveList=" + folder.Folder())) << Settings();
}

// An empty editor and an empty list have nothing to lose, whatever changed before.
TEST_F(StartAndClose, DoesNotAskAboutNothing) {
    RealWindow window(folder);
    window.Start();
    window.TypeTicket("A");
    window.Put("212");
    QTest::keyClick(window.Widget<QWidget>("RichText"), Qt::Key_Backspace);
    window.ClickRow(0);
    window.Click("DeleteButton");
    EXPECT_TRUE(window.form.State().TicketChanged && window.form.State().block.BlockChanged);
    window.Choose("Exit");
    EXPECT_TRUE(window.platform.hasQuit);
}

}  // namespace
}  // namespace varno
