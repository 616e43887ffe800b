#include "codec/ticket_text.h"

#include <algorithm>
#include <map>

#include "codec/code_name.h"
#include "codec/marked_text.h"
#include "codec/utf8.h"
#include "codec/windows1252.h"

namespace varno {
namespace {

constexpr Word CR = '\r';
constexpr Word LF = '\n';

// Written as itself: it can be seen, means nothing to the text, and is no mark of the line's end.
bool IsPlain(Word word) {
    if (word == '{' || word == '}') {
        return false;
    }
    if (word >= ' ' && word <= '~') {
        return true;
    }
    if (word < 0x80 || word > 0xFF || word == LineEndMarker) {
        return false;
    }
    const bool unseen = word == 0xA0 || word == 0xAD;
    return !unseen && IsPrinted(static_cast<unsigned char>(word));
}

std::string CodeText(Word word, const CodeComment& comment) {
    const bool hasComment = ClassOf(word) == ControlCodeClass || ClassOf(word) == PrintCodeClass;
    std::string said = comment && hasComment ? comment(word) : "";
    std::erase_if(said, [](char c) { return c == '{' || c == '}' || c == '\r' || c == '\n'; });
    return "{" + CodeName(word) + (said.empty() ? "" : " ") + said + "}";
}

bool IsLineEnd(std::span<const Word> body, std::size_t at) {
    return body[at] == CR && at + 1 < body.size() && body[at + 1] == LF;
}

// Reads one line of text.
class LineReader {
  public:
    LineReader(std::string_view line, std::vector<Word>& body)
        : line_(FromUtf8(line)), body_(body) {}

    std::optional<TextFault> Read() {
        while (next_ < line_.size() && !fault_) {
            if (ended_) {
                return TextFault{next_ + 1, "A printed line has ended before this."};
            }
            const char16_t c = line_[next_];
            c == u'{' ? ReadCode() : ReadCharacter(c);
        }
        return fault_;
    }

  private:
    void ReadCharacter(char16_t c) {
        const Word code = ToWindows1252(c);
        if (c == LineEndMarker) {
            body_.insert(body_.end(), {CR, LF});
            ended_ = true;
        } else if (c == u'}') {
            Fail("\"}\" closes nothing; as a character it is written {A125}.");
        } else if (c < u' ' || (code == '?' && c != u'?')) {
            Fail("The indicator has no such character.");
        } else {
            body_.push_back(code);
        }
        ++next_;
    }

    void ReadCode() {
        const std::size_t close = line_.find(u'}', next_);
        if (close == std::u16string::npos) {
            return Fail("\"{\" is not closed; as a character it is written {A123}.");
        }
        const std::string inside = ToUtf8(line_.substr(next_ + 1, close - next_ - 1));
        const std::string name = inside.substr(0, inside.find(' '));  // a comment may follow
        const std::optional<Word> word = WordNamed(name);
        if (!word || !IsBodyWord(*word)) {
            return Fail("\"" + name + "\" is no code such as A27, C005, P012 or W18FF.");
        }
        body_.push_back(*word);
        next_ = close + 1;
    }

    // A word that begins or ends a ticket or the block is none of a body.
    static bool IsBodyWord(Word word) {
        const int wordClass = ClassOf(word);
        return wordClass != TicketHeaderClass && wordClass != TicketEndClass &&
               wordClass != EndMarkerClass;
    }

    void Fail(const std::string& what) { fault_ = TextFault{next_ + 1, what}; }

    std::u16string line_;
    std::vector<Word>& body_;
    std::size_t next_ = 0;
    bool ended_ = false;  // by the mark of a printed line end
    std::optional<TextFault> fault_;
};

}  // namespace

CodeComment CommentsOf(const Catalogues& catalogues) {
    return [catalogues, known = std::map<Word, std::string>()](Word code) mutable {
        const auto [place, isNew] = known.try_emplace(code);
        if (isNew) {
            const std::string comment = ToUtf8(FindCodeComment(catalogues, code));
            place->second = comment.substr(comment.starts_with(' ') ? 1 : 0);
        }
        return place->second;
    };
}

std::vector<std::string> TicketLines(std::span<const Word> body, const CodeComment& comment) {
    std::vector<std::string> lines;
    std::string line;
    const auto endLine = [&] {
        lines.push_back(line);
        line.clear();
    };
    for (std::size_t i = 0; i < body.size(); ++i) {
        if (IsLineEnd(body, i)) {
            line += ToUtf8({&LineEndMarker, 1});
            endLine();
            ++i;
            continue;
        }
        const bool lastBlank = body[i] == ' ' && i + 1 == body.size();  // editors take it away
        const char16_t character = FromWindows1252(static_cast<unsigned char>(body[i]));
        line +=
            IsPlain(body[i]) && !lastBlank ? ToUtf8({&character, 1}) : CodeText(body[i], comment);
    }
    if (!line.empty()) {
        endLine();
    }
    return lines;
}

std::optional<TextFault> ReadTicketLine(std::string_view line, std::vector<Word>& body) {
    return LineReader(line, body).Read();
}

bool EndsPrintedLine(std::span<const Word> body) {
    return body.size() >= 2 && IsLineEnd(body, body.size() - 2);
}

}  // namespace varno
