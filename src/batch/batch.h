// CBatch: sends the entries of a queue one after another and reports which of them the host rejected; splits long
// remarks.
//
// Terms such as PNR, entry, segment and association: docs/glossary.md.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "batch/queue.h"
#include "common/module_state.h"
#include "common/param_bag.h"
#include "common/value.h"

namespace wendrill {

class CBatch {
 public:
  // Needs no running session.
  explicit CBatch(ModuleState& state);

  CBatch(const CBatch&) = delete;
  CBatch& operator=(const CBatch&) = delete;

  // The queue of entries: the same object for every caller, not a copy. A new, empty queue until SetCommands is called.
  std::shared_ptr<CQueue> Commands() const;
  void SetCommands(std::shared_ptr<CQueue> Commands);

  // The separator at which a queued command is split into entries. Initially empty; the empty string means ";".
  std::u16string Separator() const;
  void SetSeparator(std::u16string_view Separator);

  // Sends the batch. Raises 2300 on any failure.
  void Submit();

  // Sends the batch and stores the result in the caller's bag: "strKeyResponseArray", the responses as an array that
  // counts from 0; "strKeyErr", the numbers (counted from 1) of the host entries that the host rejected, joined with
  // ","; and "blnKeyResponseOK", whether the host accepted all entries. An entry counts as accepted when its response
  // contains "RP/", "*T*" or "*C*". Raises 2315 on any failure; nothing is stored in the bag before all entries have
  // been sent.
  void SubmitWithResponse(const ParamBagRef& objResponse);

  // Splits a remark into elements and stores them in `strRMElement`, counted from 0. Raises 2310 (the number of its
  // private helper) for a text of more than 32,767 elements, and leaves `strRMElement` unchanged.
  void RMBatch(std::u16string_view strString, TextArray& strRMElement) const;

 private:
  std::vector<std::u16string> PackedEntries() const;

  ModuleState& state_;
  std::shared_ptr<CQueue> commands_;
  std::u16string separator_;
};

}  // namespace wendrill
