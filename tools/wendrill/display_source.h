// Finds the displays in files, folders and standard input, one after another. The memory used does not grow with the
// size of the input.
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

// A display as found in the input, not yet checked.
struct FoundDisplay {
  std::string id;       // a JSON string: "FILE#N". N is the number of the display in a text file, or the number of the
                        // line in a file of JSON Lines, counted from 1. "FILE" alone for a file that cannot be opened
  std::string content;  // the rows of a text display, or one line of JSON
  bool isJson = false;  // whether `content` is a line of JSON
  std::optional<Unreadable> error;  // the content is too large, or the file cannot be opened; `content` is empty then
};

// A display ready for RecordReader::Read.
struct ReadyDisplay {
  std::string id;       // JSON: the value of "id" in a line of JSON that has this key; else FoundDisplay::id
  std::u16string text;  // rows of 80 columns without line breaks
  std::optional<Unreadable> error;  // why the display cannot be read; nullopt when `text` is complete
};

// Checks the content of a found display and converts it to UTF-16. The content must be UTF-8, and no row may have more
// than 80 columns. A line of JSON must be an object with a string "display"; its "id" is optional.
ReadyDisplay Prepared(FoundDisplay found);

// Enumerates the displays of all paths in order. In a text, a form feed ends a display, and so does a blank row when
// the next row begins with "RP/". A line of several rows of 80 columns without line breaks is a display of its own.
// Not thread-safe: callers serialise their calls, except those of BytesTaken and BytesInAll.
class DisplaySource {
 public:
  // `paths` are files and folders; "-" is standard input. A folder is searched recursively, its entries in the order of
  // their names. Entries whose names begin with a dot are skipped.
  DisplaySource(const std::vector<std::string>& paths, InputForm form);
  ~DisplaySource();
  DisplaySource(const DisplaySource&) = delete;
  DisplaySource& operator=(const DisplaySource&) = delete;

  // The next display; nullopt after the last one.
  std::optional<FoundDisplay> Next();

  // For the progress bar: the bytes read so far, and the total size of all files. The total is 0 when the input
  // includes standard input, whose size is not known.
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
  bool isJson_ = false;  // whether the current file is read as JSON Lines
  std::string name_;
  std::unique_ptr<Lines> lines_;
  std::optional<FoundDisplay> unopened_;  // the error for a file that could not be opened, until Next returns it

  // The display whose rows are being collected.
  std::string content_;
  std::int64_t ordinal_ = 0;  // the number of the last display, or of the last line of JSON, in the current file
  std::size_t rows_ = 0;
  bool hasHeader_ = false;
  bool afterBlank_ = false;
  bool tooLong_ = false;
  std::optional<std::string> ahead_;  // the first row of the next display, when it has already been read

  std::atomic<std::uint64_t> taken_ = 0;
  std::uint64_t inAll_ = 0;
};

}  // namespace wendrill::tool
