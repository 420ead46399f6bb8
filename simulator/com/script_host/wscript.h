// The object that scripts use as WScript, with the members that desktop scripts commonly call.
#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <vector>

#include "script_object.h"

namespace wendrill::script_host {

// The script's arguments: Item (the default member, counted from 0), Count, Length and For Each. Raises 9 for an index
// outside the arguments.
class Arguments final : public ScriptObject {
 public:
  explicit Arguments(std::vector<std::wstring> words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  std::vector<std::wstring> words_;
};

// One of the two output streams: Write, WriteLine, WriteBlankLines.
class OutputStream final : public ScriptObject {
 public:
  explicit OutputStream(void (*write)(std::wstring_view));

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  void (*write_)(std::wstring_view);
};

class WScript final : public ScriptObject {
 public:
  // `quit` ends the script with an exit status and does not return.
  WScript(std::wstring scriptPath, std::vector<std::wstring> arguments, std::function<void(int)> quit);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  std::wstring scriptPath_;
  std::function<void(int)> quit_;
  Microsoft::WRL::ComPtr<Arguments> arguments_;
  Microsoft::WRL::ComPtr<OutputStream> standardOutput_;
  Microsoft::WRL::ComPtr<OutputStream> standardError_;
};

}  // namespace wendrill::script_host
