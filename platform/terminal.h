#pragma once

namespace varno {

// Whether somebody reads the standard output on a terminal, which understands attributes.
bool OutputIsTerminal();

}  // namespace varno
