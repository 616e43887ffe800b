// A ticket and its paper as texts that a test can show.
//
// The ticket: text, a line feed for a printed line end, and codes in braces: "{C005}", "{P012}",
// "{A27}", "{W1800}".
//
// The paper: a row on each line. Before characters that differ from those in front of them stand
// their styles and origin in braces: B bold, W double width, H double height, U underline,
// I inverse; a ASCII code, t tab, s sample, x box; nothing for plain text. "/" behind a row means
// that it is too long and goes on below; "=3" is a feed of three lines, "---" a cut.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "codec/code_name.h"
#include "codec/utf8.h"
#include "paper/paper.h"

namespace varno {

inline std::vector<Word> TicketOf(std::string_view text) {
    std::vector<Word> body;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n') {
            body.push_back('\r');
        }
        if (text[i] != '{') {
            body.push_back(static_cast<Word>(text[i]));
            continue;
        }
        const std::size_t end = text.find('}', i);
        body.push_back(WordNamed(text.substr(i + 1, end - i - 1)).value());
        i = end;
    }
    return body;
}

inline std::string LookOf(const PaperCell& cell) {
    std::string look;
    for (std::size_t bit = 0; bit < 5; ++bit) {
        if ((cell.styles >> bit & 1) != 0) {
            look += "BWHUI"[bit];
        }
    }
    if (cell.origin != PaperCell::Origin::Text) {
        look += " atsx"[static_cast<int>(cell.origin)];
    }
    return look;
}

inline std::string Drawn(const PaperRow& row) {
    if (row.kind == PaperRow::Kind::Feed) {
        return "=" + std::to_string(row.feed);
    }
    if (row.kind == PaperRow::Kind::Cut) {
        return "---";
    }
    std::string drawing(static_cast<std::size_t>(row.indent), ' ');
    std::string look;
    for (const PaperCell& cell : row.cells) {
        if (LookOf(cell) != look) {
            drawing += "{" + (look = LookOf(cell)) + "}";
        }
        drawing += ToUtf8(std::u16string(1, cell.character));
    }
    return drawing + (row.breaks ? "/" : "");
}

inline std::string Drawn(const Paper& paper) {
    std::string drawing;
    for (const PaperRow& row : paper.rows) {
        drawing += Drawn(row) + "\n";
    }
    return drawing;
}

}  // namespace varno
