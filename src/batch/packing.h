// How queued commands become host entries: cut into entries, then packed into as few host entries as the host's line
// holds.
#pragma once

#include <string>
#include <vector>

#include "common/text.h"

namespace wendrill {

// Cuts a command at every separator (";" where it is empty) and in front of every "<XMIT>", and appends its entries to
// `entries`; empty ones vanish. Entries count in 16 bits: overflow (6) beyond 32,767.
void AppendEntries(TextView command, TextView separator, std::vector<std::u16string>& entries);

// Packs entries in their order, joined with ";":
//   - an entry that begins with "RU" begins a packed entry;
//   - no joining makes a packed entry of 240 characters or more; a single entry of that length stands alone;
//   - an entry with "<XMIT>" ends its packed entry; the marker itself is dropped.
// Packed entries without text are left out.
std::vector<std::u16string> Packed(const std::vector<std::u16string>& entries);

}  // namespace wendrill
