// For Each over a list of words.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

namespace wendrill::script_host {

class WordEnumeration final : public IEnumVARIANT {
 public:
  explicit WordEnumeration(std::vector<std::wstring> words, std::size_t next = 0);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID identity, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

 private:
  ~WordEnumeration() = default;

  std::vector<std::wstring> words_;
  std::size_t next_;
  ULONG references_ = 1;
};

}  // namespace wendrill::script_host
