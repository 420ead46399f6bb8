// Late-bound calls to objects of other servers.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "com/server/automation_types.h"
#include "toolkit/automation_object.h"

namespace wendrill::com {

// Dispatch identifiers by name, looked up once per object type and kept. Objects that describe themselves share what
// was looked up for their type; others are asked each time. The types' descriptions belong to other servers: Forget
// lets go of them before this library may unload.
class KnownNames {
 public:
  // The identifier of a member; 438 when the object has no member of that name.
  DISPID IdOf(IDispatch* object, std::u16string_view name);

  void Forget() { types_.clear(); }

 private:
  using Names = std::map<std::u16string, DISPID, std::less<>>;

  // The names of the object's type; null when it does not describe itself.
  Names* NamesOf(IDispatch* object);

  // A type's description is one object for all objects of the type; holding it keeps its address from being used again.
  std::map<ITypeInfo*, std::pair<Reference<ITypeInfo>, Names>> types_;
};

// One late-bound call. `arguments` come in their written order. Errors of the callee travel on unchanged.
void CallMember(IDispatch* object, DISPID id, WORD flags, std::span<VARIANT> arguments, VARIANT* result);

// The numbers, texts and objects that such calls give; a result that does not convert is 13.
std::u16string TextResult(IDispatch* object, DISPID id);
std::int32_t NumberResult(IDispatch* object, DISPID id);
Reference<IDispatch> ObjectIn(const VARIANT& result);  // none for Empty and Nothing

// Makes an object of a registered class. 429 where the system has no better reason.
Reference<IDispatch> CreateComponent(const wchar_t* programmaticId);

}  // namespace wendrill::com
