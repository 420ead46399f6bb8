#include "nearest_name.h"

#include "com/server/automation_types.h"
#include "core/nearest.h"
#include "known_names.h"

namespace wendrill::script_host {

std::wstring NearestRemark(const std::wstring& misspelled, const std::vector<std::wstring>& candidates) {
  std::vector<std::u16string_view> names;
  for (const std::wstring& candidate : candidates) {
    names.push_back(com::TextOf(std::wstring_view(candidate)));
  }
  const std::u16string_view nearest = simulator::NearestName(com::TextOf(std::wstring_view(misspelled)), names);
  return nearest.empty() ? std::wstring() : L"; nearest: " + std::wstring(com::WideOf(nearest));
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
  const std::wstring remark = NearestRemark(misspelled, ownNames);
  for (std::size_t index = 0; index < classes.size(); ++index) {
    if (remark.ends_with(L": " + ownNames[index])) {
      return L"; nearest: " + classes[index];
    }
  }
  return {};
}

}  // namespace wendrill::script_host
