#include "core/journal.h"

#include "common/text.h"

namespace wendrill::simulator {
namespace {

// The entry with line breaks written as \r and \n, so that an entry never takes more than one line of the journal.
std::u16string OnOneLine(std::u16string_view entry) {
  return Replaced(Replaced(entry, u"\r", u"\\r"), u"\n", u"\\n");
}

}  // namespace

void Journal::Key(std::int32_t key) {
  Line(u"key ", DecimalText(key));
}

void Journal::Send(std::u16string_view entry, bool answered) {
  sent_.emplace_back(entry);
  Line(u"send ", entry, answered ? u"" : u" (unanswered)");
}

void Journal::Part(std::u16string_view entry, bool answered, bool refused) {
  sent_.emplace_back(entry);
  Line(u"  ", entry, !answered ? u" (unanswered)" : refused ? u" (refused)" : u"");
}

void Journal::Type(std::u16string_view entry) {
  Line(u"type ", entry);
}

void Journal::Alarm(bool lock) {
  Line(lock ? u"alarm lock" : u"alarm unlock");
}

void Journal::ReadPnrOnDisplay() {
  Line(u"read pnr on display");
}

void Journal::Retrieve(std::u16string_view entry) {
  Line(u"retrieve ", entry);
}

void Journal::Line(std::u16string_view verb, std::u16string_view entry, std::u16string_view remark) {
  text_.append(verb).append(OnOneLine(entry)).append(remark).append(u"\r\n");
}

}  // namespace wendrill::simulator
