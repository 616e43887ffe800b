#pragma once

#include "platform/descriptor_posix.h"
#include "platform/files.h"

namespace varno {

// The claim of whoever has the lock on an open file.
FileClaim ClaimBy(Descriptor locked);

}  // namespace varno
