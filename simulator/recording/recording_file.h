// The file of a recording. Under its name it is there whole or not at all: it is written beside its name first.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace wendrill::recording {

class RecordingFile {
 public:
  // Raises 58 when the file exists, and 75 when it cannot be written there.
  explicit RecordingFile(std::filesystem::path file);

  // Writes the file; what it wrote before is replaced. Empty when that has succeeded, else why not, as long as this
  // object lives. What somebody else has written meanwhile stays.
  std::u16string_view Write(std::string_view text);

 private:
  bool WritePart(std::string_view text);
  void RemovePart();

  std::filesystem::path file_;
  std::filesystem::path part_;
  std::u16string existsAlready_;  // sentences
  std::u16string cannotBeWritten_;
  bool isOurs_ = false;  // it was written before
};

}  // namespace wendrill::recording
