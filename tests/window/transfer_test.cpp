// Upload, download and the settings of the serial port in the window.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>

#include "link/block_transfer.h"
#include "tests/block/block_samples.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

using Texts = std::vector<std::string>;

// Two tickets, 212 bound to Print and 640 to none.
const std::string Image =
    SealTicketBuffer(Record(212, "{b}P{k}B") + Record(640, "C") + Tail({212}));
const std::string Fill(362, 'F');

class Transfers : public WindowTest {
  protected:
    Transfers() {
        window.Open(Image);
        window.Widget<QLabel>("Message")->installEventFilter(&painted);
        window.platform.onDoEvents = [this] { happen(++turn); };
    }
    void Upload(const char* error = nullptr) {
        ExpectWarning(Answer::Ok);
        ExpectError(error, "Error");
        window.Click("UploadButton");
    }
    void Download(const char* error = nullptr) {
        ExpectConfirmation(Answer::Ok);
        ExpectError(error, "");
        window.Click("DownloadButton");
    }
    // Something happens while events run behind the 1000th character.
    void DownloadWith(const std::function<void()>& act) {
        turn = 0;
        happen = [&](int now) { now == 1000 ? act() : void(); };
        Download();
    }
    void ExpectWarning(Answer answer) {
        script.Expect(
            {"Items in ticket block will be lost.", "Warning", Buttons::OkCancel, Icon::Critical},
            answer);
    }
    void ExpectConfirmation(Answer answer) {
        script.Expect({"Start TICKET BUFFER CAPTURING in Varno (parameter 78),\r\n"
                       "then click OK button.",
                       "", Buttons::OkCancel, Icon::Exclamation},
                      answer);
    }
    void ExpectError(const char* error, const char* title) {
        if (error != nullptr) {
            script.Expect({error, title, Buttons::Ok, Icon::Critical}, Answer::Ok);
        }
    }
    bool PromptIsSeen() { return window.Get<Label>("Message").Visible(); }

    // What Message has shown, each text once.
    class Painted final : public QObject {
      public:
        bool eventFilter(QObject* label, QEvent* event) override {
            const auto text = static_cast<QLabel*>(label)->text().toStdString();
            const bool isNew = texts.empty() || texts.back() != text;
            if (event->type() == QEvent::Paint && isNew) {
                texts.push_back(text);
            }
            return false;
        }
        bool Has(const std::string& text) const {
            return std::find(texts.begin(), texts.end(), text) != texts.end();
        }
        Texts texts;
    } painted;
    ScriptedLine& line = *window.platform.line;
    int turn = 0;  // how often events ran
    std::function<void(int)> happen = [](int) {};
};

TEST_F(Transfers, DoNotStartWithoutConsentOrPort) {
    ExpectWarning(Answer::Cancel);
    window.Choose("Retrieve");
    ExpectConfirmation(Answer::Cancel);
    window.Choose("Transmit");
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(window.Offered(), "RUSTDablpex0123");

    line.openError = "in use";
    Upload("in use");
    Download("in use");
    EXPECT_EQ(window.Offered(), "RUSTDablpex0123+abort");
    EXPECT_EQ(window.Caption("Message"), "");
    EXPECT_EQ(window.Rows(), "212 P|640");
    EXPECT_EQ(line.sent, "");
}

