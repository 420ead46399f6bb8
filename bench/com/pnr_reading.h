// The reference for reading one element of a PNR by its index. It makes exactly the calls that an accessor of IGet must
// make, in the same order: on the PNR object, the element, the text helper and the caller's parameter bag.
#pragma once

#include <span>

#include "bare_calls.h"
#include "platform.h"

namespace wendrill::com::bench {

inline constexpr DISPID kDisplayText = 75;  // the DISPID of the PNR object's display text

// A kind of element: how an accessor reads an element of this kind, and what it stores.
struct Kind {
  const wchar_t* member;                 // the member of CPNR that reads an element
  DISPID collection;                     // the property of the PNR object with the collection
  bool mayBeGroup;                       // whether the display is read before the elements are counted
  bool indexIsReadAgain;                 // whether the index is read from the bag again for each element enumerated
  std::span<const DISPID> values;        // the element's properties that are read, each once
  DISPID date;                           // the property that the text helper converts to text; 0 when there is none
  std::span<const wchar_t* const> keys;  // the keys that are stored in the bag
};

extern const std::span<const Kind> kKinds;

class BareReading {
 public:
  BareReading(Reference<IDispatch> pnr, Reference<_ParamBag> bag) : pnr_(std::move(pnr)), bag_(std::move(bag)) {}

  // Reads the element at the index that the bag contains, and stores its values in the bag under the kind's keys. There
  // may be more keys than values, since the accessor stores parts of some values; here the values repeat instead.
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
