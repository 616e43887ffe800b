#include "tools/each_block.h"

#include <algorithm>
#include <iostream>

#include "tools/opened_block.h"
#include "tools/refusal.h"

namespace varno {
namespace {

struct Outcome {
    std::string block;
    std::string said;
    Ending ending;
};

std::string_view NameOf(Ending ending) {
    return ending == Ending::Done ? "done" : ending == Ending::FaultFound ? "fault" : "refused";
}

// What refuses one block leaves the others to be done; a senseless command line refuses all.
Outcome OutcomeOf(const BlockTask& task, const std::string& block) {
    try {
        return {block, task(block), Ending::Done};
    } catch (const Refusal& refusal) {
        if (refusal.ending == Ending::WrongUsage) {
            throw;
        }
        const std::string why = refusal.what();
        const std::string name = block + ": ";
        return {block, why.substr(why.starts_with(name) ? name.size() : 0), refusal.ending};
    } catch (const std::exception& failure) {
        return {block, failure.what(), Ending::CouldNot};
    }
}

void TellTable(const std::vector<Outcome>& outcomes) {
    std::size_t width = 0;
    for (const Outcome& outcome : outcomes) {
        width = std::max(width, outcome.block.size());
    }
    std::cout << '\n';
    for (const auto& [block, said, ending] : outcomes) {
        std::string row = block + std::string(width + 2 - block.size(), ' ');
        row += NameOf(ending);
        if (!said.empty()) {
            row += std::string(row.size() < width + 11 ? width + 11 - row.size() : 1, ' ') + said;
        }
        std::cout << row << '\n';
    }
}

void TellRefusals(const std::vector<Outcome>& outcomes) {
    for (const auto& [block, said, ending] : outcomes) {
        if (ending != Ending::Done) {
            std::cerr << "varno-tickets: " << block << ": " << said << '\n';
        }
    }
}

void RunOnOne(const BlockTask& task, const std::string& block) {
    const std::string said = task(block);
    if (!said.empty()) {
        std::cout << block << ": " << said << '\n';
    }
}

void RunOnMany(const BlockTask& task, const Request& request) {
    std::vector<Outcome> outcomes;
    for (const std::string& block : request.blocks) {
        if (IsStandardInput(block)) {
            throw Refusal(Ending::WrongUsage, "standard input is no block among several");
        }
    }
    for (const std::string& block : request.blocks) {
        outcomes.push_back(OutcomeOf(task, block));
    }
    request.json ? TellRefusals(outcomes) : TellTable(outcomes);
    const auto worst = std::max_element(
        outcomes.begin(), outcomes.end(),
        [](const Outcome& one, const Outcome& other) { return one.ending < other.ending; });
    if (worst->ending != Ending::Done) {
        throw Refusal(worst->ending, "not all blocks are done");
    }
}

}  // namespace

void RunCommand(const Request& request) {
    if (const auto* const run = std::get_if<void (*)(const Request&)>(&request.command->run)) {
        return (*run)(request);
    }
    const BlockTask task = std::get<BlockTask (*)(const Request&)>(request.command->run)(request);
    request.blocks.size() == 1 ? RunOnOne(task, request.blocks[0]) : RunOnMany(task, request);
}

}  // namespace varno
