#include "link/port_session.h"

#include "link/block_transfer.h"

namespace varno {

void PortSession::End() {
    if (use_) {
        use_->current = false;
    }
}

void PortSession::Send(std::string_view characters) {
    if (!CanSend()) {
        return;
    }
    use_->port.WaitForRoom(static_cast<int>(characters.size()));
    if (IsCurrent()) {
        use_->failure = use_->port.Output(characters);
    }
}

void PortSession::Drain() {
    if (!CanSend()) {
        return;
    }
    const Error error = use_->port.Drain();
    if (IsCurrent()) {
        use_->failure = error;
    }
}

void SendBlock(const std::string& image, PortSession& session, const SendingWatch& watch) {
    int shown = 0;
    for (OutgoingBlock block(image); session.IsCurrent() && !block.AtEnd(); block.Next()) {
        if (const int percent = block.Percent(); percent != shown) {
            shown = percent;
            watch.ShowProgress(percent);
        }
        session.Send(block.Piece());
        if (block.InImage()) {
            watch.DoEvents();
        }
    }
    session.Drain();
}

}  // namespace varno
