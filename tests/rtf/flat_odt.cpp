#include "tests/rtf/flat_odt.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "codec/utf8.h"

namespace varno {
namespace {

// What one style says of its characters, and the style that says the rest.
struct Style {
    std::string parent;
    std::optional<Colour> colour;
    std::optional<bool> bold, italic, underline, strikeThrough;
};

std::string Unescaped(std::string text) {
    const std::pair<std::string_view, std::string_view> entities[] = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}};
    for (const auto& [entity, character] : entities) {
        for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; ++at) {
            text.replace(at, entity.size(), character);
        }
    }
    return text;
}

// One start tag, end tag or stretch of text after the other.
struct Element {
    std::string name;  // empty: text; "/name": end
    std::string text;
    bool closed = false;

    std::string Attribute(const std::string& attribute) const {
        const std::size_t at = text.find(" " + attribute + "=\"");
        if (at == std::string::npos) {
            return {};
        }
        const std::size_t begin = at + attribute.size() + 3;
        return Unescaped(text.substr(begin, text.find('"', begin) - begin));
    }
};

Element NextElement(std::string_view& xml) {
    Element element;
    const bool tag = xml.front() == '<';
    const std::size_t end = std::min(xml.find(tag ? '>' : '<'), xml.size());
    element.text = xml.substr(tag ? 1 : 0, end - (tag ? 1 : 0));
    xml.remove_prefix(std::min(end + (tag ? 1 : 0), xml.size()));
    if (tag) {
        element.closed = element.text.ends_with('/');
        element.name = element.text.substr(0, element.text.find_first_of(" /", 1));
    }
    return element;
}

class FlatOdt {
  public:
    MarkedText Read(std::string_view xml) {
        while (!xml.empty()) {
            const Element element = NextElement(xml);
            if (element.name.empty()) {
                Add(Unescaped(element.text));
            } else if (element.name.starts_with("style:")) {
                ReadStyle(element);
            } else {
                ReadContent(element);
            }
        }
        return text_;
    }

  private:
    void ReadStyle(const Element& element) {
        if (element.name == "style:style" || element.name == "style:default-style") {
            current_ = element.Attribute("style:name");
            current_ += current_.empty() ? element.Attribute("style:family") : "";
            styles_[current_] = {element.Attribute("style:parent-style-name"), {}, {}, {}, {}, {}};
        } else if (element.name == "style:text-properties") {
            Style& style = styles_[current_];
            if (const std::string colour = element.Attribute("fo:color"); !colour.empty()) {
                const unsigned long rgb = std::stoul(colour.substr(1), nullptr, 16);
                style.colour = static_cast<Colour>((rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16);
            }
            Take(style.bold, element.Attribute("fo:font-weight"), "normal");
            Take(style.italic, element.Attribute("fo:font-style"), "normal");
            Take(style.underline, element.Attribute("style:text-underline-style"), "none");
            Take(style.strikeThrough, element.Attribute("style:text-line-through-style"), "none");
        }
    }

    static void Take(std::optional<bool>& field, const std::string& value, const char* off) {
        if (!value.empty()) {
            field = value != off;
        }
    }

    void ReadContent(const Element& element) {
        const bool paragraph = element.name == "text:p" || element.name == "text:h";
        if (paragraph && !first_) {
            text_.Append(LineBreak, {});
        }
        if (paragraph || element.name == "text:span") {
            first_ = false;
            if (!element.closed) {
                formats_.push_back(Applied(formats_.empty() ? CharFormat{} : formats_.back(),
                                           element.Attribute("text:style-name")));
            }
        } else if (element.name == "/text:p" || element.name == "/text:h" ||
                   element.name == "/text:span") {
            formats_.pop_back();
        } else if (element.name == "text:s") {
            const std::string count = element.Attribute("text:c");
            Add(std::string(count.empty() ? 1 : std::stoul(count), ' '));
        } else if (element.name == "text:tab") {
            Add("\t");
        } else if (element.name == "text:line-break") {
            text_.Append(LineBreak, {});
        }
    }

    CharFormat Applied(CharFormat format, const std::string& name) const {
        const auto found = styles_.find(name);
        if (found == styles_.end()) {
            return format;
        }
        const Style& style = found->second;
        format = Applied(format, style.parent);
        return {style.colour.value_or(format.colour), style.bold.value_or(format.bold),
                style.italic.value_or(format.italic), style.underline.value_or(format.underline),
                style.strikeThrough.value_or(format.strikeThrough)};
    }

    void Add(const std::string& utf8) {
        if (!formats_.empty()) {
            text_.Append(FromUtf8(utf8), formats_.back());
        }
    }

    MarkedText text_;
    std::map<std::string, Style> styles_;
    std::string current_;              // the style being read
    std::vector<CharFormat> formats_;  // of the paragraph and the spans around; empty: outside
    bool first_ = true;
};

}  // namespace

MarkedText ReadFlatOdt(std::string_view xml) {
    return FlatOdt().Read(xml);
}

}  // namespace varno
