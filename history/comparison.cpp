#include "history/comparison.h"

#include "block/block_compare.h"
#include "block/block_file.h"
#include "block/image.h"

namespace varno {

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
    return told;
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
    return told;
}

}  // namespace varno
