#include "block/block_text.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "block/block_text_line.h"
#include "block/image.h"
#include "block/rows.h"

namespace varno {
namespace {

constexpr std::string_view Title = "Varno ticket block";
constexpr std::size_t FillWordsInLine = 16;
constexpr std::size_t MemoryWords = MemoryDigits / WordDigits;

bool IsPlainKey(Word key) {
    return key == ValueOf(key);
}

// " 212", or " 212:PO" where keys print it.
std::string OrderEntry(const BlockContent& content, int number) {
    std::string letters;
    for (std::size_t key = 0; key < content.keys.size(); ++key) {
        if (content.keys[key] == number) {
            letters += KeyNames[key].front();
        }
    }
    return " " + std::to_string(number) + (letters.empty() ? "" : ":") + letters;
}

std::string FillLines(const std::vector<Word>& fill) {
    std::string lines;
    for (std::size_t i = 0; i < fill.size(); ++i) {
        if (i % FillWordsInLine == 0) {
            lines += (i > 0 ? "\nfill" : "fill");
        }
        lines += " " + WordHex(fill[i]);
    }
    return lines + (fill.empty() ? "" : "\n");
}

// The lines that hardly any block has.
std::string OddLines(const BlockContent& content) {
    std::string lines = content.smallDigits ? "digits small\n" : "";
    for (std::size_t key = 0; key < content.keys.size(); ++key) {
        if (!IsPlainKey(content.keys[key])) {
            lines += std::string("key ") + KeyNames[key].front() + " " +
                     WordHex(content.keys[key]) + "\n";
        }
    }
    if (content.endMarker != EndMarker) {
        lines += "marker " + WordHex(content.endMarker) + "\n";
    }
    return lines + FillLines(content.fill);
}

// Reads a text line by line; throws a BlockTextError.
class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {
        if (rest_.starts_with("\xEF\xBB\xBF")) {
            rest_.remove_prefix(3);
        }
    }

    BlockContent ReadBlock() {
        bool titled = false;
        while (auto line = NextLine()) {
            if (line->IsRemark()) {
                continue;
            }
            if (!titled && line->Text() != Title) {
                line->Refuse("The text of a block begins with the line \"" + std::string(Title) +
                             "\".");
            }
            titled ? ReadBlockLine(*line) : void(titled = true);
        }
        if (!titled) {
            BlockTextLine("", lines_ + 1).Refuse("The text is empty.");
        }
        SortByOrder();
        RequireKeysTickets();
        if (content_.Words() > MemoryWords) {
            BlockTextLine("", lines_)
                .Refuse("The tickets and what follows them take " +
                        std::to_string(content_.Words()) + " words; there are " +
                        std::to_string(MemoryWords) + ".");
        }
        return std::move(content_);
    }

    TicketRecord ReadTicket() {
        while (auto line = NextLine()) {
            if (line->IsRemark()) {
                continue;
            }
            if (line->Text() == Title) {
                line->Refuse("This is the text of a whole block; one ticket is wanted.");
            }
            if (content_.tickets.size() == 1 && line->Text().starts_with("ticket ")) {
                line->Refuse("There is a second ticket.");
            }
            ReadTicketLines(*line);
        }
        if (content_.tickets.empty()) {
            BlockTextLine("", lines_ + 1).Refuse("The text is empty.");
        }
        return std::move(content_.tickets.front());
    }

  private:
    std::optional<BlockTextLine> NextLine() {
        if (rest_.empty()) {
            return std::nullopt;
        }
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        return BlockTextLine(line, ++lines_);
    }

    void ReadBlockLine(BlockTextLine& line) {
        if (line.IsTicketText()) {
            return ReadTicketLines(line);
        }
        const std::string_view keyword = BlockTextLine(line).Word("");
        if (keyword == "order") {
            ReadOrder(line);
        } else if (keyword == "key") {
            ReadKey(line);
        } else if (keyword == "marker") {
            ReadMarker(line);
        } else if (keyword == "digits") {
            ReadDigits(line);
        } else if (keyword == "fill") {
            line.Word("");
            while (!line.AtEnd()) {
                content_.fill.push_back(line.HexWord());
            }
        } else {
            ReadTicketLines(line);
        }
    }

    void ReadOrder(BlockTextLine& line) {
        line.Word("");
        if (order_) {
            line.Refuse("There is a second line of the order.");
        }
        order_ = line;
        while (!line.AtEnd()) {
            ReadOrderEntry(line);
        }
    }

    void ReadOrderEntry(BlockTextLine& line) {
        const std::string_view entry = line.Word("");
        const std::size_t colon = std::min(entry.find(':'), entry.size());
        const int number = line.TicketNumber(entry.substr(0, colon));
        if (std::ranges::count(orderNumbers_, number) > 0) {
            line.Refuse("Ticket " + std::to_string(number) + " stands in the order twice.");
        }
        orderNumbers_.push_back(number);
        for (const char letter : entry.substr(std::min(colon + 1, entry.size()))) {
            Bind(line, letter, static_cast<Word>(number));
        }
    }

    void Bind(const BlockTextLine& line, char letter, Word word) {
        const auto name = std::ranges::find(KeyNames, letter, [](auto n) { return n.front(); });
        if (name == KeyNames.end()) {
            line.Refuse(std::string("\"") + letter + "\" is no key: P, S, I or O.");
        }
        const auto key = static_cast<std::size_t>(name - KeyNames.begin());
        if (content_.keys[key] != 0) {
            line.Refuse("The key " + std::string(*name) + " prints a ticket already.");
        }
        content_.keys[key] = word;
    }

