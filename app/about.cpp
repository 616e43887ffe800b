#include "app/about.h"

#include "platform/version.h"

namespace varno {
namespace {

constexpr const char* EmptyLine = "\r\n\r\n";
constexpr const char* MakerLine = "Made by the Varno Ticket Formatter authors. MIT licence.";
constexpr const char* ContactLine = "Questions and faults: the project's issue tracker.";

}  // namespace

void about_Click(Platform& platform) {
    platform.DialogBoxes().ShowMessage("Varno TICKET FORMATTER version " + std::string(Version) +
                                           EmptyLine + MakerLine + EmptyLine + ContactLine,
                                       ApplicationTitle, Buttons::Ok, Icon::None);
}

}  // namespace varno
