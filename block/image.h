// The ticket buffer image: the indicator's ticket memory as text.
//
//   ":"  8000 hexadecimal digits (the memory: records, end marker, four key words, fill)  "00"  CRC
//
// Positions are 1-based; words begin at positions 2, 6, 10, ... An image read from elsewhere may
// hold anything and have any length. It reads all the same: a character that is not a hexadecimal
// digit counts as 0, and a word that the text cuts short is completed with 0.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "codec/word.h"

namespace varno {

inline constexpr std::size_t MemoryDigits = 8000;
inline constexpr std::size_t ImageLength = MemoryDigits + 7;
inline constexpr std::size_t FirstWord = 2;         // position of word 0
inline constexpr std::size_t EndMarkerDigits = 20;  // the end marker and its four key words
inline constexpr int RecordCapacity = 7980;         // digits that all records may take

// The word at a position, its class and its value.
Word WordAt(std::string_view image, std::size_t position);
int WordClassAt(std::string_view image, std::size_t position);
int WordValueAt(std::string_view image, std::size_t position);

// Every word from the first to the one that the text ends in, what follows the memory included.
std::vector<Word> WordsOf(std::string_view image);

// Position of the first end marker, or 0 if there is none.
std::size_t FindEndMarker(std::string_view image);

// Good enough to put a ticket into: ":" in front and not too short.
bool IsImage(std::string_view image);

// CRC-16/MODBUS of the bytes that the digits write, as four upper-case digits.
std::string BufferCrc(std::string_view hexText);

// The image of a memory without tickets.
std::string NewTicketBuffer();

// The image around a ticket memory, which is filled up to its full size. A memory that is longer
// (from a damaged file) keeps all its digits, so that tickets can be taken out until it fits.
std::string SealTicketBuffer(std::string memoryText);

}  // namespace varno
