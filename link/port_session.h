// One transfer's use of an open port. Copies are the same use.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/serial/serial_control.h"

namespace varno {

class PortSession {
  public:
    PortSession() = default;  // of no port: has ended
    explicit PortSession(SerialControl& openPort)
        : use_(std::make_shared<Use>(Use{openPort, true, {}})) {}

    // Until End(). The port may be closed before: by Abort, or because its device went away.
    bool IsCurrent() const { return use_ && use_->current; }
    // Somebody else uses the port from now on, or nobody.
    void End();

    // Waits for room, running events. From the first failure on, the port's closing included,
    // nothing more is sent; nor once the session has ended.
    void Send(std::string_view characters);
    // Runs events until the line has taken everything, as SerialControl::Drain.
    void Drain();
    // Why not everything was sent or taken by the line; nothing as long as all was.
    Error Failure() const { return use_ ? use_->failure : Error(); }

  private:
    struct Use {
        SerialControl& port;
        bool current = true;
        Error failure;
    };
    bool CanSend() const { return IsCurrent() && !use_->failure; }

    std::shared_ptr<Use> use_;
};

// Who watches a block being sent. Never empty.
struct SendingWatch {
    std::function<void(int percent)> ShowProgress;  // whenever it has changed
    std::function<void()> DoEvents;                 // behind each character of the image
};

// Sends the image and its fill. Returns when the line has taken everything or the session has
// ended. A failure ends the sending, not the progress: the operator sees it run through either way.
void SendBlock(const std::string& image, PortSession& session, const SendingWatch& watch);

}  // namespace varno
