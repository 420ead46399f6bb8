// Calls of slots by what the type library says about them, so that a new member is called without anybody's thinking of
// it.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace wendrill::com::testing {

// A member of an interface as its slot takes it.
struct Slot {
  std::wstring name;
  ULONG offset = 0;  // of the slot, in bytes
  INVOKEKIND kind = INVOKE_FUNC;
  struct Parameter {
    VARTYPE type = VT_EMPTY;     // VT_PTR for every pointer
    VARTYPE pointee = VT_EMPTY;  // VT_PTR: a pointer to an interface
    bool isResult = false;
  };
  std::vector<Parameter> parameters = {};
};

// The members of the interface that the pointer is one of, without those of IDispatch.
std::vector<Slot> PublishedSlots(IDispatch* object);

// The arguments of one call of a slot: room for what the slot returns, and what is passed by value. Every object
// parameter is given the bag.
class SlotArguments {
 public:
  // `nullAt`: which pointers are null, by their places from 0.
  SlotArguments(const Slot& slot, IDispatch* bag, const std::function<bool(std::size_t)>& nullAt);
  ~SlotArguments();
  SlotArguments(const SlotArguments&) = delete;
  SlotArguments& operator=(const SlotArguments&) = delete;

  // Calls the slot as a compiled client does; what the slot returns is released with the arguments.
  HRESULT Call(IDispatch* object);

 private:
  void Fill(std::size_t index, IDispatch* bag, bool isNull);
  void Clear(std::size_t index);

  const Slot& slot_;
  std::vector<VARIANT> values_;
  std::vector<VARIANT> rooms_;
};

}  // namespace wendrill::com::testing
