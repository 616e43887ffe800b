#include "app/about.h"

namespace varno {
namespace {

constexpr const char* EmptyLine = "\r\n\r\n";
constexpr const char* MakerLine = "Made by the Varno Ticket Formatter authors. MIT licence.";
constexpr const char* ContactLine = "Questions and faults: the project's issue tracker.";

}  // namespace

std::string VersionText(const ProgramInfo& program) {
    return std::to_string(program.major) + "." + std::to_string(program.minor) + "." +
           std::to_string(program.revision);
}

void about_Click(Platform& platform) {
    platform.Ask().ShowMessage("Varno TICKET FORMATTER version " + VersionText(platform.App()) +
                                   EmptyLine + MakerLine + EmptyLine + ContactLine,
                               ApplicationTitle, Buttons::Ok, Icon::None);
}

}  // namespace varno
