#include "syntax_place.h"

#include <activscp.h>
#include <wrl/client.h>

#include <algorithm>
#include <vector>

#include "com/server/counted_object.h"
#include "engine.h"
#include "script_object.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;

// The greatest number of lines that FindInVbs tries. For each line, FindInVbs lets the engine parse the whole script
// without this line, so a higher number would make the report of an error slow.
constexpr std::size_t kMostLinesTried = 400;

// The error that an engine reports for a text. `status` is S_OK for a text without an error. Line and column count from
// 0, as the engine counts them.
struct Verdict {
  HRESULT status = S_OK;
  ULONG line = 0;
  LONG column = 0;
  friend bool operator==(const Verdict&, const Verdict&) = default;
};

// An IActiveScriptSite that stores the first error that the engine reports, and ignores later errors.
class VerdictSite final : public com::CountedObject<com::CountOfOneApartment, NoLock, IActiveScriptSite> {
 public:
  const Verdict& Result() const { return verdict_; }

  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
    return TYPE_E_ELEMENTNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
    if (verdict_.status == S_OK) {
      DWORD context = 0;
      EXCEPINFO exception{};
      error->GetExceptionInfo(&exception);
      SysFreeString(exception.bstrSource);
      SysFreeString(exception.bstrDescription);
      SysFreeString(exception.bstrHelpFile);
      error->GetSourcePosition(&context, &verdict_.line, &verdict_.column);
      verdict_.status = exception.scode;
    }
    return S_OK;
  }

 private:
  Verdict verdict_;
};

Verdict VerdictOn(const std::wstring& text, Language language) {
  const ComPtr<IActiveScript> engine = CreateEngine(language);
  ComPtr<VerdictSite> site;
  site.Attach(new VerdictSite());
  Parse(*engine.Get(), *site.Get(), text.c_str());
  engine->Close();
  return site->Result();
}

// Returns the end of each line: the position after its line feed. The end of a last line without a line feed is the end
// of the text.
std::vector<std::size_t> LineEnds(const std::wstring& text) {
  std::vector<std::size_t> ends;
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (text[index] == L'\n') {
      ends.push_back(index + 1);
    }
  }
  if (ends.empty() || ends.back() != text.size()) {
    ends.push_back(text.size());
  }
  return ends;
}

// Returns the closing brackets that are missing at the end of a JScript text, in the order in which they must follow.
std::wstring ClosersOf(const std::wstring& text) {
  std::wstring closers;
  for (const Token& token : TokensOf(text, Language::JScript)) {
    if (token.Is(L'(') || token.Is(L'[') || token.Is(L'{')) {
      closers.insert(closers.begin(), token.Is(L'(') ? L')' : token.Is(L'[') ? L']' : L'}');
    } else if (!closers.empty() && token.kind == Token::Kind::Symbol && token.text[0] == closers.front()) {
      closers.erase(closers.begin());
    }
  }
  return closers;
}

// Whether `start`, the beginning of a script, contains the mistake that the engine reported as `reported`. Appends each
// of several continuations to `start`, and lets the engine parse the result. Returns true when the engine reports
// exactly `reported` for every continuation, because then no continuation can repair `start`.
bool IsSettled(const std::wstring& start, const Verdict& reported) {
  const std::wstring closers = ClosersOf(start);
  const std::wstring followers[] = {L"",
                                    closers,
                                    L"0" + closers,
                                    L";" + closers,
                                    L"{}" + closers,
                                    L"a",
                                    L"=0",
                                    L")",
                                    L"]",
                                    L"}",
                                    L":0",
                                    L"(a){}" + closers,
                                    L"*/",
                                    L"while(0)" + closers,
                                    L"catch(e){}" + closers};
  return std::all_of(std::begin(followers), std::end(followers), [&](const std::wstring& follower) {
    return VerdictOn(start + L"\n" + follower, Language::JScript) == reported;
  });
}

