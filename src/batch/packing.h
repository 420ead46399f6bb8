// Converts queued commands to host entries. Each command is split into entries. The entries are then packed, in their
// order, into host entries of limited length.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// Splits a command at every separator (";" when `separator` is empty) and before every "<XMIT>", and appends the
// resulting entries to `entries`. Empty entries are dropped. Raises 6 (overflow) beyond 32,767 entries.
void AppendEntries(TextView command, TextView separator, std::vector<std::u16string>& entries);

// The packed entries: the entries in their order, joined with ";" according to these rules:
//   - An entry that begins with "RU" begins a packed entry.
//   - Entries are joined only when the result is shorter than 240 characters. A single entry that is longer is packed
//     alone.
//   - An entry with "<XMIT>" ends its packed entry. The "<XMIT>" itself is removed.
//   - A packed entry without text is dropped.
std::vector<std::u16string> Packed(const std::vector<std::u16string>& entries);

}  // namespace wendrill
