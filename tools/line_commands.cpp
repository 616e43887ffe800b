#include "tools/line_commands.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>

#include "block/block_file.h"
#include "link/block_transfer.h"
#include "platform/files.h"
#include "platform/serial/port_links.h"
#include "platform/serial/serial_system.h"
#include "platform/terminal.h"
#include "platform/user_folder.h"
#include "tools/history_commands.h"
#include "tools/indicator_line.h"
#include "tools/json.h"
#include "tools/opened_block.h"
#include "tools/refusal.h"
#include "tools/text_commands.h"

namespace varno {
namespace {

namespace fs = std::filesystem;

// The path without its extension, `mark` and the extension of a block.
std::string Marked(const std::string& path, const std::string& mark) {
    fs::path marked = IsStandardOutput(path) ? fs::path("block.VRB") : fs::path(path);
    const std::string extension = marked.extension().string();
    marked.replace_extension();
    return marked.string() + mark + extension;
}

// A path made by `named` of a number, from 1 up, that is no file yet.
template <class Named>
std::string FreePath(Named named) {
    int number = 1;
    while (FileExists(named(number))) {
        ++number;
    }
    return named(number);
}

std::string Numbered(int number) {
    return number == 1 ? "" : "-" + std::to_string(number);
}

// Keeps a dated copy of the block, in the folder that is asked for or else in the history. That
// the history cannot be written is only said.
Error KeepCopy(const Request& request, Cause cause, const Received& block) {
    const bool asked = !request.backupFolder.empty();
    History history = HistoryFor(request);
    const std::string& path = request.operands[0];
    const Copy copy = {
        .time = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()),
        .cause = cause,
        .port = block.port.substr(0, block.port.find(" (")),  // without its device
        .name = IsStandardOutput(path) ? "" : fs::path(path).stem().string()};
    const Error error = history.Keep(copy, BlockFileBytes(block.image));
    if (error && !asked) {
        std::cerr << *error << '\n';
    }
    return asked ? error : Error();
}

bool OperatorIsThere() {
    return OnTerminal(Stream::Input) && OnTerminal(Stream::Errors);
}

// The answer on a terminal; what is asked for is begun with y, or with nothing.
bool OperatorAgrees(const std::string& question) {
    std::cerr << question << std::flush;
    std::string answer;
    return std::getline(std::cin, answer) &&
           (answer.empty() || answer[0] == 'y' || answer[0] == 'Y');
}

// Before the operator goes to the indicator. The port is closed again, so that nothing that comes
// meanwhile is lost in it and Ctrl+C ends the waiting.
void RequirePort(const Request& request) {
    (void)IndicatorLine(request);
}

Received ReceiveOnce(const Request& request) {
    IndicatorLine line(request);
    return {line.Receive(), line.Name()};
}

// Says what is wrong with the image, and where it is kept.
void TellDamage(const Received& received, const std::vector<std::string>& faults,
                const std::string& damaged) {
    std::cerr << "The block from " << received.port << " came damaged.\n";
    for (const std::string& fault : faults) {
        std::cerr << fault << '\n';
    }
    if (damaged.empty()) {
        return;
    }
    const std::string path =
        FreePath([&](int number) { return Marked(damaged, " damaged" + Numbered(number)); });
    Deliver(path, BlockFileBytes(received.image));
    std::cerr << "What came is kept in " << path << ".\n";
}

int RequiredNumber(const std::string& port) {
    const int number = PortNumberIn(port);
    if (number == 0) {
        throw Refusal(Ending::WrongUsage, "\"" + port + "\" is no port: COM1 to COM256");
    }
    return number;
}

void Link(const Request& request) {
    const int number = RequiredNumber(request.link);
    if (request.operands.empty()) {
        throw Refusal(Ending::WrongUsage, "--link takes a port and a device");
    }
    std::error_code error;
    const std::string device = fs::absolute(request.operands[0], error).string();
    if (!fs::is_character_file(device, error)) {
        throw Refusal(Ending::CouldNot, device + " is no serial device.");
    }
    if (request.force) {
        (void)UnlinkPort(PortsFolder(), number);
    }
    Require(LinkPort(PortsFolder(), number, StableName(device)));
}

void Unlink(const Request& request) {
    Require(UnlinkPort(PortsFolder(), RequiredNumber(request.unlink)));
}

// With at least two blanks behind it.
std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size() + 2, width), ' ');
    return text;
}

