// Waiting for descriptors in Qt's event loop.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <memory>

#include "platform/descriptor_watch.h"

namespace varno {

class QtDescriptorWatch final : public DescriptorWatch {
  public:
    QtDescriptorWatch();
    void Wait(const std::vector<Wanted>& wanted, std::chrono::milliseconds longest) override;

  private:
    // One may go while it is calling.
    struct Later {
        void operator()(QSocketNotifier* notifier) const;
    };

    void Add(int descriptor, QSocketNotifier::Type type);
    void Ready();

    std::vector<Wanted> wanted_;
    std::vector<std::unique_ptr<QSocketNotifier, Later>> notifiers_;
    QTimer due_;
};

}  // namespace varno
