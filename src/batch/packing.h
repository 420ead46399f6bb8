// Converts queued commands to host entries in two steps. AppendEntries splits each command into entries. Packed joins
// these entries, in their order, to packed entries of limited length: a packed entry consists of one or several entries
// with ";" between them, and is sent as one host entry.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// Splits a command at every separator (";" when `separator` is empty), before every "<XMIT>" and at every U+00A4, and
// appends the resulting entries to `entries`. Empty entries are dropped. Raises 6 (overflow) when `entries` would
// contain more than 32,767 entries.
void AppendEntries(TextView command, TextView separator, std::vector<std::u16string>& entries);

// The packed entries, each of which is sent as one host entry: the entries in their order, joined with ";" according to
// these rules:
//   - An entry that begins with "RU" begins a new packed entry.
//   - Entries are joined only when the result is shorter than 240 characters. A single entry of 240 characters or more
//     is packed alone.
//   - An entry that contains "<XMIT>" is the last entry of its packed entry. The text "<XMIT>" is removed.
//   - A packed entry without text is dropped.
std::vector<std::u16string> Packed(const std::vector<std::u16string>& entries);

}  // namespace wendrill