std::optional<SyntaxPlace> FindInJScript(const std::wstring& text, SyntaxPlace reportedPlace) {
  const Verdict reported = VerdictOn(text, Language::JScript);
  const std::vector<std::size_t> ends = LineEnds(text);
  if (!IsSettled(text, reported)) {
    return std::nullopt;  // the mistake is that something is missing at the end of the text
  }
  // Binary search for the line of the mistake: IsSettled is false while the beginning of the text ends before that
  // line, and true once the beginning contains that line.
  const auto found = std::partition_point(ends.begin(), ends.end(),
                                          [&](std::size_t end) { return !IsSettled(text.substr(0, end), reported); });
  const auto line = static_cast<ULONG>(found - ends.begin() + 1);
  return SyntaxPlace{line, line == reportedPlace.line ? reportedPlace.column : 0};
}

// Returns the first token of each statement of the form "Name(one, two)" or "Object.Name(one, two)". Such a statement
// is a syntax error: without Call, VBScript does not allow parentheses around several arguments.
std::vector<Token> ParenthesisedCalls(const std::wstring& text) {
  const std::vector<Token> tokens = TokensOf(text, Language::VBScript);
  std::vector<Token> calls;
  bool atStart = true;
  for (std::size_t index = 0; index < tokens.size(); ++index) {
    const Token& first = tokens[index];
    const bool begins = atStart && first.kind == Token::Kind::Name;
    atStart = first.kind == Token::Kind::LineEnd || first.Is(L':') || first.IsName(L"Then", Language::VBScript) ||
              first.IsName(L"Else", Language::VBScript);
    std::size_t next = index + 1;
    while (begins && next + 1 < tokens.size() && tokens[next].Is(L'.') && tokens[next + 1].kind == Token::Kind::Name) {
      next += 2;
    }
    if (!begins || next >= tokens.size() || !tokens[next].Is(L'(')) {
      continue;
    }
    int depth = 0;
    bool several = false;
    for (; next < tokens.size() && tokens[next].kind != Token::Kind::LineEnd; ++next) {
      depth += tokens[next].Is(L'(') ? 1 : tokens[next].Is(L')') ? -1 : 0;
      several = several || (depth == 1 && tokens[next].Is(L','));
      if (depth == 0) {
        break;
      }
    }
    const bool ends = next + 1 >= tokens.size() || tokens[next + 1].kind == Token::Kind::LineEnd ||
                      tokens[next + 1].Is(L':') || tokens[next + 1].IsName(L"Else", Language::VBScript);
    if (several && depth == 0 && ends) {
      calls.push_back(first);
    }
  }
  return calls;
}

// Returns the text in which the line `line`, counted from 0, is empty.
std::wstring WithoutLine(const std::wstring& text, const std::vector<std::size_t>& ends, std::size_t line) {
  const std::size_t start = line == 0 ? 0 : ends[line - 1];
  std::wstring changed = text;
  changed.replace(start, ends[line] - start, L"\n");
  return changed;
}

std::optional<SyntaxPlace> FindInVbs(const std::wstring& text, SyntaxPlace reported) {
  if (reported.line != 1 || reported.column != 1) {
    return reported;  // the parser itself found the error, and reports the right place
  }
  const std::vector<Token> calls = ParenthesisedCalls(text);
  if (!calls.empty()) {
    return SyntaxPlace{calls.front().line, calls.front().column};
  }
  // Empties one line at a time. The mistake is in the first line without which the text has no error.
  const std::vector<std::size_t> ends = LineEnds(text);
  for (std::size_t line = 0; line < std::min(ends.size(), kMostLinesTried); ++line) {
    if (VerdictOn(WithoutLine(text, ends, line), Language::VBScript).status == S_OK) {
      return SyntaxPlace{static_cast<ULONG>(line + 1), line == 0 ? 1UL : 0UL};
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<SyntaxPlace> FindSyntaxError(const std::wstring& text, Language language, SyntaxPlace reported) {
  return language == Language::VBScript ? FindInVbs(text, reported) : FindInJScript(text, reported);
}

}  // namespace wendrill::script_host
