// The real main window on Qt, its questions answered by a script, its files in a folder of its own.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QListWidget>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "app/form1.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_window.h"
#include "tests/fakes/fake_dialogs.h"

namespace varno {

class ScriptedPlatform final : public QtPlatform {
  public:
    using QtPlatform::QtPlatform;
    Dialogs& Ask() override { return dialogs; }
    void Quit() override { hasQuit = true; }

    FakeDialogs dialogs;
    bool hasQuit = false;
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

class MainWindow {
  public:
    // `path`: where the catalogues are.
    explicit MainWindow(const TestFolder& folder, const std::string& commandLine = "",
                        const std::string& path = VARNO_CATALOGUES)
        : platform({.exeName = "VarnoTicketFormatter",
                    .path = path,
                    .dataFolder = folder.Path("data"),
                    .commandLine = commandLine}),
          form(platform) {}

    // As the program starts.
    void Start() {
        form.Form_Load();
        form.Show();
        QApplication::setActiveWindow(Shell());
    }

    QWidget* Shell() { return static_cast<QtWindow&>(form.MainWindow()).Widget(); }
    template <class T>
    T& Get(const std::string& name) {
        return form.MainWindow().Get<T>(name);
    }
    template <class T>
    T* Widget(const char* name) {
        T* found = Shell()->findChild<T*>(QString::fromUtf8(name));
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
    std::string Caption(const char* label) { return Get<Label>(label).Caption(); }
    std::u16string Ticket() { return Get<RichTextBox>("RichText").Content().Text(); }

    ScriptedPlatform platform;
    Form1 form;
};

inline const Message SaveTicketQuestion{"Save the current ticket?", "Ticket changed",
                                        Buttons::YesNo, Icon::Question};
inline const Message SaveBlockQuestion{"Save the current ticket block?", "Ticket block changed",
                                       Buttons::YesNo, Icon::Question};

}  // namespace varno
