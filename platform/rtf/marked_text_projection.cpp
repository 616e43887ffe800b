#include "platform/rtf/rtf_reader.h"

namespace varno {
namespace {

CharFormat FormatOf(const RtfStyle& style) {
    return {style.colour.value_or(TextColour), style.bold, style.italic, style.underline,
            style.strikeThrough};
}

// Each function adds a part and returns the format in which what follows it is separated from it.
class Projection {
  public:
    CharFormat Add(const std::vector<RtfBlock>& blocks) {
        return Join(blocks, LineBreak, [this](const RtfBlock& block) {
            return std::visit([this](const auto& content) { return Add(content); }, block.content);
        });
    }

    MarkedText Take() { return std::move(text_); }

  private:
    CharFormat Add(const RtfParagraph& paragraph) {
        for (const RtfRun& run : paragraph.runs) {
            text_.Append(run.text, FormatOf(run.style));
        }
        return FormatOf(paragraph.mark);
    }

    CharFormat Add(const RtfTable& table) {
        return Join(table.rows, LineBreak, [this](const RtfRow& row) {
            return Join(row.cells, u"\t", [this](const RtfCell& cell) { return Add(cell.blocks); });
        });
    }

    template <class Part, class AddPart>
    CharFormat Join(const std::vector<Part>& parts, std::u16string_view separator,
                    const AddPart& addPart) {
        CharFormat format;
        bool first = true;
        for (const Part& part : parts) {
            if (!first) {
                text_.Append(separator, format);
            }
            first = false;
            format = addPart(part);
        }
        return format;
    }

    MarkedText text_;
};

}  // namespace

MarkedText ToMarkedText(const RtfDocument& document) {
    Projection projection;
    projection.Add(document.blocks);
    return projection.Take();
}

}  // namespace varno
