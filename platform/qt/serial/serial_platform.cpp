#include "platform/qt/serial/serial_platform.h"

#include <QCoreApplication>
#include <QSerialPortInfo>
#include <QTimer>
#include <utility>

#include "platform/qt/qt_settings.h"
#include "platform/qt/serial/serial_port_adapter.h"
#include "platform/user_folder.h"

namespace varno {
namespace {

constexpr int TickMilliseconds = 20;

}  // namespace

struct SerialPlatform::Parts {
    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    QtSettings settings{ProgramName};
    QTimer tick;
};

SerialPlatform::SerialPlatform(std::function<void()> onTick) : parts_(std::make_unique<Parts>()) {
    QObject::connect(&parts_->tick, &QTimer::timeout, &parts_->tick, std::move(onTick));
    parts_->tick.start(TickMilliseconds);
}

SerialPlatform::~SerialPlatform() = default;

std::unique_ptr<SerialControl> SerialPlatform::CreateSerialControl(PortFinder findPort,
                                                                   int inBufferSize) {
    return MakeSerialControl(std::move(findPort), inBufferSize);
}

const SettingsStore& SerialPlatform::Settings() const {
    return parts_->settings;
}

void SerialPlatform::DoEvents() {
    QCoreApplication::processEvents();
}
void SerialPlatform::WaitForEvents() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

std::map<std::string, Adapter> Adapters() {
    std::map<std::string, Adapter> adapters;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        adapters[port.systemLocation().toStdString()] = {port.description().toStdString(),
                                                         port.serialNumber().toStdString()};
    }
    return adapters;
}

}  // namespace varno
