// Waits for descriptors of the system while the events of the windows are handled.
#pragma once

#include <chrono>
#include <functional>
#include <vector>

namespace varno {

class DescriptorWatch {
  public:
    struct Wanted {
        int descriptor;
        bool input;   // wait until it has some
        bool output;  // or until it takes some

        bool operator==(const Wanted&) const = default;
    };

    virtual ~DescriptorWatch() = default;
    // In place of what was waited for before, and no longer than `longest`; negative: for ever.
    virtual void Wait(const std::vector<Wanted>& wanted, std::chrono::milliseconds longest) = 0;

    // What was waited for has come, or the time is up. It is waited for again unless told
    // otherwise.
    std::function<void()> OnReady;
};

}  // namespace varno
