#include "platform/rtf/rtf_writer.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace varno {
namespace {

// Numbers of the colours, from 1 on: first the five roles, then the others as they occur.
using ColourNumbers = std::map<Colour, std::size_t>;

ColourNumbers NumberColours(const MarkedText& text) {
    ColourNumbers numbers;
    const auto add = [&numbers](Colour colour) { numbers.emplace(colour, numbers.size() + 1); };
    for (const Colour role :
         {TextColour, AsciiCodeColour, ControlCodeColour, PrintCodeColour, CommentColour}) {
        add(role);
    }
    for (std::size_t i = 0; i < text.Length(); i = text.RunEnd(i)) {
        add(text.FormatAt(i).colour);
    }
    return numbers;
}

std::string Number(Colour colour, int shift) {
    return std::to_string((colour >> shift) & 0xFF);
}

std::string ColourTable(const ColourNumbers& numbers) {
    std::vector<Colour> colours(numbers.size());
    for (const auto& [colour, number] : numbers) {
        colours[number - 1] = colour;
    }
    std::string table = "{\\colortbl ;";
    for (const Colour colour : colours) {
        table += "\\red" + Number(colour, 0) + "\\green" + Number(colour, 8) + "\\blue" +
                 Number(colour, 16) + ";";
    }
    return table + "}\r\n";
}

class Writer {
  public:
    explicit Writer(const ColourNumbers& colours) : colours_(colours) {}

    void SetFormat(const CharFormat& format) {
        if (!started_ || format.colour != format_.colour) {
            Word("\\cf" + std::to_string(colours_.at(format.colour)));
        }
        Switch(format_.bold, format.bold, "\\b", "\\b0");
        Switch(format_.italic, format.italic, "\\i", "\\i0");
        Switch(format_.underline, format.underline, "\\ul", "\\ulnone");
        Switch(format_.strikeThrough, format.strikeThrough, "\\strike", "\\strike0");
        format_ = format;
        started_ = true;
    }

    void EndParagraph() {
        Word("\\par");
        rtf_ += "\r\n";
        afterWord_ = false;
    }

    void Character(char16_t unit) {
        if (unit == u'\\' || unit == u'{' || unit == u'}') {
            Symbol(std::string("\\") + static_cast<char>(unit));
        } else if (unit == LineEndMarker) {
            Symbol("\\'ac");
        } else if (unit == SpaceMarker) {
            Symbol("\\'f7");
        } else if (unit == u'\t') {
            Word("\\tab");
        } else if (unit >= u' ' && unit <= u'~') {
            rtf_ += afterWord_ ? " " : "";
            Symbol(std::string(1, static_cast<char>(unit)));
        } else {
            Symbol("\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?");
        }
    }

    const std::string& Rtf() const { return rtf_; }

  private:
    void Switch(bool before, bool now, const char* on, const char* off) {
        if (before != now) {
            Word(now ? on : off);
        }
    }

    void Word(std::string_view word) {
        rtf_ += word;
        afterWord_ = true;
    }

    void Symbol(std::string_view symbol) {
        rtf_ += symbol;
        afterWord_ = false;
    }

    const ColourNumbers& colours_;
    std::string rtf_;
    CharFormat format_;
    bool started_ = false;
    bool afterWord_ = true;  // a character that could lengthen the word needs a blank before it
};

std::string Body(const MarkedText& text, const ColourNumbers& colours) {
    Writer writer(colours);
    for (std::size_t i = 0; i < text.Length(); ++i) {
        writer.SetFormat(text.FormatAt(i));
        if (text.Text().compare(i, LineBreak.size(), LineBreak) == 0) {
            writer.EndParagraph();
            ++i;
        } else {
            writer.Character(text.At(i));
        }
    }
    writer.EndParagraph();
    return writer.Rtf();
}

}  // namespace

std::string WriteRtf(const MarkedText& text) {
    const ColourNumbers colours = NumberColours(text);
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0"
           "{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier;}}\r\n" +
           ColourTable(colours) + "\\viewkind4\\uc1\\pard\\f0\\fs20" + Body(text, colours) +
           "}\r\n";
}

}  // namespace varno
