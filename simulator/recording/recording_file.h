// Writes the file of a recording. The file is either complete or absent: the text is first written to a file with the
// recording's name and ".part" appended, and the ".part" file is then renamed to the recording's name. When the
// recording cannot be written, the reason can be written to a file with the recording's name and ".error" appended.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace wendrill::recording {

class RecordingFile {
 public:
  // Raises 58 (file already exists) when the file of the recording exists, and 75 (path or file access error) when no
  // file can be written at its path. Removes the ".error" file of an earlier recording of that name.
  explicit RecordingFile(std::filesystem::path file);

  // Writes the file, replacing the text of an earlier Write. Returns an empty text on success, else the reason for the
  // failure; the view is valid as long as this object exists. If another program has created the file before the first
  // Write, Write fails and leaves the other program's file unchanged. Throws std::bad_alloc when memory is short.
  std::u16string_view Write(std::string_view text);

  // Writes a sentence into the ".error" file. That file is removed when the recording is written, or when a new
  // recording of that name begins.
  void TellProblem(std::u16string_view sentence) noexcept;

 private:
  bool WritePart(std::string_view text);
  void RemovePart();
  void RemoveProblem();

  std::filesystem::path file_;
  std::filesystem::path part_;
  std::filesystem::path problem_;

  // The messages for the user when the file cannot be written.
  std::u16string existsAlready_;
  std::u16string cannotBeWritten_;

  bool isOurs_ = false;  // whether this object has written the file
};

}  // namespace wendrill::recording
