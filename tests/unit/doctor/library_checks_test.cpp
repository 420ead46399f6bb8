#include <gtest/gtest.h>

#include "fake_machine.h"
#include "wendrill23_identities.h"

namespace wendrill::doctor::testing {
namespace {

const std::string kFirstClass(kWendrill23Classes.front().second);

class LibraryChecks : public ::testing::Test {
 protected:
  Check Named(const std::string& name, bool create = false) const {
    return CheckNamed(ExamineLibrary(machine.Ports(create)), name);
  }

  FakeMachine machine;
};

TEST_F(LibraryChecks, WithoutACopyOfTheLibraryTheInstallerIsNamed) {
  struct Elsewhere final : System {
    const System& other;
    explicit Elsewhere(const System& system) : other(system) {}
    std::string Name() const override { return other.Name(); }
    bool IsWine() const override { return false; }
    bool Is64Bit() const override { return false; }
    Bits OwnBits() const override { return Bits::k32; }
    bool IsElevated() const override { return false; }
    std::string WindowsFolder() const override { return other.WindowsFolder(); }
    std::string OwnFolder() const override { return "E:\\stick"; }
    std::optional<std::string> Variable(const std::string&) const override { return std::nullopt; }
    std::string Expanded(const std::string& text) const override { return text; }
  } elsewhere(machine);
  const Check check = CheckNamed(ExamineLibrary({machine, machine, elsewhere, nullptr}), "library");
  EXPECT_EQ("Install the library: start its installer.", check.whatToDo);
}

TEST_F(LibraryChecks, APartialRegistrationIsCounted) {
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  machine.RemoveClassValue(Hive::Machine, "CLSID\\" + kFirstClass + "\\InprocServer32");
  machine.RemoveClassValue(Hive::Machine, "Wendrill23.CPNR\\CLSID");
  const Check check = Named("library, all users");
  EXPECT_EQ("C:\\Wendrill23\\bin\\Wendrill23.dll, version 1.0.0.0, 5 of 7 classes", check.found);
  EXPECT_EQ(State::Missing, check.state);
}

TEST_F(LibraryChecks, AThreadingModelTellsOfAnOlderVersion) {
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  machine.SetClassValue(Hive::Machine, "CLSID\\" + kFirstClass + "\\InprocServer32", "Apartment", "ThreadingModel");
  const Check check = Named("library, all users");
  EXPECT_EQ(State::Warn, check.state);
  EXPECT_NE(std::string::npos, check.found.find("registered by an older version"));
}

TEST_F(LibraryChecks, ClassesOfTwoFilesAreNoticed) {
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  machine.SetClassValue(Hive::Machine, "CLSID\\" + std::string(kWendrill23Classes.back().second) + "\\InprocServer32",
                        "C:\\other\\Wendrill23.dll");
  EXPECT_NE(std::string::npos, Named("library, all users").found.find("other classes from other files"));
}

TEST_F(LibraryChecks, A64BitFileIsNoLibrary) {
  machine.RegisterLibrary(Hive::Machine, "C:\\wrong.dll");
  machine.SetFile("C:\\wrong.dll", {Bits::k64});
  const Check check = Named("library, all users");
  EXPECT_EQ(State::Missing, check.state);
  EXPECT_EQ("C:\\wrong.dll, 64-bit", check.found);
}

TEST_F(LibraryChecks, AnotherVersionThanTheOneBesideTheDoctorIsNoticed) {
  machine.SetFile("C:\\old\\Wendrill23.dll", {Bits::k32, {"0.9.0.0", "Wendrill23"}});
  machine.RegisterLibrary(Hive::Machine, "C:\\old\\Wendrill23.dll");
  const Check check = Named("library, all users");
  EXPECT_EQ(State::Warn, check.state);
  EXPECT_EQ("C:\\old\\Wendrill23.dll, version 0.9.0.0, not the version beside this program (1.0.0.0)", check.found);
}

TEST_F(LibraryChecks, ARegisteredFileMayBeBlockedAsDownloaded) {
  machine.SetFile(kOwnDll, {Bits::k32, {"1.0.0.0", "Wendrill23"}, true});
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  EXPECT_EQ(State::Warn, Named("library, all users").state);
}

TEST_F(LibraryChecks, TheTypeLibraryMayBeMissingOrBelongToAnotherCopy) {
  const std::string key = "TypeLib\\" + std::string(kWendrill23Library) + "\\1.0\\0\\win32";
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  machine.SetClassValue(Hive::Machine, key, "C:\\other\\Wendrill23.dll");
  EXPECT_EQ(State::Warn, Named("type library, all users").state);
  machine.RemoveClassValue(Hive::Machine, key);
  EXPECT_EQ(State::Missing, Named("type library, all users").state);
  EXPECT_EQ("not registered", Named("type library, all users").found);
}

TEST_F(LibraryChecks, AnElevatedProgramDoesNotSeeTheUsersRegistration) {
  machine.RegisterLibrary(Hive::User, kOwnDll);
  EXPECT_EQ(State::Ok, Named("library").state);
  machine.isElevated = true;
  EXPECT_EQ(State::Warn, Named("library").state);
}

TEST_F(LibraryChecks, WineDoesNotSeeTheUsersRegistration) {
  machine.RegisterLibrary(Hive::User, kOwnDll);
  machine.isWine = true;
  EXPECT_EQ(State::Warn, Named("library").state);
}

TEST_F(LibraryChecks, EachClassIsCreatedWhenAskedTo) {
  machine.RegisterLibrary(Hive::Machine, kOwnDll);
  machine.refusals["Wendrill23.CPNR"] = "Class not registered (0x80040154)";
  EXPECT_EQ("can be created", Named("Wendrill23.CQuillet", true).found);
  EXPECT_EQ("cannot be created: Class not registered (0x80040154)", Named("Wendrill23.CPNR", true).found);
  EXPECT_EQ(State::Missing, Named("Wendrill23.CPNR", true).state);
  EXPECT_EQ(3U, ExamineLibrary(machine.Ports()).size()) << "nothing is created unless asked for";
}

}  // namespace
}  // namespace wendrill::doctor::testing
