// The largest ticket laid out on paper, in processor time.
#include <ctime>

#include "benchmarks/measure.h"
#include "paper/effects_text.h"
#include "paper/layout.h"

namespace varno {
namespace {

constexpr std::size_t LargestBody = 1995 - 2;  // words, without header and end
constexpr int Rounds = 101;
constexpr double Allowed = 0.002;  // seconds

// Codes and values of every number, as large an effects file as there may be.
Effects AllEffects() {
    std::string text;
    for (int code = 0; code <= MaxWordValue; ++code) {
        text += std::to_string(code) + (code % 2 == 0 ? " bold on\n" : " bold off\n");
        text += "P" + std::to_string(code) + " 8 \"12480\"\n";
    }
    Effects effects;
    (void)ParseEffects(text, effects);
    return effects;
}

// Lines of text with codes of both kinds in them.
std::vector<Word> LargestTicket() {
    std::vector<Word> body;
    for (int i = 0; body.size() < LargestBody; ++i) {
        const int number = i % (MaxWordValue + 1);
        body.push_back(static_cast<Word>(ControlCode + number));
        body.push_back(static_cast<Word>(PrintCode + number));
        body.insert(body.end(), {' ', 'k', 'g'});
        if (i % 4 == 0) {
            body.insert(body.end(), {'\r', '\n'});
        }
    }
    body.resize(LargestBody);
    return body;
}

double ProcessorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void BenchLayout() {
    const Effects effects = AllEffects();
    const std::vector<Word> body = LargestTicket();
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        const double start = ProcessorSeconds();
        const Paper paper = LayOut(body, effects);
        times.push_back(ProcessorSeconds() - start);
        if (paper.words != LargestBody) {
            std::printf("words are missing\n");
        }
    }
    Report("lay out the largest ticket / what it may take", Median(times), Allowed, 1.0);
}

}  // namespace
}  // namespace varno

int main() {
    varno::BenchLayout();
}
