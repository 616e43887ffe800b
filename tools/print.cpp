#include "tools/print.h"

#include <charconv>
#include <iostream>

#include "paper/effects_file.h"
#include "paper/effects_text.h"
#include "paper/layout.h"
#include "paper/svg.h"
#include "paper/text.h"
#include "platform/terminal.h"
#include "platform/user_folder.h"
#include "tools/opened_block.h"
#include "tools/refusal.h"

namespace varno {
namespace {

constexpr std::size_t MostValueBytes = 1 << 18;

// What is wrong with a file of effects or values is told; the rest of it is used.
void Warn(const std::vector<std::string>& faults, const std::string& about = "") {
    for (const std::string& fault : faults) {
        std::cerr << "varno-tickets: " << about << fault << '\n';
    }
}

int PaperWidth(const std::string& text) {
    int width = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), width);
    if (result.ptr != text.data() + text.size() || width < MinPaperWidth || width > MaxPaperWidth) {
        throw Refusal(Ending::WrongUsage, "\"" + text + "\" is no width: paper has " +
                                              std::to_string(MinPaperWidth) + " to " +
                                              std::to_string(MaxPaperWidth) + " columns");
    }
    return width;
}

}  // namespace

Effects EffectsFor(const Request& request) {
    Effects effects;
    const int width = request.width.empty() ? 0 : PaperWidth(request.width);
    Warn(LoadEffects(request.catalogueFolder, UserDataFolder(), effects));
    if (!request.valuesFile.empty()) {
        Warn(ParseValues(Contents(request.valuesFile, MostValueBytes), effects),
             request.valuesFile + ": ");
    }
    if (width != 0) {
        effects.paperWidth = width;
    }
    return effects;
}

void PrintBody(const Request& request, std::span<const Word> body) {
    const Paper paper = LayOut(body, EffectsFor(request));
    if (!request.svgFile.empty()) {
        return DeliverNew(request, request.svgFile, PaperSvg(paper));
    }
    std::cout << (OnTerminal(Stream::Output) ? TerminalText(paper) : PaperText(paper));
}

}  // namespace varno
