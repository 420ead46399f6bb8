// The name nearest to a misspelled one, for messages.
#pragma once

#include <string>
#include <vector>

namespace wendrill::script_host {

// The nearest candidate; empty when no candidate is near.
std::wstring NearestOf(const std::wstring& misspelled, const std::vector<std::wstring>& candidates);

// "; nearest: " and the nearest candidate, or nothing when no candidate is near.
std::wstring NearestRemark(const std::wstring& misspelled, const std::vector<std::wstring>& candidates);

// The same for a class's name; its part after the dot alone may be what was written.
std::wstring NearestClassRemark(const std::wstring& misspelled);

}  // namespace wendrill::script_host
