// From the start of the process to its first painted window, and its peak memory: the program
// against an empty Qt window with a text editor. Starts itself once for each run.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QMainWindow>
#include <QTextEdit>
#include <QTimer>
#include <cstring>

#include "app/form1.h"
#include "benchmarks/measure.h"
#include "platform/qt/qt_platform.h"

namespace varno {
namespace {

constexpr int Rounds = 11;

// Ends the program once the window has been painted.
class FirstPaint final : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !seen_) {
            seen_ = true;
            QTimer::singleShot(0, [] { QCoreApplication::quit(); });
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    bool seen_ = false;
};

int RunProgram() {
    PrepareApplication();
    QtPlatform platform(ThisProgram());
    Form1 form(platform);
    form.Form_Load();
    form.Show();
    return QApplication::exec();
}

int RunEmptyWindow() {
    QMainWindow window;
    window.setCentralWidget(new QTextEdit);
    window.show();
    return QApplication::exec();
}

struct Run {
    double seconds;
    double peakMemory;  // MB
};

Run Start(const char* self, const char* what) {
    rusage usage{};
    const double seconds = Seconds([&] {
        const pid_t child = fork();
        if (child == 0) {
            execl(self, self, what, nullptr);
            _exit(127);
        }
        int status = 0;
        wait4(child, &status, 0, &usage);
        if (status != 0) {
            std::printf("%s did not run\n", what);
        }
    });
    return {seconds, static_cast<double>(usage.ru_maxrss) / 1024};
}

void CompareStarts(const char* self) {
    std::vector<double> seconds[2];
    std::vector<double> memory[2];
    for (int round = -1; round < Rounds; ++round) {
        for (const int which : {0, 1}) {
            const Run run = Start(self, which == 0 ? "program" : "empty");
            if (round >= 0) {  // the first one warms the caches
                seconds[which].push_back(run.seconds);
                memory[which].push_back(run.peakMemory);
            }
        }
    }
    Report("start to first painted window / empty window", Median(seconds[0]), Median(seconds[1]),
           1.3);
    Report("peak memory / empty window", Median(memory[0]), Median(memory[1]), 1.3, "MB", 1);
}

}  // namespace
}  // namespace varno

int main(int argc, char** argv) {
    if (argc < 2) {
        varno::CompareStarts("/proc/self/exe");
        return 0;
    }
    const bool program = std::strcmp(argv[1], "program") == 0;
    argc = 1;  // what is started takes no argument
    QApplication application(argc, argv);
    varno::FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    return program ? varno::RunProgram() : varno::RunEmptyWindow();
}
