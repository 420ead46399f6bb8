#include "core/traced.h"

#include <string_view>

namespace wendrill::simulator {
namespace {

constexpr std::u16string_view kLastName = u"LastName";
constexpr std::u16string_view kInitial = u"Initial";

std::u16string_view TextOf(const ScenarioObject& object, std::u16string_view property) {
  for (std::size_t i = 0; i < object.type->properties.size(); ++i) {
    const auto* value = std::get_if<Value>(&object.contents[i]);
    const auto* text = value == nullptr ? nullptr : value->As<std::u16string>();
    if (object.type->properties[i].name == property && text != nullptr) {
      return *text;
    }
  }
  return {};
}

// A passenger's name as a display shows it, such as: 1.SMITH/JOHN MR. Made of the properties LastName and Initial, and
// not of the property Text: the author of the scenario may write anything into Text.
std::u16string NameElement(const ScenarioObject& name) {
  return std::u16string(u"1.").append(TextOf(name, kLastName)).append(u"/").append(TextOf(name, kInitial));
}

void LearnFrom(const ScenarioPnr& pnr, trace::Trace& trace) {
  for (const std::u16string& entry : pnr.RetrievingEntries()) {
    trace.Learn(entry);
  }
  trace.Learn(pnr.display);
  for (const auto& [id, list] : pnr.collections) {
    for (const auto& element : list) {
      trace.Learn(TextOf(*element, u"Text"));
      if (element->type == &kNameElement) {
        trace.Learn(NameElement(*element));
      }
    }
  }
}

void LearnFrom(const ScenarioAnswer& answer, trace::Trace& trace) {
  for (const Screen& page : answer.pages) {
    trace.Learn(page.buffer);
  }
  trace.Learn(answer.text.value_or(std::u16string()));
}

}  // namespace

void LearnFrom(const Scenario& scenario, trace::Trace& trace) {
  for (const ScenarioPnr& pnr : scenario.pnrs) {
    LearnFrom(pnr, trace);
  }
  for (const ScenarioReply& reply : scenario.replies) {
    trace.Learn(reply.matcher.text);
    for (const auto& answer : reply.answers) {
      LearnFrom(*answer, trace);
    }
  }
  LearnFrom(*scenario.unknown, trace);
}

}  // namespace wendrill::simulator
