#include "codec/printable.h"

#include <algorithm>
#include <array>

#include "codec/windows1252.h"

namespace varno {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};
template <std::size_t Count>
bool IsIn(const std::array<Range, Count>& ranges, char32_t c) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [c](const Range& range) { return c >= range.first && c <= range.last; });
}

constexpr std::array Blanks{Range{0x09, 0x09},     Range{0x20, 0x20},     Range{0xA0, 0xA0},
                            Range{0x1680, 0x1680}, Range{0x2000, 0x200A}, Range{0x202F, 0x202F},
                            Range{0x205F, 0x205F}, Range{0x3000, 0x3000}};

// Control characters, the soft hyphen, joiners, marks of direction, selectors of a glyph, the place
// of a picture: they show nothing.
constexpr std::array Unseen{Range{0x00, 0x1F},     Range{0x7F, 0x9F},     Range{0xAD, 0xAD},
                            Range{0x034F, 0x034F}, Range{0x061C, 0x061C}, Range{0x200B, 0x200F},
                            Range{0x2028, 0x202E}, Range{0x2060, 0x206F}, Range{0xFE00, 0xFE0F},
                            Range{0xFEFF, 0xFEFF}, Range{0xFFFC, 0xFFFC}, Range{0xE0000, 0xE0FFF}};

// Accents that a letter can do without; not the strokes through it, which change its meaning.
constexpr std::array Accents{Range{0x0300, 0x0333}, Range{0x0339, 0x036F}};

// What no decomposition gives.
struct Form {
    char32_t character;
    std::u16string_view printed;
};
constexpr std::array Forms{
    Form{0x0110, u"D"},      Form{0x0111, u"d"},      Form{0x0126, u"H"},
    Form{0x0127, u"h"},      Form{0x0131, u"i"},      Form{0x0141, u"L"},
    Form{0x0142, u"l"},      Form{0x0166, u"T"},      Form{0x0167, u"t"},
    Form{0x02B9, u"'"},      Form{0x02BB, u"\u2018"}, Form{0x02BC, u"\u2019"},
    Form{0x03BC, u"\u00B5"}, Form{0x1E9E, u"SS"},     Form{0x2010, u"-"},
    Form{0x2011, u"-"},      Form{0x2012, u"\u2013"}, Form{0x2015, u"\u2014"},
    Form{0x201B, u"\u2018"}, Form{0x201F, u"\u201C"}, Form{0x2032, u"'"},
    Form{0x2033, u"\""},     Form{0x2043, u"-"},      Form{0x2044, u"/"},
    Form{0x2212, u"-"},      Form{0x2215, u"/"},      Form{0x2217, u"*"},
    Form{0x2219, u"\u00B7"}, Form{0x2236, u":"},      Form{0x223C, u"~"},
    Form{0x2264, u"<="},     Form{0x2265, u">="},     Form{0x22C5, u"\u00B7"},
    Form{0x25CF, u"\u2022"},
};

bool IsPairAt(std::u16string_view text, std::size_t at) {
    return (text[at] & 0xFC00) == 0xD800 && at + 1 < text.size() &&
           (text[at + 1] & 0xFC00) == 0xDC00;
}

template <class Use>
void ForEachCharacter(std::u16string_view text, const Use& use) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t c = text[at];
        if (IsPairAt(text, at)) {
            c = 0x10000 + ((c & 0x3FF) << 10) + (text[++at] & 0x3FF);
        }
        use(c);
    }
}

// Adds the form of a character that needs no decomposition; false if there is none.
bool AddSimpleForm(std::u16string& form, char32_t c) {
    if (c > U' ' && c < 0x7F) {
        form += static_cast<char16_t>(c);
        return true;
    }
    if (IsIn(Blanks, c)) {
        form += SpaceMarker;
        return true;
    }
    if (IsIn(Unseen, c) || IsIn(Accents, c)) {
        return true;
    }
    const auto* const found = std::find_if(Forms.begin(), Forms.end(),
                                           [c](const Form& row) { return row.character == c; });
    if (found != Forms.end()) {
        form += found->printed;
        return true;
    }
    const bool inSet = c <= 0xFFFF && ToWindows1252(static_cast<char16_t>(c)) != '?';
    if (inSet) {
        form += static_cast<char16_t>(c);
    }
    return inSet;
}

