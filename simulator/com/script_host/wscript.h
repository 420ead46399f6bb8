// The object that scripts use under the names WScript and WSH. It has the members that desktop scripts commonly call.
#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <vector>

#include "input_stream.h"
#include "script_object.h"

namespace wendrill::script_host {

// A collection of words of the command line for scripts. Members: Item (the default member, counted from 0), Count,
// Length and For Each. Item raises 9 (index out of range) for an index outside of the collection.
class Words : public ScriptObject {
 public:
  Words(std::wstring_view name, std::span<const MemberName> members, TimeLimit& limit, std::vector<std::wstring> words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  std::wstring_view name_;
  std::vector<std::wstring> words_;
};

// The script's arguments that begin with "/", such as "/name:value" or "/name". Members: Item(name), which is the
// default member, Exists(name), Count, Length and For Each over the names. Names are case-insensitive. Item returns
// Empty for an unknown name and for a name without a value. When a name occurs twice, Item returns the value of the
// first occurrence; Count, Length and For Each include both occurrences.
class NamedArguments final : public ScriptObject {
 public:
  NamedArguments(TimeLimit& limit, const std::vector<std::wstring>& words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  // Returns the position of a name, counted from 0; the number of names when the name is unknown. Case-insensitive.
  std::size_t PlaceOf(const std::wstring& name) const;

  std::vector<std::wstring> names_;
  std::vector<std::wstring> values_;
  std::vector<bool> hasValue_;
};

// All arguments of the script. The property Named returns the arguments that begin with "/"; the property Unnamed
// returns the arguments that do not.
class Arguments final : public Words {
 public:
  Arguments(TimeLimit& limit, std::vector<std::wstring> words);

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  Microsoft::WRL::ComPtr<NamedArguments> named_;
  Microsoft::WRL::ComPtr<Words> unnamed_;
};

// WScript.StdOut or WScript.StdErr, with the members Write, WriteLine, WriteBlankLines and Close. Close has no effect.
class OutputStream final : public ScriptObject {
 public:
  OutputStream(std::wstring_view name, TimeLimit& limit, void (*write)(std::wstring_view));

  void Call(DISPID member, const CallArguments& arguments, VARIANT& result) override;

 private:
  void (*write_)(std::wstring_view);
};

class WScript final : public ScriptObject {
 public:
  // `quit` carries out WScript.Quit: it ends the process with an exit status and does not return.
  WScript(std::wstring scriptPath, std::vector<std::wstring> arguments, TimeLimit& limit,
          std::function<void(int)> quit);

  // Returns the names of all members of WScript.
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
