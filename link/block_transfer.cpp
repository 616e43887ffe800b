#include "link/block_transfer.h"

#include <algorithm>
#include <cmath>

#include "block/image.h"

namespace varno {

int ProgressPercent(std::size_t characters) {
    constexpr double percentPerCharacter = 100.0 / static_cast<double>(ImageLength);
    return static_cast<int>(std::floor(percentPerCharacter * static_cast<double>(characters)));
}

std::string ReceivingText(int percent) {
    return "Receiving ticket buffer from Varno ... " + std::to_string(percent) + "%";
}

std::string TransmittingText(int percent) {
    return "Transmitting ticket block to Varno ... " + std::to_string(percent) + "%";
}

std::string_view OutgoingBlock::Piece() const {
    return InImage() ? std::string_view(image_).substr(piece_, 1) : "FF";
}

int OutgoingBlock::Percent() const {
    return ProgressPercent(std::min(piece_ + 1, image_.size()));
}

IncomingBlock::Step IncomingBlock::Take(std::string_view chunk, std::string& image) {
    if (Begins(chunk)) {
        begun_ = true;
        image.clear();
        chunk.remove_prefix(chunk.find(':'));
    }
    const std::size_t before = image.size();
    if (before < ImageLength) {
        image += chunk;
    }
    // Any character behind the image says that it is complete. It may come in the chunk that ends
    // the image, and nothing more may come after it.
    return {ProgressPercent(before), begun_ && before + chunk.size() > ImageLength};
}

}  // namespace varno
