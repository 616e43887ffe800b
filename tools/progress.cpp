#include "tools/progress.h"

#include <iostream>

#include "platform/terminal.h"

namespace varno {

void Progress::End() {
    if (!shown_.empty()) {
        std::cerr << '\n';
    }
    shown_.clear();
}

void Progress::Show(const std::string& text) {
    if (text == shown_ || !OnTerminal(Stream::Errors)) {
        return;
    }
    shown_ = text;
    std::cerr << '\r' << text << std::flush;
}

}  // namespace varno
