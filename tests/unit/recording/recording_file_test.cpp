#include "recording/recording_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "recording_terminal.h"
#include "support/raises.h"

namespace wendrill::recording {
namespace {

using wendrill::testing::RaisesNumber;

std::size_t FilesIn(const std::filesystem::path& folder) {
  const std::filesystem::directory_iterator files(folder);
  return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

void Write(const std::filesystem::path& file, std::string_view text) {
  std::ofstream(file, std::ios::binary) << text;
}

TEST(RecordingFiles, AreThereOnceTheyAreWritten) {
  const OwnFolder folder;
  RecordingFile file(folder.File("out.toml"));
  EXPECT_EQ(FilesIn(folder.File("")), 0U);  // what is interrupted leaves nothing
  EXPECT_EQ(file.Write("first\n"), u"");
  EXPECT_EQ(ContentOf(folder.File("out.toml")), "first\n");
  EXPECT_EQ(file.Write("and second\n"), u"");
  EXPECT_EQ(ContentOf(folder.File("out.toml")), "and second\n");
  EXPECT_EQ(FilesIn(folder.File("")), 1U);
}

TEST(RecordingFiles, ThatExistAreRefused) {
  const OwnFolder folder;
  Write(folder.File("out.toml"), "precious");
  EXPECT_TRUE(RaisesNumber(58, [&] { RecordingFile(folder.File("out.toml")); }));
  std::filesystem::create_directory(folder.File("folder"));
  EXPECT_TRUE(RaisesNumber(58, [&] { RecordingFile(folder.File("folder")); }));
  EXPECT_EQ(ContentOf(folder.File("out.toml")), "precious");
}

TEST(RecordingFiles, ThatCannotBeWrittenAreRefused) {
  const OwnFolder folder;
  EXPECT_TRUE(RaisesNumber(75, [&] { RecordingFile(folder.File("no folder") / "out.toml"); }));
  EXPECT_TRUE(RaisesNumber(75, [&] { RecordingFile({}); }));
  EXPECT_TRUE(RaisesNumber(75, [&] { RecordingFile(folder.File("no folder") / ""); }));
}

TEST(RecordingFiles, ThatAppearedMeanwhileStay) {
  const OwnFolder folder;
  RecordingFile file(folder.File("out.toml"));
  Write(folder.File("out.toml"), "of somebody else");
  EXPECT_NE(file.Write("text"), u"");
  EXPECT_EQ(ContentOf(folder.File("out.toml")), "of somebody else");
  EXPECT_EQ(FilesIn(folder.File("")), 1U);
}

TEST(RecordingFiles, TellAProblemBesideThemUntilTheyAreWritten) {
  const OwnFolder folder;
  RecordingFile file(folder.File("out.toml"));
  file.TellProblem(u"There is a problem.");
  file.TellProblem(u"Why.");
  EXPECT_EQ(ContentOf(folder.File("out.toml.error")), "Why.\r\n");
  EXPECT_EQ(FilesIn(folder.File("")), 1U);
  EXPECT_EQ(file.Write("text"), u"");
  EXPECT_EQ(FilesIn(folder.File("")), 1U);
}

TEST(RecordingFiles, ForgetTheProblemOfAnEarlierRecording) {
  const OwnFolder folder;
  RecordingFile(folder.File("out.toml")).TellProblem(u"Why.");
  RecordingFile(folder.File("out.toml"));
  EXPECT_EQ(FilesIn(folder.File("")), 0U);
}

TEST(RecordingFiles, WhoseFolderIsGoneCannotBeWritten) {
  const OwnFolder folder;
  std::filesystem::create_directory(folder.File("gone"));
  RecordingFile file(folder.File("gone") / "out.toml");
  std::filesystem::remove_all(folder.File("gone"));
  EXPECT_NE(file.Write("text"), u"");
}

}  // namespace
}  // namespace wendrill::recording
