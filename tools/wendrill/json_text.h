// Writes JSON text. nlohmann/json, which the tool uses elsewhere, would first build a tree of all values; that takes
// longer than all other work on a display.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/text.h"

namespace wendrill::tool {

class JsonText {
 public:
  // The object appends to `text`. REQUIRES: `text` outlives the object.
  explicit JsonText(std::string& text) : text_(text) {}

  void Begin(char bracket) {
    Separate();
    text_.push_back(bracket);
    isFirst_ = true;
  }
  void End(char bracket) {
    text_.push_back(bracket);
    isFirst_ = false;
  }

  // REQUIRES: `key` contains no character that JSON escapes.
  void Key(std::string_view key) {
    Separate();
    text_.append(1, '"').append(key).append("\":");
    isFirst_ = true;
  }

  void String(TextView text);
  void Raw(std::string_view json) {  // appends a value that is already JSON
    Separate();
    text_.append(json);
  }
  void Whole(std::int64_t number) { Raw(std::to_string(number)); }
  void Flag(bool flag) { Raw(flag ? "true" : "false"); }
  void Null() { Raw("null"); }

  void Field(std::string_view key, TextView text) {
    Key(key);
    String(text);
  }

 private:
  void Separate() {
    if (!isFirst_) {
      text_.push_back(',');
    }
    isFirst_ = false;
  }

  std::string& text_;
  bool isFirst_ = true;  // whether the next key or value is written without a comma before it
};

}  // namespace wendrill::tool
