#include <io.h>

#include <cstdio>

#include "platform/terminal.h"

namespace varno {

bool OutputIsTerminal() {
    return _isatty(_fileno(stdout)) != 0;
}

}  // namespace varno
