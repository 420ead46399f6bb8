// CBatch: sends the entries of a queue one after another and reports which of them the host refused; cuts long remarks.
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
  explicit CBatch(ModuleState& module);

  CBatch(const CBatch&) = delete;
  CBatch& operator=(const CBatch&) = delete;

  // The queue of entries, by reference; a new, empty one at first.
  std::shared_ptr<CQueue> Commands() const;
  void SetCommands(std::shared_ptr<CQueue> Commands);

  // What cuts a queued command into entries; empty, as at first, means ";".
  std::u16string Separator() const;
  void SetSeparator(std::u16string_view Separator);

  // Sends the batch. 2300.
  void Submit();

  // Sends the batch and reports in the caller's bag: "strKeyResponseArray", the responses as an array from 0;
  // "strKeyErr", the numbers (counted from 1) of the host entries that the host refused, joined with ","; and
  // "blnKeyResponseOK", whether it refused none. A response is accepted that holds "RP/", "*T*" or "*C*". 2315; the bag
  // is not touched before everything has been sent.
  void SubmitWithResponse(const ParamBagRef& objResponse);

  // Cuts a remark into elements, handed back in `strRMElement`, counted from 0. 2310, the number of its helper, for a
  // text of more than 32,767 elements; `strRMElement` is not touched then.
  void RMBatch(std::u16string_view strString, TextArray& strRMElement) const;

 private:
  std::vector<std::u16string> PackedEntries() const;

  ModuleState& module_;
  std::shared_ptr<CQueue> commands_;
  std::u16string separator_;
};

}  // namespace wendrill
