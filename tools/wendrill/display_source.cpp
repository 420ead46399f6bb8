#include "display_source.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <utility>

#include "common/text.h"
#include "rapidjson/memorystream.h"
#include "rapidjson/reader.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace wendrill::tool {
namespace {

constexpr std::size_t kMostRows = 32767;
constexpr std::size_t kMostBytes = 16 << 20;  // the maximum size of a line, and that of a display
constexpr std::string_view kHeaderMark = "RP/";
constexpr std::string_view kStatusMark = "---";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string JsonOf(const std::string& text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string_view WithoutBlanksAtEnd(std::string_view row) {
  return row.substr(0, row.find_last_not_of(" \r") + 1);
}

bool IsAscii(std::string_view bytes) {
  unsigned char all = 0;
  for (const char byte : bytes) {
    all = static_cast<unsigned char>(all | static_cast<unsigned char>(byte));
  }
  return all < 0x80;
}

// Appends the bytes to the text as UTF-16. Returns false for bytes that are not valid UTF-8; the text then ends with
// replacement characters.
bool AppendUtf16(std::u16string& text, std::string_view bytes) {
  if (IsAscii(bytes)) {
    const std::size_t before = text.size();
    text.resize(before + bytes.size());
    char16_t* to = text.data() + before;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      to[i] = static_cast<unsigned char>(bytes[i]);
    }
    return true;
  }
  const std::u16string converted = FromUtf8(bytes);
  text.append(converted);
  return ToUtf8(converted) == bytes;  // the conversion turns invalid UTF-8 into replacement characters
}

// The offset of the first CR or LF; the size of the text when the text has neither.
std::size_t EndOfLine(std::string_view text) {
  const auto lineFeed = std::min(text.find('\n'), text.size());
  return std::min(text.substr(0, lineFeed).find('\r'), lineFeed);
}

// Whether the line must be several rows of 80 columns that no line break separates: the line is longer than two rows,
// or it is longer than one row and its length is a multiple of 80.
bool IsUnbroken(std::string_view line) {
  return line.size() > 2 * kRowWidth || (line.size() > kRowWidth && line.size() % kRowWidth == 0);
}

// The rows of a display, without blank rows at the end. A text without line breaks is cut into rows of 80 columns.
std::vector<std::string_view> RowsOf(std::string_view text) {
  std::vector<std::string_view> rows;
  const bool isBroken = EndOfLine(text) < text.size();
  while (!text.empty()) {
    const std::size_t end = isBroken ? EndOfLine(text) : kRowWidth;
    rows.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end, text.size()));
    if (isBroken && !text.empty()) {
      text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    }
  }
  while (!rows.empty() && WithoutBlanksAtEnd(rows.back()).empty()) {
    rows.pop_back();
  }
  return rows;
}

std::optional<Unreadable> AppendRows(std::u16string& display, std::string_view text) {
  const bool isBroken = EndOfLine(text) < text.size();
  if (!isBroken && !IsAscii(text)) {
    // A column is a character, not a byte. Text that is not ASCII is therefore converted whole, without cutting it into
    // rows here; the library cuts the converted text.
    return AppendUtf16(display, text) ? std::nullopt : std::optional(Unreadable{1, u"the text is not UTF-8"});
  }
  std::int32_t number = 0;
  const std::vector<std::string_view> rows = RowsOf(text);
  if (rows.size() > kMostRows) {
    return Unreadable{0, u"the display has more than 32,767 rows"};
  }
  display.reserve(rows.size() * kRowWidth);
  for (const std::string_view row : rows) {
    ++number;
    const std::size_t begin = display.size();
    if (!AppendUtf16(display, WithoutBlanksAtEnd(row))) {
      return Unreadable{number, u"the row is not UTF-8"};
    }
    const std::size_t width = display.size() - begin;
    if (width > kRowWidth) {
      return Unreadable{number, u"the row has " + DecimalText(static_cast<std::int64_t>(width)) +
                                    u" characters, a display 80 columns"};
    }
    display.resize(begin + kRowWidth, kBlank);
  }
  return std::nullopt;
}

// The SAX handler of one line of JSON. Keeps the values of "id" and "display" of the outermost object and no others:
// building a tree of all values would take a fifth of the total time for a display. Of a key that occurs twice, the
// last value counts.
class LineHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, LineHandler> {
 public:
  bool Null() { return Scalar("null"); }
  bool Bool(bool value) { return Scalar(value ? "true" : "false"); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool /*copied*/) { return Scalar({text, size}); }
  bool String(const char* text, rapidjson::SizeType size, bool /*copied*/) {
    if (depth_ == 1 && key_ == "display") {
      display.emplace(text, size);
    } else if (depth_ == 1 && key_ == "id") {
      Replace(JsonOf({text, size}), false);
    }
    return true;
  }
  bool Key(const char* text, rapidjson::SizeType size, bool /*copied*/) {
    if (depth_ == 1) {
      key_.assign(text, size);
    }
    return true;
  }
  bool StartObject() { return Begin(true); }
  bool EndObject(rapidjson::SizeType /*members*/) { return End(); }
  bool StartArray() { return Begin(false); }
  bool EndArray(rapidjson::SizeType /*elements*/) { return End(); }

