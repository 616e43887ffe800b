// A ticket block on the line: what is sent, what is collected, and how far it is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varno {

// Whole percents of an image that so many characters are; above 100 for a text that is longer.
int ProgressPercent(std::size_t characters);

// What to start in the indicator.
inline constexpr const char* StartTransmission =
    "Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)";
inline constexpr const char* StartCapturing =
    "Start TICKET BUFFER CAPTURING in Varno (parameter 78)";

std::string ReceivingText(int percent);
std::string TransmittingText(int percent);

// What a download sends, piece by piece: the image by its characters, then the fill behind it that
// the indicator expects.
class OutgoingBlock {
  public:
    explicit OutgoingBlock(std::string image) : image_(std::move(image)) {}

    bool AtEnd() const { return piece_ == image_.size() + FillPieces; }
    bool InImage() const { return piece_ < image_.size(); }

    // The piece that is due.
    std::string_view Piece() const;
    // Of the image, this piece included.
    int Percent() const;
    void Next() { ++piece_; }

  private:
    static constexpr std::size_t FillPieces = 181;

    std::string image_;
    std::size_t piece_ = 0;
};

// What an upload collects from the chunks that arrive.
class IncomingBlock {
  public:
    struct Step {
        int percent;    // collected before this chunk
        bool complete;  // the image of this upload, and a character behind it
    };

    // An image: its ":" is in the chunk. What was collected before will be forgotten.
    static bool Begins(std::string_view chunk) { return chunk.find(':') != std::string_view::npos; }

    // Adds the chunk to `image`, which may hold an older one until a ":" arrives, and which becomes
    // longer than an image by what the last chunk holds too much.
    Step Take(std::string_view chunk, std::string& image);

  private:
    bool begun_ = false;
};

}  // namespace varno
