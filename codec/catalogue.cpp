#include "codec/catalogue.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "codec/code_name.h"
#include "codec/windows1252.h"

namespace varno {
namespace {

// Reads up to the next LF; a CR in front of it belongs to the line end.
bool ReadLine(std::istream& file, std::string& line) {
    if (!std::getline(file, line)) {
        return false;
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return true;
}

std::u16string UpperCased(std::string_view bytes) {
    std::u16string text = FromWindows1252(bytes);
    std::transform(text.begin(), text.end(), text.begin(), UpperCase);
    return text;
}

// The number in a code field. Blanks count as nothing; any other character ends it.
int NumberOf(std::string_view field) {
    int number = 0;
    for (const char c : field) {
        if (c == ' ') {
            continue;
        }
        if (c < '0' || c > '9') {
            break;
        }
        number = number * 10 + (c - '0');
    }
    return number;
}

bool IsRow(std::string_view line) {
    return line.size() > CodeDigits && line[CodeDigits] == ' ' &&
           NumberOf(line.substr(0, CodeDigits)) > 0;
}

}  // namespace

Catalogues CataloguesIn(const std::string& folder) {
    const auto path = [&](std::string_view name) { return folder + "/" + std::string(name); };
    return {.controlCodes = path(ControlCatalogueName), .printCodes = path(PrintCatalogueName)};
}

std::string LoadCatalogue(const std::string& path, std::vector<CatalogueRow>& rows) {
    rows.clear();
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::string line;
    while (ReadLine(file, line)) {
        if (IsRow(line)) {
            rows.push_back({UpperCased(line)});
        }
    }
    if (file.is_open() && !file.bad()) {
        return {};
    }
    rows.clear();
    return std::generic_category().message(errno != 0 ? errno : EIO);
}

std::u16string FindCodeComment(const Catalogues& catalogues, Word code) {
    const bool control = ClassOf(code) == ControlCodeClass;
    const std::string digits = CodeName(code).substr(1);
    std::ifstream file(control ? catalogues.controlCodes : catalogues.printCodes, std::ios::binary);
    std::string line;
    while (ReadLine(file, line)) {
        const std::string_view text = line;
        if (text.substr(0, CodeDigits) == digits) {
            return UpperCased(text.substr(CodeDigits));
        }
    }
    return {};
}

}  // namespace varno
