#pragma once

namespace varno {

enum class Stream { Input, Output, Errors };

// Whether somebody sits at the other end, at a terminal: one that is written to understands
// attributes.
bool OnTerminal(Stream stream);

}  // namespace varno
