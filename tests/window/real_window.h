// The real main window on Qt, its files in a folder of its own. Stand-ins are only the operator's
// answers to questions and the wires of its serial ports.
#pragma once

#include <QAction>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <memory>
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
    std::unique_ptr<SerialControl> CreateSerialControl(int inBufferSize) override;
    void DoEvents() override;

    ScriptedDialogs dialogs;
    bool hasQuit = false;
    ScriptedLine* line = nullptr;          // the main window's
    ScriptedLine* terminalLine = nullptr;  // while the terminal is loaded
    Error OpenDocument(const std::string& path) override {
        opened.push_back(path);
        return QtPlatform::OpenDocument(path + ".none");  // says why it cannot be opened
    }

    std::vector<std::string> opened;  // documents
    std::function<void()> onDoEvents = [] {};
};

// A scratch folder that is also where the settings and the ports of the tests are.
class TestFolder {
  public:
    TestFolder();
    std::string Path(const std::string& name) const;
    std::string Folder() const { return Path(""); }  // with its separator

  private:
    QTemporaryDir folder_;
};

std::string FileText(const std::string& path);
void WriteText(const std::string& path, const std::string& text);

class RealWindow {
  public:
    // `path`: where the catalogues are.
    explicit RealWindow(const TestFolder& files, const std::string& commandLine = "",
                        const std::string& path = VARNO_CATALOGUES);

    void Start();  // as the program starts

    QWidget* TopLevel();
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
    void Choose(const char* menuItem);
    void Click(const char* button);
    void Type(const QString& text);  // into whatever has the focus
    void TypeTicket(const QString& text);
    void Put(const QString& number);
    void Open(const std::string& image);  // a block file of just this line
    void ClickRow(int row);

    std::string Rows();
    std::string PressedKeys();  // the key letters of the buttons that are pressed
    // One letter for each command, a capital letter where it is offered; "K" is a key button's.
    std::string Offered();
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
    explicit WindowTest(Catalogues catalogues = Catalogues::Samples);
    ~WindowTest() override;
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
