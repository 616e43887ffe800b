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

RtfStyle TextStyle(const RtfGroupState& state) {
    RtfStyle style = state.style;
    style.bold = style.bold || (state.eastAsian && state.eastAsianBold);
    style.italic = style.italic || (state.eastAsian && state.eastAsianItalic);
    return style;
}

}  // namespace

RtfInterpreter::RtfInterpreter(std::string_view bytes, RtfDocument& document)
    : tokenizer_(bytes),
      document_(document),
      builder_(document),
      fonts_(document.fonts),
      groups_(1) {}

void RtfInterpreter::Run() {
    while (Interpret(tokenizer_.Next())) {
    }
    FlushBytes();
    builder_.Finish(Level(), State().paragraph, State().style);
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

// A piece behind a Unicode character counts as one character, but text counts by its bytes. True
// when nothing of the token is left.
bool RtfInterpreter::SkipReplacement(RtfToken& token) {
    const bool bracket =
        token.kind == RtfTokenKind::GroupStart || token.kind == RtfTokenKind::GroupEnd;
    if (replacementsLeft_ == 0 || bracket || token.kind == RtfTokenKind::End) {
        replacementsLeft_ = 0;
        return false;
    }
    if (token.kind != RtfTokenKind::Text) {
        --replacementsLeft_;
        return true;
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
    return true;
}

void RtfInterpreter::Enter(RtfDestination destination) {
    if (groups_.size() <= 2) {
        return;  // a brace is missing: better too much text than none
    }
    State().opensDestination = InBody() && destination != RtfDestination::Body;
    State().destination = InBody() ? destination : RtfDestination::Skipped;
    if (State().destination == RtfDestination::Picture) {
        picture_.Begin();
    }
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
                builder_.AddText(text, TextStyle(State()));
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
    return State().inTable ? std::max(1, State().nesting) : 0;
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
        builder_.EndCell(level, State().paragraph, State().style);
    }
}

void RtfInterpreter::EndRow(int level) {
    if (InBody()) {
        builder_.EndRow(level, State().paragraph, State().style);
    }
}

RtfRowFormat& RtfInterpreter::RowFormat() {
    return builder_.RowFormat(State().nestedRowFormat ? NestedLevel() : 1);
}

}  // namespace varno
