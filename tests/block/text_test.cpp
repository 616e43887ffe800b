// Blocks as text: the same block comes back of it, and bad text is refused where it is bad.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "block/block_compare.h"
#include "block/block_text.h"
#include "block/image.h"

namespace varno {
namespace {

#ifdef NDEBUG
constexpr int RandomBlocks = 100'000;
#else
constexpr int RandomBlocks = 5'000;
#endif

class RandomBlock {
  public:
    explicit RandomBlock(unsigned seed) : random_(seed) {}

    BlockContent Next() {
        BlockContent block;
        std::vector<int> numbers(Below(6) * Below(5));
        for (int& number : numbers) {
            number = 200 + static_cast<int>(Below(800));
        }
        std::ranges::sort(numbers);
        numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        std::ranges::shuffle(numbers, random_);
        for (const int number : numbers) {
            block.tickets.push_back(Ticket(number));
        }
        for (Word& key : block.keys) {
            if (!numbers.empty() && Below(2) > 0) {
                key = static_cast<Word>(numbers[Below(numbers.size())] + (Seldom() ? 0xF800 : 0));
            }
        }
        if (Seldom()) {
            block.endMarker = 0x8123;
        }
        if (Seldom()) {
            block.fill.assign(1 + Below(40), 0xABC0);
        }
        const std::string image = ImageOf(block);
        block.smallDigits = Seldom() && image.find_first_of("ABCDEF") != std::string::npos;
        return block;
    }

  private:
    TicketRecord Ticket(int number) {
        TicketRecord ticket{.number = number};
        for (std::size_t left = Below(60); left > 0; --left) {
            const auto body = AnyWords();
            ticket.body.insert(ticket.body.end(), body.begin(), body.end());
        }
        if (Seldom()) {
            ticket.end = 0x1007;
        }
        return ticket;
    }
    std::vector<Word> AnyWords() {
        switch (Below(8)) {
            case 0:
                return {'\r', '\n'};
            case 1:
                return {static_cast<Word>(ControlCode + Below(2048))};
            case 2:
                return {static_cast<Word>(PrintCode + Below(2048))};
            case 3:
                return {static_cast<Word>(Below(2048))};
            case 4:
                return {static_cast<Word>(Seldom() ? 0x1800 + Below(0x7E8) : Below(256))};
            case 5:
                return {' '};
            default:
                return {static_cast<Word>(' ' + Below(95))};
        }
    }
    std::size_t Below(std::size_t limit) { return random_() % limit; }
    bool Seldom() { return Below(20) == 0; }

