// The speed of the link against the simulated indicator, which runs beside this program: how long
// transfers take compared with the line itself, what they cost, and how long the window would have
// to wait for its events meanwhile.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <utility>

#include "benchmarks/measure.h"
#include "block/image.h"
#include "link/block_transfer.h"
#include "link/communications.h"
#include "link/port_session.h"
#include "platform/qt/serial/serial_port_adapter.h"
#include "tests/line/event_loop.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

constexpr int WindowAnswersWithin = 50;  // milliseconds
// What the indicator waits for: of a download the image without the fill.
constexpr double DownloadCharacters = 8007;
constexpr double UploadCharacters = 8009;
constexpr int CallRounds = 7;

class IndicatorProcess {
  public:
    IndicatorProcess() {
        process_.start(QCoreApplication::applicationDirPath() + "/varno-indicator",
                       {"--port", "1", "--ports-folder", Folder()});
        Answer("COM1");
    }
    ~IndicatorProcess() {
        process_.terminate();
        process_.waitForFinished();
    }
    QString Folder() const { return QString::fromStdString(folder_.Path()); }

    void Command(const QByteArray& line, const QByteArray& answer = {}) {
        process_.write(line + "\n");
        Answer(answer);
    }
    // Waits for it on the indicator's screen.
    void Answer(const QByteArray& text) {
        const bool came = WaitFor(
            [&] { return (screen_ += process_.readAllStandardOutput()).contains(text); }, 30000);
        if (!came) {
            throw std::runtime_error("the indicator did not say " + text.toStdString());
        }
        screen_.remove(0, screen_.indexOf(text) + text.size());
    }

  private:
    ScratchFolder folder_;
    QProcess process_;
    QByteArray screen_;
};

// The longest time between two turns of the event loop, and the most processor time of this program
// between two turns; the former is longer where other programs take the processor. Milliseconds.
class GapWatch {
  public:
    GapWatch() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            largest_ = std::max(largest_, since_.restart());
            const std::clock_t use = std::clock();
            largestUse_ = std::max(largestUse_, use - std::exchange(lastUse_, use));
        });
        since_.start();
        timer_.start(1);
    }
    void Print() const;

  private:
    QTimer timer_;
    QElapsedTimer since_;
    qint64 largest_ = 0;
    std::clock_t lastUse_ = std::clock();
    std::clock_t largestUse_ = 0;
};

void Print(const char* what, double value, double limit, const char* unit = "") {
    std::printf("%-58s %7.3f%s (at most %g%s)%s\n", what, value, unit, limit, unit,
                value <= limit ? "" : "  TOO MUCH");
}

void GapWatch::Print() const {
    varno::Print("largest gap between turns of the event loop", static_cast<double>(largest_),
                 WindowAnswersWithin, " ms");
    varno::Print("  most processor time of this program in a gap",
                 static_cast<double>(largestUse_) * 1000 / CLOCKS_PER_SEC, WindowAnswersWithin,
                 " ms");
}

struct Bench {
    IndicatorProcess indicator;
    std::unique_ptr<SerialControl> port = MakeSerialControl(
        [folder = indicator.Folder().toStdString()](int number, FoundPort& found) {
            return FindPort(number, folder, found);
        },
        InBufferSize);

    void OpenPort() {
        if (const Error error = port->OpenPort()) {
            throw std::runtime_error(*error);
        }
    }
    // Until the indicator has captured. The program may be done earlier, since a pseudo-terminal
    // takes characters that the line has still to carry.
    double DownloadSeconds() {
        indicator.Command("78", "capturing\n");
        QElapsedTimer elapsed;
        elapsed.start();
        OpenPort();
        PortSession session(*port);
        SendBlock(NewTicketBuffer(), session,
                  {[](int) {}, [] { QCoreApplication::processEvents(); }});
        port->ClosePort();
        indicator.Answer("captured, 0 tickets");
        return static_cast<double>(elapsed.nsecsElapsed()) / 1e9;
    }
    double UploadSeconds() {
        std::string image;
        bool complete = false;
        port->OnReceive = [&, incoming = IncomingBlock()]() mutable {
            complete = incoming.Take(port->Input(), image).complete;
        };
        OpenPort();
        QElapsedTimer elapsed;
        elapsed.start();
        indicator.Command("77");
        WaitFor([&] { return complete; }, 30000);
        port->ClosePort();
        return static_cast<double>(elapsed.nsecsElapsed()) / 1e9;
    }

