// varno-tickets: it ends with one of its codes, and what it refuses to do changes no block file.
#include <filesystem>
#include <iostream>
#include <sstream>

#include "block/image.h"
#include "codec/encoder.h"
#include "fuzz/fuzz.h"
#include "platform/files.h"
#include "tests/link/scratch_folder.h"

int TicketsMain(int count, char** arguments);  // the program's own main

namespace varno {
namespace {

constexpr const char* Words[] = {"new",
                                 "text",
                                 "build",
                                 "diff",
                                 "merge",
                                 "textconv",
                                 "--json",
                                 "--help",
                                 "list",
                                 "show",
                                 "print",
                                 "check",
                                 "extract",
                                 "put",
                                 "delete",
                                 "bind",
                                 "block.VRB",
                                 "200",
                                 "new.VRB",
                                 "999",
                                 "none",
                                 "ticket.VRT",
                                 "--",
                                 "ticket.vrt",
                                 "--catalogues",
                                 "-f",
                                 "--force",
                                 "Print",
                                 "-",
                                 "-h",
                                 "s",
                                 "out.VRT",
                                 "--catalogues=.",
                                 "-n",
                                 "--number=200",
                                 "--keep-key",
                                 "--strict",
                                 "--width=9"};

// They use ports, which are nobody's to use; "COM1" would too.
constexpr std::string_view LineCommands[] = {"ports", "receive", "send", "verify"};

// Files beside the scratch folder are nobody's to touch.
std::string AnyWord(FuzzedDataProvider& in) {
    std::string word =
        in.ConsumeBool() ? in.PickValueInArray(Words) : in.ConsumeRandomLengthString(9);
    std::replace(word.begin(), word.end(), '/', '_');
    const bool usesPort =
        word.starts_with("COM") ||
        std::find(std::begin(LineCommands), std::end(LineCommands), word) != std::end(LineCommands);
    return usesPort ? "list" : word;
}

std::string Block() {
    std::string bytes;
    Must(!ReadFile("block.VRB", bytes));
    return bytes;
}

}  // namespace
}  // namespace varno

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    FuzzedDataProvider in(data, size);
    const ScratchFolder folder;
    std::filesystem::current_path(folder.Path());
    std::vector<std::string> words = {"varno-tickets"};
    for (int count = in.ConsumeIntegralInRange(0, 7); count > 0; --count) {
        words.push_back(AnyWord(in));
    }
    std::vector<char*> arguments(words.size());
    std::transform(words.begin(), words.end(), arguments.begin(),
                   [](std::string& word) { return word.data(); });
    std::string block = in.ConsumeRandomLengthString();
    if (in.ConsumeBool()) {
        block = SealTicketBuffer(EncodeTicket(AnyTicket(in), 200) + "8000" + block) + "\r\n";
    }
    Must(!WriteFile("block.VRB", block));
    const std::string ticket = "{\\rtf1 " + in.ConsumeRemainingBytesAsString();
    Must(!WriteFile("ticket.VRT", ticket));
    static std::istringstream input;
    static std::ostringstream output;
    input = std::istringstream(ticket);
    output = std::ostringstream();
    std::cin.rdbuf(input.rdbuf());
    for (std::ostream* shown : {&std::cout, &std::cerr}) {
        shown->rdbuf(output.rdbuf());
    }
    const int code = TicketsMain(static_cast<int>(arguments.size()), arguments.data());
    Must(code >= 0 && code <= 3);
    // Of several blocks one may be done and another refused.
    const bool several = std::any_of(words.begin(), words.end(), [](const std::string& word) {
        return word.starts_with("-n") || word.starts_with("--number");
    });
    Must(code == 0 || several || Block() == block);
    return 0;
}
