#include "platform/rtf/interpreter.h"

#include <algorithm>

#include "platform/rtf/control_words.h"
#include "platform/rtf/field_instruction.h"

namespace varno {
namespace {

// Groups further down share the state of this one.
constexpr std::size_t DeepestGroup = 1000;

bool MayBeText(RtfTokenKind kind) {
    return kind == RtfTokenKind::Text || kind == RtfTokenKind::Byte || kind == RtfTokenKind::Symbol;
}

// What may stand in for a Unicode character in front of it.
bool IsCharacter(const RtfToken& token) {
    constexpr std::string_view Symbols = "\\{}~-_";
    switch (token.kind) {
        case RtfTokenKind::Word: {
            const RtfControlWord* word = FindRtfControlWord(token.text);
            return word != nullptr && word->isCharacter;
        }
        case RtfTokenKind::Symbol:
            return Symbols.find(token.text) != std::string_view::npos;
        default:
            return token.kind == RtfTokenKind::Byte || token.kind == RtfTokenKind::Binary;
    }
}

bool IsComplex(char16_t unit) {
    return (unit >= 0x0590 && unit < 0x10A0) || (unit >= 0x1780 && unit < 0x18B0) ||
           (unit >= 0xFB1D && unit < 0xFE00) || (unit >= 0xFE70 && unit < 0xFEFF);
}

// Blanks, digits and punctuation belong to the writing in front of them.
bool IsLetter(char16_t unit) {
    const bool punctuation = unit < 0xC0 || (unit >= 0x2000 && unit < 0x2070);
    return !punctuation || (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z');
}

RtfStyle TextStyle(const RtfGroupState& state, bool complex) {
    const RtfWriting writing = state.writing == EastAsian ? EastAsian : complex ? Complex : Western;
    RtfStyle style = state.style;
    style.bold = style.bold || state.associated[writing].bold;
    style.italic = style.italic || state.associated[writing].italic;
    return style;
}

}  // namespace

RtfInterpreter::RtfInterpreter(std::string_view bytes, RtfDocument& document)
    : tokenizer_(bytes),
      document_(document),
      builder_(document),
      fonts_(document.fonts),
      groups_(1) {}

bool RtfInterpreter::Run(std::size_t longest) {
    while (builder_.Length() <= longest && Interpret(tokenizer_.Next())) {
    }
    FlushBytes();
    builder_.Finish(Level(), State().paragraph, State().style);
    return builder_.Length() <= longest;
}

// False at the end of the document.
bool RtfInterpreter::Interpret(const RtfToken& next) {
    RtfToken token = next;
    if (SkipReplacement(token)) {
        return true;
    }
    if (!MayBeText(token.kind)) {
        FlushBytes();
    }
    switch (token.kind) {
        case RtfTokenKind::End:
            return false;
        case RtfTokenKind::GroupStart:
            StartGroup();
            break;
        case RtfTokenKind::GroupEnd:
            return EndGroup();
        case RtfTokenKind::Word:
            Word(token);
            break;
        case RtfTokenKind::Symbol:
            Symbol(token.text.front());
            break;
        case RtfTokenKind::Byte:
            AddBytes({&token.value, 1});
            break;
        case RtfTokenKind::Text:
            AddBytes(token.text);
            break;
        case RtfTokenKind::Binary:
            if (State().destination == RtfDestination::Picture) {
                picture_.AddBinary(token.text);
            }
            break;
    }
    return true;
}

// Behind a Unicode character text counts by its bytes. What is no character ends the replacement:
// some writers leave it out, and nothing else must be lost with it. True when nothing of the token
// is left.
bool RtfInterpreter::SkipReplacement(RtfToken& token) {
    if (replacementsLeft_ == 0) {
        return false;
    }
    if (token.kind != RtfTokenKind::Text) {
        const bool skipped = IsCharacter(token);
        replacementsLeft_ = skipped ? replacementsLeft_ - 1 : 0;
        return skipped;
    }
    const std::size_t skipped =
        std::min(token.text.size(), static_cast<std::size_t>(replacementsLeft_));
    token.text.remove_prefix(skipped);
    replacementsLeft_ -= static_cast<int>(skipped);
    return token.text.empty();
}

void RtfInterpreter::StartGroup() {
    if (groups_.size() > DeepestGroup) {
        ++groupsTooDeep_;
        return;
    }
    groups_.push_back(groups_.back());
    State().opensDestination = false;
    State().opensBox = false;
    State().ignorable = false;
}

bool RtfInterpreter::EndGroup() {
    if (groupsTooDeep_ > 0) {
        --groupsTooDeep_;
        return true;
    }
    if (groups_.size() <= 2) {
        return false;  // with the document's own state still at hand
    }
    const RtfGroupState closed = groups_.back();
    groups_.pop_back();
    if (closed.opensDestination) {
        EndDestination(closed.destination);
    }
    if (closed.opensBox) {
        builder_.EndBox(closed.boxLevel, closed.paragraph, closed.style);
    }
    return true;
}

void RtfInterpreter::Enter(RtfDestination destination) {
    if (groups_.size() <= 2) {
        return;  // a brace is missing: better too much text than none
    }
    State().opensDestination = InBody() && destination != RtfDestination::Body;
    State().destination = InBody() ? destination : RtfDestination::Skipped;
    State().shownPart = RtfDestination::Skipped;
    if (State().destination == RtfDestination::Picture) {
        picture_.Begin();
    }
}

void RtfInterpreter::EnterBox() {
    if (State().shownPart != RtfDestination::Body || !Visible()) {
        return;
    }
    RtfGroupState& state = State();
    state.boxLevel = Level();
    state.opensBox = true;
    state.destination = RtfDestination::Body;
    state.shownPart = RtfDestination::Skipped;
    state.paragraph = {};
    state.inTable = false;
    builder_.BeginBox(state.boxLevel);
}

void RtfInterpreter::EndDestination(RtfDestination destination) {
    switch (destination) {
        case RtfDestination::FontTable:
            ApplyDefaultFont();
            break;
        case RtfDestination::FieldInstruction:
            if (const auto target = HyperlinkTarget(instruction_)) {
                document_.links.push_back(*target);
                State().style.link = static_cast<int>(document_.links.size()) - 1;
            }
            instruction_.clear();
            break;
        case RtfDestination::Label:
            builder_.EndLabel();
            break;
        case RtfDestination::Picture:
            if (picture_.Complete() && Visible()) {
                builder_.AddPicture(picture_.Take(), State().style);
            }
            break;
        default:
            break;
    }
}

void RtfInterpreter::Word(const RtfToken& token) {
    const RtfControlWord* word = FindRtfControlWord(token.text);
    if (word != nullptr) {
        word->apply(*this, token.parameter.value_or(word->defaultParameter));
    } else if (State().ignorable) {
        Enter(RtfDestination::Skipped);
    }
    State().ignorable = false;
}

void RtfInterpreter::Symbol(char symbol) {
    if (symbol == '\\' || symbol == '{' || symbol == '}') {
        AddBytes({&symbol, 1});
        return;
    }
    FlushBytes();
    switch (symbol) {
        case '*':
            State().ignorable = true;
            break;
        case '~':
            AddText(u"\u00A0");
            break;
        case '-':
            AddText(u"\u00AD");
            break;
        case '_':
            AddText(u"\u2011");
            break;
        case '\t':
            AddText(u"\t");
            break;
        case '\r':
        case '\n':
            EndParagraph();
            break;
        default:
            break;
    }
}

void RtfInterpreter::AddBytes(std::string_view bytes) {
    switch (State().destination) {
        case RtfDestination::Skipped:
            break;
        case RtfDestination::ColourTable:
            colours_.AddText(bytes);
            break;
        case RtfDestination::Picture:
            picture_.AddHex(bytes);
            break;
        default:
            bytes_ += bytes;
            break;
    }
}

void RtfInterpreter::FlushBytes() {
    if (!bytes_.empty()) {
        std::u16string text;
        decoder_.Append(text, State().codePage, bytes_);
        bytes_.clear();
        AddText(text);
    }
}

void RtfInterpreter::AddText(std::u16string_view text) {
    std::u16string mapped;
    if (State().codePage == code_pages::Symbol && fonts_.IsSymbol(State().style.font)) {
        mapped = SymbolFontText(text);
        text = mapped;
    }
    switch (State().destination) {
        case RtfDestination::Body:
            if (Visible()) {
                AddBodyText(text);
            }
            break;
        case RtfDestination::Label:
            if (Visible()) {
                builder_.AddLabel(text, State().style);
            }
            break;
        case RtfDestination::FontTable:
            fonts_.AddName(text);
            break;
        case RtfDestination::FieldInstruction:
            instruction_ += text;
            break;
        default:
            break;
    }
}

// Each letter in the style of its writing.
void RtfInterpreter::AddBodyText(std::u16string_view text) {
    while (!text.empty()) {
        std::size_t length = 0;
        const auto staysSo = [&](char16_t unit) {
            return !IsLetter(unit) || IsComplex(unit) == complex_;
        };
        while (length < text.size() && staysSo(text[length])) {
            ++length;
        }
        builder_.AddText(text.substr(0, length), TextStyle(State(), complex_));
        text.remove_prefix(length);
        complex_ = text.empty() ? complex_ : !complex_;
    }
}

void RtfInterpreter::AddUnicode(int value) {
    constexpr int LastUnit = 0xFFFF;
    if (value > 0x10FFFF) {
        AddText(u"\uFFFD");
    } else if (value > LastUnit) {
        const int offset = value - LastUnit - 1;
        const char16_t pair[] = {static_cast<char16_t>(0xD800 + (offset >> 10)),
                                 static_cast<char16_t>(0xDC00 + (offset & 0x3FF))};
        AddText({pair, 2});
    } else {
        const auto unit = static_cast<char16_t>(value & LastUnit);
        AddText({&unit, 1});
    }
    replacementsLeft_ = State().unicodeSkip;
}

void RtfInterpreter::SetFont(int number) {
    State().style.font = fonts_.IndexOf(number);
    State().codePage = fonts_.CodePageOf(number, defaultCodePage_);
}

void RtfInterpreter::SetDefaultCodePage(int codePage) {
    defaultCodePage_ = codePage;
    State().codePage = codePage;
}

int RtfInterpreter::Level() {
    return State().boxLevel + (State().inTable ? std::max(1, State().nesting) : 0);
}
int RtfInterpreter::NestedLevel() {
    return std::max(2, State().nesting);
}

void RtfInterpreter::EndParagraph() {
    if (State().destination == RtfDestination::Label) {
        ReturnFromLabel();
    }
    if (InBody() && Visible()) {
        builder_.EndParagraph(Level(), State().paragraph, State().style);
    }
}

// One writer puts the whole item, and more, into the group of its bullet.
void RtfInterpreter::ReturnFromLabel() {
    builder_.SplitLabel();
    for (auto group = groups_.rbegin(); group->destination == RtfDestination::Label; ++group) {
        group->destination = RtfDestination::Body;
        group->opensDestination = false;
    }
}

void RtfInterpreter::BreakPage() {
    if (builder_.ParagraphHasContent()) {
        EndParagraph();
    }
}

void RtfInterpreter::EndCell(int level) {
    if (InBody()) {
        builder_.EndCell(State().boxLevel + level, State().paragraph, State().style);
    }
}

void RtfInterpreter::EndRow(int level) {
    if (InBody()) {
        builder_.EndRow(State().boxLevel + level, State().paragraph, State().style);
    }
}

RtfRowFormat& RtfInterpreter::RowFormat() {
    return builder_.RowFormat(State().boxLevel + (State().nestedRowFormat ? NestedLevel() : 1));
}

}  // namespace varno
