// The journal of a run: one line for each key, entry, alarm call and PNR retrieval that reached the terminal, even if
// the call failed. A packed entry (several entries joined with ";") has one line for the whole and, when the terminal
// answers its parts one by one, a line for each part that was carried out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

class Journal {
 public:
  // Adds a line for a pressed key: key 322
  void Key(std::int32_t key);
  // Adds a line for a transmitted entry: send AN15JUN, or: send XX (unanswered)
  void Send(std::u16string_view entry, bool answered);
  // Adds a line for a part of a packed entry that was carried out. The line is two blanks and the part, followed by
  // (unanswered) when nothing answered the part, or by (refused) when the host refused the part.
  void Part(std::u16string_view entry, bool answered, bool refused);
  // Adds a line for an entry that is put on the screen, but not transmitted: type HELLO
  void Type(std::u16string_view entry);
  // Adds a line for a call of the alarm: alarm lock, or: alarm unlock
  void Alarm(bool lock);
  // Adds the line: read pnr on display
  void ReadPnrOnDisplay();
  // Adds a line for a PNR retrieved by an entry: retrieve RTABC123
  void Retrieve(std::u16string_view entry);

  // All lines in order, each ended by CR LF.
  const std::u16string& Text() const { return text_; }

  // The transmitted entries in order, also those whose call failed. After a packed entry (several entries joined with
  // ";") the list contains its parts that were carried out, including unanswered, refused and failed parts. When a
  // reply or a PNR answers the packed entry as a whole, the list contains no parts.
  const std::vector<std::u16string>& Sent() const { return sent_; }

  void Clear() {
    text_.clear();
    sent_.clear();
  }

 private:
  void Line(std::u16string_view verb, std::u16string_view entry = {}, std::u16string_view remark = {});

  std::u16string text_;
  std::vector<std::u16string> sent_;
};

}  // namespace wendrill::simulator
