// varno-tickets: ticket blocks from the command line.
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "tools/commands.h"
#include "tools/refusal.h"

namespace varno {
namespace {

constexpr int Done = 0;
constexpr int Refused = 1;
constexpr int WronglyUsed = 2;

// The catalogues lie beside the program; a link to it is followed.
std::string ProgramFolder(const char* calledAs) {
    std::error_code error;
    std::filesystem::path program = std::filesystem::canonical("/proc/self/exe", error);
    if (error) program = std::filesystem::absolute(calledAs, error);
    return (program.parent_path() / "").string();
}

void PrintHelp() {
    std::cout << "Usage: varno-tickets COMMAND OPERANDS [OPTIONS]\n"
                 "Works on the ticket block files (.VRB) and ticket files (.VRT) of the Varno "
                 "indicator.\n\n";
    for (const Command& command : Commands()) {
        std::string start = "  " + std::string(command.name) + " " + std::string(command.operands);
        start.resize(std::max<std::size_t>(start.size(), 32), ' ');
        std::cout << start << command.help << '\n';
    }
    std::cout << "\n"
                 "  -f, --force            replace what exists, change a damaged block\n"
                 "  --catalogues FOLDER    where the code catalogues are (beside the program)\n"
                 "  -h, --help  --version\n\n"
                 "Ends with 0 when done, 1 when refused or a fault was found, 2 when called "
                 "wrongly.\n";
}

std::size_t OperandCount(const Command& command) {
    return 1 + static_cast<std::size_t>(
                   std::count(command.operands.begin(), command.operands.end(), ' '));
}

const Command& CommandNamed(const std::string& name) {
    const auto all = Commands();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Command& command) { return command.name == name; });
    if (found == all.end()) throw WrongUsage("there is no command \"" + name + "\"");
    return *found;
}

void RunCommand(Request request) {
    auto& operands = request.operands;
    if (operands.empty()) throw WrongUsage("which command?");
    const Command& command = CommandNamed(operands.front());
    operands.erase(operands.begin());
    if (operands.size() != OperandCount(command))
        throw WrongUsage(std::string(command.name) + " takes " + std::string(command.operands));
    command.run(request);
}

void Run(const char* program, std::span<char*> arguments) {
    Request request;
    request.catalogueFolder = ProgramFolder(program);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string argument = arguments[i];
        if (argument == "--help" || argument == "-h") return PrintHelp();
        if (argument == "--version") {
            std::cout << "varno-tickets " VARNO_VERSION "\n";
            return;
        }
        if (argument == "--force" || argument == "-f")
            request.force = true;
        else if (argument == "--catalogues" && i + 1 < arguments.size())
            request.catalogueFolder = std::string(arguments[++i]) + "/";
        else if (argument.size() > 1 && argument.front() == '-')
            throw WrongUsage("there is no option \"" + argument + "\" like this");
        else
            request.operands.push_back(argument);
    }
    RunCommand(std::move(request));
}

int Report(const std::exception& error, int status) {
    std::cerr << "varno-tickets: " << error.what() << '\n';
    if (status == WronglyUsed) std::cerr << "varno-tickets --help tells more.\n";
    return status;
}

}  // namespace
}  // namespace varno

int main(int argc, char** argv) {
    using namespace varno;
    try {
        Run(argv[0], std::span(argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0))));
        if (!std::cout.flush()) throw Refusal("the output cannot be written");
        return Done;
    } catch (const WrongUsage& error) {
        return Report(error, WronglyUsed);
    } catch (const std::exception& error) {
        return Report(error, Refused);
    }
}
