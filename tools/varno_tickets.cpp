// varno-tickets: ticket blocks from the command line.
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "platform/files.h"
#include "platform/version.h"
#include "tools/each_block.h"
#include "tools/help.h"
#include "tools/options.h"
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

void Run(const char* program, std::span<char*> arguments) {
    Request request = RequestIn(arguments);
    if (request.catalogueFolder.empty()) {
        request.catalogueFolder = ProgramFolder(program);
    }
    if (request.version) {
        std::cout << "varno-tickets " << Version << '\n';
    } else if (request.help) {
        std::cout << (request.command == nullptr ? HelpText() : HelpText(*request.command));
    } else if (request.command == nullptr) {
        throw Refusal(Ending::WrongUsage, "which command?");
    } else {
        RunCommand(request);
    }
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
