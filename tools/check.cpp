#include "tools/check.h"

#include <iostream>
#include <map>

#include "block/block_file.h"
#include "block/suspects.h"
#include "block/ticket_block.h"
#include "codec/catalogue.h"
#include "tools/json.h"
#include "tools/opened_block.h"
#include "tools/print.h"
#include "tools/refusal.h"

namespace varno {
namespace {

struct Findings {
    std::string path;
    std::vector<std::string> faults;
    std::vector<std::string> suspects;
    std::size_t tickets;
    int freeWords;
};

// What is suspect in a sound block.
using Judge = std::function<std::vector<std::string>(const std::string& image)>;

void RequireCatalogue(const std::string& path) {
    std::vector<CatalogueRow> rows;
    if (const std::string failure = LoadCatalogue(path, rows); !failure.empty()) {
        throw Refusal(Ending::CouldNot, path + ": " + failure);
    }
}

// Whether the catalogues have a code; they must be there.
CodeIsKnown KnownIn(const Catalogues& catalogues) {
    RequireCatalogue(catalogues.controlCodes);
    RequireCatalogue(catalogues.printCodes);
    return [catalogues, known = std::map<Word, bool>()](Word code) mutable {
        const auto [place, isNew] = known.try_emplace(code);
        if (isNew) {
            place->second = !FindCodeComment(catalogues, code).empty();
        }
        return place->second;
    };
}

Judge JudgeFor(const Request& request) {
    if (!request.strict) {
        if (!request.width.empty()) {
            throw Refusal(Ending::WrongUsage, "--width goes with --strict");
        }
        return [](const std::string&) { return std::vector<std::string>(); };
    }
    return [isKnown = KnownIn(CataloguesIn(request.catalogueFolder)),
            effects = EffectsFor(request)](const std::string& image) {
        return SuspectsIn(ContentOf(image), isKnown, effects);
    };
}

Findings FindingsOf(const std::string& path, const Judge& judge) {
    const std::string bytes = Contents(path, MostBlockFileBytes);
    TicketBlock block{.TicketBuffer = ImageIn(bytes)};
    block.LocateEndMarker();
    std::vector<std::string> faults = FaultsInBlockFile(bytes);
    std::vector<std::string> suspects =
        faults.empty() ? judge(block.TicketBuffer) : std::vector<std::string>();
    return {path, std::move(faults), std::move(suspects), block.Tickets().size(),
            block.BufferFree / WordDigits};
}

void TellScripts(const Findings& found, bool strict) {
    JsonObject answer;
    answer.Add("block", found.path).Add("sound", found.faults.empty()).Add("faults", found.faults);
    if (found.faults.empty()) {
        answer.Add("tickets", found.tickets).Add("freeWords", found.freeWords);
    }
    if (strict) {
        answer.Add("suspects", found.suspects);
    }
    std::cout << answer.Text() << '\n';
}

void TellPeople(const Findings& found) {
    for (const auto* sentences : {&found.faults, &found.suspects}) {
        for (const std::string& sentence : *sentences) {
            std::cout << found.path << ": " << sentence << '\n';
        }
    }
}

// What is to be said of the block, if nothing speaks against it.
std::string Judgement(const Findings& found) {
    if (!found.faults.empty()) {
        throw Refusal(Ending::FaultFound, found.path + ": the block is damaged");
    }
    if (!found.suspects.empty()) {
        throw Refusal(Ending::FaultFound, found.path + ": the block is sound but suspect");
    }
    return "sound; tickets: " + std::to_string(found.tickets) +
           ", free words: " + std::to_string(found.freeWords);
}

}  // namespace

BlockTask Check(const Request& request) {
    return [request, judge = JudgeFor(request)](const std::string& path) {
        const Findings found = FindingsOf(path, judge);
        request.json ? TellScripts(found, request.strict) : TellPeople(found);
        const std::string judgement = Judgement(found);
        return request.json ? "" : judgement;
    };
}

}  // namespace varno
