// Any effects, values and ticket: the paper is whole, and each cell is found again at its place.
#include "fuzz/fuzz.h"
#include "paper/effects_text.h"
#include "paper/layout.h"
#include "paper/svg.h"
#include "paper/text.h"

namespace {

using varno::Must;

void CheckRow(const varno::Paper& paper, const varno::PaperRow& row) {
    int columns = 0;
    for (const varno::PaperCell& cell : row.cells) {
        columns += cell.Columns();
        Must(cell.index >= row.begin && cell.index <= row.end && cell.character >= u' ');
        Must(varno::WordAt(paper, varno::PlaceOf(paper, cell.index)) == cell.index);
    }
    Must(columns == row.columns && row.indent >= 0 && row.indent + columns <= paper.width);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t MostFaults = 21;
    FuzzedDataProvider in(data, size);
    varno::Effects effects;
    Must(ParseEffects(in.ConsumeRandomLengthString(), effects).size() <= MostFaults);
    Must(ParseValues(in.ConsumeRandomLengthString(), effects).size() <= MostFaults);
    effects.paperWidth = in.ConsumeIntegral<int>();
    std::vector<varno::Word> body;
    while (in.remaining_bytes() > 0 && body.size() < 1993) {
        body.push_back(in.ConsumeIntegral<varno::Word>());
    }
    const varno::Paper paper = LayOut(body, effects);
    for (const varno::PaperRow& row : paper.rows) {
        CheckRow(paper, row);
    }
    (void)TerminalText(paper);
    (void)PaperSvg(paper);
    return 0;
}
