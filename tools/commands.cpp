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
#include "codec/text_limits.h"
#include "codec/utf8.h"
#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
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
std::string RecordIn(const std::string& givenPath, int number) {
    const std::string path = IsStandardInput(givenPath) ? givenPath : FileMeantBy(givenPath);
    const std::string bytes = Contents(path, MostTicketFileBytes + 1);
    if (IsTicketText(bytes)) {
        TicketRecord ticket = TicketInText(path, bytes);
        ticket.number = number;
        return RecordHex(ticket);
    }
    MarkedText ticket;
    if (const Error error = LoadMarkedText(bytes, ticket)) {
        throw Refusal(Ending::FaultFound, path + ": " + *error);
    }
    return EncodeTicket(ticket, number);
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

void List(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    for (const int number : file.Numbers()) {
        std::string row = std::to_string(number) + " ";
        for (int key = 0; key < KeyCount; ++key) {
            if (file.Block.KeyTicket[static_cast<std::size_t>(key)] == number) {
                row += std::string(" ") + KeyLetter(key);
            }
        }
        std::cout << row.substr(0, row.find_last_not_of(' ') + 1) << '\n';
    }
    TellDamage(request, file);
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

void Check(const Request& request) {
    const std::string& path = request.operands[0];
    const std::string bytes = Contents(path, MostBlockFileBytes);
    const std::vector<std::string> faults = FaultsInBlockFile(bytes);
    for (const std::string& fault : faults) {
        std::cout << path << ": " << fault << '\n';
    }
    if (!faults.empty()) {
        throw Refusal(Ending::FaultFound, path + ": the block is damaged");
    }
    TicketBlock block{.TicketBuffer = ImageIn(bytes)};
    block.LocateEndMarker();
    std::cout << path << ": sound; tickets: " << block.Tickets().size()
              << ", free words: " << block.BufferFree / WordDigits << '\n';
}

void Extract(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    file.RequireTicket(number);
    DeliverNew(request, FileMeantBy(request.operands[2]), WriteRtf(Decoded(request, file, number)));
    TellDamage(request, file);
}

void Put(const Request& request) {
    const int number = TicketNumber(request.operands[1]);
    if (!IsTicketNumber(number)) {
        throw Refusal(Ending::WrongUsage, "a ticket number lies between " + TicketNumbers(" and "));
    }
    if (IsStandardInput(request.operands[0]) && IsStandardInput(request.operands[2])) {
        throw Refusal(Ending::WrongUsage, "block and ticket cannot both come from standard input");
    }
    const std::string record = RecordIn(request.operands[2], number);
    OpenedBlock file(request.operands[0], Purpose::Make);
    RequireChangeable(request, file);
    if (file.Holds(number) && !request.force) {
        throw Refusal(Ending::CouldNot,
                      "ticket " + request.operands[1] + " exists already; --force replaces it");
    }
    if (file.Block.PutRecord(number, record) == PutResult::TooBig) {
        throw Refusal(Ending::CouldNot,
                      "the ticket is too big: it has " +
                          std::to_string(record.size() / WordDigits) + " words, " +
                          std::to_string(file.Block.BufferFree / WordDigits) + " are free");
    }
    file.Save();
}

void Delete(const Request& request) {
    const int number = TicketNumber(request.operands[1]);
    OpenedBlock file(request.operands[0], Purpose::Change);
    file.RequireTicket(number);
    RequireChangeable(request, file);
    file.Block.RemoveTicketRecord(number);
    file.Save();
}

void Bind(const Request& request) {
    const int number = TicketNumber(request.operands[1]);
    const int key = KeyIndex(request.operands[2]);
    OpenedBlock file(request.operands[0], Purpose::Change);
    file.RequireTicket(number);
    RequireChangeable(request, file);
    file.Block.Bind(number, key);
    file.Save();
}

constexpr Subcommand AllCommands[] = {
    {"list", "BLOCK", "list the tickets and the letters of their keys", List},
    {"show", "BLOCK NUMBER", "show a ticket as text", Show},
    {"print", "BLOCK NUMBER", "show a ticket as it is printed, with sample values", Print},
    {"check", "BLOCK", "tell what is wrong with a block file", Check},
    {"extract", "BLOCK NUMBER TICKET", "write a ticket of the block into a ticket file", Extract},
    {"put", "BLOCK NUMBER TICKET", "put a ticket file into the block, made if missing", Put},
    {"delete", "BLOCK NUMBER", "take a ticket out of the block", Delete},
    {"bind", "BLOCK NUMBER KEY", "let Print, Start, In, Out or none print the ticket", Bind},
    {"new", "BLOCK", "make a block without tickets", New},
    {"text", "BLOCK [NUMBER]", "write the block, or one ticket, as text that can be edited", Text},
    {"build", "TEXT BLOCK", "make the block of a text", Build},
    {"diff", "BLOCK BLOCK", "tell what differs between two blocks or texts", Diff},
    {"merge", "BASE OURS THEIRS", "put into OURS what both sides made of BASE", MergeBlocks},
    {"textconv", "BLOCK", "show the block, even a damaged one, to version control", Textconv},
};

}  // namespace

std::span<const Subcommand> Commands() {
    return AllCommands;
}

int TicketNumber(const std::string& text) {
    if (!IsNumber(text)) {
        throw Refusal(Ending::WrongUsage, "\"" + text + "\" is no ticket number");
    }
    return std::stoi(text);
}

void DeliverNew(const Request& request, const std::string& path, std::string_view bytes) {
    std::error_code unreachable;  // writing says why
    if (!request.force && !IsStandardOutput(path) &&
        std::filesystem::is_regular_file(path, unreachable)) {
        throw Refusal(Ending::CouldNot, path + " exists already; --force replaces it");
    }
    Deliver(path, bytes);
}

}  // namespace varno
