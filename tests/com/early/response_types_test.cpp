// Terminals whose objects share one method table, although their members have different identifiers: generic servers
// and proxies are made so. What a name means is asked of each type.
#include <vector>

#include "desktop_fixture.h"
#include "stand_in_terminal.h"

namespace wendrill::com::testing {
namespace {

// A response that gives its entry's buffer and command under identifiers of its own.
struct ResponseType {
  DISPID buffer;
  DISPID hostCommand;

  Description::Identifiers Identifiers() const { return {{L"Buffer", buffer}, {L"HostCommand", hostCommand}}; }

  Reference<StandIn> Answer(const std::wstring& entry) const {
    const auto response = StandIn::New();
    response->HasText(L"Buffer", buffer, L"BUFFER OF " + entry);
    response->HasText(L"HostCommand", hostCommand, L"COMMAND " + entry);
    return response;
  }
};

constexpr ResponseType kOneType{1, 2};
constexpr ResponseType kOtherType{2, 1};

class ResponseTypes : public StandInTerminal {
 protected:
  // Every second response is of the other type; `describe` gives each its description.
  void AnswerInTurn(std::function<Reference<ITypeInfo>(const ResponseType&)> describe) {
    onSend = [describe = std::move(describe), sent = 0](const std::wstring& entry) mutable {
      const ResponseType& type = ++sent % 2 == 1 ? kOneType : kOtherType;
      const auto response = type.Answer(entry);
      if (describe) {
        response->describe = [describe, type] { return describe(type); };
      }
      return Reference<IDispatch>(response.Get());
    };
  }

  // Sends so many entries; each must be answered with its own buffer, and the session's last response with its command.
  static void ExpectOwnBuffers(_CQuillet* quillet, int entries) {
    for (int entry = 1; entry <= entries; ++entry) {
      const std::wstring text = L"E" + std::to_wstring(entry);
      Text response;
      ASSERT_EQ(S_OK, quillet->SendCommand(Text(text.c_str()), response.Receive()));
      ASSERT_EQ(L"BUFFER OF " + text, response.Wide());
      ASSERT_EQ(S_OK, quillet->get_LastHostCommand(response.Receive()));
      ASSERT_EQ(L"COMMAND " + text, response.Wide());
    }
  }
};

TEST_F(ResponseTypes, ThatDescribeThemselvesAreToldApart) {
  std::map<DISPID, Reference<ITypeInfo>> kept = {{kOneType.buffer, Description::New(kOneType.Identifiers())},
                                                 {kOtherType.buffer, Description::New(kOtherType.Identifiers())}};
  AnswerInTurn([&](const ResponseType& type) { return kept[type.buffer]; });
  ExpectOwnBuffers(CreateQuillet().Get(), 6);
  kept.clear();
  EXPECT_EQ(0, Description::Living());
}

// Descriptions that have gone leave their addresses to later ones, and more come than are kept.
TEST_F(ResponseTypes, ThatDescribeThemselvesDifferentlyEachTimeAreToldApartAndKeptInBounds) {
  AnswerInTurn([](const ResponseType& type) { return Description::New(type.Identifiers()); });
  {
    const auto quillet = CreateQuillet();
    ExpectOwnBuffers(quillet.Get(), 500);
    EXPECT_LE(Description::Living(), 64);
  }
  EXPECT_EQ(0, Description::Living());
}

TEST_F(ResponseTypes, ThatDoNotDescribeThemselvesAreToldApart) {
  AnswerInTurn(nullptr);
  ExpectOwnBuffers(CreateQuillet().Get(), 6);
}

// Objects that take further members at run time: one description serves them all and says nothing about those.
TEST_F(ResponseTypes, WithMembersThatTheirDescriptionDoesNotKnowAreToldApart) {
  Reference<ITypeInfo> general = Description::New({});
  AnswerInTurn([&](const ResponseType&) { return general; });
  ExpectOwnBuffers(CreateQuillet().Get(), 6);
  general = {};
  EXPECT_EQ(0, Description::Living());
}

}  // namespace
}  // namespace wendrill::com::testing
