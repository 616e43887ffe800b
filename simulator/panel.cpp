#include "simulator/panel.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "block/block_file.h"

namespace varno {

namespace {

constexpr std::string_view Help =
    "77         transmit the ticket buffer (upload in the program)\n"
    "78         capture a ticket buffer (download in the program)\n"
    "P S I O    press Print, Start, In or Out\n"
    "list       the tickets and the keys they are bound to\n"
    "values     the values that print codes print; values P012=9999 changes one\n"
    "save FILE  save the ticket buffer as a block file\n"
    "speed N    carry N bits a second both ways; 0: as fast as it goes\n"
    "noise      send characters that mean nothing\n"
    "cut N      after N more characters pull the cable, and plug it in again a second later\n"
    "damage N   after N more characters damage one\n"
    "stall N    after N more characters stand still, until stall is entered without a number\n"
    "silence N  end a capture when nothing has come for N seconds; 0: wait for ever\n"
    "help       this list\n"
    "quit       end\n";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    return first == std::string_view::npos ? "" : text.substr(first, last - first + 1);
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char character) {
        return static_cast<char>(std::tolower(character));
    });
    return lower;
}

}  // namespace

int WholeNumber(std::string_view text) {
    int number = -1;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::max(number, -1) : -1;
}

void Panel::Run(std::string_view commandLine) {
    const std::string_view line = Trimmed(commandLine);
    const std::size_t nameEnd = std::min(line.find_first_of(" \t"), line.size());
    const std::string name = Lower(line.substr(0, nameEnd));
    if (!name.empty() && !Do(name, std::string(Trimmed(line.substr(nameEnd))))) {
        indicator_.Say("not understood: " + std::string(line) + " (help lists the commands)");
    }
}

// False if it is no command.
bool Panel::Do(const std::string& name, const std::string& argument) {
    if (!argument.empty()) {
        return DoWithArgument(name, argument) || DoWithNumber(name, WholeNumber(argument));
    }
    if (const std::size_t key = std::string_view("psio").find(name);
        name.size() == 1 && key != std::string_view::npos) {
        indicator_.PrintKey(static_cast<int>(key));
    } else if (name == "77") {
        indicator_.Transmit();
    } else if (name == "78") {
        indicator_.StartCapture();
    } else if (name == "list") {
        indicator_.List();
    } else if (name == "values") {
        indicator_.ListValues();
    } else if (name == "noise") {
        indicator_.SendNoise();
    } else if (name == "stall") {
        line_.resume();
    } else if (name == "help") {
        indicator_.Say(Help);
    } else if (name == "quit") {
        hasQuit_ = true;
    } else {
        return false;
    }
    return true;
}

bool Panel::DoWithArgument(const std::string& name, const std::string& argument) {
    if (name == "save") {
        Save(argument);
    } else if (name == "values") {
        indicator_.ChangeValue(argument);
    } else {
        return false;
    }
    return true;
}

bool Panel::DoWithNumber(const std::string& name, int number) {
    if (number < 0) {
        return false;
    }
    if (name == "speed") {
        line_.speed(number);
    } else if (name == "cut") {
        line_.arm(Line::Fault::Cut, number);
    } else if (name == "stall") {
        line_.arm(Line::Fault::Stall, number);
    } else if (name == "damage") {
        line_.arm(Line::Fault::Damage, number);
    } else if (name == "silence") {
        line_.silence(number);
    } else {
        return false;
    }
    return true;
}

void Panel::Save(const std::string& path) {
    const Error error = WriteBlockFile(path, indicator_.Memory());
    indicator_.Say(error ? *error : "saved as " + path);
}

}  // namespace varno
