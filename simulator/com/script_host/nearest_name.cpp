#include "nearest_name.h"

#include <algorithm>

#include "com/server/automation_types.h"
#include "core/nearest.h"
#include "known_names.h"

namespace wendrill::script_host {

namespace {

std::wstring Remark(const std::wstring& nearest) {
  return nearest.empty() ? nearest : L"; nearest: " + nearest;
}

}  // namespace

std::wstring NearestOf(const std::wstring& misspelled, const std::vector<std::wstring>& candidates) {
  std::vector<std::u16string_view> names;
  for (const std::wstring& candidate : candidates) {
    names.push_back(com::TextOf(std::wstring_view(candidate)));
  }
  return std::wstring(com::WideOf(simulator::NearestName(com::TextOf(std::wstring_view(misspelled)), names)));
}

std::wstring NearestRemark(const std::wstring& misspelled, const std::vector<std::wstring>& candidates) {
  return Remark(NearestOf(misspelled, candidates));
}

std::wstring NearestClassRemark(const std::wstring& misspelled) {
  const std::vector<std::wstring> classes = KnownClasses();
  if (misspelled.find(L'.') != std::wstring::npos) {
    return NearestRemark(misspelled, classes);
  }
  std::vector<std::wstring> ownNames;
  for (const std::wstring& name : classes) {
    ownNames.push_back(name.substr(name.find(L'.') + 1));
  }
  const auto own = std::find(ownNames.begin(), ownNames.end(), NearestOf(misspelled, ownNames));
  return own == ownNames.end() ? std::wstring() : Remark(classes[static_cast<std::size_t>(own - ownNames.begin())]);
}

}  // namespace wendrill::script_host