    // varno-tickets itself, from what it says before it opens the port until the indicator has
    // captured. What starting any program costs is no matter of the line.
    double SendSeconds(const QString& settings) {
        indicator.Command("78", "capturing\n");
        QProcess tool;
        Start(tool, {"send", "--settings", settings, SampleBlock()});
        AwaitPrompt(tool, "78");
        QElapsedTimer elapsed;
        elapsed.start();
        indicator.Answer("captured, 6 tickets");
        const qint64 time = elapsed.nsecsElapsed();
        RequireDone(tool);
        return static_cast<double>(time) / 1e9;
    }
    // From the indicator's start, when the tool has asked for it, until the tool has ended.
    double ReceiveSeconds(const QString& settings) {
        QProcess tool;
        Start(tool,
              {"receive", "--force", "--settings", settings, indicator.Folder() + "/got.VRB"});
        AwaitPrompt(tool, "77");
        QElapsedTimer elapsed;
        elapsed.start();
        indicator.Command("77");
        RequireDone(tool);
        return static_cast<double>(elapsed.nsecsElapsed()) / 1e9;
    }
    void Start(QProcess& tool, const QStringList& arguments) const {
        tool.start(QCoreApplication::applicationDirPath() + "/varno-tickets",
                   arguments + QStringList{"--port", indicator.Folder() + "/COM1", "--backup",
                                           indicator.Folder() + "/copies"});
    }
    static void AwaitPrompt(QProcess& tool, const QByteArray& parameter) {
        QByteArray said;
        WaitFor([&] { return (said += tool.readAllStandardError()).contains(parameter); }, 30000);
    }
    static QString SampleBlock() { return QCoreApplication::applicationDirPath() + "/Plant.VRB"; }
    static void RequireDone(QProcess& tool) {
        if (!WaitFor([&] { return tool.state() == QProcess::NotRunning; }, 30000) ||
            tool.exitCode() != 0) {
            throw std::runtime_error(tool.readAllStandardError().toStdString());
        }
    }
    void Calls(int rate) {
        indicator.Command("speed " + QByteArray::number(rate));
        const QString settings = QString::number(rate) + ",n,8,1";
        std::vector<double> send;
        std::vector<double> receive;
        for (int round = 0; round < CallRounds; ++round) {
            send.push_back(SendSeconds(settings) * rate / 10 / DownloadCharacters);
            receive.push_back(ReceiveSeconds(settings) * rate / 10 / UploadCharacters);
        }
        const std::string at = " at " + std::to_string(rate) + " baud / time of the line";
        Print(("varno-tickets send" + at).c_str(), Median(send), 1.02);
        Print(("varno-tickets receive" + at).c_str(), Median(receive), 1.02);
    }

    void Paced(int rate) {
        indicator.Command("speed " + QByteArray::number(rate));
        const GapWatch gaps;
        const auto label = [rate](const char* what) {
            return std::string(what) + " at " + std::to_string(rate) + " baud / time of the line";
        };
        Print(label("download").c_str(), DownloadSeconds() * rate / 10 / DownloadCharacters, 1.02);
        Print(label("upload").c_str(), UploadSeconds() * rate / 10 / UploadCharacters, 1.02);
        gaps.Print();
    }
    void Unpaced() {
        indicator.Command("speed 0");
        const GapWatch gaps;
        const std::clock_t before = std::clock();
        DownloadSeconds();
        Print("unpaced download, processor time",
              static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 0.3, " s");
        gaps.Print();
    }
};

}  // namespace
}  // namespace varno

int main(int argc, char** argv) {
    try {
        const QCoreApplication application(argc, argv);
        varno::Bench bench;
        bench.Unpaced();
        bench.Paced(115200);
        bench.Paced(9600);
        bench.Calls(115200);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench_link: %s\n", failure.what());
        return 1;
    }
}
