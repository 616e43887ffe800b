#include "practice/line_text.h"

namespace varno {
namespace {

std::string FaultText(const Line& line) {
    switch (line.Armed()) {
        case Line::Fault::Cut:
            return "; the cable will be pulled";
        case Line::Fault::Stall:
            return line.IsStalled() ? "; the line stands still" : "; the line will stand still";
        case Line::Fault::Damage:
            return "; a character will be damaged";
        case Line::Fault::None:
            break;
    }
    return "";
}

}  // namespace

std::string LineText(const Station& station, int port) {
    const std::string name = "COM" + std::to_string(port);
    if (!station.IsPlugged()) {
        return name + ": the cable is unplugged";
    }
    const Line& line = station.Wire();
    const std::string speed =
        line.Speed() == 0 ? "at full speed" : "at " + std::to_string(line.Speed()) + " baud";
    return name + " " + speed + (station.HasProgram() ? ", opened by the program" : ", not open") +
           FaultText(line);
}

}  // namespace varno
