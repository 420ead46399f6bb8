#include "fake_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "platform_identities.h"
#include "wendrill23_identities.h"

namespace wendrill::doctor::testing {
namespace {

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return text;
}

std::string KeyOf(Hive hive, View view, const std::string& key) {
  return std::string(hive == Hive::User ? "user" : "machine") + (view == View::k64 ? " 64 " : " 32 ") + Lower(key);
}

constexpr char kClasses[] = "Software\\Classes\\";
constexpr char kVBScript[] = "{B54F3741-5B07-11CF-A4B0-00AA004A55E8}";
constexpr char kSurrogate[] = "{AAAAAAAA-0000-0000-0000-000000000000}";

// Identifiers that a terminal may have.
std::string TerminalsClassId(const std::string& name) {
  return "{0000000" + std::to_string(name.size() % 10) + "-0000-0000-0000-0000000000" + std::to_string(name.size()) +
         "}";
}

std::string SimulatedClassId(const std::string& name) {
  for (const auto& [known, id] : kQuilletSimulatorClasses) {
    if (known == name) {
      return std::string(id);
    }
  }
  ADD_FAILURE() << "no component is called " << name;
  return "";
}

}  // namespace

FakeMachine::FakeMachine() {
  SetFile(kOwnDll, {Bits::k32, {"1.0.0.0", "Wendrill23"}});
  SetFile(kSimulatorDll, {Bits::k32, {"1.0.0.0", "QuilletSimulator"}});
  SetFile("C:\\Windows\\System32\\wscript.exe", {});
  SetFile("C:\\Windows\\System32\\cscript.exe", {});
  SetClassValue(Hive::Machine, ".vbs", "VBSFile");
  SetClassValue(Hive::Machine, "VBSFile\\Shell\\Open\\Command", "\"%SystemRoot%\\System32\\WScript.exe\" \"%1\" %*");
  SetClassValue(Hive::Machine, "VBScript\\CLSID", kVBScript);
  SetClassValue(Hive::Machine, "CLSID\\" + std::string(kVBScript) + "\\InprocServer32",
                "C:\\Windows\\System32\\vbscript.dll");
}

void FakeMachine::SetFile(const std::string& path, FakeFile file) {
  files_[Lower(path)] = std::move(file);
}

void FakeMachine::SetValue(Hive hive, View view, const std::string& key, const std::string& text,
                           const std::string& valueName) {
  values_[{KeyOf(hive, view, key), Lower(valueName)}] = text;
}

void FakeMachine::SetClassValue(Hive hive, const std::string& key, const std::string& text,
                                const std::string& valueName) {
  SetValue(hive, View::k32, kClasses + key, text, valueName);
  if (!is64Bit_ || key.find("CLSID\\") != 0) {  // 64-bit Windows keeps the classes apart
    SetValue(hive, View::k64, kClasses + key, text, valueName);
  }
}

void FakeMachine::RemoveClassValue(Hive hive, const std::string& key, const std::string& valueName) {
  for (const View view : {View::k32, View::k64}) {
    values_.erase({KeyOf(hive, view, kClasses + key), Lower(valueName)});
  }
}

void FakeMachine::SetClassValue64(const std::string& key, const std::string& text, const std::string& valueName) {
  SetValue(Hive::Machine, View::k64, kClasses + key, text, valueName);
}

void FakeMachine::SetUsersChoice(const std::string& programOfScripts) {
  const std::string key = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\.vbs\\UserChoice";
  for (const View view : {View::k32, View::k64}) {
    SetValue(Hive::User, view, key, "Chosen.File", "ProgId");
  }
  SetClassValue(Hive::Machine, "Chosen.File\\shell\\open\\command", programOfScripts);
}

void FakeMachine::Become64Bit() {
  is64Bit_ = true;
  SetFile("C:\\Windows\\Sysnative\\wscript.exe", {Bits::k64});
  SetFile("C:\\Windows\\Sysnative\\cscript.exe", {Bits::k64});
}

