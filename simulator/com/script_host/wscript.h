// The object that scripts use as WScript, with the members that desktop scripts commonly call.
#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <vector>

#include "input_stream.h"
#include "script_object.h"

namespace wendrill::script_host {

// Words of the command line: Item (the default member, counted from 0), Count, Length and For Each. Raises 9 for an
// index outside.
class Words : public ScriptObject {
 public:
  Words(std::wstring_view name, std::span<const MemberName> members, TimeLimit& limit, std::vector<std::wstring> words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  std::wstring_view name_;
  std::vector<std::wstring> words_;
};

// The words of the form "/name:value" or "/name": Item(name), Exists(name), Count, Length and For Each over the names.
// The case of a name does not count; of two words with one name the first counts. Item is Empty for a name that is not
// there and for a name without a value.
class NamedArguments final : public ScriptObject {
 public:
  NamedArguments(TimeLimit& limit, const std::vector<std::wstring>& words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  std::size_t PlaceOf(const std::wstring& name) const;

  std::vector<std::wstring> names_;
  std::vector<std::wstring> values_;
  std::vector<bool> hasValue_;
};

// The script's arguments, all of them and by Named and Unnamed.
class Arguments final : public Words {
 public:
  Arguments(TimeLimit& limit, std::vector<std::wstring> words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  Microsoft::WRL::ComPtr<NamedArguments> named_;
  Microsoft::WRL::ComPtr<Words> unnamed_;
};

// One of the two output streams: Write, WriteLine, WriteBlankLines.
class OutputStream final : public ScriptObject {
 public:
  OutputStream(std::wstring_view name, TimeLimit& limit, void (*write)(std::wstring_view));

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  void (*write_)(std::wstring_view);
};

class WScript final : public ScriptObject {
 public:
  // `quit` ends the script with an exit status and does not return.
  WScript(std::wstring scriptPath, std::vector<std::wstring> arguments, TimeLimit& limit,
          std::function<void(int)> quit);

  // The names of all members.
  static std::vector<std::wstring_view> MemberNames();

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  std::wstring scriptPath_;
  std::function<void(int)> quit_;
  Microsoft::WRL::ComPtr<Arguments> arguments_;
  Microsoft::WRL::ComPtr<InputStream> standardInput_;
  Microsoft::WRL::ComPtr<OutputStream> standardOutput_;
  Microsoft::WRL::ComPtr<OutputStream> standardError_;
};

}  // namespace wendrill::script_host
