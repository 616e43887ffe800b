// Whole files, read and written. Paths and texts are UTF-8; contents are bytes.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"

namespace varno {

// Reads the whole file into `bytes`, or of a longer one the first `most` bytes; on failure `bytes`
// is left as it is. Links are followed. Folders, and pipes and devices, which may never end, are
// refused.
[[nodiscard]] Error ReadFile(const std::string& path, std::string& bytes,
                             std::size_t most = std::string::npos);

// Makes the file hold `bytes` and flushes it to disk. What that means depends on where `path`
// leads:
//
//   nothing               a new file, with the rights that the user's mask and the folder give
//   an ordinary file      replaced as a whole: whoever reads or restarts finds the old file or the
//                         new one, never a part. Rights, owner, group and extended attributes
//                         (access control lists among them) stay.
//   one that a rename     overwritten in place: a file with several names, of an owner or with
//     would change        attributes that we cannot give, in a folder closed to us, or mounted. A
//                         copy is kept meanwhile and put back on failure.
//   a write-protected     refused; so is a file that has no write right at all, whoever we are
//     file, a folder
//   a device, a pipe      written straight, never replaced; a pipe needs its reader
//
// Links are followed and stay, one that leads nowhere as well: the new file comes where it leads.
// A failure leaves the old content whole, or says where its copy is. Whatever a killed program left
// behind in the folder goes when the file is saved the next time.
[[nodiscard]] Error WriteFile(const std::string& path, std::string_view bytes);

// Tells other programs that a running one has a file in work. It ends with its object, or with its
// program, however that ends. Null: there is none.
using FileClaim = std::shared_ptr<void>;

// Null where another has the claim, or there is no such file. A disk that knows no claims gives one
// that nobody sees.
FileClaim ClaimFile(const std::string& path);

// Whether a running program, this one included, has a claim on the file; nothing where nobody can
// tell.
std::optional<bool> IsFileClaimed(const std::string& path);

// Makes a new file, readable for its user alone, whole or not at all, and claimed from its first
// moment if a claim is asked for. Refused where there is a file of that name.
[[nodiscard]] Error WriteNewFile(const std::string& path, std::string_view bytes,
                                 FileClaim* claim = nullptr);

// Makes the folder for its user alone, and those that it lies in as the user's mask says.
[[nodiscard]] Error MakeFolder(const std::string& path);

// The names of the ordinary files of a folder in any order, no links; none of a folder that cannot
// be read.
std::vector<std::string> FilesIn(const std::string& folder);

// Why they cannot be told; nothing for a folder that is not there yet.
Error FolderTrouble(const std::string& folder);

// How long a file is; 0 where there is none.
std::uintmax_t FileBytes(const std::string& path);

[[nodiscard]] Error RemoveFile(const std::string& path);

// A file that grows beyond its limit, or a pipe whose reader has gone, is an error like others from
// now on and does not end the program. No file gets the number of a standard stream that is closed:
// what the program says would be written into it. Each program calls this at its start.
void SurviveFailedWrites();

// Held while a file is read, changed and written: of several programs that do so at once, each sees
// what the one before it has written. Where the system has no locks, nothing is held.
class FileLock {
  public:
    FileLock();
    ~FileLock();

    // Waits for its turn, 10 seconds at most. A file that does not exist yet can be locked too.
    [[nodiscard]] Error Take(const std::string& path);

  private:
    struct Held;
    std::unique_ptr<Held> held_;
};

bool FileExists(const std::string& path);

// File names compare without regard to letter case. Where `path` does not exist and exactly one
// file of its folder differs from it in letter case only, that file's path; otherwise `path`.
std::string FileMeantBy(const std::string& path);

}  // namespace varno
