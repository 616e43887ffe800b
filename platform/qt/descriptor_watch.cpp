#include "platform/qt/descriptor_watch.h"

namespace varno {

QtDescriptorWatch::QtDescriptorWatch() {
    due_.setSingleShot(true);
    due_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&due_, &QTimer::timeout, &due_, [this] { Ready(); });
}

void QtDescriptorWatch::Later::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

void QtDescriptorWatch::Wait(const std::vector<Wanted>& wanted, std::chrono::milliseconds longest) {
    if (wanted != wanted_) {
        wanted_ = wanted;
        notifiers_.clear();
        for (const Wanted& each : wanted_) {
            if (each.input) {
                Add(each.descriptor, QSocketNotifier::Read);
            }
            if (each.output) {
                Add(each.descriptor, QSocketNotifier::Write);
            }
        }
    }
    if (longest.count() < 0) {
        due_.stop();
    } else {
        due_.start(longest);
    }
}

void QtDescriptorWatch::Add(int descriptor, QSocketNotifier::Type type) {
    notifiers_.emplace_back(new QSocketNotifier(descriptor, type));
    QObject::connect(notifiers_.back().get(), &QSocketNotifier::activated, &due_,
                     [this] { Ready(); });
}

void QtDescriptorWatch::Ready() {
    if (OnReady) {
        OnReady();
    }
}

}  // namespace varno
