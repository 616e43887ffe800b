#include "tools/commands.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "block/block_content.h"
#include "block/block_file.h"
#include "codec/catalogue.h"
#include "codec/decoder.h"
#include "codec/encoder.h"
#include "codec/memory_editor.h"
#include "codec/utf8.h"
#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tools/check.h"
#include "tools/help.h"
#include "tools/history_commands.h"
#include "tools/json.h"
#include "tools/line_commands.h"
#include "tools/opened_block.h"
#include "tools/print.h"
#include "tools/refusal.h"
#include "tools/text_commands.h"

namespace varno {
namespace {

bool IsNumber(const std::string& text) {
    return !text.empty() && text.size() <= 4 &&
           std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); });
}

// The index of a key given by name or letter in either case; NoKey for "none".
int KeyIndex(const std::string& text) {
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    const auto sameLetter = [&](char a, char b) { return lower(a) == lower(b); };
    const auto means = [&](std::string_view name) {
        return text.size() == 1
                   ? sameLetter(text[0], name[0])
                   : std::equal(text.begin(), text.end(), name.begin(), name.end(), sameLetter);
    };
    for (int key = 0; key < KeyCount; ++key) {
        if (means(KeyNames[static_cast<std::size_t>(key)])) {
            return key;
        }
    }
    if (text == "none") {
        return NoKey;
    }
    throw Refusal(Ending::WrongUsage, "\"" + text + "\" is no key: Print, Start, In, Out or none");
}

MarkedText Decoded(const Request& request, const OpenedBlock& file, int number) {
    MemoryEditor editor;
    TicketDecoder().DecodeTicket(WordsOf(file.Block.TicketBuffer), number,
                                 CataloguesIn(request.catalogueFolder), editor);
    return editor.Content();
}

// The record of the ticket in a ticket file or a text.
std::string RecordIn(const std::string& path, int number) {
    TicketRecord ticket = TicketIn(path);
    ticket.number = number;
    return RecordHex(ticket);
}

// A damaged block is read as far as it goes, and then the operator is told.
void TellDamage(const Request& request, const OpenedBlock& file) {
    if (!request.force) {
        file.RequireSound();
    }
}

// A change would seal a damaged block as if it were sound.
void RequireChangeable(const Request& request, const OpenedBlock& file) {
    file.RequireWhole();
    if (!request.force) {
        file.RequireSound();
    }
}

// Of the keys that print the ticket.
std::vector<std::string> KeyNamesOf(const TicketBlock& block, int number) {
    std::vector<std::string> names;
    for (std::size_t key = 0; key < KeyCount; ++key) {
        if (block.KeyTicket[key] == number) {
            names.emplace_back(KeyNames[key]);
        }
    }
    return names;
}

void TellScripts(const std::string& path, const OpenedBlock& file) {
    std::vector<JsonObject> tickets;
    for (const int number : file.Numbers()) {
        tickets.push_back(
            JsonObject().Add("number", number).Add("keys", KeyNamesOf(file.Block, number)));
    }
    std::cout << JsonObject().Add("block", path).Add("tickets", tickets).Text() << '\n';
}

void TellPeople(const OpenedBlock& file) {
    for (const int number : file.Numbers()) {
        std::string row = std::to_string(number);
        for (const std::string& key : KeyNamesOf(file.Block, number)) {
            row += (row.size() > CodeDigits ? " " : "  ") + key.substr(0, 1);
        }
        std::cout << row << '\n';
    }
}

BlockTask List(const Request& request) {
    return [request](const std::string& path) {
        const OpenedBlock file(path);
        if (request.json) {
            TellScripts(path, file);
        } else {
            std::cout << (request.blocks.size() > 1 ? path + ":\n" : "");
            TellPeople(file);
        }
        TellDamage(request, file);
        return "";
    };
}

void Show(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    file.RequireTicket(number);
    std::string text = ToUtf8(Decoded(request, file, number).Text());
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    std::cout << text << (text.empty() || text.back() == '\n' ? "" : "\n");
    TellDamage(request, file);
}

void Print(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    file.RequireTicket(number);
    const BlockContent content = ContentOf(file.Block.TicketBuffer);
    const TicketRecord* const ticket = content.Find(number);
    PrintBody(request, ticket != nullptr ? ticket->body : std::vector<Word>());
    TellDamage(request, file);
}

void Extract(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    file.RequireTicket(number);
    DeliverNew(request, FileMeantBy(request.operands[2]), WriteRtf(Decoded(request, file, number)));
    TellDamage(request, file);
}

void PutInto(OpenedBlock& file, const Request& request, int number, const std::string& record) {
    RequireChangeable(request, file);
    if (file.Holds(number) && !request.force && !request.keepKey) {
        throw Refusal(Ending::CouldNot,
                      "ticket " + std::to_string(number) + " exists already; --force replaces it");
    }
    const KeyTickets keys = file.Block.KeyTicket;
    if (file.Block.PutRecord(number, record) == PutResult::TooBig) {
        throw Refusal(Ending::CouldNot,
                      "the ticket is too big: it has " +
                          std::to_string(record.size() / WordDigits) + " words, " +
                          std::to_string(file.Block.BufferFree / WordDigits) + " are free");
    }
    if (request.keepKey && file.Block.KeyTicket != keys) {
        file.Block.SetKeys(keys);
    }
    file.Save();
}

