#include "app/safekeeping.h"

#include <array>

#include "app/path_rules.h"
#include "block/block_file.h"
#include "platform/files.h"

namespace varno {
namespace {

// A ticket is kept while it is not saved.
enum class What { Ticket, Block, UnsavedBlock };

struct Rule {
    CommandEvent event;
    What what;
    Cause cause;
};

using enum CommandEvent;

constexpr std::array Rules{
    Rule{TicketDeletes, What::Block, Cause::Delete},
    Rule{TicketOverwrites, What::Block, Cause::Put},
    Rule{BlockOpens, What::Block, Cause::Open},
    Rule{TicketOpens, What::Ticket, Cause::Open},
    Rule{TicketIsEdited, What::Ticket, Cause::Edit},
    Rule{ImageBegins, What::Block, Cause::Upload},
    Rule{ImageBegins, What::Ticket, Cause::Upload},
    Rule{UploadEnded, What::Block, Cause::Uploaded},
    Rule{DownloadStarted, What::Block, Cause::Download},
    Rule{DownloadEnded, What::Block, Cause::Downloaded},
    Rule{Closes, What::Ticket, Cause::Close},
    Rule{Closes, What::UnsavedBlock, Cause::Close},
    Rule{TimePasses, What::Ticket, Cause::Unsaved},
    Rule{TimePasses, What::UnsavedBlock, Cause::Unsaved},
};

// What ends the work that was not saved, and for what its copy is kept from then on.
struct End {
    CommandEvent event;
    CopyKind work;
    Cause cause;
};

constexpr std::array Ends{
    End{TicketSaved, CopyKind::Ticket, Cause::Working},
    End{TicketOpens, CopyKind::Ticket, Cause::Open},
    End{TicketIsEdited, CopyKind::Ticket, Cause::Edit},
    End{ImageBegins, CopyKind::Ticket, Cause::Upload},
    End{Closes, CopyKind::Ticket, Cause::Close},
    End{BlockSaved, CopyKind::Block, Cause::Working},
    End{BlockOpens, CopyKind::Block, Cause::Open},
    End{ImageBegins, CopyKind::Block, Cause::Upload},
    End{Closes, CopyKind::Block, Cause::Close},
};

constexpr bool IsTransfer(Cause cause) {
    return cause == Cause::Upload || cause == Cause::Uploaded || cause == Cause::Download ||
           cause == Cause::Downloaded;
}

}  // namespace

void Safekeeping::On(CommandEvent event) {
    for (const Rule& rule : Rules) {
        if (rule.event != event) {
            continue;
        }
        const std::string port =
            IsTransfer(rule.cause) ? "COM" + std::to_string(sources_.MSComm1.CommPort()) : "";
        if (rule.what == What::Ticket) {
            KeepTicket(rule.cause);
        } else if (rule.what == What::Block || sources_.state.block.BlockChanged) {
            KeepBlock(rule.cause, port);
        }
    }
    for (const End& end : Ends) {
        if (end.event == event) {
            keeper_.EndWork(end.work, end.cause);
        }
    }
    ticketIsKept_ = ticketIsKept_ && event != EditorChanged;
}

void Safekeeping::KeepTicket(Cause cause) {
    const bool isUnsaved = sources_.state.TicketChanged && sources_.RichText.HasText();
    const bool isKept = cause == Cause::Unsaved && ticketIsKept_ && !keeper_.Trouble();
    if (isUnsaved && !isKept) {
        keeper_.Keep(
            {.cause = cause, .name = sources_.TicketName.Caption(), .kind = CopyKind::Ticket},
            sources_.RichText.Content());
        ticketIsKept_ = cause == Cause::Unsaved;
    }
}

void Safekeeping::KeepBlock(Cause cause, const std::string& port) {
    const std::string& image = sources_.state.block.TicketBuffer;
    if (!image.empty()) {
        const std::string name = sources_.ListName.Caption();
        keeper_.Keep({.cause = cause, .port = port, .name = name == " " ? "" : name},
                     BlockFileBytes(image));
    }
}

// A folder or a device is not replaced.
Error Safekeeping::BeforeReplacing(const std::string& path, CopyKind kind) {
    constexpr std::size_t MostBytes = 16'000'000;  // larger than all that this program writes
    std::string bytes;
    Error error = ReadFile(path, bytes, MostBytes + 1);
    if (error) {
        return FileBytes(path) > 0 ? error : std::nullopt;
    }
    if (bytes.size() > MostBytes) {
        return path + ": the file is longer than any ticket or block";
    }
    keeper_.Keep(
        {.cause = Cause::Save,
         .name = LabelForm(BareName(path), kind == CopyKind::Block ? "VRB" : "VRT").value_or(""),
         .kind = kind},
        std::move(bytes));
    return std::nullopt;
}

std::string Safekeeping::Missing() {
    if (const Error trouble = keeper_.Trouble()) {
        return "The last copy could not be kept. " + *trouble;
    }
    return unkept_ ? "What the file held that was replaced is not kept. " + *unkept_ : "";
}

}  // namespace varno
