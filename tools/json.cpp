#include "tools/json.h"

#include <cstdio>

#include "codec/utf8.h"

namespace varno {
namespace {

template <class Items, class TextOf>
std::string Array(const Items& items, TextOf textOf) {
    std::string list;
    for (const auto& item : items) {
        list += (list.empty() ? "" : ",") + textOf(item);
    }
    return "[" + list + "]";
}

}  // namespace

std::string Json(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : ToUtf8(FromUtf8(text))) {  // names of files may be no UTF-8
        if (static_cast<unsigned char>(c) < ' ') {
            char code[sizeof "\\u0000"];
            std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(c));
            quoted += code;
        } else {
            quoted += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        }
    }
    return quoted + '"';
}

std::string Json(const std::vector<std::string>& texts) {
    return Array(texts, [](const std::string& text) { return Json(text); });
}

std::string Json(const std::vector<int>& numbers) {
    return Array(numbers, [](int number) { return std::to_string(number); });
}

JsonObject& JsonObject::Add(std::string_view name, const std::vector<JsonObject>& objects) {
    return Put(name, Array(objects, [](const JsonObject& object) { return object.Text(); }));
}

JsonObject& JsonObject::Put(std::string_view name, const std::string& value) {
    members_ += (members_.empty() ? "" : ",") + Json(name) + ":" + value;
    return *this;
}

}  // namespace varno
