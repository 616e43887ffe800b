// One picture of a rich-text document, while its data comes in.
#pragma once

#include <string_view>

#include "platform/rtf/rtf_document.h"

namespace varno {

class RtfPictureReader {
  public:
    void Begin() { *this = {}; }
    void SetKind(RtfPictureKind kind) { picture_.kind = kind; }
    void SetWidth(int twips) { picture_.width = twips; }
    void SetHeight(int twips) { picture_.height = twips; }
    void SetScaleX(int percent) { scaleX_ = percent; }
    void SetScaleY(int percent) { scaleY_ = percent; }
    void AddHex(std::string_view digits);
    void AddBinary(std::string_view data) { picture_.bytes += data; }

    // A kind that can be shown, and data.
    bool Complete() const;
    RtfPicture Take();

  private:
    RtfPicture picture_;
    int scaleX_ = 100;
    int scaleY_ = 100;
    int highDigit_ = -1;  // waits for its low one
};

}  // namespace varno
