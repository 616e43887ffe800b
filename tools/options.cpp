#include "tools/options.h"

#include <algorithm>

#include "tools/refusal.h"

namespace varno {
namespace {

constexpr Option AllOptions[] = {
    {"--backup", "FOLDER", "keep the dated copy of the block there (in the history)",
     &Request::backupFolder},
    {"--catalogues", "FOLDER", "where the code catalogues are (beside the program)",
     &Request::catalogueFolder},
    {"--comments", "", "write the comments of codes", &Request::comments},
    {"--force", "", "replace what exists, change a damaged block; also -f", &Request::force},
    {"--help", "", "this text; also -h", &Request::help},
    {"--json", "", "answer in JSON, for scripts", &Request::json},
    {"--link", "COM3", "let the port be the DEVICE", &Request::link},
    {"--port", "PORT", "COM3 or a device (as the window has it)", &Request::port},
    {"--settings", "SETTINGS", "of the line, such as 9600,n,8,1 (as the window has them)",
     &Request::settings},
    {"--svg", "FILE", "make a picture", &Request::svgFile},
    {"--unlink", "COM3", "let the port be no chosen device any more", &Request::unlink},
    {"--values", "FILE", "print other values than the samples, such as P012=9999",
     &Request::valuesFile},
    {"--version", "", "the version", &Request::version},
    {"--wait", "SECONDS", "give up when nothing moves for so long", &Request::wait},
    {"--width", "COLUMNS", "print on paper of this width", &Request::width},
};

// Whether `words`, separated by blanks, holds the word.
bool Holds(std::string_view words, std::string_view word) {
    const std::string all = " " + std::string(words) + " ";
    return all.find(" " + std::string(word) + " ") != std::string::npos;
}

bool TakesOperands(const Subcommand& command, std::size_t count) {
    const auto words = [&](char separator) {
        return static_cast<std::size_t>(
            std::count(command.operands.begin(), command.operands.end(), separator));
    };
    const std::size_t most = command.operands.empty() ? 0 : words(' ') + 1;
    return count <= most && count + words('[') >= most;
}

std::string LongName(const std::string& name) {
    return name == "-f" ? "--force" : name == "-h" ? "--help" : name;
}

const Option& OptionNamed(const std::string& name) {
    const auto* const found =
        std::find_if(std::begin(AllOptions), std::end(AllOptions),
                     [&](const Option& option) { return option.name == LongName(name); });
    if (found == std::end(AllOptions)) {
        throw Refusal(Ending::WrongUsage, "there is no option \"" + name + "\"");
    }
    return *found;
}

// Takes "--svg FILE", of which `next` is the second part, or "--svg=FILE". The number of parts.
std::size_t TakeOption(const std::string& argument, const char* next, Request& request) {
    const std::size_t equals = argument.find('=');
    const Option& option = OptionNamed(argument.substr(0, equals));
    request.options.emplace_back(option.name);
    if (const auto* flag = std::get_if<bool Request::*>(&option.value)) {
        request.*(*flag) = true;
        if (equals == std::string::npos) {
            return 1;
        }
    } else if (equals != std::string::npos || next != nullptr) {
        const bool apart = equals == std::string::npos;
        request.*std::get<std::string Request::*>(option.value) =
            apart ? next : argument.substr(equals + 1);
        return apart ? 2 : 1;
    }
    throw Refusal(Ending::WrongUsage,
                  std::string(option.name) + " takes " +
                      (option.argument.empty() ? "nothing" : std::string(option.argument)));
}

// The operands of the request as its command wants them, without its name.
void TakeOperands(Request& request) {
    auto& operands = request.operands;
    const Subcommand& command = CommandNamed(operands.front());
    request.command = &command;
    operands.erase(operands.begin());
    for (const std::string& option : request.options) {
        if (!Takes(command, option)) {
            throw Refusal(Ending::WrongUsage, std::string(command.name) + " takes no " + option);
        }
    }
    if (!request.help && !TakesOperands(command, operands.size())) {
        throw Refusal(
            Ending::WrongUsage,
            std::string(command.name) + " takes " +
                (command.operands.empty() ? "no operands" : std::string(command.operands)));
    }
}

}  // namespace

std::span<const Option> Options() {
    return AllOptions;
}

bool Takes(const Subcommand& command, std::string_view option) {
    return Holds(command.options, option) || Holds(OptionsOfEveryCommand, option);
}

Request RequestIn(std::span<char*> arguments) {
    Request request;
    bool optionsEnd = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string argument = arguments[i];
        if (optionsEnd || argument == "-" || !argument.starts_with('-')) {
            request.operands.push_back(argument);
        } else if (argument == "--") {
            optionsEnd = true;
        } else {
            i += TakeOption(argument, i + 1 < arguments.size() ? arguments[i + 1] : nullptr,
                            request) -
                 1;
        }
    }
    if (!request.operands.empty()) {
        TakeOperands(request);
    }
    return request;
}

}  // namespace varno
