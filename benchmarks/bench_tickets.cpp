// What a call of the command line costs: the processor time of varno-tickets, beside this program.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "benchmarks/measure.h"

namespace varno {
namespace {

constexpr int Rounds = 51;
constexpr double CallTakesAtMost = 10;  // milliseconds

double Milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

double ProcessorTime(const std::string& program, const char* command, const std::string& block) {
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execl(program.c_str(), program.c_str(), command, block.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0) {
        std::printf("%s did not run\n", program.c_str());
    }
    return Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime);
}

}  // namespace
}  // namespace varno

int main() {
    const auto folder = std::filesystem::canonical("/proc/self/exe").parent_path();
    for (const char* command : {"list", "check"}) {
        std::vector<double> times;
        times.reserve(varno::Rounds);
        for (int round = 0; round < varno::Rounds; ++round) {
            times.push_back(
                varno::ProcessorTime(folder / "varno-tickets", command, folder / "Plant.VRB"));
        }
        const double time = varno::Median(times);
        std::printf("processor time of varno-tickets %-6s %25.2f ms (at most %g)%s\n", command,
                    time, varno::CallTakesAtMost,
                    time <= varno::CallTakesAtMost ? "" : "  TOO MUCH");
    }
}
