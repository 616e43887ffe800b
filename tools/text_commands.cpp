#include "tools/text_commands.h"

#include <algorithm>
#include <iostream>
#include <variant>

#include "block/block_file.h"
#include "block/block_text.h"
#include "block/image.h"
#include "codec/catalogue.h"
#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "tools/json.h"
#include "tools/line_commands.h"
#include "tools/opened_block.h"
#include "tools/refusal.h"

namespace varno {
namespace {

constexpr std::size_t FoldedDigits = 80;

struct ReadBlock {
    BlockContent content;
    bool isText;
};

CodeComment Comments(const Request& request) {
    return CommentsOf(CataloguesIn(request.catalogueFolder));
}

CodeComment CommentsIfAskedFor(const Request& request) {
    return request.comments ? Comments(request) : CodeComment();
}

[[noreturn]] void RefuseText(const std::string& path, const BlockTextFault& fault) {
    throw Refusal(Ending::FaultFound, path + ":" + std::to_string(fault.line) + ":" +
                                          std::to_string(fault.column) + ": " + fault.what);
}

template <class Content>
Content Required(const std::string& path, std::variant<Content, BlockTextFault> read) {
    if (const auto* fault = std::get_if<BlockTextFault>(&read)) {
        RefuseText(path, *fault);
    }
    return std::get<Content>(std::move(read));
}

// A sound block, from what a block file or a text holds.
ReadBlock BlockOf(const std::string& path, const std::string& bytes) {
    if (!bytes.starts_with(':')) {
        return {Required(path, ReadBlockText(bytes)), true};
    }
    const std::string image = ImageIn(bytes);
    if (!FaultsInImage(image).empty()) {
        throw Refusal(Ending::FaultFound,
                      path + ": the block is damaged (varno-tickets check tells how)");
    }
    return {ContentOf(image), false};
}

ReadBlock ReadBlockIn(const std::string& givenPath) {
    const std::string path = PathMeantBy(givenPath);
    return BlockOf(path, WholeText(path));
}

// Of a block that both sides made anew git gives an empty file for the base.
BlockContent BaseIn(const std::string& givenPath) {
    const std::string path = PathMeantBy(givenPath);
    const std::string bytes = WholeText(path);
    return bytes.empty() ? BlockContent() : BlockOf(path, bytes).content;
}

// The same, or the one of the indicator at a port.
ReadBlock BlockAt(const Request& request, const std::string& operand) {
    if (!IsPort(operand)) {
        return ReadBlockIn(operand);
    }
    Request toPort = request;
    toPort.port = operand;
    return {ContentOf(ReceivedBlock(toPort).image), false};
}

void Tell(const Request& request, const std::vector<std::string>& differences,
          const BlockNames& names) {
    if (request.json) {
        std::cout << JsonObject()
                         .Add("first", names.first)
                         .Add("second", names.second)
                         .Add("equal", differences.empty())
                         .Add("differences", differences)
                         .Text()
                  << '\n';
    } else {
        for (const std::string& line : differences) {
            std::cout << line << '\n';
        }
    }
    if (!differences.empty()) {
        throw Refusal(Ending::FaultFound, "");
    }
}

bool IsTicketText(std::string_view bytes) {
    constexpr std::string_view blanks = " \t\r\n\xEF\xBB\xBF";  // a byte-order mark among them
    const std::size_t begin = std::min(bytes.find_first_not_of(blanks), bytes.size());
    const std::string_view text = bytes.substr(begin);
    return text.starts_with("ticket ") ||
           (!text.starts_with('{') && text.find("\nticket ") != std::string_view::npos);
}

}  // namespace

void Text(const Request& request) {
    const BlockContent content = BlockIn(request.operands[0]);
    if (request.operands.size() == 1) {
        std::cout << BlockText(content, CommentsIfAskedFor(request));
        return;
    }
    const int number = TicketNumber(request.operands[1]);
    const TicketRecord* const ticket = content.Find(number);
    if (ticket == nullptr) {
        throw Refusal(Ending::CouldNot,
                      request.operands[0] + ": there is no ticket " + request.operands[1]);
    }
    std::cout << TicketText(*ticket, CommentsIfAskedFor(request));
}

void Build(const Request& request) {
    const BlockContent content = BlockIn(request.operands[0]);
    DeliverNew(request, FileMeantBy(request.operands[1]), BlockFileBytes(ImageOf(content)));
}

// Whatever the file is, so that a history with damaged blocks can be read too.
void Textconv(const Request& request) {
    const std::string bytes = Contents(request.operands[0], MostBlockFileBytes);
    const std::vector<std::string> faults = FaultsInBlockFile(bytes);
    if (faults.empty()) {
        std::cout << BlockText(ContentOf(ImageIn(bytes)), Comments(request));
        return;
    }
    for (const std::string& fault : faults) {
        std::cout << "# " << fault << '\n';
    }
    for (std::size_t i = 0; i < bytes.size(); i += FoldedDigits) {
        std::cout << bytes.substr(i, FoldedDigits) << '\n';
    }
}

void Diff(const Request& request) {
    const auto& names = request.operands;
    TellDifferences(request, BlockAt(request, names[0]).content, BlockAt(request, names[1]).content,
                    {names[0], names[1]});
}

void TellDifferences(const Request& request, const BlockContent& first, const BlockContent& second,
                     const BlockNames& names) {
    Tell(request, Differences(first, second, names, Comments(request)), names);
}

void TellDifferences(const Request& request, const TicketRecord& first, const TicketRecord& second,
                     const BlockNames& names) {
    Tell(request, LineDifferences(first, second, Comments(request)), names);
}

void MergeBlocks(const Request& request) {
    const std::string path = PathMeantBy(request.operands[1]);
    FileLock lock;
    TakeToChange(lock, path);
    const ReadBlock ours = ReadBlockIn(path);
    const MergedBlock merged =
        Merge(BaseIn(request.operands[0]), ours.content, BlockIn(request.operands[2]));
    for (const std::string& conflict : merged.conflicts) {
        std::cerr << path << ": " << conflict << '\n';
    }
    if (!merged.conflicts.empty()) {
        throw Refusal(Ending::FaultFound, "the blocks cannot be merged; nothing was changed");
    }
    Deliver(path,
            ours.isText ? BlockText(merged.content) : BlockFileBytes(ImageOf(merged.content)));
}

void New(const Request& request) {
    DeliverNew(request, FileMeantBy(request.operands[0]), BlockFileBytes(NewTicketBuffer()));
}

BlockContent BlockIn(const std::string& path) {
    return ReadBlockIn(path).content;
}

TicketRecord TicketIn(const std::string& path, const std::string& bytes) {
    if (IsTicketText(bytes)) {
        return Required(path, ReadTicketText(bytes));
    }
    MarkedText text;
    if (const Error error = LoadMarkedText(bytes, text)) {
        throw Refusal(Ending::FaultFound, path + ": " + *error);
    }
    return RecordOf(text);
}

TicketRecord TicketIn(const std::string& givenPath) {
    const std::string path = PathMeantBy(givenPath);
    return TicketIn(path, WholeText(path));
}

}  // namespace varno
