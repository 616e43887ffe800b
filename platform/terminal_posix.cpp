#include "platform/terminal.h"

#include <unistd.h>

namespace varno {

bool OnTerminal(Stream stream) {
    return ::isatty(static_cast<int>(stream)) != 0;
}

}  // namespace varno
