#include "paper/effects_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "codec/code_name.h"
#include "codec/utf8.h"
#include "codec/windows1252.h"

namespace varno {
namespace {

constexpr std::size_t MostFaults = 20;
constexpr std::size_t MostEffects = 8;    // of a code: paper costs memory
constexpr std::size_t LongestQuote = 24;  // bytes of a wrong line that its fault shows
constexpr std::string_view Blanks = " \t\r";

// What is wrong with a line; empty if nothing is.
using Fault = std::string;

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(Blanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// Takes the text up to the next blank off the front.
std::string_view TakeWord(std::string_view& text) {
    text = Trimmed(text);
    const std::string_view word = text.substr(0, text.find_first_of(Blanks));
    text = Trimmed(text.substr(word.size()));
    return word;
}

// The words in lower case, one blank between them.
std::string Phrased(std::string_view text) {
    std::string phrase;
    while (!text.empty()) {
        phrase += (phrase.empty() ? "" : " ") + std::string(TakeWord(text));
    }
    std::transform(phrase.begin(), phrase.end(), phrase.begin(), LowerCase);
    return phrase;
}

// For a sentence: bytes of noise become question marks.
std::string Quoted(std::string_view text) {
    std::string shown(text.substr(0, LongestQuote));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return "\"" + shown + (text.size() > LongestQuote ? "...\"" : "\"");
}

// The number that the whole text writes, or -1.
int NumberIn(std::string_view text) {
    int number = -1;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::max(number, -1) : -1;
}

std::string Range(int low, int high) {
    return std::to_string(low) + " to " + std::to_string(high);
}

// The word of a code in either case; one without a letter is a control code.
std::optional<Word> CodeWord(std::string_view code) {
    std::string name(code);
    if (name.empty() || (name.front() >= '0' && name.front() <= '9')) {
        name.insert(0, 1, 'C');
    }
    name.front() = static_cast<char>(UpperCase(static_cast<unsigned char>(name.front())));
    return name.front() == 'W' ? std::nullopt : WordNamed(name);
}

struct Phrase {
    std::string_view words;
    Effect effect;
    int low = 0, high = 0;  // of the number behind the words; high 0: there is none
};

constexpr Effect Align(Side side) {
    return {Effect::Kind::Align, static_cast<int>(side)};
}

constexpr Phrase Phrases[] = {
    {"nothing", {}},
    {"align left", Align(Side::Left)},
    {"align centre", Align(Side::Centre)},
    {"align right", Align(Side::Right)},
    {"margin", {Effect::Kind::Margin}, 0, MaxPaperWidth},
    {"tab", {Effect::Kind::Tab}, 1, MaxPaperWidth},
    {"feed", {Effect::Kind::Feed}, 1, MaxFeed},
    {"cut", {Effect::Kind::Cut}},
    {"reset", {Effect::Kind::Reset}},
};

// "bold on" and the like.
bool IsStyle(std::string_view phrase, Effect& effect) {
    for (const auto& [style, name] : StyleNames) {
        const bool on = phrase == std::string(name) + " on";
        if (on || phrase == std::string(name) + " off") {
            effect = {on ? Effect::Kind::StyleOn : Effect::Kind::StyleOff, static_cast<int>(style)};
            return true;
        }
    }
    return false;
}

Fault ParseEffect(std::string_view text, Effect& effect) {
    const std::string phrase = Phrased(text);
    if (IsStyle(phrase, effect)) {
        return {};
    }
    for (const Phrase& row : Phrases) {
        if (row.high == 0 && phrase != row.words) {
            continue;
        }
        if (row.high > 0 && phrase.substr(0, phrase.find(' ')) != row.words) {
            continue;
        }
        effect = row.effect;
        if (row.high == 0) {
            return {};
        }
        effect.argument = NumberIn(Trimmed(std::string_view(phrase).substr(row.words.size())));
        if (effect.argument >= row.low && effect.argument <= row.high) {
            return {};
        }
        return std::string(row.words) + " takes a number from " + Range(row.low, row.high);
    }
    return Quoted(Trimmed(text)) + " is no effect";
}

Fault ParseCode(Word code, std::string_view text, Effects& effects) {
    std::vector<Effect> list;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        if (Fault fault = ParseEffect(text.substr(begin, end - begin), list.emplace_back());
            !fault.empty()) {
            return fault;
        }
        begin = end + 1;
    }
    if (list.size() > MostEffects) {
        return "a code has at most " + std::to_string(MostEffects) + " effects";
    }
    effects.codes[code] = std::move(list);
    return {};
}

// What the printer can print of a value; the rest becomes "?".
std::u16string ValueIn(std::string_view bytes) {
    std::u16string text = FromUtf8(bytes);
    if (text.find(u'\uFFFD') != std::u16string::npos) {
        text = FromWindows1252(bytes);
    }
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t character) {
        const unsigned char code = ToWindows1252(character);
        return IsPrinted(code) ? FromWindows1252(code) : u'?';
    });
    return text;
}

