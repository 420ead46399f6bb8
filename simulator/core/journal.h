// The journal: one line for each call that reached the terminal. The trailing comments show the lines written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

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

  void Clear() { text_.clear(); }

 private:
  void Line(std::u16string_view verb, std::u16string_view entry = {}, std::u16string_view remark = {});

  std::u16string text_;
};

}  // namespace wendrill::simulator
