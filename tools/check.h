#pragma once

#include "tools/commands.h"

namespace varno {

BlockTask Check(const Request& request);

}  // namespace varno
