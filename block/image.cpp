#include "block/image.h"

#include <array>
#include <cstdint>
#include <utility>

namespace varno {

namespace {

// One step of the checksum for each value of a byte: reflected polynomial 0xA001.
constexpr std::array<std::uint16_t, 256> CrcTable = [] {
    std::array<std::uint16_t, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
        }
        table[byte] = static_cast<std::uint16_t>(crc);
    }
    return table;
}();

}  // namespace

Word WordAt(std::string_view image, std::size_t position) {
    return static_cast<Word>(HexAt(image, position - 1, WordDigits));
}

int WordClassAt(std::string_view image, std::size_t position) {
    return ClassOf(WordAt(image, position));
}

int WordValueAt(std::string_view image, std::size_t position) {
    return ValueOf(WordAt(image, position));
}

std::vector<Word> WordsOf(std::string_view image) {
    std::vector<Word> words;
    words.reserve(image.size() / WordDigits);
    for (std::size_t p = FirstWord; p <= image.size(); p += WordDigits) {
        words.push_back(WordAt(image, p));
    }
    return words;
}

std::size_t FindEndMarker(std::string_view image) {
    for (std::size_t p = FirstWord; p <= image.size(); p += WordDigits) {
        if (WordClassAt(image, p) == EndMarkerClass) {
            return p;
        }
    }
    return 0;
}

bool IsImage(std::string_view image) {
    return image.size() >= ImageLength && image.front() == ':';
}

std::string BufferCrc(std::string_view hexText) {
    unsigned crc = 0xFFFF;
    for (std::size_t i = 0; i < hexText.size(); i += 2) {
        crc = (crc >> 8U) ^ CrcTable[(crc ^ HexAt(hexText, i, 2)) & 0xFFU];
    }
    return WordHex(static_cast<Word>(crc));
}

std::string NewTicketBuffer() {
    return SealTicketBuffer(WordHex(EndMarker));
}

std::string SealTicketBuffer(std::string memoryText) {
    if (memoryText.size() < MemoryDigits) {
        memoryText.resize(MemoryDigits, '0');
    }
    const std::string crc = BufferCrc(memoryText);
    return ":" + std::move(memoryText) + "00" + crc;
}

}  // namespace varno
