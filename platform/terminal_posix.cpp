#include "platform/terminal.h"

#include <unistd.h>

namespace varno {

bool OutputIsTerminal() {
    return ::isatty(STDOUT_FILENO) != 0;
}

}  // namespace varno
