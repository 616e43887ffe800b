// Random work on a block, checked after each step against a model that knows no image.
#include <algorithm>
#include <random>
#include <utility>

#include "tests/block/block_window.h"

namespace varno {
namespace {

struct Model {
    std::vector<std::pair<int, std::u16string>> tickets;  // the newest first
    Keys keys{};

    bool Has(int number) const {
        return std::any_of(tickets.begin(), tickets.end(),
                           [&](const auto& t) { return t.first == number; });
    }
    void Remove(int number) {
        std::erase_if(tickets, [&](const auto& t) { return t.first == number; });
        std::replace(keys.begin(), keys.end(), number, 0);
    }
    std::string Memory() const {
        std::string memory;
        for (const auto& [number, body] : tickets) {
            memory += Record(number, body);
        }
        return memory + Tail(keys);
    }
    // Each row's number and key letter, without the blanks between.
    Rows ShownRows() const {
        Rows rows;
        for (const auto& ticket : tickets) {
            const auto key = std::find(keys.begin(), keys.end(), ticket.first) - keys.begin();
            rows.push_back(std::to_string(ticket.first) +
                           std::string("PSIO").substr(static_cast<std::size_t>(key), 1));
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
};

class RandomWork {
  public:
    void Step() {
        switch (Up(9)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return Put();
            case 4:
                return Delete();
            case 5:
                return w_.Load(w_.block.TicketBuffer);
            default:
                return Assign();
        }
    }
    void Check() const {
        Rows rows = w_.TicketList.Rows();
        for (std::string& row : rows) {
            std::erase(row, ' ');
        }
        ASSERT_EQ(rows, model_.ShownRows());
        ASSERT_EQ(w_.SealedMemory(), model_.Memory());
        ASSERT_EQ(w_.block.KeyTicket, model_.keys);
    }
    bool Started() const { return !w_.block.TicketBuffer.empty(); }
    int refused = 0;

  private:
    int Up(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

    void Put() {
        const int number = 200 + Up(12);
        const std::u16string body(static_cast<std::size_t>(Up(500)),
                                  static_cast<char16_t>(u'A' + Up(26)));
        const bool fits = model_.Memory().size() - 20 + (body.size() + 2) * 4 <= 7980;
        const bool overwrite = Up(3) > 0;
        const bool known = model_.Has(number);
        if (known) {
            w_.ExpectOverwriting(number, overwrite ? Answer::Yes : Answer::No);
        }
        if (!fits && (!known || overwrite)) {
            w_.ExpectTooBig();
            ++refused;
        } else if (!known || overwrite) {
            model_.Remove(number);
            model_.tickets.insert(model_.tickets.begin(), {number, body});
        }
        w_.Put(number, body);
    }
    // The number of the row selected now, or 0.
    int Select() {
        const int row = Up(w_.TicketList.ListCount() + 1) - 1;
        if (row < 0) {
            w_.TicketList.SetListIndex(-1);
            return 0;
        }
        w_.TicketList.ClickRow(row);
        return LeadingNumber(w_.TicketList.List(row));
    }
    void Delete() {
        if (const int number = Select()) {
            model_.Remove(number);
        }
        w_.TicketList.OnKeyUp(KeyDelete);
    }
    void Assign() {
        const int number = Select();
        const std::size_t key = static_cast<std::size_t>(Up(5));
        w_.TicketList.OnKeyPress(static_cast<unsigned char>("PSIO "[key]));
        if (number != 0) {
            std::replace(model_.keys.begin(), model_.keys.end(), number, 0);
            if (key < 4) {
                model_.keys[key] = number;
            }
        }
    }

    std::mt19937 random_{20240229};
    BlockWindow w_;
    Model model_;
};

TEST(Block, RandomWorkAgreesWithAModel) {
    RandomWork work;
    for (int i = 0; i < 1500 && !::testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        work.Step();
        if (work.Started()) {
            work.Check();
        }
    }
    EXPECT_GT(work.refused, 10);
}

}  // namespace
}  // namespace varno
