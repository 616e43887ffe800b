// Marked text as a picture that a test can show: UTF-8 with a colour letter in braces wherever the
// format changes, and a line feed for each line break: "{r}C005{g} LINE FEED{k}\n".
// k black, m magenta, r red, b blue, g green, x any other colour; it starts in k.
// Style letters may follow the colour: "{kBU}".
#pragma once

#include <string>
#include <string_view>

#include "codec/marked_text.h"
#include "codec/utf8.h"

namespace varno {

inline constexpr Colour OtherColour = 0x808000;

inline CharFormat FormatOf(std::string_view letters) {
    const auto has = [&](char letter) { return letters.find(letter) != std::string_view::npos; };
    CharFormat format;
    format.colour = has('m')   ? AsciiCodeColour
                    : has('r') ? ControlCodeColour
                    : has('b') ? PrintCodeColour
                    : has('g') ? CommentColour
                    : has('x') ? OtherColour
                               : TextColour;
    format.bold = has('B');
    format.italic = has('I');
    format.underline = has('U');
    format.strikeThrough = has('S');
    return format;
}

inline std::string LettersOf(const CharFormat& format) {
    std::string letters = format.colour == TextColour          ? "k"
                          : format.colour == AsciiCodeColour   ? "m"
                          : format.colour == ControlCodeColour ? "r"
                          : format.colour == PrintCodeColour   ? "b"
                          : format.colour == CommentColour     ? "g"
                                                               : "x";
    if (format.bold) letters += 'B';
    if (format.italic) letters += 'I';
    if (format.underline) letters += 'U';
    if (format.strikeThrough) letters += 'S';
    return letters;
}

inline MarkedText FromPicture(std::string_view picture) {
    MarkedText text;
    CharFormat format;
    while (!picture.empty()) {
        if (picture.front() == '{') {
            const auto close = picture.find('}');
            format = FormatOf(picture.substr(1, close - 1));
            picture.remove_prefix(close + 1);
        } else if (picture.front() == '\n') {
            text.Append(LineBreak, format);
            picture.remove_prefix(1);
        } else {
            const auto run = picture.substr(0, picture.find_first_of("{\n"));
            text.Append(FromUtf8(run), format);
            picture.remove_prefix(run.size());
        }
    }
    return text;
}

// Lone CRs and LFs show as "\r" and "\n" spelt out.
inline std::string ToPicture(const MarkedText& text) {
    std::string picture;
    CharFormat format;
    for (std::size_t i = 0; i < text.Length(); i = text.RunEnd(i)) {
        if (text.FormatAt(i) != format) picture += '{' + LettersOf(text.FormatAt(i)) + '}';
        format = text.FormatAt(i);
        std::string run = ToUtf8(text.Text().substr(i, text.RunEnd(i) - i));
        for (std::size_t at = 0; (at = run.find_first_of("\r\n", at)) != std::string::npos; ++at) {
            if (run.compare(at, 2, "\r\n") == 0)
                run.erase(at, 1);
            else
                run.replace(at, 1, run[at] == '\r' ? "\\r" : "\\n");
        }
        picture += run;
    }
    return picture;
}

}  // namespace varno
