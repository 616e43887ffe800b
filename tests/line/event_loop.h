// Waiting in Qt's event loop for a condition, and for rest.
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

// Whether the process comes to rest: some stretch of events takes nearly none of a processor.
// A loop that spins takes a whole one for ever; a busy machine only disturbs a stretch or two.
inline bool ComesToRest(int milliseconds) {
    const QDeadlineTimer deadline(10000);
    while (!deadline.hasExpired()) {
        bool over = false;
        QTimer::singleShot(milliseconds, [&over] { over = true; });
        const std::clock_t before = std::clock();
        while (!over) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        if ((std::clock() - before) * 1000 < CLOCKS_PER_SEC / 20 * milliseconds) {
            return true;
        }
    }
    return false;
}

}  // namespace varno
