#include "platform/version.h"

namespace varno {

const std::string_view Version = VARNO_VERSION;

}  // namespace varno
