#include "com/support/handed_classes.h"

namespace wendrill::com::testing {

HandedClasses::HandedClasses(const std::vector<CLSID>& classes) {
  for (const CLSID& id : classes) {
    Reference<IClassFactory> factory;
    CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.ReceiveVoid());
    IStream* stream = nullptr;
    CoMarshalInterThreadInterfaceInStream(IID_IClassFactory, factory.Get(), &stream);
    factories_.emplace_back(id, stream);
  }
}

TakenClasses::TakenClasses(HandedClasses& handed) {
  for (auto& [id, stream] : handed.factories_) {
    Reference<IClassFactory> factory;
    CoGetInterfaceAndReleaseStream(std::exchange(stream, nullptr), IID_IClassFactory, factory.ReceiveVoid());
    factories_.emplace_back(id, std::move(factory));
  }
}

HRESULT TakenClasses::Create(const CLSID& id, const IID& wanted, void** object) const {
  for (const auto& [known, factory] : factories_) {
    if (known == id && factory) {
      return factory->CreateInstance(nullptr, wanted, object);
    }
  }
  return REGDB_E_CLASSNOTREG;
}

}  // namespace wendrill::com::testing