    void ReadKey(BlockTextLine& line) {
        line.Word("");
        const std::string_view letter = line.Word("The letter of a key is missing here.");
        const BlockTextLine atLetter = line;
        const Word word = line.HexWord();
        Bind(atLetter, letter.size() == 1 ? letter.front() : '?', word);
        keyWords_.emplace_back(line, word);
        line.RequireEnd();
    }

    void ReadMarker(BlockTextLine& line) {
        line.Word("");
        content_.endMarker = line.HexWord();
        if (ClassOf(content_.endMarker) != EndMarkerClass) {
            line.Refuse("This is no end marker.");
        }
        line.RequireEnd();
    }

    void ReadDigits(BlockTextLine& line) {
        line.Word("");
        content_.smallDigits = line.Word("\"small\" is missing here.") == "small";
        if (!content_.smallDigits) {
            line.Refuse("Digits are capital unless they are \"small\".");
        }
        line.RequireEnd();
    }

    void ReadTicketLines(BlockTextLine& line) {
        if (line.IsTicketText()) {
            return ReadText(line);
        }
        const std::string_view keyword = line.Word("");
        if (keyword == "ticket") {
            BeginTicket(line);
        } else if (keyword == "end") {
            EndTicket(line);
        } else {
            line.Refuse("No line begins with \"" + std::string(keyword) + "\".");
        }
    }

    void BeginTicket(BlockTextLine& line) {
        const int number =
            line.TicketNumber(line.Word("The number of the ticket is missing here."));
        if (content_.Find(number) != nullptr) {
            line.Refuse("Ticket " + std::to_string(number) + " is there already.");
        }
        line.RequireEnd();
        content_.tickets.push_back({.number = number});
    }

    void EndTicket(BlockTextLine& line) {
        TicketRecord& ticket = CurrentTicket(line);
        ticket.end = line.HexWord();
        if (ClassOf(ticket.end) != TicketEndClass) {
            line.Refuse("This ends no ticket.");
        }
        line.RequireEnd();
    }

    void ReadText(const BlockTextLine& line) {
        std::vector<Word>& body = CurrentTicket(line).body;
        if (!body.empty() && !EndsPrintedLine(body)) {
            line.Refuse("The line before it lacks \"\u00AC\" at its end.");
        }
        if (const auto fault = ReadTicketLine(line.Text().substr(1), body)) {
            line.RefuseAt(fault->column + 1, fault->what);
        }
    }

    TicketRecord& CurrentTicket(const BlockTextLine& line) {
        if (content_.tickets.empty()) {
            line.Refuse("This belongs to no ticket.");
        }
        return content_.tickets.back();
    }

    // Tickets that the order does not name were put last: they come first.
    void SortByOrder() {
        const auto place = [&](const TicketRecord& ticket) {
            return std::ranges::find(orderNumbers_, ticket.number) - orderNumbers_.begin();
        };
        for (const int number : orderNumbers_) {
            if (content_.Find(number) == nullptr) {
                order_->RefuseAt(1, "The order names ticket " + std::to_string(number) +
                                        ", which is not there.");
            }
        }
        const auto isNew = [&](const TicketRecord& ticket) {
            return place(ticket) == std::ssize(orderNumbers_);
        };
        std::stable_partition(content_.tickets.begin(), content_.tickets.end(), isNew);
        std::ranges::stable_sort(std::ranges::find_if_not(content_.tickets, isNew),
                                 content_.tickets.end(), {}, place);
    }

    void RequireKeysTickets() {
        for (const auto& [line, word] : keyWords_) {
            if (ValueOf(word) != 0 && content_.Find(ValueOf(word)) == nullptr) {
                line.Refuse("Ticket " + std::to_string(ValueOf(word)) + " is not there.");
            }
        }
    }

    std::string_view rest_;
    std::size_t lines_ = 0;  // read so far
    BlockContent content_;
    std::optional<BlockTextLine> order_;
    std::vector<int> orderNumbers_;
    std::vector<std::pair<BlockTextLine, Word>> keyWords_;  // each on the line that gives it
};

template <class Content>
std::variant<Content, BlockTextFault> Read(std::string_view text, Content (Reader::*read)()) {
    try {
        return (Reader(text).*read)();
    } catch (const BlockTextError& fault) {
        return BlockTextFault(fault);
    }
}

}  // namespace

std::string TicketText(const TicketRecord& ticket, const CodeComment& comment) {
    std::string text = "ticket " + std::to_string(ticket.number) + "\n";
    for (const std::string& line : TicketLines(ticket.body, comment)) {
        text += "|" + line + "\n";
    }
    if (ticket.end != TicketEnd) {
        text += "end " + WordHex(ticket.end) + "\n";
    }
    return text;
}

std::string BlockText(const BlockContent& content, const CodeComment& comment) {
    std::string text = std::string(Title) + "\norder";
    for (const TicketRecord& ticket : content.tickets) {
        text += OrderEntry(content, ticket.number);
    }
    text += "\n" + OddLines(content);
    std::vector<TicketRecord> tickets = content.tickets;
    std::ranges::sort(tickets, {}, &TicketRecord::number);
    for (const TicketRecord& ticket : tickets) {
        text += TicketText(ticket, comment);
    }
    return text;
}

std::variant<BlockContent, BlockTextFault> ReadBlockText(std::string_view text) {
    return Read(text, &Reader::ReadBlock);
}

std::variant<TicketRecord, BlockTextFault> ReadTicketText(std::string_view text) {
    return Read(text, &Reader::ReadTicket);
}

}  // namespace varno