std::u16string FormOf(char32_t c, const Decompose& decompose) {
    std::u16string form;
    if (AddSimpleForm(form, c)) {
        return form;
    }
    bool whole = true;
    ForEachCharacter(decompose(c),
                     [&](char32_t part) { whole = AddSimpleForm(form, part) && whole; });
    return whole ? form : u"?";
}

bool IsBreak(char16_t c) {
    return (c >= u'\n' && c <= u'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

// Goes through marked text line by line.
class Printer {
  public:
    Printer(const MarkedText& text, const Decompose& decompose)
        : text_(text), decompose_(decompose) {}

    MarkedText Print() {
        for (std::size_t start = 0; start < text_.Length();) {
            std::size_t end = start;
            while (end < text_.Length() && !IsBreak(text_.At(end))) {
                ++end;
            }
            PrintLine(start, end);
            start = end < text_.Length() ? PrintBreak(start, end) : end;
        }
        return std::move(printed_);
    }

  private:
    void PrintLine(std::size_t start, std::size_t end) {
        while (start < end) {
            std::size_t next = start;  // where the format changes; a run may go on for many lines
            while (next < end && text_.FormatAt(next) == text_.FormatAt(start)) {
                ++next;
            }
            const std::u16string_view run =
                std::u16string_view(text_.Text()).substr(start, next - start);
            const CharFormat& format = text_.FormatAt(start);
            format.colour == TextColour
                ? PrintBlack(run, format, next == end && end < text_.Length())
                : printed_.Append(WithoutObjects(run), format);
            start = next;
        }
    }

    // A marker gets its line break if none follows.
    void PrintBlack(std::u16string_view run, const CharFormat& format, bool breakFollows) {
        for (std::size_t behind; (behind = run.find(LineEndMarker) + 1) != 0;) {
            printed_.Append(PrintableForm(run.substr(0, behind), decompose_), format);
            run.remove_prefix(behind);
            if (!run.empty() || !breakFollows) {
                printed_.Append(LineBreak, format);
            }
        }
        printed_.Append(PrintableForm(run, decompose_), format);
    }

    // Returns where the next line starts.
    std::size_t PrintBreak(std::size_t start, std::size_t end) {
        const bool pair = text_.Text().compare(end, LineBreak.size(), LineBreak) == 0;
        const std::size_t next = end + (pair ? LineBreak.size() : 1);
        if (IsPrintedLine(start, end) && !IsCodeMark(next)) {
            printed_.Append({&LineEndMarker, 1}, {});
        }
        printed_.Append(LineBreak, text_.FormatAt(end));
        return next;
    }

    // Whether a line is text of the ticket that no marker ends yet.
    bool IsPrintedLine(std::size_t start, std::size_t end) const {
        if (start == end) {
            return text_.FormatAt(end).colour == TextColour;
        }
        const bool ended = text_.At(end - 1) == LineEndMarker;
        if (ended || text_.FormatAt(end - 1).colour == CommentColour) {
            return false;
        }
        bool black = false;
        for (std::size_t at = start; at < end; ++at) {
            if (IsCodeMark(at)) {
                return false;
            }
            black = black || text_.FormatAt(at).colour == TextColour;
        }
        return black;
    }

    // The letter and the first digit of a control or print code.
    bool IsCodeMark(std::size_t at) const {
        if (at + 1 >= text_.Length()) {
            return false;
        }
        const Colour colour = text_.FormatAt(at).colour;
        const char16_t letter = colour == ControlCodeColour ? u'C'
                                : colour == PrintCodeColour ? u'P'
                                                            : u'\0';
        const char16_t digit = text_.At(at + 1);
        return letter != 0 && text_.At(at) == letter && digit >= u'0' && digit <= u'9' &&
               text_.FormatAt(at + 1).colour == colour;
    }

    static std::u16string WithoutObjects(std::u16string_view run) {
        std::u16string kept(run);
        std::erase_if(kept, [](char16_t c) { return c == 0xFFFC || c == 0; });
        return kept;
    }

    const MarkedText& text_;
    const Decompose& decompose_;
    MarkedText printed_;
};

}  // namespace

std::u16string PrintableForm(std::u16string_view text, const Decompose& decompose) {
    std::u16string printable;
    ForEachCharacter(text, [&](char32_t c) { printable += FormOf(c, decompose); });
    return printable;
}

MarkedText Printable(const MarkedText& text, const Decompose& decompose) {
    return Printer(text, decompose).Print();
}

}  // namespace varno
