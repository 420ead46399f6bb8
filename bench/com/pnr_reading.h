// One element of a PNR read by its index: the calls on the PNR object, the element, the text helper and the caller's
// bag that the accessors of IGet must make, in their order, and nothing else.
#pragma once

#include <span>

#include "bare_calls.h"
#include "platform.h"

namespace wendrill::com::bench {

inline constexpr DISPID kDisplayText = 75;  // of the PNR object

// A kind of element.
struct Kind {
  const wchar_t* member;                 // of CPNR
  DISPID collection;                     // of the PNR object
  bool mayBeGroup;                       // the display is looked through before the elements are counted
  bool indexIsReadAgain;                 // before each step of the walk
  std::span<const DISPID> values;        // the element's properties, each read once
  DISPID date;                           // the value whose text the text helper gives; 0 when there is none
  std::span<const wchar_t* const> keys;  // what is stored in the bag
};

extern const std::span<const Kind> kKinds;

class BareReading {
 public:
  BareReading(Reference<IDispatch> pnr, Reference<_ParamBag> bag) : pnr_(std::move(pnr)), bag_(std::move(bag)) {}

  // Stores under the kind's keys what the element at the index in the bag gives; a value's own text under several
  // keys, where the accessor would cut a part out of it.
  void ReadElement(const Kind& kind);

 private:
  LONG IndexInBag();
  Reference<IDispatch> ElementAt(LONG wanted, const Kind& kind);
  void Store(const Kind& kind, IDispatch* element);

  Reference<IDispatch> pnr_;
  Reference<_ParamBag> bag_;
  Reference<IDispatch> helper_ = Create(L"Pellorin.TextHelper");
  DISPID hostDateText_ = IdOf(helper_.Get(), L"HostDateText");
  OwnedString indexKey_{u"intKeyIndex"};
};

}  // namespace wendrill::com::bench
