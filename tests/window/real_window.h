// The real main window on Qt, its files in a folder of its own. Stand-ins are only the operator's
// answers to questions and the wires of its serial ports.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QListWidget>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "app/form1.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_window.h"
#include "tests/window/scripted_dialogs.h"
#include "tests/window/scripted_line.h"

namespace varno {

class ScriptedPlatform final : public QtPlatform {
  public:
    using QtPlatform::QtPlatform;
    Dialogs& DialogBoxes() override { return dialogs; }
    void Quit() override { hasQuit = true; }
    std::unique_ptr<SerialControl> CreateSerialControl(int inBufferSize) override {
        EXPECT_EQ(inBufferSize, line == nullptr ? 8092 : 1024);
        return std::make_unique<ScriptedLine>(QtPlatform::CreateSerialControl(inBufferSize),
                                              line == nullptr ? line : terminalLine);
    }
    void DoEvents() override {
        QtPlatform::DoEvents();
        onDoEvents();
    }

    ScriptedDialogs dialogs;
    bool hasQuit = false;
    ScriptedLine* line = nullptr;          // the main window's
    ScriptedLine* terminalLine = nullptr;  // while the terminal is loaded
    std::function<void()> onDoEvents = [] {};
};

// A scratch folder that is also where the settings and the ports of the tests are.
class TestFolder {
  public:
    TestFolder() {
        qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
        qputenv("XDG_DATA_HOME", folder_.path().toUtf8());
    }
    std::string Path(const std::string& name) const {
        return folder_.filePath(QString::fromStdString(name)).toStdString();
    }
    std::string Folder() const { return folder_.path().toStdString() + "/"; }

  private:
    QTemporaryDir folder_;
};

inline std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

inline void WriteText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

class RealWindow {
  public:
    // `path`: where the catalogues are.
    explicit RealWindow(const TestFolder& files, const std::string& commandLine = "",
                        const std::string& path = VARNO_CATALOGUES)
        : folder(files),
          platform({.exeName = "VarnoTicketFormatter",
                    .folder = path,
                    .portsFolder = files.Path("data/ports"),
                    .commandLine = commandLine}),
          form(platform) {}

    // As the program starts.
    void Start() {
        form.Form_Load();
        form.Show();
        QApplication::setActiveWindow(TopLevel());
    }

    QWidget* TopLevel() { return static_cast<QtWindow&>(form.MainWindow()).Widget(); }
    template <class T>
    T& Get(const std::string& name) {
        return form.MainWindow().Get<T>(name);
    }
    template <class T>
    T* Widget(const char* name) {
        T* found = TopLevel()->findChild<T*>(QString::fromUtf8(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    // As the operator does: the menu opens first, and only an offered item can be chosen.
    void Choose(const char* menuItem) {
        auto* item = Widget<QAction>(menuItem);
        for (QObject* place : item->associatedObjects()) {
            if (auto* menu = qobject_cast<QMenu*>(place)) {
                emit menu->aboutToShow();
            }
        }
        EXPECT_TRUE(item->isEnabled() && item->isVisible()) << menuItem;
        item->trigger();
    }
    void Click(const char* button) { QTest::mouseClick(Widget<QWidget>(button), Qt::LeftButton); }
    // Types into whatever has the focus.
    void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void TypeTicket(const QString& text) {
        Widget<QWidget>("RichText")->setFocus();
        Type(text);
    }
    void Put(const QString& number) {
        Widget<QWidget>("TicketNumber")->setFocus();
        Get<TextBox>("TicketNumber").SetText(number.toStdString());
        Click("PutButton");
    }
    // Opens a block file of just this line.
    void Open(const std::string& image) {
        WriteText(folder.Path("Opened.VRB"), image + "\r\n");
        platform.dialogs.ExpectOpen(ChosenFile{folder.Path("Opened.VRB"), "Opened.VRB"});
        Choose("LoadList");
    }
    void ClickRow(int row) {
        auto* list = Widget<QListWidget>("TicketList");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    }
    std::string Rows() {
        auto& list = Get<ListBox>("TicketList");
        std::string rows;
        for (int row = 0; row < list.ListCount(); ++row) {
            rows += (row > 0 ? "|" : "") + list.List(row);
        }
        return rows;
    }
    // The key letters of the buttons that are pressed.
    std::string PressedKeys() {
        std::string letters;
        for (int key = 0; key < KeyCount; ++key) {
            const auto name = "KeyAssignment(" + std::to_string(key) + ")";
            if (Get<ToggleButton>(name).Value()) {
                letters += KeyLetter(key);
            }
        }
        return letters;
    }
    // One letter for each command, a capital letter where it is offered; "K" is a key button's.
    std::string Offered() {
        constexpr std::pair<const char*, char> Commands[] = {
            {"Retrieve", 'r'},         {"UploadButton", 'u'},     {"Serial", 's'},
            {"Transmit", 't'},         {"DownloadButton", 'd'},   {"SaveTicket", 'a'},
            {"SaveTicketAs", 'b'},     {"SaveList", 'l'},         {"PutButton", 'p'},
            {"EditButton", 'e'},       {"DeleteButton", 'x'},     {"KeyAssignment(0)", '0'},
            {"KeyAssignment(1)", '1'}, {"KeyAssignment(2)", '2'}, {"KeyAssignment(3)", '3'},
        };
        std::string shown;
        for (const auto& [command, letter] : Commands) {
            const char offered = letter <= '9' ? 'K' : static_cast<char>(letter - 32);
            shown += Get<Command>(command).Enabled() ? offered : letter;
        }
        return shown + (Get<MenuItem>("Abort").Visible() ? "+abort" : "");
    }
    std::string Caption(const char* label) { return Get<Label>(label).Caption(); }
    std::u16string Ticket() { return Get<RichTextBox>("RichText").Content().Text(); }

    const TestFolder& folder;
    ScriptedPlatform platform;
    Form1 form;
};

// A test in the window as it has started.
class WindowTest : public testing::Test {
  protected:
    enum class Catalogues { Samples, InFolder };
    explicit WindowTest(Catalogues catalogues = Catalogues::Samples)
        : window(folder, "",
                 catalogues == Catalogues::InFolder ? folder.Folder() : VARNO_CATALOGUES) {
        window.Start();
    }
    const WorkingState& State() { return window.form.State(); }

    TestFolder folder;
    RealWindow window;
    ScriptedDialogs& script = window.platform.dialogs;
    RichTextBox& box = window.Get<RichTextBox>("RichText");
    QTextEdit* edit = window.Widget<QTextEdit>("RichText");
};

inline const Message SaveTicketQuestion{"Save the current ticket?", "Ticket changed",
                                        Buttons::YesNo, Icon::Question};
inline const Message SaveBlockQuestion{"Save the current ticket block?", "Ticket block changed",
                                       Buttons::YesNo, Icon::Question};
inline const Message EditQuestion{"Save the current ticket?", "Ticket changed",
                                  Buttons::YesNoCancel, Icon::Question};

}  // namespace varno
