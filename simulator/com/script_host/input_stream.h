// WScript.StdIn.
#pragma once

#include <string>

#include "script_object.h"

namespace wendrill::script_host {

// Standard input as a script reads it: Read(characters), ReadLine, ReadAll, Skip(characters), SkipLine, AtEndOfLine,
// AtEndOfStream, Line and Column (both counted from 1), Close. A file or a pipe is read as UTF-8, a console as UTF-16.
// At the end of the input, Read, ReadLine, Skip and SkipLine raise 62 (input past end of file), and ReadAll returns an
// empty string. Read and Skip with 0 characters never raise 62. Read and Skip with a negative number raise 5 (invalid
// argument).
class InputStream final : public ScriptObject {
 public:
  explicit InputStream(TimeLimit& limit);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  // Reads input and appends it to `waiting_`. Returns true when at least one character was appended, and false when the
  // input has ended.
  bool Fill();
  // Calls Fill when `waiting_` is empty. Throws Failure with 62 (input past end of file) when the input has ended.
  void RequireMore();
  std::wstring Take(std::size_t count);
  std::wstring TakeLine();
  std::wstring TakeAll();
  bool AtEndOfLine();

  std::wstring waiting_;  // characters read from the input that the script has not received yet
  std::string rest_;      // the first bytes of a UTF-8 character that is not read completely
  bool ended_ = false;
  long line_ = 1;
  long column_ = 1;
};

}  // namespace wendrill::script_host
