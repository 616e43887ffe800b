// How a command says that it cannot do what it was asked for.
#pragma once

#include <stdexcept>

namespace varno {

// The text tells the operator why. Nothing was changed.
struct Refusal : std::runtime_error {
    using runtime_error::runtime_error;
};

// The command line makes no sense.
struct WrongUsage : std::runtime_error {
    using runtime_error::runtime_error;
};

}  // namespace varno
