#include "recording/recording_file.h"

#include <fstream>
#include <system_error>
#include <utility>

#include "common/error.h"
#include "common/text.h"

namespace wendrill::recording {
namespace {

constexpr std::int32_t kFileExists = 58;
constexpr std::int32_t kFileAccess = 75;
constexpr char kPartEnding[] = ".part";
constexpr char kProblemEnding[] = ".error";
constexpr std::u16string_view kSource = u"QuilletRecorder";

std::u16string Named(const std::filesystem::path& file) {
  return u"The recording \"" + file.u16string() + u"\"";
}

bool IsThere(const std::filesystem::path& file) {
  std::error_code unused;
  return std::filesystem::symlink_status(file, unused).type() != std::filesystem::file_type::not_found;
}

}  // namespace

// Builds the error messages already in the constructor, because memory may be short when a message is needed.
RecordingFile::RecordingFile(std::filesystem::path file)
    : file_(std::move(file)),
      part_(file_),
      problem_(file_),
      existsAlready_(Named(file_) + u" exists already."),
      cannotBeWritten_(Named(file_) + u" cannot be written.") {
  part_ += kPartEnding;
  problem_ += kProblemEnding;
  if (IsThere(file_)) {
    throw Error(kFileExists, std::u16string(kSource), existsAlready_);
  }
  if (!file_.has_filename() || !WritePart({})) {
    throw Error(kFileAccess, std::u16string(kSource), cannotBeWritten_);
  }
  RemovePart();
  RemoveProblem();
}

std::u16string_view RecordingFile::Write(std::string_view text) {
  if (!isOurs_ && IsThere(file_)) {
    return existsAlready_;
  }
  std::error_code failure;
  if (WritePart(text)) {
    std::filesystem::rename(part_, file_, failure);
    if (!failure) {
      isOurs_ = true;
      RemoveProblem();
      return {};
    }
  }
  RemovePart();
  return cannotBeWritten_;
}

void RecordingFile::TellProblem(std::u16string_view sentence) noexcept {
  try {
    std::ofstream(problem_, std::ios::binary | std::ios::trunc) << ToUtf8(sentence) << "\r\n";
  } catch (...) {  // memory is too short to write the file
  }
}

bool RecordingFile::WritePart(std::string_view text) {
  try {
    std::ofstream stream(part_, std::ios::binary | std::ios::trunc);
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    stream.close();
    return !stream.fail();
  } catch (...) {  // memory is too short to write the file
    RemovePart();
    throw;
  }
}

void RecordingFile::RemovePart() {
  std::error_code unused;
  std::filesystem::remove(part_, unused);
}

void RecordingFile::RemoveProblem() {
  std::error_code unused;
  if (std::filesystem::is_regular_file(problem_, unused)) {
    std::filesystem::remove(problem_, unused);
  }
}

}  // namespace wendrill::recording