    std::mt19937 random_;
};

BlockContent Content(const std::string& text) {
    const auto read = ReadBlockText(text);
    if (const auto* fault = std::get_if<BlockTextFault>(&read)) {
        ADD_FAILURE() << fault->line << ":" << fault->column << ": " << fault->what << "\n" << text;
        return {};
    }
    return std::get<BlockContent>(read);
}

TEST(BlockText, GivesTheSameBlockBack) {
    RandomBlock random(20);
    for (int i = 0; i < RandomBlocks && !HasFailure(); ++i) {
        const BlockContent block = random.Next();
        const std::string image = ImageOf(block);
        const std::string text = BlockText(ContentOf(image));
        ASSERT_EQ(ImageOf(Content(text)), image) << text;
        if (block.tickets.empty()) {
            continue;
        }
        BlockContent again = block;  // the last ticket is put again
        std::rotate(again.tickets.begin(), again.tickets.end() - 1, again.tickets.end());
        const std::string changed = BlockText(again);
        const auto [a, b] = std::ranges::mismatch(text, changed);
        const std::size_t from = static_cast<std::size_t>(a - text.begin());
        ASSERT_TRUE(a == text.end() || (text.find('\n', from) == changed.find('\n', from) &&
                                        text.rfind('\n', from) == changed.rfind('\n', from) &&
                                        text.substr(text.find('\n', from)) ==
                                            changed.substr(changed.find('\n', from))))
            << text << changed;
    }
}

// A damaged block is shown too.
TEST(BlockContent, LeavesOutWhatIsInNoTicket) {
    const std::vector<TicketRecord> tickets =
        ContentOf(":0041100008D400421000004308D58000").tickets;
    ASSERT_EQ(tickets.size(), 2U);
    EXPECT_EQ(tickets[0].body, std::vector<Word>{'B'});
    EXPECT_EQ(tickets[1].body, std::vector<Word>());
}

// Every word once, in the one form that it has.
TEST(BlockText, WritesOneLineForOnePrintedLine) {
    const BlockContent block{
        .tickets = {{.number = 640,
                     .body = {'A',    ' ', 0xE9, 0x80, 13,   10,   ' ',   '{',    '}',
                              '|',    '~', 0xFF, 13,   10,   13,   10,    0x2005, 0x27FF,
                              0x400C, 27,  13,   0xAC, 0xA0, 0x81, 0x7FF, ' '}},
                    {.number = 212, .body = {13, 13, 10}},
                    {.number = 999, .body = {0xF8D4, 10}, .end = 0x1001}},
        .keys = {212, 640, 212, 0xF800}};
    const CodeComment comment = [](Word word) { return word == 0x2005 ? "LINE {FEED}" : ""; };
    const std::string text =
        "Varno ticket block\n"
        "order 640:S 212:PI 999\n"
        "key O F800\n"
        "ticket 212\n"
        "|{A13}¬\n"
        "ticket 640\n"
        "|A é€¬\n"
        "| {A123}{A125}|~ÿ¬\n"
        "|¬\n"
        "|{C005 LINE FEED}{C2047}{P012}{A27}{A13}{A172}{A160}{A129}{A2047}{A32}\n"
        "ticket 999\n"
        "|{WF8D4}{A10}\n"
        "end 1001\n";
    EXPECT_EQ(BlockText(block, comment), text);
    EXPECT_EQ(Content(text), block);
    // As an editor on another system may leave it.
    std::string edited = "\xEF\xBB\xBF# shop 1\n\n" + text;
    for (std::size_t at = 0; (at = edited.find('\n', at)) != std::string::npos; at += 2) {
        edited.insert(at, "\r");
    }
    EXPECT_EQ(Content(edited.substr(0, edited.size() - 2)), block);
    // A ticket that was added by hand counts as put last.
    EXPECT_EQ(Content("Varno ticket block\norder 300 212\nticket 212\nticket 300\nticket 250\n"),
              (BlockContent{.tickets = {{.number = 250}, {.number = 300}, {.number = 212}}}));
}

TEST(BlockText, RefusesWhereItIsBad) {
    const std::string long2000(1995, 'A');
    struct {
        const char* lines;  // behind the first two: the title and "ticket 212"
        std::size_t line, column;
        const char* what;
    } const table[] = {
        {"|a\n|b", 4, 1, "The line before it lacks \"¬\" at its end."},
        {"|é¬x", 3, 4, "A printed line has ended before this."},
        {"|éé{A27", 3, 4, "\"{\" is not closed; as a character it is written {A123}."},
        {"|a}", 3, 3, "\"}\" closes nothing; as a character it is written {A125}."},
        {"|a{B1}", 3, 3, "\"B1\" is no code such as A27, C005, P012 or W18FF."},
        {"|{C2048}", 3, 2, "\"C2048\" is no code such as A27, C005, P012 or W18FF."},
        {"|{W1000}", 3, 2, "\"W1000\" is no code such as A27, C005, P012 or W18FF."},
        {"|{A}", 3, 2, "\"A\" is no code such as A27, C005, P012 or W18FF."},
        {"|a\u0416", 3, 3, "The indicator has no such character."},
        {"|a\xFF", 3, 3, "The indicator has no such character."},
        {"|a\tb", 3, 3, "The indicator has no such character."},
        {"ticket 212", 3, 8, "Ticket 212 is there already."},
        {"ticket 1000", 3, 8, "A ticket number lies between 200 and 999."},
        {"ticket  21x", 3, 9, "A ticket number lies between 200 and 999."},
        {"ticket", 3, 7, "The number of the ticket is missing here."},
        {"ticket 213 x", 3, 12, "The line should end before this."},
        {"tickets 213", 3, 1, "No line begins with \"tickets\"."},
        {"order 212 212", 3, 11, "Ticket 212 stands in the order twice."},
        {"order 212:X", 3, 7, "\"X\" is no key: P, S, I or O."},
        {"order 212:PP", 3, 7, "The key Print prints a ticket already."},
        {"order 212\norder 212", 4, 1, "There is a second line of the order."},
        {"order 213", 3, 1, "The order names ticket 213, which is not there."},
        {"key P F8D5", 3, 7, "Ticket 213 is not there."},
        {"end 100", 3, 5, "These are not four hexadecimal digits."},
        {"end 8000", 3, 5, "This ends no ticket."},
        {"marker 1000", 3, 8, "This is no end marker."},
        {"digits large", 3, 8, "Digits are capital unless they are \"small\"."},
    };
    for (const auto& row : table) {
        const auto read =
            ReadBlockText("Varno ticket block\nticket 212\n" + std::string(row.lines));
        const auto* fault = std::get_if<BlockTextFault>(&read);
        ASSERT_NE(fault, nullptr) << row.lines;
        EXPECT_EQ(fault->what, row.what) << row.lines;
        EXPECT_EQ(fault->line, row.line) << row.lines;
        EXPECT_EQ(fault->column, row.column) << row.lines;
    }
    for (const char* text : {"", "# nothing\n", "ticket 212\n", "Varno ticket block\n|A\n"}) {
        EXPECT_TRUE(std::holds_alternative<BlockTextFault>(ReadBlockText(text))) << text;
    }
    const std::string full = "Varno ticket block\nticket 212\n|" + std::string(1993, 'A');
    EXPECT_EQ(Content(full).Words(), 2000U);
    EXPECT_TRUE(std::holds_alternative<BlockTextFault>(ReadBlockText(full + "A")));
}

// Blocks of three tickets in a short form: "order 212:P / 212 A / 300 B".
BlockContent Block(std::string_view order,
                   std::initializer_list<std::pair<int, const char*>> tickets) {
    std::string text = "Varno ticket block\norder " + std::string(order) + "\n";
    for (const auto& [number, line] : tickets) {
        text += "ticket " + std::to_string(number) + "\n|" + line + "\n";
    }
    return Content(text);
}

TEST(Differences, AreToldInWords) {
    const CodeComment comment = [](Word) { return "BOLD ON"; };
    const BlockContent a =
        Block("212:P 300 400", {{212, "x¬\n|y¬\n|w¬\n|p¬\n|z"}, {300, "{C017}"}, {400, ""}});
    const BlockContent b =
        Block("300:S 212 500", {{212, "w¬\n|x¬\n|y¬\n|P¬\n|z"}, {300, "{C018}"}, {500, ""}});
    EXPECT_EQ(
        Differences(a, b, {"old", "new"}, comment),
        (std::vector<std::string>{"ticket 212 differs:", "  + w¬", "  - w¬", "  - p¬", "  + P¬",
                                  "ticket 300 differs:", "  - {C017 BOLD ON}", "  + {C018 BOLD ON}",
                                  "ticket 400 is only in old", "ticket 500 is only in new",
                                  "key Print prints 212 in old, none in new",
                                  "key Start prints none in old, 300 in new"}));
    const BlockContent reordered =
        Block("400 300 212:P", {{212, "x¬\n|y¬\n|w¬\n|p¬\n|z"}, {300, "{C017}"}, {400, ""}});
    EXPECT_TRUE(Differences(a, reordered, {"old", "new"}).empty());
    BlockContent otherEnd = a;
    otherEnd.tickets.back().end = TicketEnd + 1;
    EXPECT_EQ(Differences(a, otherEnd, {"old", "new"}).at(1), "  + end " + WordHex(TicketEnd + 1));

    // Tickets that no block has room for: 20,000 lines take no table of 400 million cells.
    const auto longTicket = [](Word middle) {
        TicketRecord ticket;
        for (int i = 0; i < 20'000; ++i) {
            ticket.body.insert(ticket.body.end(),
                               {i == 7 || i == 19'990 ? middle : Word('x'), '\r', '\n'});
        }
        return ticket;
    };
    const auto lines = LineDifferences(longTicket('a'), longTicket('b'));
    EXPECT_EQ(lines.size(), 2U * (19'990 - 7 + 1));
    EXPECT_EQ(lines.front() + lines.back(), "  - a¬  + b¬");
}

TEST(Merge, TakesWhatOneSideChanged) {
    const BlockContent base = Block("212:P 300 400", {{212, "a"}, {300, "b"}, {400, "c"}});
    const BlockContent ours = Block("500 212:P 300:S", {{212, "A"}, {300, "b"}, {500, "e"}});
    const BlockContent theirs =
        Block("600 212:I 300 400", {{212, "a"}, {300, "B"}, {400, "c"}, {600, "f"}});
    const MergedBlock merged = Merge(base, ours, theirs);
    EXPECT_EQ(merged.conflicts, std::vector<std::string>{});
    EXPECT_EQ(merged.content,
              Block("600 500 212:I 300:S", {{212, "A"}, {300, "B"}, {500, "e"}, {600, "f"}}));
    struct {
        BlockContent ours, theirs;
        const char* conflict;
    } const table[] = {
        {Block("212:P 300 400", {{212, "X"}, {300, "b"}, {400, "c"}}),
         Block("212:P 300 400", {{212, "Y"}, {300, "b"}, {400, "c"}}),
         "ticket 212 was changed on both sides"},
        {Block("212:P 300", {{212, "a"}, {300, "b"}}),
         Block("212:P 300 400", {{212, "a"}, {300, "b"}, {400, "C"}}),
         "ticket 400 was changed here and deleted there"},
        {Block("212 300:P 400", {{212, "a"}, {300, "b"}, {400, "c"}}),
         Block("212 300 400:P", {{212, "a"}, {300, "b"}, {400, "c"}}),
         "key Print prints 300 on one side and 400 on the other"},
        {Block("212:P 300", {{212, "a"}, {300, "b"}}),
         Block("212:P 300 400:S", {{212, "a"}, {300, "b"}, {400, "c"}}),
         "key Start prints ticket 400, which one side deleted"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(Merge(base, row.ours, row.theirs).conflicts,
                  std::vector<std::string>{row.conflict});
    }
    BlockContent odd = theirs;
    odd.endMarker = 0x8123;
    odd.fill = {0xABC0};
    odd.smallDigits = true;
    EXPECT_EQ(Merge(base, base, odd).content, odd);
    EXPECT_EQ(Merge(base, ours, base).content, ours);
    BlockContent otherwise = base;
    otherwise.endMarker = 0x8124;
    otherwise.fill = {0xABC1};
    EXPECT_EQ(Merge(base, otherwise, odd).conflicts.size(), 2U);
}

}  // namespace
}  // namespace varno
