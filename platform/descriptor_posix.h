// An open file of the system, closed with its object.
#pragma once

#include <unistd.h>

#include <utility>

namespace varno {

class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}  // negative: could not be opened
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    explicit operator bool() const { return number_ >= 0; }
    int operator*() const { return number_; }
    int Release() { return std::exchange(number_, -1); }

  private:
    int number_ = -1;
};

}  // namespace varno
