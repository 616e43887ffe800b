// How a command says that it cannot do what it was asked for.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/error.h"

namespace varno {

// How the program ends.
enum class Ending {
    Done = 0,
    FaultFound = 1,  // a damaged block; a file that is no ticket or no block
    WrongUsage = 2,  // the command line makes no sense
    CouldNot = 3,    // a file that cannot be read or written; what the block does not allow
};

// The text tells the operator why; empty if that has been told.
struct Refusal : std::runtime_error {
    Refusal(Ending how, const std::string& text) : runtime_error(text), ending(how) {}
    Ending ending;
};

inline void Require(const Error& error, Ending ending = Ending::CouldNot) {
    if (error) {
        throw Refusal(ending, *error);
    }
}

}  // namespace varno
