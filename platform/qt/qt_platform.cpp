#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QIcon>
#include <QUrl>

#include "platform/qt/accessibility_bridge.h"
#include "platform/qt/measures.h"
#include "platform/qt/qt_window.h"
#include "platform/qt/serial/serial_port_adapter.h"
#include "platform/qt/style.h"
#include "platform/user_folder.h"

namespace varno {
namespace {

QFileInfo Executable() {
    return QFileInfo(QCoreApplication::applicationFilePath());
}

// While it lives, programs that are started get the folders of the user, and not those to practise
// in, which will go.
class UsersFolders {
  public:
    UsersFolders() {
        for (const char* name : Variables) {
            const QByteArray own = QByteArray(UsersOwn) + name;
            if (qEnvironmentVariableIsSet(own)) {
                toPractise_.emplace_back(name, qgetenv(name));
                Set(name, qgetenv(own));
            }
        }
    }
    ~UsersFolders() {
        for (const auto& [name, value] : toPractise_) {
            Set(name, value);
        }
    }
    UsersFolders(const UsersFolders&) = delete;
    UsersFolders& operator=(const UsersFolders&) = delete;

  private:
    static constexpr const char* Variables[] = {"XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                                "XDG_STATE_HOME", "XDG_CACHE_HOME"};

    static void Set(const char* name, const QByteArray& value) {
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    }

    std::vector<std::pair<const char*, QByteArray>> toPractise_;
};

}  // namespace

void PrepareApplication() {
    // The same when started through a link, so that the desktop knows the program's windows.
    QCoreApplication::setApplicationName(Executable().completeBaseName());
    // One style and one font everywhere, in boxes as in windows: they fit the small places of the
    // design. The colours are the desktop theme's.
    QApplication::setStyle(new Style);
    QApplication::setFont(ToQt(FontFace::Interface));
    QGuiApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(QStringLiteral("varno-ticket-formatter"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64}) {
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size));
    }
    QGuiApplication::setWindowIcon(icon);
    CompleteAccessibilityBridge();
}

ProgramInfo ThisProgram() {
    const QFileInfo executable = Executable();
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();
    ProgramInfo info;
    info.exeName = FromQt(executable.completeBaseName());
    info.folder = FromQt(executable.canonicalPath());
    info.portsFolder = PortsFolder();
    info.commandLine = FromQt(arguments.join(u' '));
    return info;
}

QtPlatform::QtPlatform(ProgramInfo info) : info_(std::move(info)), settings_(info_.exeName) {}

std::unique_ptr<Window> QtPlatform::CreateWindow(const WindowDesign& design) {
    auto window = std::make_unique<QtWindow>(design, mainWindow_);
    if (mainWindow_ == nullptr) {
        mainWindow_ = window->Widget();
        dialogs_.SetMainWindow(mainWindow_);
    }
    return window;
}

std::unique_ptr<SerialControl> QtPlatform::CreateSerialControl(int inBufferSize) {
    return MakeSerialControl(
        [folder = info_.portsFolder](int port, FoundPort& found) {
            return FindPort(port, folder, found);
        },
        inBufferSize);
}

Error QtPlatform::OpenDocument(const std::string& path) {
    const QString file = ToQt(path);
    if (!QFileInfo::exists(file)) {
        return path + ": there is no such file";
    }
    const UsersFolders folders;
    const bool isOpened = QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    return isOpened ? std::nullopt : Error(path + ": the desktop has no program that shows it");
}

void QtPlatform::DoEvents() {
    QCoreApplication::processEvents();
}
void QtPlatform::Quit() {
    QCoreApplication::quit();
}

}  // namespace varno
