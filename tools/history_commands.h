// The commands on the history of dated copies.
#pragma once

#include <string>

#include "history/history.h"
#include "tools/commands.h"

namespace varno {

void HistoryList(const Request& request);
void HistoryShow(const Request& request);
void HistoryRestore(const Request& request);

// The copies in the folder that is asked for, of which none ever goes, or else the history.
History HistoryFor(const Request& request);

}  // namespace varno
