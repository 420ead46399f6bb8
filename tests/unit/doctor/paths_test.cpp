#include "core/paths.h"

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace wendrill::doctor::testing {
namespace {

TEST(Paths, TheProgramOfACommandMayBeQuotedOrNot) {
  EXPECT_EQ("C:\\a b\\x.exe", ProgramOf("\"C:\\a b\\x.exe\" \"%1\" %*"));
  EXPECT_EQ("C:\\a b\\X.EXE", ProgramOf("C:\\a b\\X.EXE %1"));
  EXPECT_EQ("wscript", ProgramOf("wscript %1"));
  EXPECT_EQ("C:\\open", ProgramOf("\"C:\\open"));
  EXPECT_EQ("", ProgramOf(""));
}

TEST(Paths, FileAndFolder) {
  EXPECT_EQ("x.dll", FileNameOf("C:\\a\\x.dll"));
  EXPECT_EQ("x.dll", FileNameOf("x.dll"));
  EXPECT_EQ("C:\\a", FolderOf("C:\\a\\x.dll"));
  EXPECT_EQ("", FolderOf("x.dll"));
}

TEST(Paths, CaseCountsForLettersOutsideAsciiOnly) {
  EXPECT_TRUE(SameText("C:\\Wendrill23", "c:\\WENDRILL23"));
  EXPECT_FALSE(SameText("C:\\Wendrill23", "C:\\Wendrill2"));
  EXPECT_FALSE(SameText("\xC3\xA9", "\xC3\x89"));
}

TEST(Paths, SystemFilesOf64BitProgramsAreInSysnative) {
  FakeMachine machine;
  EXPECT_EQ("C:\\Windows\\System32\\a.exe", SeenBy64Bit(machine, "C:\\Windows\\System32\\a.exe"));
  machine.Become64Bit();
  EXPECT_EQ("C:\\Windows\\Sysnative\\a.exe", SeenBy64Bit(machine, "c:\\windows\\system32\\a.exe"));
  EXPECT_EQ("C:\\Windows\\SysWOW64\\a.exe", SeenBy64Bit(machine, "C:\\Windows\\SysWOW64\\a.exe"));
}

}  // namespace
}  // namespace wendrill::doctor::testing
