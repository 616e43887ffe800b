#include "platform/rtf/picture_reader.h"

#include <algorithm>
#include <utility>

#include "codec/word.h"

namespace varno {
namespace {

constexpr int LargestMeasure = 31680;  // 22 inches, as word processors have it

int Scaled(int measure, int percent) {
    const long long scaled = 1LL * std::clamp(measure, 0, LargestMeasure) * percent / 100;
    return static_cast<int>(std::clamp<long long>(scaled, 0, LargestMeasure));
}

}  // namespace

void RtfPictureReader::AddHex(std::string_view digits) {
    for (const char character : digits) {
        const int digit = HexDigit(character);
        if (digit < 0) {
            continue;
        }
        if (highDigit_ < 0) {
            highDigit_ = digit;
        } else {
            picture_.bytes += static_cast<char>(highDigit_ * 16 + digit);
            highDigit_ = -1;
        }
    }
}

bool RtfPictureReader::Complete() const {
    return picture_.kind != RtfPictureKind::Unknown && !picture_.bytes.empty();
}

RtfPicture RtfPictureReader::Take() {
    RtfPicture picture = std::exchange(picture_, {});
    picture.width = Scaled(picture.width, scaleX_);
    picture.height = Scaled(picture.height, scaleY_);
    return picture;
}

}  // namespace varno
