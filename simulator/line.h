// The serial line between program and indicator: its speed, and its faults.
#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace varno {

enum class Direction { ToIndicator, FromIndicator };

// Characters go in at one end and come out at the other when the line has carried them. Times are
// those of a steady clock, given by the caller.
class Line {
  public:
    using Time = std::chrono::steady_clock::time_point;
    // After so many more characters, in both directions together, the line breaks or stands still,
    // or the next character comes out as another one.
    enum class Fault { None, Cut, Stall, Damage };

    // 10 bits a character; 0 means as fast as it goes.
    void SetSpeed(int baud);
    int Speed() const { return baud_; }
    void Arm(Fault fault, int characters);
    void Resume() { fault_ = Fault::None; }
    void Repair();  // what was on the line is lost

    Fault Armed() const { return fault_; }  // to come, or there

    bool IsCut() const { return fault_ == Fault::Cut && left_ == 0; }
    bool IsStalled() const { return fault_ == Fault::Stall && left_ == 0; }

    void PutIn(Direction direction, std::string_view characters, Time now);
    std::string TakeOut(Direction direction, Time now);
    // The line has enough to carry for now; more should wait before it.
    bool IsFull(Direction direction) const;
    bool IsEmpty(Direction direction) const {
        return ways_[static_cast<std::size_t>(direction)].waiting.empty();
    }
    // When the next character, or enough of them to be worth the while, will have come out.
    std::optional<Time> NextDue() const;

  private:
    struct Way {
        std::string waiting;
        Time carried;  // when the last character had come out, or the first went in
    };

    bool Stands() const { return IsCut() || IsStalled(); }
    std::string Faulty(std::string characters);
    Way& Of(Direction direction) { return ways_[static_cast<std::size_t>(direction)]; }

    int baud_ = 0;
    std::chrono::nanoseconds perCharacter_{0};
    Fault fault_ = Fault::None;
    int left_ = 0;  // characters until the fault
    std::array<Way, 2> ways_;
};

}  // namespace varno
