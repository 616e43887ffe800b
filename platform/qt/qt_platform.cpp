#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>
#include <QStyleFactory>

#include "platform/qt/measures.h"
#include "platform/qt/qt_window.h"
#include "platform/qt/serial_port_adapter.h"

namespace varno {

void PrepareApplication() {
    // One style everywhere: its faces fit the small places of the design; its colours are the
    // desktop theme's.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QGuiApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(QStringLiteral("varno-ticket-formatter"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64}) {
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size));
    }
    QGuiApplication::setWindowIcon(icon);
}

ProgramInfo ThisProgram() {
    const QFileInfo executable(QCoreApplication::applicationFilePath());
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();
    ProgramInfo info;
    info.exeName = FromQt(executable.completeBaseName());
    info.path = FromQt(executable.canonicalPath());
    info.dataFolder =
        FromQt(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) +
        "/VarnoTicketFormatter";
    info.commandLine = FromQt(arguments.join(u' '));
    return info;
}

QtPlatform::QtPlatform(ProgramInfo info) : info_(std::move(info)), settings_(info_.exeName) {}

std::unique_ptr<Window> QtPlatform::CreateWindow(const WindowDesign& design) {
    auto window = std::make_unique<QtWindow>(design, mainWindow_);
    if (mainWindow_ == nullptr) {
        mainWindow_ = window->Widget();
    }
    return window;
}

std::unique_ptr<SerialControl> QtPlatform::CreateSerialControl(int inBufferSize) {
    return MakeSerialControl(info_.dataFolder + "/ports", inBufferSize);
}

void QtPlatform::DoEvents() {
    QCoreApplication::processEvents();
}
void QtPlatform::Quit() {
    QCoreApplication::quit();
}

}  // namespace varno
