#include "platform/qt/serial/serial_port_adapter.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSerialPort>
#include <QTimer>
#include <cerrno>
#include <cstring>
#include <functional>
#include <utility>

#include "platform/serial/port_numbers.h"
#include "platform/serial/port_sentences.h"
#include "platform/serial/serial_settings.h"
#include "platform/serial/serial_system.h"

namespace varno {

namespace {

constexpr int HangUpWatchMilliseconds = 250;
constexpr int QueuePollMilliseconds = 5;  // the system's queue raises no event of its own
constexpr double DrainSlackSeconds = 1;

QSerialPort::Parity ParityOf(char letter) {
    switch (letter) {
        case 'e':
            return QSerialPort::EvenParity;
        case 'o':
            return QSerialPort::OddParity;
        case 'm':
            return QSerialPort::MarkParity;
        case 's':
            return QSerialPort::SpaceParity;
        default:
            return QSerialPort::NoParity;
    }
}

QSerialPort::StopBits StopBitsOf(StopBits stopBits) {
    switch (stopBits) {
        case StopBits::OneAndAHalf:
            return QSerialPort::OneAndHalfStop;
        case StopBits::Two:
            return QSerialPort::TwoStop;
        default:
            return QSerialPort::OneStop;
    }
}

// A number on one system, a pointer on the other: the cast takes both.
SystemHandle Device(const QSerialPort& port) {
    return SystemHandle(port.handle());
}

// The error that Qt reports is only that the line took nothing at this moment; Qt tries again.
bool WasOnlyBusy(const QSerialPort& port) {
    return port.error() == QSerialPort::ResourceError &&
           port.errorString() == QString::fromLocal8Bit(std::strerror(EAGAIN));
}

// Forgets what arrived before the port was opened.
void DiscardStaleInput(QSerialPort& port) {
    // What the system's first buffer could not hold follows once that one is empty.
    constexpr int maxRounds = 50;
    constexpr int followsWithinMilliseconds = 1;
    int rounds = 0;
    do {
        port.clear(QSerialPort::Input);
    } while (++rounds < maxRounds && InputFollows(Device(port), followsWithinMilliseconds));
}

class SerialPortAdapter final : public SerialControl {
  public:
    SerialPortAdapter(PortFinder findPort, int inBufferSize);
    ~SerialPortAdapter() override { SerialPortAdapter::ClosePort(); }

    int CommPort() const override { return commPort_; }
    Error SetCommPort(int port) override;
    std::string Settings() const override { return settingsText_; }
    Error SetSettings(const std::string& settings) override;
    bool PortOpen() const override { return port_.isOpen() && !lost_; }
    Error OpenPort() override;
    void ClosePort() override;
    Error Output(std::string_view characters) override;
    void WaitForRoom(int characters) override;
    Error Drain() override;
    std::string Input() override { return port_.readAll().toStdString(); }

  private:
    Error WhyNotOpened() const;
    Error WhyClosed() const;
    void Connect();
    void Lose();
    int Unsent();
    bool HasRoom(qint64 characters);
    void WaitWhile(const std::function<bool()>& condition);

