#include "error_explanation.h"

#include <wrl/client.h>

#include <algorithm>
#include <optional>

#include "known_names.h"
#include "late_bound.h"
#include "nearest_name.h"

namespace wendrill::script_host {

namespace {

using Microsoft::WRL::ComPtr;
using Kind = Token::Kind;

constexpr HRESULT StatusOf(long number) {
  return static_cast<HRESULT>(0x800A0000 + static_cast<unsigned long>(number));
}

constexpr HRESULT kDivisionByZero = StatusOf(11);
constexpr HRESULT kTypeMismatch = StatusOf(13);
constexpr HRESULT kObjectNotSet = StatusOf(91);
constexpr HRESULT kObjectRequired = StatusOf(424);
constexpr HRESULT kCannotCreate = StatusOf(429);
constexpr HRESULT kNoSuchMember = StatusOf(438);
constexpr HRESULT kActionNotSupported = StatusOf(445);
constexpr HRESULT kUndefined = StatusOf(500);
constexpr HRESULT kObjectExpected = StatusOf(5007);

constexpr wchar_t kVbsSource[] = L"Microsoft VBScript runtime error";
constexpr wchar_t kJsSource[] = L"Microsoft JScript runtime error";
constexpr wchar_t kNoBag[] = L"not a parameter bag: use Pellorin.ParamBag or Scripting.Dictionary";

// The IID of the interface of a parameter bag, as in the type library.
constexpr IID kBag = {0xEA8F1BCD, 0x2A96, 0x41B2, {0xBE, 0x75, 0xEF, 0xF0, 0x31, 0x8B, 0xAE, 0xC4}};

class Explanation {
 public:
  Explanation(ScriptError& error, const ScriptPlace& place)
      : error_(error),
        place_(place),
        tokens_(TokensOf(place.text, place.language)),
        statement_(StatementAt(tokens_, place.line, place.column, place.language)) {}

  void Run() {
    if (IsOfTheEngine()) {
      GivePlatformNumber();
      NameMember();
      NameClass();
      NameMissingFunction();
    }
    NameWrongBag();
  }

 private:
  bool IsVbs() const { return place_.language == Language::VBScript; }

  // Whether the engine itself raised the error, and not an object that the script called. An error without a source
  // counts as an error of the engine.
  bool IsOfTheEngine() const {
    return error_.source.empty() || error_.source == kVbsSource || error_.source == kJsSource;
  }

  // Whether the description already contains a name in quotes. Windows' engines, for example, name an unknown member.
  bool NamesSomething() const { return error_.description.find(L": '") != std::wstring::npos; }

  void Become(HRESULT status, std::wstring description) {
    error_.status = status;
    error_.source = IsVbs() ? kVbsSource : kJsSource;
    error_.description = std::move(description);
  }

  // ---- Errors that Wine's engines report without number ----

  // Replaces an error of Wine's engine by the error number and the text that Windows' engine reports in its place:
  // - a division by zero becomes 11 (division by zero);
  // - an unknown member becomes 438 (no such member);
  // - in VBScript with Option Explicit, E_FAIL or 438 becomes 500 (variable is undefined) if the statement uses an
  //   undeclared name;
  // - in VBScript without Option Explicit, 438 becomes 13 (type mismatch) if the statement calls an undeclared
  //   procedure;
  // - in VBScript, any other E_FAIL becomes 91 (object variable not set) or 424 (object required) if RequireObject
  //   finds that an object is missing.
  void GivePlatformNumber() {
    if (error_.status == DISP_E_DIVBYZERO) {
      return Become(kDivisionByZero, L"Division by zero");
    }
    if (error_.status == DISP_E_UNKNOWNNAME || error_.status == DISP_E_MEMBERNOTFOUND) {
      return Become(kNoSuchMember, L"Object doesn't support this property or method");
    }
    const bool vague = error_.status == E_FAIL || error_.status == kNoSuchMember;
    if (!IsVbs() || !vague) {
      return;
    }
    if (const Token* name = UnknownName()) {
      return NameUnknown(std::wstring(name->text));
    }
    if (error_.status == E_FAIL) {
      RequireObject();
    }
  }

