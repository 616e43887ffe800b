// A practice desk: the program with settings, history and serial ports of its own, in a folder that
// goes when the program and this process have ended, whichever way.
#pragma once

#include <string>

#include "platform/descriptor_posix.h"
#include "platform/design.h"
#include "practice/desk_folder.h"
#include "practice/keeper.h"

namespace varno {

// On the screen, in twips: the indicator has room at the right.
inline constexpr Place ProgramPlace{150, 150, 7725, 8400};

class Desk {
  public:
    // Throws std::system_error, as does Start. To be made before there are threads or windows.
    Desk() : folder_(MakeDeskFolder()), keeper_(folder_.path) {}
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    std::string PortsFolder() const;  // where the program looks for the numbering of ports

    // Starts the program on a block file, at this serial port. If this process is killed, the
    // program is asked to end.
    void Start(const std::string& program, const std::string& block, int port);
    int ProgramEnd() const { return *programEnd_; }  // a descriptor with input once it has ended
    // What its user has not saved it asks about.
    void AskProgramToEnd() const;
    bool ProgramHasEnded();

  private:
    DeskFolder folder_;
    Keeper keeper_;
    pid_t program_ = -1;  // -1 before its start and after its end
    Descriptor programEnd_;
};

}  // namespace varno