void FakeMachine::RegisterLibrary(Hive hive, const std::string& dll) {
  for (const auto& [className, id] : kWendrill23Classes) {
    SetClassValue(hive, std::string(className) + "\\CLSID", std::string(id));
    SetClassValue(hive, "CLSID\\" + std::string(id) + "\\InprocServer32", dll);
  }
  SetClassValue(hive, "TypeLib\\" + std::string(kWendrill23Library) + "\\1.0\\0\\win32", dll);
}

void FakeMachine::RegisterSurrogate() {
  for (const auto& [className, id] : kWendrill23Classes) {
    SetClassValue64("CLSID\\" + std::string(id), kSurrogate, "AppID");
  }
  SetClassValue64(std::string("AppID\\") + kSurrogate, "", "DllSurrogate");
}

void FakeMachine::InstallTerminal(const std::string& component) {
  const std::string id = TerminalsClassId(component);
  const std::string dll = "C:\\Quillet\\" + component.substr(0, component.find('.')) + ".dll";
  SetFile(dll, {Bits::k32, {"3.0.0.0", "A terminal"}});
  SetClassValue(Hive::Machine, component + "\\CLSID", id);
  SetClassValue(Hive::Machine, "CLSID\\" + id + "\\InprocServer32", dll);
}

void FakeMachine::InstallTerminal() {
  for (const auto& [component, id] : kQuilletSimulatorClasses) {
    if (component != "QuilletSimulator.Control") {
      InstallTerminal(std::string(component));
    }
  }
}

void FakeMachine::RegisterSimulator(const std::string& component) {
  const std::string id = SimulatedClassId(component);
  SetClassValue(Hive::Machine, component + "\\CLSID", id);
  SetClassValue(Hive::Machine, "CLSID\\" + id + "\\InprocServer32", kSimulatorDll);
}

std::optional<std::string> FakeMachine::Value(Hive hive, View view, const std::string& key,
                                              const std::string& valueName) const {
  const auto found = values_.find({KeyOf(hive, view, key), Lower(valueName)});
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

const FakeFile* FakeMachine::Find(const std::string& path) const {
  const auto found = files_.find(Lower(path));
  return found == files_.end() ? nullptr : &found->second;
}

bool FakeMachine::Exists(const std::string& path) const {
  return Find(path) != nullptr;
}

Bits FakeMachine::BitsOf(const std::string& path) const {
  return Exists(path) ? Find(path)->bits : Bits::Unknown;
}

FileIdentity FakeMachine::IdentityOf(const std::string& path) const {
  return Exists(path) ? Find(path)->identity : FileIdentity{};
}

bool FakeMachine::IsMarkedAsDownloaded(const std::string& path) const {
  return Exists(path) && Find(path)->isMarked;
}

std::optional<std::string> FakeMachine::ManifestOf(const std::string& program) const {
  return Exists(program) ? Find(program)->manifest : std::nullopt;
}

std::optional<std::string> FakeMachine::Variable(const std::string& variable) const {
  const auto found = variables.find(variable);
  return found == variables.end() ? std::nullopt : std::optional(found->second);
}

std::string FakeMachine::Expanded(const std::string& text) const {
  const std::string root = "%SystemRoot%";
  const std::size_t at = text.find(root);
  return at == std::string::npos ? text : text.substr(0, at) + WindowsFolder() + text.substr(at + root.size());
}

Creation FakeMachine::Create(const std::string& programmaticName) const {
  const auto refusal = refusals.find(programmaticName);
  return refusal == refusals.end() ? Creation{true, ""} : Creation{false, refusal->second};
}

Components::Sessions FakeMachine::CountSessions() const {
  const auto refusal = refusals.find("");
  return refusal == refusals.end() ? Sessions{sessions, ""} : Sessions{0, refusal->second};
}

Check CheckNamed(const Checks& checks, const std::string& name) {
  const auto isIt = [&name](const Check& check) { return check.name == name; };
  EXPECT_EQ(1, std::count_if(checks.begin(), checks.end(), isIt)) << name;
  const auto found = std::find_if(checks.begin(), checks.end(), isIt);
  return found == checks.end() ? Check{} : *found;
}

}  // namespace wendrill::doctor::testing
