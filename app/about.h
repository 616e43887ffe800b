// The about box.
#pragma once

#include "platform/platform.h"

namespace varno {

void about_Click(Platform& platform);

// "1.0.2"
std::string VersionText(const ProgramInfo& program);

}  // namespace varno
