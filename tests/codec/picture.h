// Marked text as a picture that a test can show: UTF-8 with a colour letter in braces wherever the
// format changes, and a line feed for each line break: "{r}C005{g} LINE FEED{k}\n".
// k black, m magenta, r red, b blue, g green, x another colour, with its number unless it is
// 0x808000 ("{x65280}"); it starts in k.
// Style letters may follow the colour: "{kBU}".
#pragma once

#include <string>
#include <string_view>

#include "codec/marked_text.h"
#include "codec/utf8.h"

namespace varno {

inline constexpr std::string_view ColourLetters = "kmrbgx";
inline constexpr Colour Colours[] = {TextColour,      AsciiCodeColour, ControlCodeColour,
                                     PrintCodeColour, CommentColour,   0x808000};

inline CharFormat FormatOf(std::string_view letters) {
    const auto has = [&](char letter) { return letters.find(letter) != std::string_view::npos; };
    return {Colours[ColourLetters.find(letters[0])], has('B'), has('I'), has('U'), has('S')};
}

inline std::string LettersOf(const CharFormat& format) {
    std::size_t colour = 0;
    while (colour + 1 < ColourLetters.size() && Colours[colour] != format.colour) {
        ++colour;
    }
    std::string letters(1, ColourLetters[colour]);
    if (Colours[colour] != format.colour) {
        letters += std::to_string(format.colour);
    }
    if (format.bold) {
        letters += 'B';
    }
    if (format.italic) {
        letters += 'I';
    }
    if (format.underline) {
        letters += 'U';
    }
    if (format.strikeThrough) {
        letters += 'S';
    }
    return letters;
}

inline MarkedText FromPicture(std::string_view picture) {
    MarkedText text;
    CharFormat format;
    while (!picture.empty()) {
        std::size_t length = 1;
        if (picture[0] == '{') {
            length = picture.find('}') + 1;
            format = FormatOf(picture.substr(1, length - 2));
        } else if (picture[0] == '\n') {
            text.Append(LineBreak, format);
        } else {
            length = std::min(picture.size(), picture.find_first_of("{\n"));
            text.Append(FromUtf8(picture.substr(0, length)), format);
        }
        picture.remove_prefix(length);
    }
    return text;
}

// A CR or LF that is no line break shows as "\r" or "\n" spelt out.
inline std::string ToPicture(const MarkedText& text) {
    std::string picture;
    CharFormat format;
    for (std::size_t i = 0; i < text.Length(); i = text.RunEnd(i)) {
        if (text.FormatAt(i) != format) {
            picture += '{' + LettersOf(text.FormatAt(i)) + '}';
        }
        format = text.FormatAt(i);
        const std::string run = ToUtf8(text.Text().substr(i, text.RunEnd(i) - i));
        for (std::size_t at = 0; at < run.size(); ++at) {
            const bool lineBreak = run.compare(at, 2, "\r\n") == 0;
            if (lineBreak) {
                ++at;
            }
            picture += lineBreak         ? "\n"
                       : run[at] == '\r' ? "\\r"
                       : run[at] == '\n' ? "\\n"
                                         : std::string(1, run[at]);
        }
    }
    return picture;
}

}  // namespace varno
