#include "simulator/line.h"

#include <algorithm>

namespace varno {

namespace {

constexpr int BitsPerCharacter = 10;
// Characters come out in pieces of this time, so that a fast line needs no tick for each of them.
constexpr std::chrono::nanoseconds Piece = std::chrono::milliseconds(4);
constexpr std::chrono::nanoseconds FullAfter = std::chrono::milliseconds(8);

}  // namespace

void Line::SetSpeed(int baud) {
    baud_ = baud;
    perCharacter_ = baud > 0
                        ? std::chrono::nanoseconds(std::chrono::seconds(BitsPerCharacter)) / baud
                        : std::chrono::nanoseconds(0);
}

void Line::Arm(Fault fault, int characters) {
    fault_ = fault;
    left_ = characters;
}

void Line::Repair() {
    Resume();
    for (Way& way : ways_) {
        way.waiting.clear();
    }
}

void Line::PutIn(Direction direction, std::string_view characters, Time now) {
    Way& way = Of(direction);
    if (way.waiting.empty()) {
        way.carried = std::max(way.carried, now);
    }
    way.waiting += characters;
}

std::string Line::TakeOut(Direction direction, Time now) {
    Way& way = Of(direction);
    std::size_t count = way.waiting.size();
    if (perCharacter_.count() > 0) {
        const auto carried = std::max((now - way.carried) / perCharacter_, Time::rep{0});
        count = std::min(count, static_cast<std::size_t>(carried));
    }
    std::string out = Faulty(way.waiting.substr(0, count));
    way.carried = Stands() ? now : way.carried + perCharacter_ * static_cast<Time::rep>(out.size());
    way.waiting.erase(0, out.size());
    return out;
}

// What comes out of it, which may be the beginning only.
std::string Line::Faulty(std::string characters) {
    const auto left = static_cast<std::size_t>(left_);
    if (fault_ == Fault::None) {
        return characters;
    }
    if (fault_ == Fault::Damage && left < characters.size()) {
        characters[left] ^= 1;  // another digit or letter
        fault_ = Fault::None;
        return characters;
    }
    characters.resize(std::min(left, characters.size()));
    left_ -= static_cast<int>(characters.size());
    return characters;
}

bool Line::IsFull(Direction direction) const {
    const Way& way = ways_[static_cast<std::size_t>(direction)];
    return Stands() || perCharacter_ * static_cast<Time::rep>(way.waiting.size()) > FullAfter;
}

std::optional<Line::Time> Line::NextDue() const {
    std::optional<Time> due;
    for (const Way& way : ways_) {
        if (!way.waiting.empty() && !Stands()) {
            const auto all = perCharacter_ * static_cast<Time::rep>(way.waiting.size());
            const Time next = way.carried + std::min(all, std::max(Piece, perCharacter_));
            due = due ? std::min(*due, next) : next;
        }
    }
    return due;
}

}  // namespace varno
