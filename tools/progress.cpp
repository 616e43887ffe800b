#include "tools/progress.h"

#include <iostream>

#include "platform/terminal.h"

namespace varno {

Progress::~Progress() {
    if (!shown_.empty()) {
        std::cerr << '\n';
    }
}

void Progress::Show(const std::string& text) {
    if (text == shown_ || !OnTerminal(Stream::Errors)) {
        return;
    }
    shown_ = text;
    std::cerr << '\r' << text << std::flush;
}

}  // namespace varno
