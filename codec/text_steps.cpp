#include "codec/text_steps.h"

namespace varno {
namespace {

enum class Kind { Word, Sign, Blank, LineEnd };

constexpr std::u16string_view Blanks = u"\u00F7 \t\u00A0";

bool IsBreak(char16_t c) {
    return c == u'\r' || c == u'\n';
}

bool IsLetterOrDigit(char16_t c) {
    if (c < 0x80) {
        return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    }
    const bool generalPunctuation = c >= 0x2010 && c < 0x2070;
    return (c >= 0xC0 && c != 0xD7 && !generalPunctuation) || c == 0xAA || c == 0xB5 || c == 0xBA;
}

Kind KindAt(const MarkedText& text, std::size_t at) {
    const char16_t c = text.At(at);
    const bool marksLineEnd =
        c == LineEndMarker && at + 1 < text.Length() && IsBreak(text.At(at + 1));
    if (IsBreak(c) || marksLineEnd) {
        return Kind::LineEnd;
    }
    if (Blanks.find(c) != std::u16string_view::npos) {
        return Kind::Blank;
    }
    return IsLetterOrDigit(c) ? Kind::Word : Kind::Sign;
}

// Whether two neighbours belong together.
bool Joined(const MarkedText& text, std::size_t at) {
    return KindAt(text, at) == KindAt(text, at + 1) &&
           text.FormatAt(at).colour == text.FormatAt(at + 1).colour;
}

// Of the run of characters that belong together.
std::size_t RunEnd(const MarkedText& text, std::size_t at) {
    while (at + 1 < text.Length() && Joined(text, at)) {
        ++at;
    }
    return at + 1;
}
std::size_t RunStart(const MarkedText& text, std::size_t at) {
    while (at > 0 && Joined(text, at - 1)) {
        --at;
    }
    return at;
}

bool IsLineEnd(const MarkedText& text, std::size_t at) {
    return at < text.Length() && KindAt(text, at) == Kind::LineEnd;
}

// `at` is in a line end.
std::size_t BehindLineEnd(const MarkedText& text, std::size_t at) {
    if (text.At(at) == LineEndMarker) {
        ++at;
    }
    const bool pair = text.At(at) == u'\r' && at + 1 < text.Length() && text.At(at + 1) == u'\n';
    return at + (pair ? 2 : 1);
}
std::size_t BeforeLineEnd(const MarkedText& text, std::size_t at) {
    if (text.At(at) == u'\n' && at > 0 && text.At(at - 1) == u'\r') {
        --at;
    }
    return at > 0 && text.At(at - 1) == LineEndMarker && IsBreak(text.At(at)) ? at - 1 : at;
}

bool IsPair(const MarkedText& text, std::size_t at) {
    return at + 1 < text.Length() && (text.At(at) & 0xFC00) == 0xD800 &&
           (text.At(at + 1) & 0xFC00) == 0xDC00;
}

}  // namespace

std::size_t NextCharacter(const MarkedText& text, std::size_t from) {
    if (from >= text.Length()) {
        return from;
    }
    if (IsLineEnd(text, from)) {
        return BehindLineEnd(text, from);
    }
    return from + (IsPair(text, from) ? 2 : 1);
}

std::size_t PreviousCharacter(const MarkedText& text, std::size_t from) {
    if (from == 0) {
        return 0;
    }
    if (IsLineEnd(text, from - 1)) {
        return BeforeLineEnd(text, from - 1);
    }
    return from - (from >= 2 && IsPair(text, from - 2) ? 2 : 1);
}

std::size_t NextWord(const MarkedText& text, std::size_t from) {
    if (from >= text.Length() || IsLineEnd(text, from)) {
        return NextCharacter(text, from);
    }
    const std::size_t end = RunEnd(text, from);
    const bool blanksFollow = end < text.Length() && KindAt(text, end) == Kind::Blank &&
                              text.FormatAt(end).colour == text.FormatAt(end - 1).colour;
    return blanksFollow ? RunEnd(text, end) : end;
}

std::size_t PreviousWord(const MarkedText& text, std::size_t from) {
    if (from == 0 || IsLineEnd(text, from - 1)) {
        return PreviousCharacter(text, from);
    }
    const std::size_t start = RunStart(text, from - 1);
    const bool wordBefore = KindAt(text, start) == Kind::Blank && start > 0 &&
                            !IsLineEnd(text, start - 1) &&
                            text.FormatAt(start - 1).colour == text.FormatAt(start).colour;
    return wordBefore ? RunStart(text, start - 1) : start;
}

std::size_t RestOfLine(const MarkedText& text, std::size_t from) {
    if (IsLineEnd(text, from)) {
        return BehindLineEnd(text, from);
    }
    while (from < text.Length() && !IsLineEnd(text, from)) {
        ++from;
    }
    return from;
}

TextRange WordAt(const MarkedText& text, std::size_t position) {
    const auto kind = [&](std::size_t at) {
        return at < text.Length() ? KindAt(text, at) : Kind::LineEnd;
    };
    const Kind behind = kind(position);
    const Kind before = position > 0 ? kind(position - 1) : Kind::LineEnd;
    const bool atEnd = behind != Kind::Word && before != Kind::LineEnd &&
                       (before == Kind::Word || behind == Kind::LineEnd);
    if (atEnd) {
        --position;
    }
    if (kind(position) == Kind::LineEnd) {
        return {position, position};
    }
    return {RunStart(text, position), RunEnd(text, position)};
}

}  // namespace varno
