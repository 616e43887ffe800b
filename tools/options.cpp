#include "tools/options.h"

#include <algorithm>
#include <utility>

#include "tools/refusal.h"

namespace varno {
namespace {

constexpr Option AllOptions[] = {
    {"--backup", "FOLDER", "of dated copies (the history)", &Request::backupFolder},
    {"--catalogues", "FOLDER", "where the code catalogues are (beside the program)",
     &Request::catalogueFolder},
    {"--comments", "", "write the comments of codes", &Request::comments},
    {"--force", "", "replace what exists, change a damaged block; also -f", &Request::force},
    {"--help", "", "this text; also -h", &Request::help},
    {"--json", "", "answer in JSON, for scripts", &Request::json},
    {"--keep-key", "", "replace the ticket and leave its keys to it", &Request::keepKey},
    {"--link", "COM3", "let the port be the DEVICE", &Request::link},
    {"--number", "NUMBER", "the ticket, in each of several blocks; also -n", &Request::number},
    {"--port", "PORT", "COM3 or a device (as the window has it)", &Request::port},
    {"--settings", "SETTINGS", "of the line, such as 9600,n,8,1 (as the window has them)",
     &Request::settings},
    {"--strict", "", "tell too what is sound but suspect", &Request::strict},
    {"--svg", "FILE", "make a picture", &Request::svgFile},
    {"--unlink", "COM3", "let the port be no chosen device any more", &Request::unlink},
    {"--values", "FILE", "print other values than the samples, such as P012=9999",
     &Request::valuesFile},
    {"--version", "", "the version", &Request::version},
    {"--wait", "SECONDS", "give up when nothing moves for so long", &Request::wait},
    {"--width", "COLUMNS", "of the paper (as the effects of codes say)", &Request::width},
};

// Whether `words`, separated by blanks, holds the word.
bool Holds(std::string_view words, std::string_view word) {
    const std::string all = " " + std::string(words) + " ";
    return all.find(" " + std::string(word) + " ") != std::string::npos;
}

std::size_t Count(std::string_view text, char character) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), character));
}

bool Fits(std::size_t count, std::string_view operands) {
    const std::size_t most = operands.empty() ? 0 : Count(operands, ' ') + 1;
    return count + Count(operands, '[') >= most && (count <= most || operands.ends_with("..."));
}

std::string LongName(const std::string& name) {
    constexpr std::pair<std::string_view, std::string_view> shortNames[] = {
        {"-f", "--force"}, {"-h", "--help"}, {"-n", "--number"}};
    for (const auto& [shortName, longName] : shortNames) {
        if (name == shortName) {
            return std::string(longName);
        }
    }
    return name;
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
    } else {
        const bool apart = equals == std::string::npos;
        const char* const following = next == nullptr ? "" : next;
        const std::string value = apart ? following : argument.substr(equals + 1);
        if (!value.empty()) {  // as a variable is that a script never set
            request.*std::get<std::string Request::*>(option.value) = value;
            return apart ? 2 : 1;
        }
    }
    throw Refusal(Ending::WrongUsage,
                  std::string(option.name) + " takes " +
                      (option.argument.empty() ? "nothing" : std::string(option.argument)));
}

// Takes the blocks out of the operands: the first one, or all behind the others.
void SetBlocksApart(Request& request, std::string_view wanted) {
    auto& operands = request.operands;
    const bool many = wanted.ends_with("...");
    const auto first =
        operands.begin() + (many ? static_cast<std::ptrdiff_t>(Count(wanted, ' ')) : 0);
    const auto last = many ? operands.end() : first + 1;
    request.blocks.assign(first, last);
    operands.erase(first, last);
    if (!request.number.empty()) {
        operands.insert(operands.begin(), request.number);
    }
}

void RequireOperands(const Request& request, std::string_view wanted) {
    if (!Fits(request.operands.size(), wanted)) {
        const std::string name(request.command->name);
        throw Refusal(Ending::WrongUsage,
                      name + (request.number.empty() ? "" : " --number") + " takes " +
                          (wanted.empty() ? "no operands" : std::string(wanted)));
    }
}

// The operands of the request as its command wants them, without its name.
void TakeOperands(Request& request) {
    auto& operands = request.operands;
    const Subcommand& command = TakeCommand(operands);
    request.command = &command;
    for (const std::string& option : request.options) {
        if (!Takes(command, option)) {
            throw Refusal(Ending::WrongUsage, std::string(command.name) + " takes no " + option);
        }
    }
    if (request.help) {
        return;
    }
    const auto wanted = request.number.empty() ? command.operands : command.operandsOfMany;
    RequireOperands(request, wanted);
    if (std::holds_alternative<BlockTask (*)(const Request&)>(command.run)) {
        SetBlocksApart(request, wanted);
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
