// varno-tickets: ticket blocks from the command line.
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "platform/files.h"
#include "platform/version.h"
#include "tools/commands.h"
#include "tools/refusal.h"

namespace varno {
namespace {

// The catalogues lie beside the program; a link to it is followed.
std::string ProgramFolder(const char* calledAs) {
    std::error_code error;
    std::filesystem::path program = std::filesystem::canonical("/proc/self/exe", error);
    if (error) {
        program = std::filesystem::absolute(calledAs, error);
    }
    return program.parent_path().string();
}

void PrintHelp() {
    std::cout << "Usage: varno-tickets COMMAND OPERANDS [OPTIONS]\n"
                 "Works on the ticket block files (.VRB) and ticket files (.VRT) of the Varno "
                 "indicator.\n\n";
    for (const Subcommand& command : Commands()) {
        std::string start = "  " + std::string(command.name) + " " + std::string(command.operands);
        start.resize(std::max<std::size_t>(start.size(), 32), ' ');
        std::cout << start << command.help << '\n';
    }
    std::cout << "\n"
                 "  -f, --force            replace what exists, change a damaged block\n"
                 "  --catalogues FOLDER    where the code catalogues are (beside the program)\n"
                 "  --comments             write the comments of codes into a text\n"
                 "  --svg FILE             print into a picture\n"
                 "  --values FILE          print other values than the samples, such as P012=9999\n"
                 "  --width COLUMNS        print on paper of this width\n"
                 "  -h, --help  --version\n"
                 "  --                     what follows is no option\n\n"
                 "\"-\" in place of a file is standard input, or standard output.\n"
                 "Ends with 0 when done, 1 when a fault was found, 2 when called wrongly, 3 when "
                 "it\ncould not be done.\n";
}

void PrintVersion() {
    std::cout << "varno-tickets " << Version << '\n';
}

bool Takes(const Subcommand& command, std::size_t operands) {
    const auto count = [&](char c) {
        return static_cast<std::size_t>(
            std::count(command.operands.begin(), command.operands.end(), c));
    };
    const std::size_t most = count(' ') + 1;
    return operands <= most && operands + count('[') >= most;
}

const Subcommand& CommandNamed(const std::string& name) {
    const auto all = Commands();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const Subcommand& command) { return command.name == name; });
    if (found == all.end()) {
        throw Refusal(Ending::WrongUsage, "there is no command \"" + name + "\"");
    }
    return *found;
}

void RunCommand(Request request) {
    auto& operands = request.operands;
    if (operands.empty()) {
        throw Refusal(Ending::WrongUsage, "which command?");
    }
    const Subcommand& command = CommandNamed(operands.front());
    operands.erase(operands.begin());
    if (!Takes(command, operands.size())) {
        throw Refusal(Ending::WrongUsage,
                      std::string(command.name) + " takes " + std::string(command.operands));
    }
    command.run(request);
}

struct ValueOption {
    std::string_view name;
    std::string Request::*value;
};
constexpr ValueOption ValueOptions[] = {{"--catalogues", &Request::catalogueFolder},
                                        {"--svg", &Request::svgFile},
                                        {"--values", &Request::valuesFile},
                                        {"--width", &Request::width}};

// Takes "--svg FILE", of which `next` is the second part, or "--svg=FILE". The number of parts
// taken; 0 if it is no such option.
std::size_t TakeValue(const std::string& argument, const char* next, Request& request) {
    for (const ValueOption& option : ValueOptions) {
        const std::string name(option.name);
        if (argument == name && next != nullptr) {
            request.*option.value = next;
            return 2;
        }
        if (argument.starts_with(name + "=")) {
            request.*option.value = argument.substr(name.size() + 1);
            return 1;
        }
    }
    return 0;
}

void Run(const char* program, std::span<char*> arguments) {
    Request request;
    request.catalogueFolder = ProgramFolder(program);
    bool optionsEnd = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string argument = arguments[i];
        const char* const next = i + 1 < arguments.size() ? arguments[i + 1] : nullptr;
        if (optionsEnd || argument == "-" || argument.substr(0, 1) != "-") {
            request.operands.push_back(argument);
        } else if (argument == "--") {
            optionsEnd = true;
        } else if (argument == "--help" || argument == "-h") {
            return PrintHelp();
        } else if (argument == "--version") {
            return PrintVersion();
        } else if (argument == "--force" || argument == "-f") {
            request.force = true;
        } else if (argument == "--comments") {
            request.comments = true;
        } else if (const std::size_t parts = TakeValue(argument, next, request); parts > 0) {
            i += parts - 1;
        } else {
            throw Refusal(Ending::WrongUsage, "there is no option \"" + argument + "\" like this");
        }
    }
    RunCommand(std::move(request));
}

int Report(const std::exception& error, Ending ending) {
    if (*error.what() != '\0') {
        std::cerr << "varno-tickets: " << error.what() << '\n';
    }
    if (ending == Ending::WrongUsage) {
        std::cerr << "varno-tickets --help tells more.\n";
    }
    return static_cast<int>(ending);
}

}  // namespace
}  // namespace varno

int main(int argc, char** argv) {
    using namespace varno;
    SurviveFailedWrites();
    try {
        Run(argv[0], std::span(argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0))));
        if (!std::cout.flush()) {
            throw Refusal(Ending::CouldNot, "the output cannot be written");
        }
        return static_cast<int>(Ending::Done);
    } catch (const Refusal& refusal) {
        return Report(refusal, refusal.ending);
    } catch (const std::exception& error) {
        return Report(error, Ending::CouldNot);
    }
}
