// CBatch: sends the entries of a queue one after another and reports which of them the host rejected. Also splits long
// remarks into remark elements.
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
  // Does not require a running session.
  explicit CBatch(ModuleState& state);

  CBatch(const CBatch&) = delete;
  CBatch& operator=(const CBatch&) = delete;

  // The queue of entries; initially a new, empty queue. Commands returns a shared reference to the queue, not a copy.
  std::shared_ptr<CQueue> Commands() const;
  void SetCommands(std::shared_ptr<CQueue> Commands);

  // The separator at which a queued command is split into entries. Initially empty, which means ";".
  std::u16string Separator() const;
  void SetSeparator(std::u16string_view Separator);

  // Sends the entries of the queue. Raises 2300 on any failure.
  void Submit();

  // Sends the entries of the queue and stores the result in the caller's bag:
  //   - "strKeyResponseArray": the responses, in an array that counts from 0;
  //   - "strKeyErr": the numbers (counted from 1) of the host entries that the host rejected, joined with ",";
  //   - "blnKeyResponseOK": whether the host accepted all entries.
  //
  // An entry counts as accepted when its response contains "RP/", "*T*" or "*C*". Raises 2315 on any failure. Nothing
  // is stored in the bag before all entries have been sent.
  void SubmitWithResponse(const ParamBagRef& objResponse);

  // Splits a remark into remark elements and stores them in `strRMElement`, an array that counts from 0. For a text of
  // more than 32,767 elements, raises 2310 (the number of a private helper) and leaves `strRMElement` unchanged.
  void RMBatch(std::u16string_view strString, TextArray& strRMElement) const;

 private:
  std::vector<std::u16string> PackedEntries() const;

  ModuleState& state_;
  std::shared_ptr<CQueue> commands_;
  std::u16string separator_;
};

}  // namespace wendrill