  bool isObject = false;
  std::optional<std::string> id;  // the value of "id" as JSON; empty when the value is an array or an object
  bool idIsTree = false;          // whether the value of "id" is an array or an object
  std::optional<std::string> display;

 private:
  bool Scalar(std::string_view json) {
    if (depth_ == 1) {
      Replace(std::string(json), false);
    }
    return true;
  }
  bool Begin(bool object) {
    if (depth_ == 0) {
      isObject = object;
    } else if (depth_ == 1) {
      Replace({}, true);
    }
    ++depth_;
    return true;
  }
  bool End() {
    --depth_;
    return true;
  }
  void Replace(std::string json, bool isTree) {
    if (key_ == "display") {
      display.reset();
    } else if (key_ == "id") {
      id = std::move(json);
      idIsTree = isTree;
    }
  }

  int depth_ = 0;
  std::string key_;  // the current key of the outermost object
};

void ReadJsonLine(const std::string& line, ReadyDisplay& ready) {
  // The parser is iterative, so that deeply nested values do not overflow the stack. Numbers are kept as written.
  constexpr unsigned kFlags =
      rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag | rapidjson::kParseNumbersAsStringsFlag;
  rapidjson::Reader reader;
  rapidjson::MemoryStream stream(line.data(), line.size());
  LineHandler found;
  // The parser takes a NUL character for the end of the line, so the position after parsing is compared too.
  const bool isWhole = !reader.Parse<kFlags>(stream, found).IsError() && stream.Tell() == line.size();
  if (!isWhole || !found.isObject) {
    ready.error = Unreadable{0, u"the line is no object of JSON"};
    return;
  }
  if (found.id) {
    ready.id = found.idIsTree ? nlohmann::json::parse(line).at("id").dump() : std::move(*found.id);
  }
  if (!found.display) {
    ready.error = Unreadable{0, u"the object has no string \"display\""};
    return;
  }
  ready.error = AppendRows(ready.text, *found.display);
}

void AddFiles(const std::filesystem::path& path, std::vector<std::string>& files) {
  std::error_code error;
  if (!std::filesystem::is_directory(path, error)) {
    files.push_back(path.string());
    return;
  }
  std::vector<std::filesystem::path> entries;
  for (std::filesystem::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
    const bool isHidden = entry->path().filename().string().starts_with('.');
    if (!isHidden && (entry->is_directory(error) || entry->is_regular_file(error))) {
      entries.push_back(entry->path());
    }
  }
  std::ranges::sort(entries);
  for (const auto& entry : entries) {
    AddFiles(entry, files);
  }
}

}  // namespace

// The lines of a file. A line of more than kMostBytes is cut, and the rest of that line is dropped.
class DisplaySource::Lines {
 public:
  Lines(std::FILE* file, bool isOwned, std::atomic<std::uint64_t>& taken)
      : file_(file), isOwned_(isOwned), taken_(taken) {
    Fill();
    if (std::string_view(buffer_.data(), end_).starts_with(kByteOrderMark)) {
      begin_ = kByteOrderMark.size();
    }
  }
  ~Lines() {
    if (isOwned_) {
      std::fclose(file_);
    }
  }
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;

  // The first character in the buffer that is neither a blank, a tab nor a line break; NUL when there is none. Call it
  // before the first Next.
  char FirstCharacter() const {
    const std::string_view start(buffer_.data() + begin_, end_ - begin_);
    const std::size_t at = start.find_first_not_of(" \t\r\n");
    return at == std::string_view::npos ? '\0' : start[at];
  }

  // Stores the next line without its line break. Returns false after the last line.
  bool Next(std::string& line) {
    line.clear();
    isCut_ = false;
    bool isLine = false;
    bool ends = false;
    while (!ends && Fill()) {
      isLine = true;
      const char* from = buffer_.data() + begin_;
      const auto* lineBreak = static_cast<const char*>(std::memchr(from, '\n', end_ - begin_));
      ends = lineBreak != nullptr;
      const std::size_t length = ends ? static_cast<std::size_t>(lineBreak - from) : end_ - begin_;
      const std::size_t kept = std::min(length, kMostBytes - line.size());
      isCut_ = isCut_ || kept < length;
      line.append(from, kept);
      begin_ += length + (ends ? 1 : 0);
    }
    if (line.ends_with('\r')) {
      line.pop_back();
    }
    return isLine;
  }

  bool IsCut() const { return isCut_; }

 private:
  bool Fill() {
    if (begin_ < end_) {
      return true;
    }
    begin_ = 0;
    end_ = isAtEnd_ ? 0 : std::fread(buffer_.data(), 1, buffer_.size(), file_);
    isAtEnd_ = end_ == 0;
    taken_ += end_;
    return end_ > 0;
  }

