// The journal: one line for each call that reached the terminal. The trailing comments show the lines written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wendrill::simulator {

class Journal {
 public:
  void Key(std::int32_t key);                                         // key 322
  void Send(std::u16string_view entry, bool answered);                // send AN15JUN; send XX (unanswered)
  void Part(std::u16string_view entry, bool answered, bool refused);  // of a packed entry: RMTEXT; ER (refused)
  void Type(std::u16string_view entry);                               // type HELLO (put on the screen, not transmitted)
  void Alarm(bool lock);                                              // alarm lock; alarm unlock
  void ReadPnrOnDisplay();                                            // read pnr on display
  void Retrieve(std::u16string_view entry);                           // retrieve RTABC123

  // All lines in order, each ended by CR LF.
  const std::u16string& Text() const { return text_; }

  // The transmitted entries in order; after a packed one its parts.
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
