// The checks of a program that uses the library without registration: whether the program is 32-bit, whether its
// manifest names the library, and whether the DLL in its folder has the version in the manifest.
#include "core/check.h"
#include "core/paths.h"
#include "core/servers.h"

namespace wendrill::doctor {
namespace {

// The value of an attribute in the XML element whose tag contains `mark`; empty when there is no such element or
// attribute. The manifest is searched as text, not parsed: only one element matters, and its form is fixed.
std::string AttributeBeside(const std::string& xml, const std::string& mark, const std::string& attribute) {
  const std::size_t at = xml.find(mark);
  if (at == std::string::npos) {
    return "";
  }
  const std::size_t begin = xml.rfind('<', at);
  const std::string element = xml.substr(begin, xml.find('>', at) - begin);
  for (const char quote : {'"', '\''}) {
    const std::string opening = attribute + "=" + quote;
    const std::size_t value = element.find(opening);
    if (value != std::string::npos) {
      const std::size_t first = value + opening.size();
      return element.substr(first, element.find(quote, first) - first);
    }
  }
  return "";
}

std::string AssemblyVersionIn(const std::string& manifest) {
  for (const char quote : {'"', '\''}) {
    std::string version = AttributeBeside(manifest, std::string("name=") + quote + "Wendrill23" + quote, "version");
    if (!version.empty()) {
      return version;
    }
  }
  return "";
}

// The assembly version for a file version: the first two numbers, followed by ".0.0"; empty when the file version has
// fewer than two points.
std::string AssemblyVersionOf(const std::string& fileVersion) {
  const std::size_t first = fileVersion.find('.');
  const std::size_t second = first == std::string::npos ? first : fileVersion.find('.', first + 1);
  return second == std::string::npos ? "" : fileVersion.substr(0, second) + ".0.0";
}

Check CheckOfManifest(const Machine& machine, const std::string& program) {
  const auto manifest = machine.files.ManifestOf(program);
  const std::string wanted = manifest ? AssemblyVersionIn(*manifest) : "";
  if (wanted.empty()) {
    return {"program's manifest", manifest ? "does not name the library" : "none", State::Warn,
            "This program finds the library only where it is registered. To use it without registration, follow "
            "regfree\\README.md in the folder of the installation."};
  }
  const std::string dll = FolderOf(program) + "\\Wendrill23.dll";
  if (!machine.files.Exists(dll)) {
    return {"program's manifest", "names the library, version " + wanted + ", which is not beside the program",
            State::Missing, "Copy Wendrill23.dll into the folder of the program."};
  }
  const std::string version = machine.files.IdentityOf(dll).version;
  if (AssemblyVersionOf(version) != wanted) {
    return {"program's manifest", "names the library, version " + wanted + "; beside the program is " + version,
            State::Missing,
            "Copy the Wendrill23.dll that the program was made for into its folder, or ask its maker for a newer one."};
  }
  return {"program's manifest", "names the library, version " + wanted};
}

}  // namespace

Checks ExamineProgram(const Machine& machine, const std::string& program) {
  if (!machine.files.Exists(program)) {
    return {{"program", program + ", not there", State::Missing, "Check the path after --exe."}};
  }
  const Bits bits = machine.files.BitsOf(program);
  Check itself{"program", program + ", " + TextOf(bits)};
  if (bits == Bits::Unknown) {
    itself.state = State::Missing;
    itself.whatToDo = "This is no program. Check the path after --exe.";
    return {itself};
  }
  if (bits == Bits::k64) {
    if (!SurrogateIsRegistered(machine.registry)) {
      itself.state = State::Missing;
      itself.whatToDo =
          "A 64-bit program cannot load the library. Install the 32-bit edition of the program, or register the "
          "library for 64-bit programs, as docs\\install.md in the folder of the installation says.";
    }
    return {itself};
  }
  return {itself, CheckOfManifest(machine, program)};
}

}  // namespace wendrill::doctor
