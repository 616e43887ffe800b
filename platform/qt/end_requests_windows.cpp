#include "platform/qt/end_requests.h"

#include <QSocketNotifier>
#include <utility>

namespace varno {

// There Qt closes the windows by itself when the user logs out.
EndRequests::EndRequests(std::function<void()> close) : close_(std::move(close)) {}
EndRequests::~EndRequests() = default;

}  // namespace varno
