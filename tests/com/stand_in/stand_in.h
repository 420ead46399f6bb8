// A PNR object model that a test sets up member by member: any property returns a value of any type, or fails in any
// way, and every read is kept in order.
//
// It stands where the simulator's PNR object would; the other components stay the simulator's. It shares no code with
// the library: what it returns, it returns as the VARIANT that it was given.
//
// Members are named by paths from the PNR object: a name or a dispatch identifier, with the place in the collection
// where it is one, joined with ".": 75, 24[0].Percent, 14[1].44.Passengers[0].ElementNo. Naming a member makes what is
// on the way to it.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "com/server/automation_types.h"

namespace wendrill::com::testing {

struct Node;

// What a member does.
struct Answer {
  OwnedVariant value;
  HRESULT status = S_OK;                    // a failure
  std::optional<std::wstring> description;  // how it fails: none, the status alone; else an exception with this text
  std::shared_ptr<Node> object;
};

// An object, or a collection of objects.
struct Node {
  std::wstring path;
  std::map<std::wstring, Answer> members;
  std::vector<std::shared_ptr<Node>> items;
  bool isCollection = false;
};

class StandIn {
 public:
  Answer& AnswerAt(const std::wstring& path);
  void Forget();

  // The PNR object, with one reference for the caller.
  IDispatch* NewPnr();

  // Names and their identifiers; names that are numbers are the identifiers themselves.
  DISPID IdOf(const std::wstring& member);
  std::wstring MemberOf(DISPID id) const;

  std::vector<std::wstring> reads;
  LONG living = 0;  // objects

 private:
  Node& ItemAt(Node& from, const std::wstring& step);

  std::shared_ptr<Node> pnr_ = std::make_shared<Node>();
  std::vector<std::wstring> names_;
};

StandIn& TheStandIn();

// The object by which a script sets it up, with one reference for the caller:
//   Answer path, value              the property's value, of whatever type
//   Fail path, status               the property fails with the status alone
//   Fail path, status, description  it fails with an exception that has this description, "" for none
//   Reads                           the paths that were read, a line each; the list is empty afterwards
//   Forget                          takes everything back
//   Living                          objects of the PNR that are alive
IDispatch* NewControl();

}  // namespace wendrill::com::testing
