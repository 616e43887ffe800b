#include "platform/terminal.h"

#include <io.h>

#include <cstdio>

namespace varno {

bool OutputIsTerminal() {
    return _isatty(_fileno(stdout)) != 0;
}

}  // namespace varno
