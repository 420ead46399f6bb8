// Suggests in error messages the known name that is nearest to a misspelled one.
#pragma once

#include <string>
#include <vector>

namespace wendrill::script_host {

// Returns the nearest candidate; empty when no candidate is near (simulator/core/nearest.h).
std::wstring NearestOf(const std::wstring& misspelled, const std::vector<std::wstring>& candidates);

// Returns "; nearest: " and the nearest candidate; empty when no candidate is near.
std::wstring NearestRemark(const std::wstring& misspelled, const std::vector<std::wstring>& candidates);

// Returns "; nearest: " and the nearest known class; empty when none is near. A misspelled name without a dot is
// compared with the part of each class name after the dot.
std::wstring NearestClassRemark(const std::wstring& misspelled);

}  // namespace wendrill::script_host
