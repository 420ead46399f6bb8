// The IEnumVARIANT that lets a script use For Each over a list of words.
#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "script_object.h"

namespace wendrill::script_host {

class WordEnumeration final : public com::CountedObject<com::CountOfAnyThread, NoLock, IEnumVARIANT> {
 public:
  // `next` is the position of the first word that Next returns, counted from 0.
  explicit WordEnumeration(std::vector<std::wstring> words, std::size_t next = 0);

  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

 private:
  std::vector<std::wstring> words_;
  std::size_t next_;
};

}  // namespace wendrill::script_host