  // Returns the first name in the statement that the script does not declare and that can cause the error; null when
  // the statement has no such name. With Option Explicit, every undeclared name can cause the error. Without Option
  // Explicit, only the name of a called procedure can, and only for an error 438 (no such member).
  const Token* UnknownName() const {
    const bool explicitly = DeclaresAll();
    for (std::size_t index = 0; index < statement_.size(); ++index) {
      const Token& token = statement_[index];
      const bool isMember = index > 0 && statement_[index - 1].Is(L'.');
      if (token.kind != Kind::Name || isMember || IsWordOfVbs(token.text) || IsDeclared(token.text)) {
        continue;
      }
      // Without Option Explicit, an undeclared variable has the value Empty, and reading the variable is no error. A
      // call of an undeclared procedure is an error.
      const bool isCalled =
          index == 0 ? !BeginsAssignment() : index + 1 < statement_.size() && statement_[index + 1].Is(L'(');
      const bool hasMember = index + 1 < statement_.size() && statement_[index + 1].Is(L'.');
      if (explicitly || (isCalled && !hasMember && error_.status == kNoSuchMember)) {
        return &token;
      }
    }
    return nullptr;
  }

  // Whether the script contains Option Explicit.
  bool DeclaresAll() const {
    for (std::size_t index = 0; index + 1 < tokens_.size(); ++index) {
      if (tokens_[index].IsName(L"Option", place_.language) &&
          tokens_[index + 1].IsName(L"Explicit", place_.language)) {
        return true;
      }
    }
    return false;
  }

  // Whether the statement has a "=" outside of parentheses, as an assignment has: x = 3, x.y = 3, x(1) = 3.
  bool BeginsAssignment() const {
    int depth = 0;
    for (const Token& token : statement_) {
      depth += token.Is(L'(') ? 1 : token.Is(L')') ? -1 : 0;
      if (depth == 0 && token.Is(L'=')) {
        return true;
      }
    }
    return false;
  }

  // Whether the script declares the name with Dim, ReDim, Const, Public or Private, or as a procedure, a property, a
  // parameter or a class.
  bool IsDeclared(std::wstring_view name) const {
    bool inDeclaration = false;
    for (std::size_t index = 0; index < tokens_.size(); ++index) {
      const Token& token = tokens_[index];
      if (token.kind == Kind::LineEnd || token.Is(L':')) {
        inDeclaration = false;
      } else if (IsDeclaring(token)) {
        inDeclaration = true;
      } else if (inDeclaration && token.IsName(name, place_.language)) {
        return true;
      }
    }
    return false;
  }

  bool IsDeclaring(const Token& token) const {
    constexpr std::wstring_view kWords[] = {L"Dim", L"Const",    L"Public", L"Private", L"ReDim",
                                            L"Sub", L"Function", L"Class",  L"Property"};
    return std::any_of(std::begin(kWords), std::end(kWords),
                       [&](std::wstring_view word) { return token.IsName(word, place_.language); });
  }

  void NameUnknown(const std::wstring& name) {
    std::vector<std::wstring> candidates = FunctionsOfVbs();
    for (const Token& token : tokens_) {
      if (token.kind == Kind::Name && IsDeclared(token.text)) {
        candidates.emplace_back(token.text);
      }
    }
    const std::wstring remark = L": '" + name + L"'" + NearestRemark(name, candidates);
    if (DeclaresAll()) {
      Become(kUndefined, L"Variable is undefined" + remark);
    } else {
      Become(kTypeMismatch, L"Type mismatch" + remark);  // as Windows' engine reports a call of an unknown name
    }
  }