  std::FILE* file_;
  bool isOwned_;
  std::atomic<std::uint64_t>& taken_;
  std::array<char, 1 << 16> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool isAtEnd_ = false;
  bool isCut_ = false;
};

DisplaySource::DisplaySource(const std::vector<std::string>& paths, InputForm form) : form_(form) {
  bool sizeIsKnown = true;
  for (const std::string& path : paths) {
    if (path == "-") {
      files_.push_back(path);
      sizeIsKnown = false;
    } else {
      AddFiles(path, files_);
    }
  }
  for (const std::string& file : files_) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    inAll_ += sizeIsKnown && !error ? size : 0;
  }
  if (!sizeIsKnown) {
    inAll_ = 0;
  }
}

DisplaySource::~DisplaySource() = default;

bool DisplaySource::OpenNext() {
  lines_.reset();
  if (nextFile_ == files_.size()) {
    return false;
  }
  name_ = files_[nextFile_++];
  ordinal_ = 0;
  hasHeader_ = afterBlank_ = false;
  std::FILE* file = nullptr;
  const bool isStandardInput = name_ == "-";
  if (isStandardInput) {
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
#endif
    file = stdin;
  } else {
    file = std::fopen(name_.c_str(), "rb");
  }
  if (file == nullptr) {
    unopened_ = FoundDisplay{JsonOf(name_), {}, false, Unreadable{0, u"the file cannot be opened"}};
    return true;
  }
  lines_ = std::make_unique<Lines>(file, !isStandardInput, taken_);
  isJson_ = form_ == InputForm::JsonLines || (form_ == InputForm::Auto && lines_->FirstCharacter() == '{');
  return true;
}

std::optional<FoundDisplay> DisplaySource::Next() {
  for (;;) {
    if (lines_ != nullptr) {
      if (auto found = isJson_ ? NextOfJson() : NextOfText()) {
        return found;
      }
    }
    if (!OpenNext()) {
      return std::nullopt;
    }
    if (unopened_) {
      return std::exchange(unopened_, std::nullopt);
    }
  }
}

std::optional<FoundDisplay> DisplaySource::NextOfJson() {
  std::string line;
  while (lines_->Next(line)) {
    ++ordinal_;
    if (line.find_first_not_of(" \t\r") == std::string::npos) {
      continue;
    }
    FoundDisplay found{JsonOf(name_ + "#" + std::to_string(ordinal_)), {}, true, std::nullopt};
    if (lines_->IsCut()) {
      found.error = Unreadable{0, u"the line has more than 16 million bytes"};
    } else {
      found.content = std::move(line);
    }
    return found;
  }
  return std::nullopt;
}

FoundDisplay DisplaySource::Finished() {
  FoundDisplay found{JsonOf(name_ + "#" + std::to_string(++ordinal_)), std::move(content_), false, std::nullopt};
  if (tooLong_) {
    found.error = Unreadable{0, u"the display has more than 32,767 rows or 16 million bytes"};
    found.content.clear();
  }
  content_.clear();
  rows_ = 0;
  hasHeader_ = afterBlank_ = tooLong_ = false;
  return found;
}

std::optional<FoundDisplay> DisplaySource::NextOfText() {
  std::string line;
  bool hasText = false;
  for (;;) {
    if (ahead_) {
      line = std::move(*ahead_);
      ahead_.reset();
    } else if (!lines_->Next(line)) {
      break;
    }
    const bool endsPage = line.starts_with('\f');
    if (endsPage) {
      line.erase(0, 1);
    }
    const std::string_view row = WithoutBlanksAtEnd(line);
    const bool isHeader = row.starts_with(kHeaderMark);
    const bool isUnbroken = IsUnbroken(line) && (isHeader || row.starts_with(kStatusMark));
    const bool begins = afterBlank_ && (isHeader || (hasHeader_ && row.starts_with(kStatusMark)));
    if (hasText && (endsPage || begins || isUnbroken)) {
      ahead_ = std::move(line);
      return Finished();
    }
    afterBlank_ = row.empty();
    if (row.empty() && !hasText) {
      continue;  // blank rows before a display are not part of it
    }
    hasText = true;
    hasHeader_ = hasHeader_ || isHeader;
    tooLong_ = tooLong_ || lines_->IsCut() || rows_ >= kMostRows || content_.size() > kMostBytes;
    if (isUnbroken && !tooLong_) {
      content_ = line;
      return Finished();
    }
    if (!tooLong_) {
      ++rows_;
      content_.append(row).push_back('\n');
    }
  }
  return hasText ? std::optional(Finished()) : std::nullopt;
}

ReadyDisplay Prepared(FoundDisplay found) {
  ReadyDisplay ready{std::move(found.id), {}, std::move(found.error)};
  if (ready.error) {
    return ready;
  }
  if (found.isJson) {
    ReadJsonLine(found.content, ready);
  } else {
    ready.error = AppendRows(ready.text, found.content);
  }
  return ready;
}

}  // namespace wendrill::tool
