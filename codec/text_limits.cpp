#include "codec/text_limits.h"

namespace varno {

TextSize SizeOf(std::u16string_view text) {
    TextSize size{.characters = text.size()};
    char16_t previous = 0;
    for (const char16_t c : text) {
        const bool breaks = c == u'\n' || c == u'\r' || c == u'\u2028' || c == u'\u2029';
        if (breaks && !(c == u'\n' && previous == u'\r')) {
            ++size.lineBreaks;
        }
        previous = c;
    }
    return size;
}

}  // namespace varno