TEST_F(Transfers, UploadTellsWhereItIs) {
    window.TypeTicket("ticket");
    Upload();
    EXPECT_TRUE(window.Widget<QWidget>("TicketList")->hasFocus());
    EXPECT_TRUE(box.HasText());
    EXPECT_EQ(window.Offered(), "rustdABlPex0123+abort");
    EXPECT_TRUE(window.Get<Timer>("Timer1").Enabled());
    Texts captions = {window.Caption("Message")};
    window.Get<Label>("Message").SetVisible(false);
    for (const std::string& chunk :
         {"#" + Image.substr(0, 81), Image.substr(81, 7924), Image.substr(8005, 1)}) {
        line.Arrive(chunk);
        captions.push_back(window.Caption("Message"));
    }
    EXPECT_EQ(captions, (Texts{"Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)",
                               "Receiving ticket buffer from Varno ... 0%",
                               "Receiving ticket buffer from Varno ... 1%",
                               "Receiving ticket buffer from Varno ... 99%"}));
    EXPECT_TRUE(PromptIsSeen());
    EXPECT_FALSE(window.Get<Timer>("Timer1").Enabled());
    EXPECT_EQ(window.Rows(), "");
    EXPECT_FALSE(box.HasText());
    EXPECT_EQ(window.Offered(), "rustdablpex0123+abort");

    line.Arrive(Image.substr(8006) + "\r\n");
    EXPECT_EQ(window.Offered(), "RUSTDablpex0123");
    EXPECT_EQ(window.Caption("Message"), "");
    EXPECT_EQ(State().block.TicketBuffer, Image);
    EXPECT_EQ(window.Rows(), "212 P|640");
    EXPECT_FALSE(line.PortOpen());
}

// The ":" of an upload that was aborted is not the next one's.
TEST_F(Transfers, AnAbortedUploadIsForgotten) {
    Upload();
    line.Arrive(Image);
    window.Choose("Abort");
    window.Choose("Retrieve");
    line.Arrive("\r");
    EXPECT_TRUE(line.PortOpen());
}

TEST_F(Transfers, DownloadSendsImageAndFillUnderItsProgress) {
    window.Get<Label>("Message").SetVisible(false);
    Download();
    EXPECT_TRUE(line.sent == Image + Fill);
    Texts texts;
    for (int percent = 1; percent <= 100; ++percent) {
        texts.push_back("Transmitting ticket block to Varno ... " + std::to_string(percent) + "%");
    }
    EXPECT_EQ(painted.texts, texts);
    EXPECT_TRUE(PromptIsSeen());
    EXPECT_EQ(window.Caption("Message"), "");
    EXPECT_TRUE(window.Widget<QWidget>("TicketList")->hasFocus());
    EXPECT_EQ(window.Offered(), "RUSTDablpex0123");
    EXPECT_FALSE(line.PortOpen());
}

TEST_F(Transfers, DownloadSendsItsBlockWhateverHappensMeanwhile) {
    const std::pair<const char*, std::function<void()>> happenings[] = {
        {"characters arrive", [this] { line.Arrive(Image + "\r"); }},
        {"other transfers find the port open",
         [this] {
             Download("already open");
             Upload("already open");
         }},
        {"a new download after Abort",
         [this] {
             window.Choose("Abort");
             line.sent.clear();
             Download();
         }},
        {"the block changes",
         [this] {
             window.ClickRow(1);
             window.Click("DeleteButton");
         }},
    };
    for (const auto& [name, act] : happenings) {
        SCOPED_TRACE(name);
        EXPECT_EQ(window.Rows(), "212 P|640");
        line.sent.clear();
        DownloadWith(act);
        EXPECT_TRUE(line.sent == Image + Fill);
        EXPECT_FALSE(line.PortOpen());
    }
    EXPECT_EQ(window.Rows(), "212 P");
}

TEST_F(Transfers, AbortEndsADownloadAtOnceUnderItsProgress) {
    DownloadWith([] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); });
    EXPECT_TRUE(line.sent == Image.substr(0, 1000));
    EXPECT_TRUE(painted.Has(TransmittingText(100)));
    EXPECT_EQ(window.Offered(), "RUSTDablpex0123");
}

TEST_F(Transfers, ClosingEndsADownloadWithoutAWord) {
    DownloadWith([this] { window.Choose("Exit"); });
    EXPECT_TRUE(line.sent == Image.substr(0, 1000));
    EXPECT_EQ(turn, 1000);
    EXPECT_EQ(window.Caption("Message"), "");
    EXPECT_TRUE(window.platform.hasQuit);
}

