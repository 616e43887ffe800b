#include "simulator/capture.h"

#include <utility>

#include "block/image.h"

namespace varno {

namespace {

// What is wrong with an image of full length; empty if it is right.
std::string FaultOf(const std::string& image) {
    for (std::size_t i = 1; i < image.size(); ++i) {
        if (HexDigit(image[i]) < 0) {
            return "character " + std::to_string(i + 1) + " is not a hexadecimal digit";
        }
    }
    const std::string_view memory = std::string_view(image).substr(1, MemoryDigits);
    const std::string_view zeros = std::string_view(image).substr(1 + MemoryDigits, 2);
    if (zeros != "00") {
        return "\"" + std::string(zeros) + "\" stands behind the memory in place of \"00\"";
    }
    const std::size_t crcPosition = 1 + MemoryDigits + zeros.size();
    const std::string right = BufferCrc(memory);
    if (HexAt(image, crcPosition, WordDigits) != HexAt(right, 0, WordDigits)) {
        return "the checksum is " + image.substr(crcPosition) + " and should be " + right;
    }
    return "";
}

}  // namespace

std::size_t Capture::Start() {
    const bool hasBegun = std::exchange(state_, State::Waiting) == State::Collecting;
    return hasBegun ? collected_.size() : 0;
}

void Capture::End() {
    if (state_ == State::Collecting) {
        Finish("only " + std::to_string(collected_.size()) + " of " + std::to_string(ImageLength) +
               " characters came");
    }
    if (state_ == State::PassingFill) {
        state_ = State::Off;
    }
}

std::size_t Capture::Take(std::string_view characters) {
    std::size_t taken = 0;
    for (; taken < characters.size(); ++taken) {
        Collect(characters[taken]);
        if (state_ == State::Off) {
            break;
        }
    }
    return taken;
}

void Capture::Collect(char character) {
    if (state_ == State::PassingFill) {
        state_ = character == 'F' ? State::PassingFill : State::Off;
    } else if (character == ':' && state_ != State::Off) {
        state_ = State::Collecting;
        collected_ = character;
    } else if (state_ == State::Collecting) {
        collected_ += character;
        if (collected_.size() == ImageLength) {
            Finish(FaultOf(collected_));
        }
    }
}

void Capture::Finish(std::string fault) {
    state_ = State::PassingFill;
    fault_ = std::move(fault);
    if (fault_.empty()) {
        image_ = std::move(collected_);
    }
}

std::string Capture::TakeImage() {
    return std::exchange(image_, {});
}

std::string Capture::TakeFault() {
    return std::exchange(fault_, {});
}

}  // namespace varno
