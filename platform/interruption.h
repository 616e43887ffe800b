#pragma once

namespace varno {

// While it lives, Ctrl+C and a request to end do not end the program at once, so that it can put in
// order what it is doing; they do so when the object goes.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    bool HasCome() const;
};

}  // namespace varno
