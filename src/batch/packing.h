// How queued commands become host entries: each command is split into entries, and these are packed into as few host
// entries as the maximum length of a host entry allows.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// Splits a command at every separator (";" when `separator` is empty) and before every "<XMIT>", and appends its
// entries to `entries`. Empty entries are dropped. Raises 6 (overflow) beyond 32,767 entries.
void AppendEntries(TextView command, TextView separator, std::vector<std::u16string>& entries);

// Packs entries in their order, joined with ";":
//   - an entry that begins with "RU" begins a packed entry;
//   - entries are joined only when the result is shorter than 240 characters; a longer single entry is packed alone;
//   - an entry with "<XMIT>" ends its packed entry; the marker itself is dropped.
// Packed entries without text are left out.
std::vector<std::u16string> Packed(const std::vector<std::u16string>& entries);

}  // namespace wendrill
