// Sees to it that a folder goes with those who work in it, however they end.
#pragma once

#include <sys/types.h>

#include <string>

#include "platform/descriptor_posix.h"

namespace varno {

// Has input once the process has ended; no descriptor if there is none of that number.
Descriptor OpenProcess(pid_t process);

// A process of its own, which waits for the one that made it, and for another program, and removes
// the folder then. To be made before there are threads or windows.
class Keeper {
  public:
    // Throws std::system_error.
    explicit Keeper(std::string folder);
    // Returns when the folder is removed, unless the program that it waits for still runs.
    ~Keeper();
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;

    void WaitForProgram(pid_t program);
    void ProgramHasEnded() { isProgramRunning_ = false; }

  private:
    std::string folder_;
    Descriptor word_;  // a pipe: the number of the program goes in; closed, we have ended
    pid_t process_ = -1;
    bool isProgramRunning_ = false;
};

}  // namespace varno
