#include "tools/commands.h"

#include <algorithm>
#include <cctype>
#include <iostream>

#include "codec/catalogue.h"
#include "codec/decoder.h"
#include "codec/encoder.h"
#include "codec/memory_editor.h"
#include "codec/utf8.h"
#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tools/block_file.h"
#include "tools/check.h"
#include "tools/refusal.h"

namespace varno {
namespace {

constexpr int FirstTicket = 200;
constexpr int LastTicket = 999;

bool IsNumber(const std::string& text) {
    return !text.empty() && text.size() <= 4 &&
           std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); });
}

int TicketNumber(const std::string& text) {
    if (!IsNumber(text)) throw WrongUsage("\"" + text + "\" is no ticket number");
    return std::stoi(text);
}

// The index of a key given by name or letter in either case; KeyCount for "none".
int KeyIndex(const std::string& text) {
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    const auto sameLetter = [&](char a, char b) { return lower(a) == lower(b); };
    const auto means = [&](std::string_view name) {
        return text.size() == 1
                   ? sameLetter(text[0], name[0])
                   : std::equal(text.begin(), text.end(), name.begin(), name.end(), sameLetter);
    };
    for (int key = 0; key < KeyCount; ++key)
        if (means(KeyNames[static_cast<std::size_t>(key)])) return key;
    if (text == "none") return KeyCount;
    throw WrongUsage("\"" + text + "\" is no key: Print, Start, In, Out or none");
}

MarkedText Decoded(const Request& request, const BlockFile& file, int number) {
    const Catalogues catalogues = {request.catalogueFolder + std::string(ControlCatalogueName),
                                   request.catalogueFolder + std::string(PrintCatalogueName)};
    MemoryEditor editor;
    TicketDecoder().DecodeTicket(WordsOf(file.Block.TicketBuffer), number, catalogues, editor);
    return editor.Content();
}

MarkedText TicketIn(const std::string& path) {
    MarkedText ticket;
    if (const Error error = LoadMarkedText(Contents(path), ticket))
        throw Refusal(path + ": " + *error);
    return ticket;
}

void List(const Request& request) {
    const BlockFile file(request.operands[0]);
    for (const int number : file.Numbers()) {
        std::string row = std::to_string(number) + " ";
        for (int key = 0; key < KeyCount; ++key)
            if (file.Block.KeyTicket[static_cast<std::size_t>(key)] == number)
                row += std::string(" ") + KeyLetter(key);
        std::cout << row.substr(0, row.find_last_not_of(' ') + 1) << '\n';
    }
}

void Show(const Request& request) {
    const BlockFile file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    file.RequireTicket(number);
    std::string text = ToUtf8(Decoded(request, file, number).Text());
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    std::cout << text << (text.empty() || text.back() == '\n' ? "" : "\n");
}

void Check(const Request& request) {
    const std::string& path = request.operands[0];
    const std::vector<std::string> faults = FaultsOf(Contents(path));
    for (const std::string& fault : faults) std::cout << path << ": " << fault << '\n';
    if (!faults.empty()) throw Refusal(path + ": the block is damaged");
    BlockFile file(path);
    file.Block.LocateEndMarker();
    std::cout << path << ": sound; tickets: " << file.Numbers().size()
              << ", free words: " << file.Block.BufferFree / WordDigits << '\n';
}

void Extract(const Request& request) {
    const BlockFile file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    const std::string ticketPath = FileMeantBy(request.operands[2]);
    file.RequireTicket(number);
    if (FileExists(ticketPath) && !request.force)
        throw Refusal(ticketPath + " exists already; --force replaces it");
    Require(WriteFile(ticketPath, WriteRtf(Decoded(request, file, number))));
}

void Put(const Request& request) {
    const int number = TicketNumber(request.operands[1]);
    if (number < FirstTicket || number > LastTicket)
        throw Refusal("a ticket number lies between 200 and 999");
    BlockFile file(request.operands[0], true);
    file.RequireSound(request.force);
    if (file.Holds(number) && !request.force)
        throw Refusal("ticket " + request.operands[1] + " exists already; --force replaces it");
    const std::string record = EncodeTicket(TicketIn(FileMeantBy(request.operands[2])), number);
    file.Block.LocateEndMarker();
    if (std::ssize(record) > file.Block.BufferFree)
        throw Refusal("the ticket is too big: it has " +
                      std::to_string(record.size() / WordDigits) + " words, " +
                      std::to_string(file.Block.BufferFree / WordDigits) + " are free");
    if (file.Holds(number)) file.Block.RemoveTicketRecord(number);
    file.Block.PutRecordFirst(record);
    file.Save();
}

void Delete(const Request& request) {
    BlockFile file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    file.RequireTicket(number);
    file.RequireSound(request.force);
    file.Block.RemoveTicketRecord(number);
    file.Save();
}

void Bind(const Request& request) {
    BlockFile file(request.operands[0]);
    const int number = TicketNumber(request.operands[1]);
    const int key = KeyIndex(request.operands[2]);
    file.RequireTicket(number);
    file.RequireSound(request.force);
    auto& keyTicket = file.Block.KeyTicket;
    std::replace(keyTicket.begin(), keyTicket.end(), number, 0);
    if (key < KeyCount) keyTicket[static_cast<std::size_t>(key)] = number;
    file.Block.WriteKeyWords();
    file.Save();
}

constexpr Command AllCommands[] = {
    {"list", "BLOCK", "list the tickets and the letters of their keys", List},
    {"show", "BLOCK NUMBER", "show a ticket as text", Show},
    {"check", "BLOCK", "tell what is wrong with a block file", Check},
    {"extract", "BLOCK NUMBER TICKET", "write a ticket of the block into a ticket file", Extract},
    {"put", "BLOCK NUMBER TICKET", "put a ticket file into the block, made if missing", Put},
    {"delete", "BLOCK NUMBER", "take a ticket out of the block", Delete},
    {"bind", "BLOCK NUMBER KEY", "let Print, Start, In, Out or none print the ticket", Bind},
};

}  // namespace

std::span<const Command> Commands() {
    return AllCommands;
}

}  // namespace varno
