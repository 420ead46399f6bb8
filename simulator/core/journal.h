// The journal: one line for each key, entry, alarm call and PNR retrieval that reached the terminal, and for each part
// of a packed entry. Failed calls are included. The comment beside a function shows the line that the function adds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

class Journal {
 public:
  void Key(std::int32_t key);                                         // line: key 322
  void Send(std::u16string_view entry, bool answered);                // line: send AN15JUN, or: send XX (unanswered)
  void Part(std::u16string_view entry, bool answered, bool refused);  // part of a packed entry; line:   ER (refused)
  void Type(std::u16string_view entry);                               // entry that is not transmitted; line: type HELLO
  void Alarm(bool lock);                                              // line: alarm lock, or: alarm unlock
  void ReadPnrOnDisplay();                                            // line: read pnr on display
  void Retrieve(std::u16string_view entry);                           // line: retrieve RTABC123

  // All lines in order, each ended by CR LF.
  const std::u16string& Text() const { return text_; }

  // The transmitted entries in order, also those whose call failed. Each packed entry is followed by its parts that
  // were carried out.
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