BlockTask Put(const Request& request) {
    const int number = TicketNumber(request.operands[0]);
    const std::string& ticket = request.operands[1];
    if (!IsTicketNumber(number)) {
        throw Refusal(Ending::WrongUsage, "a ticket number lies between " + TicketNumbers(" and "));
    }
    if (IsStandardInput(ticket) && IsStandardInput(request.blocks[0])) {
        throw Refusal(Ending::WrongUsage, "block and ticket cannot both come from standard input");
    }
    // A name that matches nothing, such as "*.VRB", is no block to be made among several.
    const Purpose purpose = request.number.empty() ? Purpose::Make : Purpose::Change;
    return [=, record = RecordIn(ticket, number)](const std::string& path) {
        OpenedBlock file(path, purpose);
        PutInto(file, request, number, record);
        return "";
    };
}

// Changes a ticket that must be there.
template <class Change>
BlockTask Changing(const Request& request, int number, Change change) {
    return [=](const std::string& path) {
        OpenedBlock file(path, Purpose::Change);
        file.RequireTicket(number);
        RequireChangeable(request, file);
        change(file.Block);
        file.Save();
        return "";
    };
}

BlockTask Delete(const Request& request) {
    const int number = TicketNumber(request.operands[0]);
    return Changing(request, number, [=](TicketBlock& block) { block.RemoveTicketRecord(number); });
}

BlockTask Bind(const Request& request) {
    const int number = TicketNumber(request.operands[0]);
    const int key = KeyIndex(request.operands[1]);
    return Changing(request, number, [=](TicketBlock& block) { block.Bind(number, key); });
}

constexpr Subcommand AllCommands[] = {
    {"list", "BLOCK...", "--force --json", "list the tickets and the letters of their keys", List},
    {"show", "BLOCK NUMBER", "--catalogues --force", "show a ticket as text", Show},
    {"print", "BLOCK NUMBER", "--catalogues --force --svg --values --width",
     "show a ticket as it is printed, with sample values", Print},
    {"check", "BLOCK...", "--catalogues --json --strict --width",
     "tell what is wrong with block files", Check},
    {"extract", "BLOCK NUMBER TICKET", "--catalogues --force",
     "write a ticket of the block into a ticket file", Extract},
    {"put", "BLOCK NUMBER TICKET", "--force --keep-key --number",
     "put a ticket file into the block, made if missing", Put, "TICKET BLOCK..."},
    {"delete", "BLOCK NUMBER", "--force --number", "take a ticket out of the block", Delete,
     "BLOCK..."},
    {"bind", "BLOCK NUMBER KEY", "--force --number",
     "let Print, Start, In, Out or none print the ticket", Bind, "KEY BLOCK..."},
    {"new", "BLOCK", "--force", "make a block without tickets", New},
    {"text", "BLOCK [NUMBER]", "--catalogues --comments",
     "write the block, or one ticket, as text that can be edited", Text},
    {"build", "TEXT BLOCK", "--force", "make the block of a text", Build},
    {"diff", "BLOCK BLOCK", "--catalogues --json --settings --wait",
     "tell what differs between two blocks, texts or ports", Diff},
    {"merge", "BASE OURS THEIRS", "", "put into OURS what both sides made of BASE", MergeBlocks},
    {"textconv", "BLOCK", "--catalogues", "show the block, even a damaged one, to version control",
     Textconv},
    {"ports", "[DEVICE]", "--force --json --link --unlink", "list the serial ports, or link one",
     Ports},
    {"receive", "BLOCK", "--backup --force --port --settings --wait",
     "receive the block of the indicator", Receive},
    {"send", "BLOCK", "--backup --port --settings --wait", "send the block to the indicator", Send},
    {"verify", "BLOCK", "--catalogues --json --port --settings --wait",
     "tell what differs between the block and the indicator", Verify},
    {"history list", "[TEXT]...", "--backup --json",
     "list the dated copies, or those in whose rows TEXT stands", HistoryList},
    {"history show", "COPY [FILE]", "--backup --catalogues --json",
     "show what a copy holds, or what differs between it and a file", HistoryShow},
    {"history restore", "COPY FILE", "--backup --force", "write a copy into a file",
     HistoryRestore},
    {"completion", "", "", "write what bash needs to complete all this", Completion},
};

}  // namespace

std::span<const Subcommand> Commands() {
    return AllCommands;
}

const Subcommand& TakeCommand(std::vector<std::string>& operands) {
    const std::string word = operands.front();
    const bool isOneWord = operands.size() == 1;
    const std::string words = word + " " + (isOneWord ? "list" : operands[1]);
    for (const Subcommand& command : AllCommands) {
        if (command.name == word || command.name == words) {
            const bool takesBoth = command.name == words && !isOneWord;
            operands.erase(operands.begin(), operands.begin() + (takesBoth ? 2 : 1));
            return command;
        }
    }
    const bool isFirstWord = std::any_of(
        std::begin(AllCommands), std::end(AllCommands),
        [&](const Subcommand& command) { return command.name.starts_with(word + " "); });
    throw Refusal(Ending::WrongUsage,
                  "there is no command \"" + (isFirstWord ? words : word) + "\"");
}

int TicketNumber(const std::string& text) {
    if (!IsNumber(text)) {
        throw Refusal(Ending::WrongUsage, "\"" + text + "\" is no ticket number");
    }
    return std::stoi(text);
}

void RequireNew(const Request& request, const std::string& path) {
    std::error_code unreachable;  // writing says why
    if (!request.force && !IsStandardOutput(path) &&
        std::filesystem::is_regular_file(path, unreachable)) {
        throw Refusal(Ending::CouldNot, path + " exists already; --force replaces it");
    }
}

void DeliverNew(const Request& request, const std::string& path, std::string_view bytes) {
    FileLock lock;
    if (!IsStandardOutput(path)) {
        Require(lock.Take(path));
    }
    RequireNew(request, path);
    Deliver(path, bytes);
}

}  // namespace varno
