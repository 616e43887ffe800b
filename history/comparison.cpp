#include "history/comparison.h"

#include <algorithm>
#include <utility>

#include "block/block_compare.h"
#include "block/block_file.h"
#include "block/image.h"
#include "codec/utf8.h"

namespace varno {
namespace {

std::string Cut(std::string sentence) {
    if (sentence.size() > MostSentenceBytes) {
        std::size_t end = MostSentenceBytes;
        while (ContinuesCharacter(sentence[end])) {
            --end;
        }
        const std::size_t rest = FromUtf8(sentence.substr(end)).size();
        sentence.resize(end);
        sentence += " ... and " + std::to_string(rest) + " more characters";
    }
    return sentence;
}

std::vector<std::string> Cut(std::vector<std::string> told) {
    const std::size_t shown = std::min(told.size(), MostSentences);
    const std::size_t rest = told.size() - shown;
    told.resize(shown);
    std::transform(told.begin(), told.end(), told.begin(),
                   [](std::string& sentence) { return Cut(std::move(sentence)); });
    if (rest > 0) {
        told.push_back("... and " + std::to_string(rest) + " more lines");
    }
    return told;
}

}  // namespace

std::vector<std::string> CompareBlocks(const std::string& openImage, const std::string& copyImage,
                                       const CodeComment& comment) {
    if (openImage == copyImage && !openImage.empty()) {
        return {"Nothing: the same block is open."};
    }
    std::vector<std::string> told;
    for (const std::string& fault : FaultsInImage(copyImage)) {
        told.push_back("The copy is damaged: " + fault);
    }
    const std::string open = openImage.empty() ? NewTicketBuffer() : openImage;
    const std::vector<std::string> differences =
        Differences(ContentOf(open), ContentOf(copyImage),
                    {.first = "the window", .second = "the copy"}, comment);
    told.insert(told.end(), differences.begin(), differences.end());
    if (differences.empty()) {
        told.emplace_back("The tickets and the keys are the same.");
    }
    return Cut(std::move(told));
}

std::vector<std::string> CompareTickets(const MarkedText& openTicket, const MarkedText& copyTicket,
                                        const CodeComment& comment) {
    if (openTicket == copyTicket) {
        return {"Nothing: the same ticket is in the editor."};
    }
    std::vector<std::string> told =
        LineDifferences(RecordOf(openTicket), RecordOf(copyTicket), comment);
    if (told.empty()) {
        told.emplace_back("What prints is the same; comments or the look of the text differ.");
    }
    return Cut(std::move(told));
}

}  // namespace varno
