#include "com/classes/quillet_object.h"

namespace wendrill::com {

CQuilletObject::CQuilletObject() : CQuilletObject(std::make_shared<CQuillet>(TheLibrary().state)) {}

CQuilletObject::CQuilletObject(std::shared_ptr<CQuillet> core) : core_(std::move(core)) {
  TheLibrary().quillets[core_.get()] = this;
}

CQuilletObject::~CQuilletObject() {
  TheLibrary().quillets.erase(core_.get());
}

_CQuillet* CQuilletObject::For(const std::shared_ptr<CQuillet>& core) {
  const auto living = TheLibrary().quillets.find(core.get());
  if (living == TheLibrary().quillets.end()) {
    return new CQuilletObject(core);
  }
  living->second->AddRef();
  return living->second;
}

void Give(const std::shared_ptr<CQuillet>& core, _CQuillet** result) {
  *result = CQuilletObject::For(core);
}

}  // namespace wendrill::com
