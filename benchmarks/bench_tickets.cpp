// What a call of the command line costs: the processor time of varno-tickets, beside this program.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "benchmarks/measure.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

constexpr int Rounds = 51;
constexpr double CallTakesAtMost = 10;  // milliseconds
constexpr std::size_t ManyBlocks = 1000;
constexpr double ManyTakeAtMost = 2000;

double Milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

double ProcessorTime(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0) {
        std::printf("%s did not run\n", words[0].c_str());
    }
    return Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime);
}

double MedianTime(const std::vector<std::string>& words, int rounds) {
    std::vector<double> times(static_cast<std::size_t>(rounds));
    std::generate(times.begin(), times.end(), [&] { return ProcessorTime(words); });
    return Median(times);
}

void Print(const std::string& what, double time, double limit) {
    std::printf("processor time of varno-tickets %-24s %8.2f ms (at most %g)%s\n", what.c_str(),
                time, limit, time <= limit ? "" : "  TOO MUCH");
}

// Copies of the block in the folder.
std::vector<std::string> Copies(const std::filesystem::path& block, const std::string& folder) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < ManyBlocks; ++i) {
        paths.push_back(folder + "/" + std::to_string(i) + ".VRB");
        std::filesystem::copy_file(block, paths.back());
    }
    return paths;
}

void Run() {
    const auto folder = std::filesystem::canonical("/proc/self/exe").parent_path();
    const std::string program = folder / "varno-tickets";
    const std::string block = folder / "Plant.VRB";
    for (const char* command : {"list", "check"}) {
        Print(command, MedianTime({program, command, block}, Rounds), CallTakesAtMost);
    }
    const ScratchFolder scratch;
    std::vector<std::string> many = Copies(block, scratch.Path());
    many.insert(many.begin(), {program, "check"});
    Print("check of 1,000 blocks", MedianTime(many, 3), ManyTakeAtMost);
}

}  // namespace
}  // namespace varno

int main() {
    try {
        varno::Run();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench_tickets: %s\n", failure.what());
        return 1;
    }
}
