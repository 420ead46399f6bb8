// CBatch: packs the commands of a queue into host entries, sends the host entries one after another, and reports which
// of them the host rejected. CBatch also splits long remarks into remark elements.
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
  // Does not require a running session: a session is needed only when Submit or SubmitWithResponse sends an entry.
  explicit CBatch(ModuleState& state);

  CBatch(const CBatch&) = delete;
  CBatch& operator=(const CBatch&) = delete;

  // The queue of commands; initially a new, empty queue. Commands returns a shared reference to the queue, not a copy.
  // After SetCommands has received null, Submit and SubmitWithResponse fail.
  std::shared_ptr<CQueue> Commands() const;
  void SetCommands(std::shared_ptr<CQueue> Commands);

  // The separator between the entries of a command: Submit and SubmitWithResponse split each command of the queue at
  // the separator. Initially empty; an empty separator means ";".
  std::u16string Separator() const;
  void SetSeparator(std::u16string_view Separator);

  // Sends the commands of the queue as SubmitWithResponse does, without storing a result. Raises 2300 on any failure.
  void Submit();

  // Converts the commands of the queue to host entries (see packing.h), sends the host entries, and stores the result
  // in the caller's bag:
  //   - "strKeyResponseArray": the responses, in an array that counts from 0;
  //   - "strKeyErr": the numbers (counted from 1) of the host entries that the host rejected, joined with ",";
  //   - "blnKeyResponseOK": whether the host accepted all host entries.
  //
  // A host entry counts as accepted when its response contains "RP/", "*T*" or "*C*". Raises 2315 on any failure.
  // Nothing is stored in the bag before all host entries have been sent.
  void SubmitWithResponse(const ParamBagRef& objResponse);

  // Splits a remark into remark elements (see remark.h) and stores them in `strRMElement`, an array that counts from 0.
  // For a text of more than 32,767 elements, raises 2310 and leaves `strRMElement` unchanged.
  void RMBatch(std::u16string_view strString, TextArray& strRMElement) const;

 private:
  // The host entries into which the commands of the queue are packed. Raises 2310 on any failure; the calling member
  // replaces 2310 by its own number.
  std::vector<std::u16string> PackedEntries() const;

  ModuleState& state_;
  std::shared_ptr<CQueue> commands_;
  std::u16string separator_;
};

}  // namespace wendrill
