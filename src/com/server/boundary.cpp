#include "com/server/boundary.h"

#include <exception>
#include <new>

#include "com/server/automation_types.h"
#include "common/error.h"
#include "common/text.h"

namespace wendrill::com {
namespace {

void LeaveErrorInformation(const Error& error) noexcept {
  Reference<ICreateErrorInfo> creation;
  if (FAILED(CreateErrorInfo(creation.Receive()))) {
    return;
  }
  // SetSource and SetDescription copy the strings, so the const_cast is safe.
  creation->SetSource(const_cast<LPOLESTR>(WideOf(error.Source().c_str())));
  creation->SetDescription(const_cast<LPOLESTR>(WideOf(error.Description().c_str())));
  if (auto information = creation.As<IErrorInfo>()) {
    SetErrorInfo(0, information.Get());
  }
}

HRESULT Report(const Error& error) noexcept {
  LeaveErrorInformation(error);
  // A component may by mistake raise an error whose number is a success code. Then the status is E_FAIL, because the
  // caller must still receive a failure.
  const HRESULT status = StatusOfNumber(error.Number());
  return FAILED(status) ? status : E_FAIL;
}

// The description of a failure for which the callee gave no description. When `number` is one of RunTimeError: the
// automation run time's standard description of that error. For any other number: the system's message for `status`;
// "Automation error" when the system has no message.
std::u16string FallbackDescription(HRESULT status, std::int32_t number) {
  const std::u16string_view standard = DescriptionOf(static_cast<RunTimeError>(number));
  if (!standard.empty()) {
    return std::u16string(standard);
  }
  std::u16string text = SystemText(status);
  return text.empty() ? u"Automation error" : text;
}

// Raises a failed call as an Error. `source` and `description` are the callee's error information; both are empty when
// the callee gave none.
// - When `description` is not empty: the Error has the number of the status (NumberOfStatus), `source` and
//   `description`.
// - When `description` is empty: the Error has the number of NumberOfBareStatus, `source` and the description of
//   FallbackDescription. An empty `source` is replaced with the library's name when the number is that of a run-time
//   error.
// Intentional: without a description, the number is that of NumberOfBareStatus even when the callee gave a source, as
// if there were no error information. The automation run time does this too.
[[noreturn]] void RaiseWith(HRESULT status, std::u16string_view source, std::u16string_view description) {
  if (!description.empty()) {
    throw Error(NumberOfStatus(status), std::u16string(source), std::u16string(description));
  }
  const std::int32_t number = NumberOfBareStatus(status);
  if (source.empty() && !DescriptionOf(static_cast<RunTimeError>(number)).empty()) {
    source = kLibraryTitle;
  }
  throw Error(number, std::u16string(source), FallbackDescription(status, number));
}

}  // namespace

std::u16string SystemText(HRESULT status) {
  wchar_t* characters = nullptr;
  DWORD length =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, static_cast<DWORD>(status), 0, reinterpret_cast<wchar_t*>(&characters), 0, nullptr);
  while (length > 0 && characters[length - 1] <= L' ') {
    --length;
  }
  std::u16string text(TextOf(characters, length));
  LocalFree(characters);
  return text;
}

HRESULT ReportCurrentException() noexcept {
  try {
    throw;
  } catch (const Error& error) {
    return Report(error);
  } catch (const std::bad_alloc&) {
    SetErrorInfo(0, nullptr);
    return E_OUTOFMEMORY;
  } catch (const std::exception& exception) {
    try {
      return Report(Error(E_UNEXPECTED, std::u16string(kLibraryTitle), FromUtf8(exception.what())));
    } catch (...) {
      return E_UNEXPECTED;
    }
  } catch (...) {
    SetErrorInfo(0, nullptr);
    return E_UNEXPECTED;
  }
}

HRESULT FillException(HRESULT status, EXCEPINFO* exception) noexcept {
  Reference<IErrorInfo> information;
  if (exception == nullptr || GetErrorInfo(0, information.Receive()) != S_OK) {
    return status;
  }
  *exception = EXCEPINFO{};
  information->GetSource(&exception->bstrSource);
  information->GetDescription(&exception->bstrDescription);
  exception->scode = status;
  return DISP_E_EXCEPTION;
}

void RaiseStatus(HRESULT status) {
  Reference<IErrorInfo> information;
  OwnedString source;
  OwnedString description;
  if (GetErrorInfo(0, information.Receive()) == S_OK) {
    information->GetSource(source.Receive());
    information->GetDescription(description.Receive());
  }
  RaiseWith(status, source.Text(), description.Text());
}

void RaiseStatusOf(HRESULT status, IUnknown* callee, REFIID calledInterface) {
  Reference<ISupportErrorInfo> support;
  callee->QueryInterface(IID_ISupportErrorInfo, support.ReceiveVoid());
  if (!support || support->InterfaceSupportsErrorInfo(calledInterface) != S_OK) {
    SetErrorInfo(0, nullptr);
  }
  RaiseStatus(status);
}

void RaiseDispatchFailure(HRESULT status, EXCEPINFO& exception) {
  OwnedString source;
  OwnedString description;
  OwnedString helpFile;
  if (status != DISP_E_EXCEPTION) {
    RaiseWith(status, {}, {});
  }
  if (exception.pfnDeferredFillIn != nullptr) {
    exception.pfnDeferredFillIn(&exception);
  }
  *source.Receive() = exception.bstrSource;
  *description.Receive() = exception.bstrDescription;
  *helpFile.Receive() = exception.bstrHelpFile;
  // Old servers set a 16-bit error number (wCode) instead of a status code (scode).
  const HRESULT code = exception.scode != 0 ? exception.scode : StatusOfNumber(exception.wCode);
  RaiseWith(FAILED(code) ? code : E_FAIL, source.Text(), description.Text());
}

}  // namespace wendrill::com
