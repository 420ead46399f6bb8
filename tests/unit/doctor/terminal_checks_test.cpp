#include <gtest/gtest.h>

#include "fake_machine.h"
#include "platform_identities.h"

namespace wendrill::doctor::testing {
namespace {

class TerminalChecks : public ::testing::Test {
 protected:
  Check Named(const std::string& name, bool create = false) const {
    return CheckNamed(ExamineTerminal(machine.Ports(create)), name);
  }

  FakeMachine machine;
};

TEST_F(TerminalChecks, ASimulatorWithoutATerminalIsAWarning) {
  for (const auto& [name, id] : kQuilletSimulatorClasses) {
    if (name != "QuilletSimulator.Control") {
      machine.RegisterSimulator(std::string(name));
    }
  }
  EXPECT_EQ("simulated", Named("terminal").found);
  EXPECT_EQ(State::Warn, Named("terminal").state);
}

TEST_F(TerminalChecks, ARenamedSimulatorUnderItsOwnIdentifierIsADisguiseToo) {
  for (const auto& [name, id] : kQuilletSimulatorClasses) {
    machine.SetClassValue(Hive::Machine, std::string(name) + "\\CLSID", std::string(id));
    machine.SetClassValue(Hive::Machine, "CLSID\\" + std::string(id) + "\\InprocServer32", "C:\\Quillet\\toolkit.dll");
  }
  machine.SetFile("C:\\Quillet\\toolkit.dll", {});
  EXPECT_EQ("the simulator in disguise", Named("terminal").found);
}

TEST_F(TerminalChecks, APartOfATerminalIsNotEnough) {
  machine.InstallTerminal();
  machine.RemoveClassValue(Hive::Machine, "wzuScriptHelper.AlarmManager\\CLSID");
  EXPECT_EQ("5 of 6 components installed", Named("terminal").found);
  EXPECT_EQ(State::Missing, Named("terminal").state);
  EXPECT_EQ("not registered", Named("wzuScriptHelper.AlarmManager").found);
}

TEST_F(TerminalChecks, AComponentOfTheUserGoesFirst) {
  machine.InstallTerminal();
  machine.SetClassValue(Hive::User, "szuPNR.PNR\\CLSID", "{12340000-0000-0000-0000-000000000000}");
  machine.SetClassValue(Hive::User, "CLSID\\{12340000-0000-0000-0000-000000000000}\\InprocServer32", "C:\\mine.dll");
  EXPECT_EQ("C:\\mine.dll, file not there", Named("szuPNR.PNR").found);
  EXPECT_EQ(State::Missing, Named("szuPNR.PNR").state);
}

TEST_F(TerminalChecks, AClassWithoutAServerIsMissing) {
  machine.SetClassValue(Hive::Machine, "szuPNR.PNR\\CLSID", "{12340000-0000-0000-0000-000000000000}");
  EXPECT_EQ("{12340000-0000-0000-0000-000000000000}, without a server", Named("szuPNR.PNR").found);
}

TEST_F(TerminalChecks, A64BitDllDoesNotServeTheLibraryAndA64BitProgramDoes) {
  machine.InstallTerminal();
  machine.SetFile("C:\\Quillet\\szuPNR.dll", {Bits::k64});
  EXPECT_EQ(State::Missing, Named("szuPNR.PNR").state);
  machine.SetClassValue(Hive::Machine, "Pellorin.ParamBag\\CLSID", "{12340000-0000-0000-0000-000000000000}");
  machine.SetClassValue(Hive::Machine, "CLSID\\{12340000-0000-0000-0000-000000000000}\\LocalServer32",
                        "C:\\Quillet and more\\bag.exe -Embedding");
  machine.SetFile("C:\\Quillet and more\\bag.exe", {Bits::k64});
  EXPECT_EQ("C:\\Quillet and more\\bag.exe, 64-bit, the terminal's", Named("Pellorin.ParamBag").found);
  EXPECT_EQ(State::Ok, Named("Pellorin.ParamBag").state);
}

TEST_F(TerminalChecks, ComponentsAreCreatedAndSessionsCountedWhenAskedTo) {
  machine.InstallTerminal();
  machine.refusals["szuPNR.PNR"] = "no licence (0x80004005)";
  EXPECT_EQ("C:\\Quillet\\Pellorin.dll, 32-bit, the terminal's, can be created",
            Named("Pellorin.ParamBag", true).found);
  EXPECT_EQ("C:\\Quillet\\szuPNR.dll, 32-bit, the terminal's, cannot be created: no licence (0x80004005)",
            Named("szuPNR.PNR", true).found);
  EXPECT_EQ(State::Missing, Named("szuPNR.PNR", true).state);
  EXPECT_EQ("1 running", Named("sessions", true).found);
  machine.sessions = 0;
  EXPECT_EQ(State::Warn, Named("sessions", true).state);
  machine.refusals[""] = "the terminal is not running (0x80004005)";
  EXPECT_EQ("cannot be counted: the terminal is not running (0x80004005)", Named("sessions", true).found);
  EXPECT_EQ(State::Missing, Named("sessions", true).state);
}

}  // namespace
}  // namespace wendrill::doctor::testing
