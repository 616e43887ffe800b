// A copy in the history as a value, and the file name that tells it:
//
//   20261123T073849123Z_uploaded-COM3_Shop1.VRB
//   time (UTC)          cause    port name  kind
//
// Only a transfer has a port. Names of blocks and tickets may be empty. A character that a file
// name cannot have stands as "%" and two hexadecimal digits.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace varno {

// What happened after the copy was made, or had happened before.
enum class Cause {
    Unsaved,  // nothing yet; of a program that is gone: lost work
    Working,
    Delete,
    Put,
    Edit,
    Open,
    Close,
    Save,
    Upload,
    Uploaded,
    Download,
    Downloaded
};

// A block file or a ticket file, each as the program saves it.
enum class CopyKind { Block, Ticket };

using CopyTime = std::chrono::sys_time<std::chrono::milliseconds>;

// Of the time that a file name begins with.
inline constexpr std::size_t CopyTimeLength = 19;

struct Copy {
    CopyTime time{};
    Cause cause = Cause::Unsaved;
    std::string port{};  // "COM3", or empty
    std::string name{};  // of the block or ticket; a long one is cut in the file name
    CopyKind kind = CopyKind::Block;

    bool operator==(const Copy&) const = default;
};

std::string FileNameOf(const Copy& copy);

// Nothing for the name of a file that is no copy.
std::optional<Copy> CopyOfName(std::string_view fileName);

// What happened, for the operator: "Before a ticket was deleted".
std::string_view CauseText(Cause cause);

}  // namespace varno
