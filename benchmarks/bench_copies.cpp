// What copies cost: the window's thread, which must not be held up, and the thread that writes them
// beside it; and a folder with more copies than a busy year makes.
#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <ctime>
#include <exception>

#include "app/form1.h"
#include "benchmarks/measure.h"
#include "block/block_file.h"
#include "block/image.h"
#include "history/history_keeper.h"
#include "platform/files.h"
#include "platform/qt/qt_platform.h"

namespace varno {
namespace {

constexpr int Rounds = 21;
constexpr double CopyTakesAtMost = 5;  // milliseconds
constexpr int ManyCopies = 10'000;
constexpr std::size_t LargestTicket =
    70'000;  // characters: 1,995 codes, each on a line with its comment
constexpr std::size_t LongestTicket = 499'000;  // nearly what the editor takes

double ProcessorTime(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// Of this thread alone, milliseconds.
template <class Work>
double MedianTime(Work&& work) {
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        const double start = ProcessorTime(CLOCK_THREAD_CPUTIME_ID);
        work(round);
        times.push_back(ProcessorTime(CLOCK_THREAD_CPUTIME_ID) - start);
    }
    return Median(times);
}

void Print(const char* what, double time, double limit) {
    std::printf("%-58s %8.2f ms (at most %g)%s\n", what, time, limit,
                time <= limit ? "" : "  TOO MUCH");
}

MarkedText TicketOf(std::size_t length) {
    MarkedText text;
    text.Reserve(length);
    while (text.Length() + 40 <= length) {
        text.Append(u"31 characters of ticket text....\u00AC\r\n", {});
    }
    return text;
}

// Each copy follows a change; the change alone is taken off.
void BenchWindow(Form1& form) {
    auto& editor = form.MainWindow().Get<RichTextBox>("RichText");
    auto& timer = form.MainWindow().Get<Timer>("SafekeepingTimer");
    const auto change = [&](int round) { editor.SetSelText(round % 2 == 0 ? u"a" : u"b"); };
    const auto changeAndCopy = [&](int round) {
        change(round);
        timer.OnTimer();
    };
    editor.SetContent(TicketOf(LargestTicket));
    editor.SetSelStart(0);
    Print("copy of the largest ticket, in the window's thread",
          MedianTime(changeAndCopy) - MedianTime(change), CopyTakesAtMost);
    timer.OnTimer();
    Print("  of one that has not changed", MedianTime([&](int) { timer.OnTimer(); }), 0.1);
    editor.SetContent(TicketOf(LongestTicket));
    editor.SetSelStart(0);
    const double key = MedianTime(change);
    Print("copy of the longest text that the editor takes", MedianTime(changeAndCopy) - key,
          std::max(CopyTakesAtMost, 2 * key));
}

// The block of an upload, as the window gives it.
void BenchBlock(const std::string& folder) {
    HistoryKeeper keeper(folder);
    const std::string image = NewTicketBuffer();
    Print("copy of a block, in the window's thread", MedianTime([&](int) {
              keeper.Keep({.cause = Cause::Uploaded, .port = "COM3", .name = "Shop"},
                          BlockFileBytes(image));
          }),
          CopyTakesAtMost);
}

void BenchManyCopies(const std::string& folder) {
    const std::string block = BlockFileBytes(NewTicketBuffer());
    CopyTime time = std::chrono::sys_days(std::chrono::year(2026) / 1 / 1);
    (void)MakeFolder(folder);
    for (int i = 0; i < ManyCopies; ++i, time += std::chrono::minutes(30)) {
        std::fclose(std::fopen(
            (folder + "/" + FileNameOf({.time = time, .name = "Shop" + std::to_string(i % 20)}))
                .c_str(),
            "w"));
    }
    History history(folder);
    Print("copy beside 10,000 others, in its thread", MedianTime([&](int round) {
              (void)history.Keep({.time = time + std::chrono::minutes(round), .name = "Shop1"},
                                 block + std::to_string(round));
          }),
          30);
    Print("list of 10,000 copies", MedianTime([&](int) { (void)history.Copies(); }), 50);
}

}  // namespace
}  // namespace varno

int main(int argc, char** argv) try {
    const QTemporaryDir home;
    for (const char* place : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"}) {
        qputenv(place, home.path().toUtf8());
    }
    QApplication application(argc, argv);
    varno::PrepareApplication();
    const std::string path = home.path().toStdString();
    varno::QtPlatform platform(
        {.exeName = "bench", .folder = path, .portsFolder = path, .commandLine = ""});
    varno::Form1 form(platform);
    form.Form_Load();
    form.Show();
    varno::BenchWindow(form);
    varno::BenchBlock(path + "/blocks");
    varno::BenchManyCopies(path + "/many");
} catch (const std::exception& error) {
    std::fprintf(stderr, "bench_copies: %s\n", error.what());
    return 1;
}
