// Waiting in Qt's event loop for a condition, and what that costs.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <ctime>
#include <functional>

namespace varno {

// Whether the condition came true before the deadline, which only a fault reaches.
inline bool WaitFor(const std::function<bool()>& condition, int deadlineMilliseconds = 10000) {
    const QDeadlineTimer deadline(deadlineMilliseconds);
    QTimer wake;
    wake.start(1);
    bool came = false;
    while (!(came = condition()) && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return came;
}

// The part of a processor that this process takes while events run for so long.
inline double ProcessorUse(int milliseconds) {
    bool over = false;
    QTimer::singleShot(milliseconds, [&over] { over = true; });
    const std::clock_t before = std::clock();
    while (!over) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC * 1000 / milliseconds;
}

}  // namespace varno
