// A folder of its own for one test, removed at its end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace varno {

class ScratchFolder {
  public:
    ScratchFolder() {
        path_ = (std::filesystem::temp_directory_path() / "varno-XXXXXX").string();
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::filesystem::filesystem_error("no scratch folder", std::error_code());
        }
        path_ = std::filesystem::canonical(path_).string();
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace varno
