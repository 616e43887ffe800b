// The character sets in which rich text writes its bytes, by their code page numbers.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace varno {

namespace code_pages {
inline constexpr int Symbol = 42;  // a font with pictures of its own instead of letters
inline constexpr int Dos = 437;
inline constexpr int DosLatin1 = 850;
inline constexpr int Windows1252 = 1252;
inline constexpr int MacRoman = 10000;
inline constexpr int Utf8 = 65001;
}  // namespace code_pages

// The code page of a font's character set number. Absent: the font says nothing, the document's
// own code page holds.
std::optional<int> CodePageOfCharset(int charset);

// Decodes bytes of any code page, with the converters of the system. What cannot be decoded becomes
// U+FFFD; a code page that the system does not know is read as Windows-1252.
class CodePageDecoder {
  public:
    CodePageDecoder();
    ~CodePageDecoder();
    CodePageDecoder(const CodePageDecoder&) = delete;
    CodePageDecoder& operator=(const CodePageDecoder&) = delete;

    void Append(std::u16string& text, int codePage, std::string_view bytes);

    class Converter;  // of the system

  private:
    Converter* ConverterFor(int codePage);  // null: not known

    std::map<int, std::unique_ptr<Converter>> converters_;  // those met so far
};

// The letters and signs that the font "Symbol" shows for text of its code page.
std::u16string SymbolFontText(std::u16string_view text);

}  // namespace varno