Fault CheckLength(const SampleValue& value) {
    const int most = value.width > 0 ? value.width : MaxValueWidth;
    if (std::ssize(value.text) <= most) {
        return {};
    }
    return "the value is longer than " + std::to_string(most) + " columns";
}

Fault ParsePrintCode(Word code, std::string_view text, Effects& effects) {
    SampleValue value;
    if (!text.starts_with('"')) {
        value.width = NumberIn(TakeWord(text));
        if (value.width < 1 || value.width > MaxValueWidth) {
            return "a print code takes a width from " + Range(1, MaxValueWidth) +
                   " and a value in quotes";
        }
    }
    const std::size_t end = text.find('"', 1);
    if (!text.starts_with('"') || end == std::string_view::npos) {
        return "the value stands in quotes, such as P012 8 \"12480\"";
    }
    value.text = ValueIn(text.substr(1, end - 1));
    const std::string side = Phrased(text.substr(end + 1));
    if (side == "left") {
        value.side = Side::Left;
    } else if (!side.empty() && side != "right") {
        return "only left or right stands behind a value";
    }
    if (Fault fault = CheckLength(value); !fault.empty()) {
        return fault;
    }
    effects.values[code] = value;
    return {};
}

Fault ParseWidth(std::string_view text, Effects& effects) {
    const int width = NumberIn(text);
    if (width < MinPaperWidth || width > MaxPaperWidth) {
        return "width takes a number of columns from " + Range(MinPaperWidth, MaxPaperWidth);
    }
    effects.paperWidth = width;
    return {};
}

Fault ParseAlignment(std::string_view line, Effects& effects) {
    Effect effect;
    if (Fault fault = ParseEffect(line, effect); !fault.empty()) {
        return fault;
    }
    effects.side = static_cast<Side>(effect.argument);
    return {};
}

// A "#" outside of quotes begins a comment.
std::string_view WithoutComment(std::string_view line) {
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') {
            quoted = !quoted;
        }
        if (line[i] == '#' && !quoted) {
            return line.substr(0, i);
        }
    }
    return line;
}

Fault ParseLine(std::string_view line, Effects& effects) {
    line = Trimmed(WithoutComment(line));
    if (line.empty()) {
        return {};
    }
    std::string_view rest = line;
    const std::string_view name = TakeWord(rest);
    const std::string key = Phrased(name);
    if (key == "width") {
        return ParseWidth(rest, effects);
    }
    if (key == "align") {
        return ParseAlignment(line, effects);
    }
    const std::optional<Word> code = CodeWord(name);
    if (!code) {
        return Quoted(name) + " is no code: write 017 (a control code), A027 or P012, at most " +
               std::to_string(MaxWordValue);
    }
    if (ClassOf(*code) == PrintCodeClass) {
        return ParsePrintCode(*code, rest, effects);
    }
    return ParseCode(*code, rest, effects);
}

Fault ParseAssignment(std::string_view line, Effects& effects) {
    line = Trimmed(line);
    return line.empty() || line.front() == '#' ? Fault() : SetValue(line, effects);
}

std::vector<std::string> ParseLines(std::string_view text, Effects& effects,
                                    Fault (*parse)(std::string_view, Effects&)) {
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);  // a byte-order mark
    }
    std::vector<std::string> faults;
    std::size_t wrong = 0;
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const Fault fault = parse(line, effects);
        if (fault.empty() || ++wrong > MostFaults) {
            continue;
        }
        faults.push_back("line " + std::to_string(number) + ": " + fault);
    }
    if (wrong > MostFaults) {
        faults.push_back(std::to_string(wrong - MostFaults) + " more lines are wrong");
    }
    return faults;
}

}  // namespace

std::vector<std::string> ParseEffects(std::string_view text, Effects& effects) {
    return ParseLines(text, effects, ParseLine);
}

std::vector<std::string> ParseValues(std::string_view text, Effects& effects) {
    return ParseLines(text, effects, ParseAssignment);
}

std::string SetValue(std::string_view assignment, Effects& effects) {
    const std::size_t sign = assignment.find('=');
    const std::optional<Word> code = CodeWord(Trimmed(assignment.substr(0, sign)));
    if (sign == std::string_view::npos || !code || ClassOf(*code) != PrintCodeClass) {
        return Quoted(assignment) + " gives no print code a value: write P012=9999";
    }
    const auto known = effects.values.find(*code);
    SampleValue value = known == effects.values.end() ? SampleValue() : known->second;
    value.text = ValueIn(Trimmed(assignment.substr(sign + 1)));
    if (Fault fault = CheckLength(value); !fault.empty()) {
        return fault;
    }
    effects.values[*code] = std::move(value);
    return {};
}

}  // namespace varno