  // Changes the error when an object is missing in the statement:
  // - to 91 (object variable not set) when the statement accesses a member of a global variable that is Nothing;
  // - to 424 (object required) when the statement accesses a member of a global variable whose value is no object, such
  //   as Empty, a number or a string;
  // - otherwise to 424 when the statement accesses a member of a variable that cannot be read, such as a local
  //   variable;
  // - otherwise to 424 when the statement begins with Set.
  // When the statement contains both a 91 and a 424 of the first two cases, the first access in the statement decides.
  // In all other cases the error remains unchanged.
  void RequireObject() {
    std::vector<std::wstring> unread;  // variables that cannot be read (local ones); "" for other expressions
    for (const Member& member : MembersOfStatement()) {
      OwnedVariant value;
      if (!ReadGlobal(member.receiver, &value)) {
        unread.push_back(member.receiver);
      } else if (V_VT(&value) != VT_DISPATCH) {
        return Become(kObjectRequired, L"Object required: '" + member.receiver + L"'");
      } else if (V_DISPATCH(&value) == nullptr) {
        return Become(kObjectNotSet, L"Object variable not set: '" + member.receiver + L"'");
      }
    }
    std::erase_if(unread, [](const std::wstring& name) { return name.empty() || IsWordOfVbs(name); });
    if (unread.size() == 1) {
      Become(kObjectRequired, L"Object required: '" + unread.front() + L"'");
    } else if (!unread.empty() || (!statement_.empty() && statement_.front().IsName(L"Set", place_.language))) {
      Become(kObjectRequired, L"Object required");
    }
  }

  // ---- 438 (no such member) ----

  // One access to a member in the statement.
  struct Member {
    std::wstring receiver;  // the variable before the dot; empty when there is another expression before the dot
    std::wstring name;
  };

  std::vector<Member> MembersOfStatement() const {
    std::vector<Member> members;
    for (std::size_t index = 0; index + 1 < statement_.size(); ++index) {
      if (!statement_[index].Is(L'.') || statement_[index + 1].kind != Kind::Name) {
        continue;
      }
      const bool afterVariable =
          index > 0 && statement_[index - 1].kind == Kind::Name && (index == 1 || !statement_[index - 2].Is(L'.'));
      members.push_back({afterVariable ? std::wstring(statement_[index - 1].text) : std::wstring(),
                         std::wstring(statement_[index + 1].text)});
    }
    return members;
  }

  // Adds the name of the unknown member and the nearest known member to an error 438 (no such member). An error 5007
  // (object expected) of JScript becomes an error 438 when the statement uses an unknown member of a global object.
  void NameMember() {
    // In JScript a misspelled property has the value undefined, and the call of undefined fails with 5007 (object
    // expected).
    const bool fits = error_.status == kNoSuchMember || (!IsVbs() && error_.status == kObjectExpected);
    if (!fits || NamesSomething()) {
      return;  // another kind of error, or the engine's description already names the member
    }
    const std::vector<Member> members = MembersOfStatement();
    for (const Member& member : members) {
      if (const auto object = GlobalObject(member.receiver)) {
        if (!HasMember(*object.Get(), member.name)) {
          return NameMember(member.name, MembersOf(*object.Get()));
        }
      }
    }
    if (error_.status != kNoSuchMember) {
      return;
    }
    const std::vector<std::wstring> known = KnownMembers();
    for (const Member& member : members) {
      const bool isKnown = std::any_of(known.begin(), known.end(), [&](const std::wstring& name) {
        return SameName(name, member.name, Language::VBScript);
      });
      if (!isKnown && !GlobalObject(member.receiver)) {
        return NameMember(member.name, known);
      }
    }
    if (members.size() == 1) {
      NameMember(members.front().name, {});
    }
  }

  void NameMember(const std::wstring& name, std::vector<std::wstring> candidates) {
    if (candidates.empty()) {
      candidates = KnownMembers();
    }
    // When a candidate equals the name, the name is spelled correctly but is a member of another object. In that case
    // no nearest name is suggested.
    const bool isKnown = NearestOf(name, candidates) == name;
    const std::wstring remark = isKnown ? std::wstring() : NearestRemark(name, candidates);
    Become(kNoSuchMember, L"Object doesn't support this property or method: '" + name + L"'" + remark);
  }

  static bool HasMember(IDispatch& object, const std::wstring& name) {
    auto* asked = const_cast<LPOLESTR>(name.c_str());
    DISPID id = DISPID_UNKNOWN;
    return SUCCEEDED(object.GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id));
  }

  // ---- 429 (cannot create object) ----