TEST_F(Transfers, FailureLeavesNoHoleInADownload) {
    happen = [this](int now) { line.broken = now == 1000; };
    Download();
    EXPECT_TRUE(line.sent == Image.substr(0, 1000));
    EXPECT_TRUE(painted.Has(TransmittingText(100)));
}

TEST_F(Transfers, DownloadLeavesAnUploadAloneThatBeganAfterAbort) {
    const auto startUpload = [this] {
        window.Choose("Abort");
        Upload();
    };
    DownloadWith(startUpload);
    EXPECT_EQ(line.sent.size(), 1000U);
    window.Choose("Abort");
    happen = [](int) {};
    line.onWaitForRoom = [&, now = 0]() mutable { ++now == 8007 + 5 ? startUpload() : void(); };
    Download();
    EXPECT_EQ(line.sent.size(), 1000U + 8007 + 2 * 4);
    EXPECT_TRUE(window.Caption("Message").starts_with("Start TICKET BUFFER TRANSMISSION"));
    line.Arrive(Image + "\r");
    EXPECT_EQ(window.Rows(), "212 P|640");
    EXPECT_EQ(window.Offered(), "RUSTDablpex0123");
}

// Longer shown than hidden, until Esc aborts; then it stays hidden.
TEST_F(Transfers, PromptBlinks) {
    auto& timer = window.Get<Timer>("Timer1");
    Upload();
    timer.OnTimer();
    EXPECT_FALSE(PromptIsSeen());
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return PromptIsSeen(); }, 10000));
    const qint64 hidden = elapsed.restart();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !PromptIsSeen(); }, 10000));
    EXPECT_LT(hidden, elapsed.elapsed());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
    EXPECT_TRUE(line.PortOpen());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(line.PortOpen());
    for (int tick = 0; tick < 2; ++tick) {
        timer.OnTimer();
        EXPECT_FALSE(PromptIsSeen());
    }
}

TEST_F(Transfers, EachSettingOfThePortIsTakenOrRefusedByItself) {
    const auto noPort = [](const std::string& number) {
        return "There is no port number " + number + ": ports are numbered 1 to 256.";
    };
    const auto wrong = [](const std::string& settings) {
        return "The settings \"" + settings +
               "\" are wrong: they are rate, parity, data bits and stop bits, separated by "
               "commas, such as 9600,n,8,1.";
    };
    struct {
        const char* entry;
        const char* taken;
        Texts errors;
    } const table[] = {
        {"3:4800,o,7,2", "3:4800,o,7,2", {}},  // unchanged
        {"2:9600,e,7,1", "2:9600,e,7,1", {}},
        {"9600,n,8,1",
         "3:9600,n,8,1",
         {"There is no \":\" between the port number and the settings."}},
        {"0:9600,n,8,1", "3:9600,n,8,1", {noPort("0")}},
        {"1:", "1:4800,o,7,2", {wrong("")}},
        {"x:y", "3:4800,o,7,2", {noPort("0"), wrong("y")}},
        {"40000:9600,n,8,1", "3:9600,n,8,1", {"The port number \"40000\" is too large."}},
        {"2:9600:1", "2:4800,o,7,2", {wrong("9600:1")}},
        {"", "3:4800,o,7,2", {}},  // cancelled
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.entry);
        EXPECT_FALSE(line.SetCommPort(3) || line.SetSettings("4800,o,7,2"));
        script.ExpectInput("COM Port Parameters",
                           "\r\n\r\n\r\nEnter PC's Serial Port Parameters\r\n"
                           "(COM: BaudRate, Parity, DataBits, StopBits)",
                           row.entry);
        for (const std::string& error : row.errors) {
            ExpectError(error.c_str(), "ERROR");
        }
        window.Choose("Serial");
        script.ExpectNoMore();
        EXPECT_EQ(script.inputDefaults.back(), "3:4800,o,7,2");
        EXPECT_EQ(std::to_string(line.CommPort()) + ":" + line.Settings(), row.taken);
    }
}

}  // namespace
}  // namespace varno
