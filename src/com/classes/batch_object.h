// The automation class CBatch, which forwards to the core's CBatch.
#pragma once

#include "batch/batch.h"
#include "com/server/automation_class.h"
#include "wendrill23_slots.h"

namespace wendrill::com {

class CBatchObject final : public AutomationClass<CBatchObject, &CLSID_CBatch, _CBatch> {
 public:
  using Core = CBatch;

  CBatchObject() : core_(TheLibrary().state) {}

  Core& TheCore() { return core_; }

 private:
  CBatch core_;
};

}  // namespace wendrill::com
