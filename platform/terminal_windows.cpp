#include "platform/terminal.h"

#include <io.h>

namespace varno {

bool OnTerminal(Stream stream) {
    return _isatty(static_cast<int>(stream)) != 0;
}

}  // namespace varno