    PortFinder findPort_;
    int commPort_ = DefaultCommPort;
    std::string settingsText_{DefaultSerialSettings};
    SerialSettings settings_;
    // Of the last opening; the settings may have changed since.
    FoundPort found_ = {"", "The serial port"};
    double secondsPerCharacter_ = 0;
    bool lost_ = false;  // the open device has failed; it is closed as soon as events run
    int opening_ = 0;    // counts openings and closings: what was queued before does not count
    qint64 unsentAtMost_ = 0;  // spares asking the system for each character
    QSerialPort port_;
    QTimer hangUpWatch_;
};

SerialPortAdapter::SerialPortAdapter(PortFinder findPort, int inBufferSize)
    : findPort_(std::move(findPort)) {
    port_.setReadBufferSize(inBufferSize);
    hangUpWatch_.setInterval(HangUpWatchMilliseconds);
    QObject::connect(&hangUpWatch_, &QTimer::timeout, &hangUpWatch_, [this] {
        if (HungUp(Device(port_))) {
            Lose();
        }
    });
}

Error SerialPortAdapter::SetCommPort(int port) {
    if (port < 1 || port > MaxCommPort) {
        return "There is no port number " + std::to_string(port) + ": ports are numbered 1 to " +
               std::to_string(MaxCommPort) + ".";
    }
    commPort_ = port;
    return std::nullopt;
}

Error SerialPortAdapter::SetSettings(const std::string& settings) {
    Error error = ParseSerialSettings(settings, settings_);
    if (!error) {
        settingsText_ = settings;
    }
    return error;
}

Error SerialPortAdapter::OpenPort() {
    if (PortOpen()) {
        return found_.name + " is open already: a transfer is running.";
    }
    ClosePort();
    if (Error error = findPort_(commPort_, found_)) {
        return error;
    }
    port_.setPortName(QString::fromStdString(found_.device));
    secondsPerCharacter_ = SecondsPerCharacter(settings_);
    port_.setBaudRate(settings_.rate);
    port_.setParity(ParityOf(settings_.parity));
    port_.setDataBits(static_cast<QSerialPort::DataBits>(settings_.dataBits));
    port_.setStopBits(StopBitsOf(settings_.stopBits));
    port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!port_.open(QIODevice::ReadWrite)) {
        return WhyNotOpened();
    }
    DiscardStaleInput(port_);
    lost_ = false;
    unsentAtMost_ = 0;
    ++opening_;
    Connect();
    hangUpWatch_.start();
    return std::nullopt;
}

Error SerialPortAdapter::WhyNotOpened() const {
    switch (port_.error()) {
        case QSerialPort::PermissionError:  // what this user may not do has been ruled out
            return BusyPortSentence(found_.name);
        case QSerialPort::UnsupportedOperationError:
            return found_.name + " does not work with the settings " + settingsText_ + ".";
        default:
            return found_.name + " cannot be opened: " + port_.errorString().toStdString() + ".";
    }
}

Error SerialPortAdapter::WhyClosed() const {
    return lost_ ? LostPortSentence(found_.name) : found_.name + " is not open.";
}

void SerialPortAdapter::Connect() {
    // Queued, so that a receiver may do anything: inside the signal Qt would not announce more.
    QObject::connect(
        &port_, &QSerialPort::readyRead, &hangUpWatch_,
        [this] {
            if (port_.bytesAvailable() > 0 && OnReceive) {
                OnReceive();
            }
        },
        Qt::QueuedConnection);
    QObject::connect(&port_, &QSerialPort::errorOccurred, &hangUpWatch_,
                     [this](QSerialPort::SerialPortError error) {
                         if (error != QSerialPort::NoError && !WasOnlyBusy(port_)) {
                             Lose();
                         }
                     });
}

// The first error is the last: a device that went away would repeat it without end. It is closed
// later, since Qt does not expect that while it reports the error.
void SerialPortAdapter::Lose() {
    lost_ = true;
    hangUpWatch_.stop();
    QObject::disconnect(&port_, &QSerialPort::errorOccurred, nullptr, nullptr);
    QMetaObject::invokeMethod(
        &hangUpWatch_,
        [this, opening = opening_] {
            if (opening == opening_) {
                ClosePort();
            }
        },
        Qt::QueuedConnection);
}

void SerialPortAdapter::ClosePort() {
    if (!port_.isOpen()) {
        return;
    }
    ++opening_;
    hangUpWatch_.stop();
    QObject::disconnect(&port_, nullptr, nullptr, nullptr);
    if (!lost_ && Unsent() > 0) {
        port_.clear();  // or the system would go on sending, and closing would wait for it
    }
    port_.close();
}

Error SerialPortAdapter::Output(std::string_view characters) {
    if (!PortOpen()) {
        return WhyClosed();
    }
    const auto count = static_cast<qint64>(characters.size());
    if (!HasRoom(count)) {
        return found_.name + " takes no more characters: the line stands still.";
    }
    if (port_.write(characters.data(), count) != count) {
        return found_.name + " cannot send: " + port_.errorString().toStdString() + ".";
    }
    unsentAtMost_ += count;
    return std::nullopt;
}

void SerialPortAdapter::WaitForRoom(int characters) {
    WaitWhile([this, characters] { return !HasRoom(characters); });
}

Error SerialPortAdapter::Drain() {
    const double seconds = 2 * Unsent() * secondsPerCharacter_ + DrainSlackSeconds;
    const QDeadlineTimer deadline(static_cast<qint64>(seconds * 1000));
    WaitWhile([this, &deadline] { return Unsent() > 0 && !deadline.hasExpired(); });
    if (!PortOpen()) {
        return WhyClosed();
    }
    if (HungUp(Device(port_))) {
        return LostPortSentence(found_.name);  // what the system had queued is gone
    }
    return Unsent() > 0 ? Error(found_.name + " has not sent everything: the line stands still.")
                        : Error();
}

bool SerialPortAdapter::HasRoom(qint64 characters) {
    if (unsentAtMost_ + characters > OutBufferSize) {
        unsentAtMost_ = Unsent();
    }
    return unsentAtMost_ + characters <= OutBufferSize;
}

int SerialPortAdapter::Unsent() {
    return static_cast<int>(port_.bytesToWrite()) + QueuedBySystem(Device(port_));
}

// Also ends when this opening of the port does.
void SerialPortAdapter::WaitWhile(const std::function<bool()>& condition) {
    const int opening = opening_;
    const auto waiting = [&] { return PortOpen() && opening == opening_ && condition(); };
    if (!waiting()) {
        return;
    }
    QTimer wake;
    wake.start(QueuePollMilliseconds);
    do {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } while (waiting());
}

}  // namespace

std::unique_ptr<SerialControl> MakeSerialControl(PortFinder findPort, int inBufferSize) {
    return std::make_unique<SerialPortAdapter>(std::move(findPort), inBufferSize);
}

}  // namespace varno