struct PortRow {
    std::string port;
    std::string device;
    bool present;
    Adapter adapter;
};

std::vector<PortRow> PortRows() {
    std::vector<PortRow> rows;
    std::map<std::string, Adapter> adapters = Adapters();
    for (const auto& [number, device] : NumberedPorts(PortsFolder())) {
        rows.push_back({PortName(number), device, DeviceExists(device), adapters[device]});
    }
    return rows;
}

void TellScripts() {
    std::vector<JsonObject> ports;
    for (const PortRow& row : PortRows()) {
        ports.push_back(JsonObject()
                            .Add("port", row.port)
                            .Add("device", row.device)
                            .Add("present", row.present)
                            .Add("adapter", row.adapter.name)
                            .Add("serialNumber", row.adapter.serialNumber));
    }
    std::cout << JsonObject().Add("ports", ports).Text() << '\n';
}

void TellPeople() {
    for (const PortRow& row : PortRows()) {
        std::string line = Padded(row.port, 8) + Padded(row.device, 16) +
                           (row.present ? Padded(row.adapter.name, 32) + row.adapter.serialNumber
                                        : "not connected");
        std::cout << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
}

}  // namespace

void Ports(const Request& request) {
    if (!request.link.empty()) {
        return Link(request);
    }
    if (!request.operands.empty()) {
        throw Refusal(Ending::WrongUsage, "a device goes with --link");
    }
    if (!request.unlink.empty()) {
        return Unlink(request);
    }
    request.json ? TellScripts() : TellPeople();
}

void Receive(const Request& request) {
    const std::string path = FileMeantBy(request.operands[0]);
    RequireNew(request, path);
    const Received received = ReceivedBlock(request, path);
    const Error uncopied = KeepCopy(request, Cause::Uploaded, received);
    DeliverNew(request, path, BlockFileBytes(received.image));
    Require(uncopied);
}

void Send(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    file.RequireSound();
    RequirePort(request);
    std::cerr << StartCapturing << ".\n";
    if (OperatorIsThere() && !OperatorAgrees("Then press Enter. ")) {
        throw Refusal(Ending::CouldNot, "nothing was sent");
    }
    IndicatorLine line(request);
    Require(KeepCopy(request, Cause::Download, {file.Block.TicketBuffer, line.Name()}));
    line.Send(file.Block.TicketBuffer);
}

void Verify(const Request& request) {
    const OpenedBlock file(request.operands[0]);
    file.RequireSound();
    const BlockContent there = ContentOf(ReceivedBlock(request).image);
    TellDifferences(request, ContentOf(file.Block.TicketBuffer), there,
                    {request.operands[0], "the indicator"});
}

bool IsPort(const std::string& operand) {
    constexpr std::string_view devices[] = {"/dev/tty", "/dev/pts/", "/dev/serial/"};
    return std::any_of(std::begin(devices), std::end(devices),
                       [&](std::string_view start) { return operand.starts_with(start); }) ||
           (PortNumberIn(operand) != 0 && !FileExists(operand));
}

Received ReceivedBlock(const Request& request, const std::string& damaged) {
    for (;;) {
        Received received = ReceiveOnce(request);
        const std::vector<std::string> faults = FaultsInImage(received.image);
        if (faults.empty()) {
            return received;
        }
        TellDamage(received, faults, damaged);
        if (!OperatorIsThere() || !OperatorAgrees("Receive it again? [Y/n] ")) {
            throw Refusal(Ending::FaultFound, "the block was not received");
        }
    }
}

}  // namespace varno
