// Pictures of an editor: those of marked text, with "|" where the caret is, in the typing format,
// or "[" and "]" around a selection. Without any of them the caret does not matter.
#pragma once

#include <string>
#include <string_view>

#include "tests/codec/picture.h"

namespace varno {

// What a picture shows. `start` is -1 when it shows no caret.
struct CaretPicture {
    MarkedText text;
    int start = -1;
    int length = 0;
    CharFormat typing = {};  // without a selection
};

inline CaretPicture FromCaretPicture(std::string_view picture) {
    CaretPicture result{.text = FromPicture(picture)};
    const auto take = [&](char16_t mark) {
        const std::size_t at = result.text.Text().find(mark);
        if (at == std::u16string::npos) {
            return -1;
        }
        result.typing = result.text.FormatAt(at);
        result.text.Erase(at, 1);
        return static_cast<int>(at);
    };
    result.start = take(u'|');
    if (result.start >= 0) {
        return result;
    }
    result.start = take(u'[');
    const int end = take(u']');
    result.length = end < 0 ? 0 : end - result.start;
    return result;
}

inline std::string ToPicture(const CaretPicture& picture) {
    MarkedText text = picture.text;
    const auto start = static_cast<std::size_t>(picture.start);
    if (picture.length > 0) {
        const std::size_t end = start + static_cast<std::size_t>(picture.length);
        text.Insert(end, u"]", text.FormatAt(end - 1));
        text.Insert(start, u"[", text.FormatAt(start));
    } else if (picture.start >= 0) {
        text.Insert(start, u"|", picture.typing);
    }
    return ToPicture(text);
}

}  // namespace varno
