// The file of a recording. Under its name it is there whole or not at all: it is written beside its name first. Where
// the recording cannot be written, a file beside it may say why: its name with ".error" at the end.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace wendrill::recording {

class RecordingFile {
 public:
  // Raises 58 when the file exists, and 75 when it cannot be written there. What an earlier recording of that name said
  // of a problem is removed.
  explicit RecordingFile(std::filesystem::path file);

  // Writes the file; what it wrote before is replaced. Empty when that has succeeded, else why not, as long as this
  // object lives. What somebody else has written meanwhile stays.
  std::u16string_view Write(std::string_view text);

  // Writes a sentence into the file beside it, until the recording is written or begun again.
  void TellProblem(std::u16string_view sentence) noexcept;

 private:
  bool WritePart(std::string_view text);
  void RemovePart();
  void RemoveProblem();

  std::filesystem::path file_;
  std::filesystem::path part_;
  std::filesystem::path problem_;

  // What the user reads when the file cannot be written.
  std::u16string existsAlready_;
  std::u16string cannotBeWritten_;

  bool isOurs_ = false;  // this object wrote the file before
};

}  // namespace wendrill::recording
