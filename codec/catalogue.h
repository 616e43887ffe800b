// The code catalogues: text files beside the program that give each code number a comment.
// One code a line: three digits, a blank, the comment; Windows-1252. Other lines are skipped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "codec/word.h"

namespace varno {

inline constexpr std::string_view ControlCatalogueName = "Varno Control Codes.txt";
inline constexpr std::string_view PrintCatalogueName = "Varno Print Codes.txt";

// The paths of the files.
struct Catalogues {
    std::string controlCodes;
    std::string printCodes;
};

Catalogues CataloguesIn(const std::string& folder);

// An accepted line, upper-cased.
struct CatalogueRow {
    std::u16string text;  // the whole line

    std::u16string Code() const { return text.substr(0, CodeDigits); }
    std::u16string Comment() const { return text.substr(CodeDigits + 1); }
    bool operator==(const CatalogueRow&) const = default;
};

// Reads the catalogue file at `path`; rows in file order. Returns the system's description of the
// failure when the file cannot be read (then `rows` is empty), or an empty string.
std::string LoadCatalogue(const std::string& path, std::vector<CatalogueRow>& rows);

// The comment of a control or print code: the upper-cased rest, blank in front included, of the
// first line of its catalogue that begins with its digits. Empty when there is none or the file
// cannot be read. The file is read anew at every call, so an edited catalogue shows at the next
// decoding.
std::u16string FindCodeComment(const Catalogues& catalogues, Word code);

}  // namespace varno
