// Ticket record to marked text.
#pragma once

#include <span>

#include "codec/catalogue.h"
#include "codec/marked_editor.h"
#include "codec/word.h"

namespace varno {

// Where the comments of codes are looked up: paths of the two catalogue files.
// Decodes one ticket out of a sequence of words. `PendingCR` outlives a call: a CR that the
// sequence ended on is still waiting for its LF at the next one.
class TicketDecoder {
  public:
    // Appends the pieces of the ticket to `editor` through the insert procedures; the caller hands
    // in an empty one. Nothing is appended when no header with the number is found.
    void DecodeTicket(std::span<const Word> words, int ticketNumber, const Catalogues& catalogues,
                      MarkedEditor& editor);

    bool PendingCR() const { return pendingCR_; }

  private:
    bool pendingCR_ = false;
};

}  // namespace varno
