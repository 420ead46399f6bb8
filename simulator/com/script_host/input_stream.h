// WScript.StdIn.
#pragma once

#include <string>

#include "script_object.h"

namespace wendrill::script_host {

// Standard input as a script reads it: Read(characters), ReadLine, ReadAll, Skip(characters), SkipLine, AtEndOfLine,
// AtEndOfStream, Line and Column (both counted from 1), Close. UTF-8 from a file or a pipe, the console's own
// characters from a console. Reading at the end raises 62.
class InputStream final : public ScriptObject {
 public:
  explicit InputStream(TimeLimit& limit);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  // Reads until something is waiting; false at the end of the input.
  bool Fill();
  // Makes sure that something is waiting; throws Failure at the end.
  void RequireMore();
  std::wstring Take(std::size_t count);
  std::wstring TakeLine();
  std::wstring TakeAll();
  bool AtEndOfLine();

  std::wstring waiting_;  // read, but not yet given to the script
  std::string rest_;      // the first bytes of a character whose others are not read yet
  bool ended_ = false;
  long line_ = 1;
  long column_ = 1;
};

}  // namespace wendrill::script_host
