#include "paper/effects_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "paper/effects_text.h"

namespace varno {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t MostBytes = 1 << 18;  // twice what a line for every code needs

// Reads up to one byte more than are used. A pipe or a device might never end.
std::string ReadFront(const fs::path& path, std::string& bytes) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return "this is no ordinary file";
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    bytes.resize(MostBytes + 1);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const bool failed = !file.is_open() || file.bad();
    bytes.resize(failed ? 0 : static_cast<std::size_t>(file.gcount()));
    return failed ? std::generic_category().message(errno != 0 ? errno : EIO) : "";
}

// Leaves out what is behind the limit, and the line that it cuts.
bool CutOff(std::string& bytes) {
    if (bytes.size() <= MostBytes) {
        return false;
    }
    bytes.resize(bytes.find_last_of('\n') + 1);
    return true;
}

void AddFile(const fs::path& path, Effects& effects, std::vector<std::string>& faults) {
    const auto report = [&](const std::string& fault) {
        faults.push_back(path.string() + ": " + fault);
    };
    std::string bytes;
    if (const std::string error = ReadFront(path, bytes); !error.empty()) {
        report(error);
    }
    if (CutOff(bytes)) {
        report("only the first " + std::to_string(MostBytes / 1024) + " KB of the file are used");
    }
    for (const std::string& fault : ParseEffects(bytes, effects)) {
        report(fault);
    }
}

}  // namespace

std::vector<std::string> LoadEffects(const std::string& catalogueFolder,
                                     const std::string& userFolder, Effects& effects) {
    std::vector<std::string> faults;
    AddFile(fs::path(catalogueFolder) / EffectsFileName, effects, faults);
    const fs::path own = fs::path(userFolder) / EffectsFileName;
    std::error_code ignored;
    if (fs::exists(fs::status(own, ignored))) {
        AddFile(own, effects, faults);
    }
    return faults;
}

}  // namespace varno