  // Returns the ProgID that the statement writes as a string: in CreateObject("ProgID") for VBScript, in
  // ActiveXObject("ProgID") for JScript. nullopt when the statement contains no such call.
  std::optional<std::wstring> ClassOfStatement() const {
    for (std::size_t index = 0; index + 2 < statement_.size(); ++index) {
      const bool creates = statement_[index].IsName(IsVbs() ? L"CreateObject" : L"ActiveXObject", place_.language);
      if (creates && statement_[index + 1].Is(L'(') && statement_[index + 2].kind == Kind::String) {
        return std::wstring(statement_[index + 2].text);
      }
    }
    return std::nullopt;
  }

  // Adds the ProgID of the statement to an error 429 (cannot create object). When no class has this ProgID, also adds
  // the nearest known ProgID. When a class has this ProgID, creates the object once more to find out why the creation
  // failed, and adds the reason if the creation fails again.
  void NameClass() {
    const auto className = error_.status == kCannotCreate ? ClassOfStatement() : std::nullopt;
    if (!className || NamesSomething()) {
      return;
    }
    Become(kCannotCreate, error_.description + L": '" + *className + L"'");
    if (!IsClass(*className)) {
      error_.description += NearestClassRemark(*className);
      return;
    }
    try {  // the engine dropped the reason of the failure; creating the object again reports the reason
      ComPtr<IDispatch> again;
      again.Attach(CreateByName(*className));
    } catch (const Failure& failure) {
      error_.reasons.push_back(failure.source + L": " + failure.description + L" (" +
                               std::to_wstring(NumberOf(failure.status)) + L")");
    }
  }

  // ---- 445 (action not supported) ----

  // Adds the name of VBScript's function in the statement to an error 445 (action not supported), which the engine
  // raises for a function that it does not implement. Adds nothing when the statement contains several functions.
  void NameMissingFunction() {
    if (!IsVbs() || error_.status != kActionNotSupported) {
      return;
    }
    const Token* found = nullptr;
    const std::vector<std::wstring> functions = FunctionsOfVbs();
    for (std::size_t index = 0; index < statement_.size(); ++index) {
      const bool isFunction = std::any_of(functions.begin(), functions.end(), [&](const std::wstring& name) {
        return statement_[index].IsName(name, place_.language);
      });
      if (isFunction && (index == 0 || !statement_[index - 1].Is(L'.'))) {
        if (found != nullptr) {
          return;  // two functions in the statement: the cause is not known
        }
        found = &statement_[index];
      }
    }
    if (found != nullptr) {
      error_.description += L": '" + std::wstring(found->text) + L"'";
    }
  }

  // ---- Wrong parameter bags ----

  // Adds a reason to the error when the statement calls a member of the library that takes a parameter bag, but passes
  // something that is not a parameter bag for that parameter.
  void NameWrongBag() {
    for (std::size_t index = 0; index + 1 < statement_.size(); ++index) {
      if (!statement_[index].Is(L'.') || statement_[index + 1].kind != Kind::Name) {
        continue;
      }
      const int place = PlaceOfBag(statement_[index + 1].text);
      const auto argument = place < 0 ? std::nullopt : ArgumentAt(index + 2, place);
      if (argument && IsNoBag(*argument)) {
        error_.reasons.push_back(ShownArgument(*argument) + L" is " + kNoBag);
        return;
      }
    }
  }

  // Returns the token of one argument of a call; nullopt when the argument is missing or has several tokens. The
  // arguments begin at the token `start`, with or without a parenthesis. `place` is the position of the argument,
  // counted from 0.
  std::optional<Token> ArgumentAt(std::size_t start, int place) const {
    std::vector<Token> argument;
    int depth = 0;
    const bool inParentheses = start < statement_.size() && statement_[start].Is(L'(');
    for (std::size_t index = start + (inParentheses ? 1 : 0); index < statement_.size(); ++index) {
      const Token& token = statement_[index];
      depth += token.Is(L'(') || token.Is(L'{') ? 1 : token.Is(L')') || token.Is(L'}') ? -1 : 0;
      if (depth < 0 || (depth == 0 && token.Is(L',') && place == 0)) {
        break;
      }
      if (depth == 0 && token.Is(L',')) {
        --place;
      } else if (place == 0) {
        argument.push_back(token);
      }
    }
    return argument.size() == 1 ? std::optional(argument.front()) : std::nullopt;
  }

