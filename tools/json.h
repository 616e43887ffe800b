// Answers for scripts.
#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

std::string Json(std::string_view text);
std::string Json(const std::vector<std::string>& texts);
std::string Json(const std::vector<int>& numbers);

// The members in the order in which they are added.
class JsonObject {
  public:
    JsonObject& Add(std::string_view name, std::string_view text) { return Put(name, Json(text)); }
    JsonObject& Add(std::string_view name, const char* text) { return Put(name, Json(text)); }
    JsonObject& Add(std::string_view name, const std::vector<std::string>& texts) {
        return Put(name, Json(texts));
    }
    JsonObject& Add(std::string_view name, const std::vector<int>& numbers) {
        return Put(name, Json(numbers));
    }
    JsonObject& Add(std::string_view name, std::integral auto number) {
        return Put(name, std::to_string(number));
    }
    JsonObject& Add(std::string_view name, bool yes) { return Put(name, yes ? "true" : "false"); }
    JsonObject& Add(std::string_view name, const std::vector<JsonObject>& objects);

    std::string Text() const { return "{" + members_ + "}"; }

  private:
    JsonObject& Put(std::string_view name, const std::string& value);

    std::string members_;
};

}  // namespace varno
