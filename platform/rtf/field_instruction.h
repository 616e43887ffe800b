// What a field of a rich-text document is to show: here, where a hyperlink leads.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varno {

// The target of an instruction HYPERLINK "address" \l "place" ...: "address", "address#place" or
// "#place". Nothing for any other instruction.
std::optional<std::u16string> HyperlinkTarget(std::u16string_view instruction);

}  // namespace varno