  // Whether the argument is certainly not a parameter bag. True for:
  // - a string, a number, Nothing (VBScript) and null (JScript);
  // - a global variable that contains Nothing or a value that is not an object, except JScript's undefined;
  // - a global variable whose object neither implements a parameter bag's interface nor has a member Exists.
  // For a variable that cannot be read, such as a local variable, returns IsCreatedAsAnother. False in all other cases.
  bool IsNoBag(const Token& argument) const {
    if (argument.kind == Kind::String || argument.kind == Kind::Number ||
        argument.IsName(IsVbs() ? L"Nothing" : L"null", place_.language)) {
      return true;
    }
    OwnedVariant value;
    if (argument.kind != Kind::Name || !ReadGlobal(std::wstring(argument.text), &value)) {
      return IsCreatedAsAnother(argument);
    }
    if (V_VT(&value) != VT_DISPATCH) {
      return V_VT(&value) != VT_EMPTY || IsVbs();
    }
    if (V_DISPATCH(&value) == nullptr) {
      return true;
    }
    ComPtr<IUnknown> bag;
    const HRESULT isBag = V_DISPATCH(&value)->QueryInterface(kBag, reinterpret_cast<void**>(bag.GetAddressOf()));
    return FAILED(isBag) && !HasMember(*V_DISPATCH(&value), L"Exists");
  }

  // Whether the script assigns to the variable, and every assigned value is a new object of one of the library's own
  // classes, created by CreateObject or new ActiveXObject. Used for a variable whose value cannot be read, such as a
  // local variable.
  bool IsCreatedAsAnother(const Token& variable) const {
    bool isAnother = false;
    for (std::size_t index = 0; index + 1 < tokens_.size(); ++index) {
      if (!tokens_[index].IsName(variable.text, place_.language) || !tokens_[index + 1].Is(L'=')) {
        continue;
      }
      std::size_t next = index + 2;
      while (next < tokens_.size() && (tokens_[next].IsName(L"WScript", place_.language) || tokens_[next].Is(L'.') ||
                                       tokens_[next].IsName(L"new", place_.language))) {
        ++next;
      }
      const bool creates = next + 2 < tokens_.size() && tokens_[next + 1].Is(L'(') &&
                           tokens_[next + 2].kind == Kind::String &&
                           (tokens_[next].IsName(L"CreateObject", place_.language) ||
                            tokens_[next].IsName(L"ActiveXObject", place_.language));
      if (!creates) {
        return false;
      }
      const std::wstring_view className = tokens_[next + 2].text;
      isAnother = className != L"Pellorin.ParamBag" && className != L"Scripting.Dictionary" &&
                  className.starts_with(L"Wendrill23.");
      if (!isAnother) {
        return false;
      }
    }
    return isAnother;
  }

  static std::wstring ShownArgument(const Token& argument) {
    return argument.kind == Kind::String ? L"\"" + std::wstring(argument.text) + L"\"" : std::wstring(argument.text);
  }

  // ---- Global variables ----

  // Stores the value of a global variable in `value` and returns true. Returns false when the script has no global
  // variable of this name, or when the variable cannot be read.
  bool ReadGlobal(const std::wstring& name, VARIANT* value) const {
    if (place_.globals == nullptr || name.empty()) {
      return false;
    }
    try {
      auto* asked = const_cast<LPOLESTR>(name.c_str());
      DISPID id = DISPID_UNKNOWN;
      DISPPARAMS none{};
      return SUCCEEDED(place_.globals->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id)) &&
             SUCCEEDED(place_.globals->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value,
                                              nullptr, nullptr));
    } catch (const Failure&) {
      return false;
    }
  }

  // Returns the object in a global variable. Returns null when the variable contains Nothing, contains a value that is
  // not an object, or cannot be read.
  ComPtr<IDispatch> GlobalObject(const std::wstring& name) const {
    OwnedVariant value;
    if (ReadGlobal(name, &value) && V_VT(&value) == VT_DISPATCH) {
      return V_DISPATCH(&value);
    }
    return nullptr;
  }

  ScriptError& error_;
  const ScriptPlace& place_;
  std::vector<Token> tokens_;
  std::vector<Token> statement_;
};

}  // namespace

void Explain(ScriptError& error, const ScriptPlace& place) {
  Explanation(error, place).Run();
}

}  // namespace wendrill::script_host
