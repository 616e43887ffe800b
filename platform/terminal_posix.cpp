#include <unistd.h>

#include "platform/terminal.h"

namespace varno {

bool OutputIsTerminal() {
    return ::isatty(STDOUT_FILENO) != 0;
}

}  // namespace varno
