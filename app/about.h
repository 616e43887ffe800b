// The about box.
#pragma once

#include "platform/platform.h"

namespace varno {

void about_Click(Platform& platform);

}  // namespace varno
