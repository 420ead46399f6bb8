// Suggests in error messages the known name that is nearest to a misspelled name.
#pragma once

#include <string>
#include <vector>

namespace wendrill::script_host {

// Returns the nearest candidate; empty when no candidate is near enough (NearLimit in simulator/core/nearest.h).
std::wstring NearestOf(const std::wstring& misspelled, const std::vector<std::wstring>& candidates);

// Returns "; nearest: " and the nearest candidate; empty when no candidate is near enough.
std::wstring NearestRemark(const std::wstring& misspelled, const std::vector<std::wstring>& candidates);

// Returns "; nearest: " and the nearest known ProgID; empty when no known ProgID is near enough. A misspelled name
// without a dot is compared with the part of each known ProgID after the dot.
std::wstring NearestClassRemark(const std::wstring& misspelled);

}  // namespace wendrill::script_host
