// The file beside a file that is being saved.
#pragma once

#include <sys/types.h>

#include <string>

#include "platform/descriptor_posix.h"

namespace varno {

// A new file that nobody else opens: its name is random, and it is never reached through a link.
// It goes with its object. While the object lives the file is locked; so one without a lock was
// left behind by a program that was killed.
class TemporaryFile {
  public:
    // `folder` is an open folder, `prefix` the beginning of the name, by which what is left behind
    // for one file is found. errno tells why a file is not open.
    TemporaryFile(int folder, const std::string& prefix, mode_t rights);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool IsOpen() const { return static_cast<bool>(file_); }
    int Handle() const { return *file_; }
    // Keeps the lock when the object has gone.
    Descriptor LockedHandle() const;
    const std::string& Name() const { return name_; }

    bool MoveTo(const std::string& name);     // in the same folder, over what is there
    bool MoveToNew(const std::string& name);  // in the same folder, over nothing
    void Keep() { name_.clear(); }

  private:
    int folder_;
    std::string name_;  // empty when it is not to be removed
    Descriptor file_;
};

// Locks an open file; false if another program has the lock. A system without locks is taken for
// having given it.
bool TakeLock(int file);

// Whether the open file has not been removed.
bool HasName(int file);

// Removes the files of that prefix which no living program has.
void RemoveLeftovers(int folder, const std::string& prefix);

}  // namespace varno
