#include "tests/window/real_window.h"

#include <QApplication>
#include <QMenu>
#include <fstream>
#include <sstream>

namespace varno {

std::unique_ptr<SerialControl> ScriptedPlatform::CreateSerialControl(int inBufferSize) {
    EXPECT_EQ(inBufferSize, line == nullptr ? 8092 : 1024);
    return std::make_unique<ScriptedLine>(QtPlatform::CreateSerialControl(inBufferSize),
                                          line == nullptr ? line : terminalLine);
}

void ScriptedPlatform::DoEvents() {
    QtPlatform::DoEvents();
    onDoEvents();
}

TestFolder::TestFolder() {
    qputenv("XDG_CONFIG_HOME", folder_.path().toUtf8());
    qputenv("XDG_DATA_HOME", folder_.path().toUtf8());
    qputenv("XDG_STATE_HOME", folder_.path().toUtf8());
}

std::string TestFolder::Path(const std::string& name) const {
    return folder_.path().toStdString() + "/" + name;
}

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

RealWindow::RealWindow(const TestFolder& files, const std::string& commandLine,
                       const std::string& path)
    : folder(files),
      platform({.exeName = "VarnoTicketFormatter",
                .folder = path,
                .portsFolder = files.Path("data/ports"),
                .commandLine = commandLine}),
      form(platform) {}

void RealWindow::Start() {
    form.Form_Load();
    form.Show();
    QApplication::setActiveWindow(TopLevel());
}

QWidget* RealWindow::TopLevel() {
    return static_cast<QtWindow&>(form.MainWindow()).Widget();
}

void RealWindow::Choose(const char* menuItem) {
    auto* item = Widget<QAction>(menuItem);
    for (QObject* place : item->associatedObjects()) {
        if (auto* menu = qobject_cast<QMenu*>(place)) {
            emit menu->aboutToShow();
        }
    }
    EXPECT_TRUE(item->isEnabled() && item->isVisible()) << menuItem;
    item->trigger();
}

void RealWindow::Click(const char* button) {
    QTest::mouseClick(Widget<QWidget>(button), Qt::LeftButton);
}

void RealWindow::Type(const QString& text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void RealWindow::TypeTicket(const QString& text) {
    Widget<QWidget>("RichText")->setFocus();
    Type(text);
}

void RealWindow::Put(const QString& number) {
    Widget<QWidget>("TicketNumber")->setFocus();
    Get<TextBox>("TicketNumber").SetText(number.toStdString());
    Click("PutButton");
}

void RealWindow::Open(const std::string& image) {
    WriteText(folder.Path("Opened.VRB"), image + "\r\n");
    platform.dialogs.ExpectOpen(ChosenFile{folder.Path("Opened.VRB"), "Opened.VRB"});
    Choose("LoadList");
}

void RealWindow::ClickRow(int row) {
    auto* list = Widget<QListWidget>("TicketList");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

std::string RealWindow::Rows() {
    auto& list = Get<ListBox>("TicketList");
    std::string rows;
    for (int row = 0; row < list.ListCount(); ++row) {
        rows += (row > 0 ? "|" : "") + list.List(row);
    }
    return rows;
}

std::string RealWindow::PressedKeys() {
    std::string letters;
    for (int key = 0; key < KeyCount; ++key) {
        const auto name = "KeyAssignment(" + std::to_string(key) + ")";
        if (Get<ToggleButton>(name).Value()) {
            letters += KeyLetter(key);
        }
    }
    return letters;
}

std::string RealWindow::Offered() {
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

WindowTest::WindowTest(Catalogues catalogues)
    : window(folder, "", catalogues == Catalogues::InFolder ? folder.Folder() : VARNO_CATALOGUES) {
    window.Start();
}

WindowTest::~WindowTest() = default;

}  // namespace varno
