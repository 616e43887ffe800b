#include "tools/help.h"

#include <algorithm>
#include <iostream>
#include <map>

#include "tools/options.h"

namespace varno {
namespace {

constexpr std::size_t HelpColumn = 32;

std::string Row(std::string start, std::string_view help) {
    start.resize(std::max(start.size() + 1, HelpColumn), ' ');
    return start + std::string(help) + "\n";
}

}  // namespace

std::string HelpText() {
    std::string text =
        "Usage: varno-tickets COMMAND OPERANDS [OPTIONS]\n"
        "Works on the ticket block files (.VRB) and ticket files (.VRT) of the Varno indicator,\n"
        "and on its line.\n\n";
    for (const Subcommand& command : Commands()) {
        text += Row("  " + std::string(command.name) + " " + std::string(command.operands),
                    command.help);
    }
    return text +
           "\n"
           "varno-tickets COMMAND --help tells the options of a command, --version the version.\n"
           "\"-\" in place of a file is standard input, or standard output; behind \"--\" there\n"
           "are no options.\n"
           "Ends with 0 when done, 1 when a fault or a difference was found, 2 when called\n"
           "wrongly, 3 when it could not be done.\n";
}

std::string HelpText(const Subcommand& command) {
    std::string text = "Usage: varno-tickets " + std::string(command.name) + " " +
                       std::string(command.operands) + "\n";
    if (!command.operandsOfMany.empty()) {
        text += "       varno-tickets " + std::string(command.name) + " --number NUMBER " +
                std::string(command.operandsOfMany) + "\n";
    }
    text += std::string(command.help) + "\n\n";
    for (const Option& option : Options()) {
        if (Takes(command, option.name)) {
            text += Row("  " + std::string(option.name) + " " + std::string(option.argument),
                        option.help);
        }
    }
    return text;
}

void Completion(const Request& /*request*/) {
    std::string names;
    std::string cases;
    std::map<std::string, std::string> secondWords;  // of each first word
    for (const Subcommand& command : Commands()) {
        const std::string name(command.name);
        const std::size_t end = name.find(' ');
        std::string& seconds = secondWords[name.substr(0, end)];
        names += seconds.empty() ? name.substr(0, end) + " " : "";
        seconds += end == std::string::npos ? "" : name.substr(end + 1) + " ";
        cases +=
            "        \"" + name + " \"*) options=\"" + std::string(command.options) + "\" ;;\n";
    }
    for (const auto& [name, seconds] : secondWords) {
        if (!seconds.empty()) {
            cases.append("        \"").append(name).append(" \"*) words=\"");
            cases.append(seconds).append("\" ;;\n");
        }
    }
    std::cout << "# Completes varno-tickets in bash; made by \"varno-tickets completion\".\n"
                 "_varno_tickets() {\n"
                 "    local word=\"${COMP_WORDS[COMP_CWORD]}\" options=\"\" words=\"\"\n"
                 "    case \"${COMP_WORDS[*]:1:COMP_CWORD-1} \" in\n"
              << cases
              << "    esac\n"
                 "    if ((COMP_CWORD == 1)); then\n"
                 "        words=\""
              << names
              << "\"\n"
                 "    fi\n"
                 "    if [[ $word == -* ]]; then\n"
                 "        mapfile -t COMPREPLY < <(compgen -W \"$options "
              << OptionsOfEveryCommand
              << "\" -- \"$word\")\n"
                 "    elif [[ -n $words ]]; then\n"
                 "        mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
                 "    else\n"
                 "        mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
                 "    fi\n"
                 "}\n"
                 "complete -o filenames -F _varno_tickets varno-tickets\n";
}

}  // namespace varno
