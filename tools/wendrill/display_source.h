// Finds the displays in files, folders and standard input, one after another: memory does not grow with the input.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "records.h"

namespace wendrill::tool {

enum class InputForm { Auto, Text, JsonLines };

// What was found, unread: the rows of a display as the file has them, or a line of JSON.
struct FoundDisplay {
  std::string id;  // JSON: of a text the file and a number from 1, of a line of JSON the file and the line
  std::string content;
  bool isJson = false;
  std::optional<Unreadable> error;  // the content could not be taken
};

// A display ready to be read: rows of 80 columns without breaks.
struct ReadyDisplay {
  std::string id;
  std::u16string text;
  std::optional<Unreadable> error;
};

// Checks and converts the content: UTF-8, no row wider than 80 columns, and of a line of JSON the keys "id" and
// "display".
ReadyDisplay Prepared(FoundDisplay found);

// The displays of all paths in order. In a text a display ends at a form feed, and before a row that begins with "RP/"
// after a blank row; a line of several rows of 80 columns without a break is a display of its own. Used by one thread
// at a time.
class DisplaySource {
 public:
  // Paths of files and folders; "-" is standard input. A folder gives its files, in the order of their names, and those
  // of its folders; names that begin with a point are left out.
  DisplaySource(const std::vector<std::string>& paths, InputForm form);
  ~DisplaySource();
  DisplaySource(const DisplaySource&) = delete;
  DisplaySource& operator=(const DisplaySource&) = delete;

  // Nothing after the last display.
  std::optional<FoundDisplay> Next();

  // For the progress: how much of how many bytes has been taken; 0 of all where the size is not known.
  std::uint64_t BytesTaken() const { return taken_; }
  std::uint64_t BytesInAll() const { return inAll_; }

 private:
  class Lines;

  bool OpenNext();
  std::optional<FoundDisplay> NextOfText();
  std::optional<FoundDisplay> NextOfJson();
  FoundDisplay Finished();

  std::vector<std::string> files_;
  std::size_t nextFile_ = 0;
  InputForm form_;
  bool isJson_ = false;  // of the file that is being read
  std::string name_;
  std::unique_ptr<Lines> lines_;
  std::optional<FoundDisplay> unopened_;  // the error of a file that could not be opened

  // The display that is being collected.
  std::string content_;
  std::int64_t ordinal_ = 0;  // of the display, or of the line of JSON
  std::size_t rows_ = 0;
  bool hasHeader_ = false;
  bool afterBlank_ = false;
  bool tooLong_ = false;
  std::optional<std::string> ahead_;  // the first row of the next display

  std::atomic<std::uint64_t> taken_ = 0;
  std::uint64_t inAll_ = 0;
};

}  // namespace wendrill::tool
