// The kinds of lines in a trace, and the members of each kind. The JSON schema of a trace is generated from this table.
//
// A trace is a file of JSON Lines: one JSON object per line, in UTF-8, each line ended by LF. The first line has the
// kind "run". docs/trace.md describes the format for its users.
#pragma once

#include <span>
#include <string_view>

namespace wendrill::trace {

// The version of the format, written to the first line. The version is raised when a member is removed or changes its
// meaning, but not when a kind or a member is added.
inline constexpr int kFormatVersion = 1;

enum class MemberType {
  Version,  // the number kFormatVersion
  Kind,     // the name of the line's kind
  Text,     // a string
  Flag,     // true or false
  True,     // the value true; a line without the member means false
  Whole,    // an integer
  Count,    // an integer, 0 or greater
  Ordinal,  // an integer, 1 or greater
  Number,   // a number, 0 or greater
  Texts,    // an array of strings
  Objects,  // an array of objects with the members in `object`
  Object,   // an object with the members in `object`
};

enum class Presence {
  Always,
  Optional,  // left out of a line in which the member has no value
};

struct Member {
  std::string_view name;
  MemberType type;
  Presence presence;
  std::string_view meaning;
  std::span<const Member> object = {};
  std::span<const std::string_view> choices = {};  // the possible strings; empty when every string is possible
};

struct Kind {
  std::string_view name;
  std::string_view meaning;
  std::span<const Member> members;  // in the order of writing, without kCommonMembers
};

namespace detail {

using enum MemberType;
using enum Presence;

inline constexpr std::string_view kWhatCanBeKept[] = {"names", "cards", "contacts", "remarks"};
inline constexpr std::string_view kWhatIsWarnedAbout[] = {"unanswered", "unused", "warning"};

inline constexpr Member kFailureMembers[] = {
    {"number", Whole, Always, "the number of the error, as in Err.Number"},
    {"text", Text, Always, "its description"},
};
inline constexpr Member kError = {"error", Object, Optional, "the error with which the call failed", kFailureMembers};

inline constexpr Member kPartMembers[] = {
    {"entry", Text, Always, "the part"},
    {"answered", Flag, Always, "whether something in the scenario answered it"},
    {"refused", True, Optional, "the host refused it, and the parts after it were not carried out"},
};

inline constexpr Member kSession = {"session", Text, Always, "the name of the session; empty where no session runs"};
inline constexpr Member kScreen = {"screen", Texts, Optional,
                                   "the rows that the host showed, as a script reads them line by line"};
inline constexpr Member kSame = {"same", Ordinal, Optional,
                                 "in place of `screen`: the `n` of the line with the same rows, which is the last line "
                                 "before this one that has a `screen`"};

inline constexpr Member kRunMembers[] = {
    {"v", Version, Always, "the version of the format"},
    {"kind", MemberType::Kind, Always, "the kind"},
    {"script", Text, Always,
     "the file name of the script, or of the program that uses the simulator without the script host"},
    {"scenario", Text, Always,
     "the file name of the scenario that the run starts with, or the name of the built-in one; empty "
     "beside a real terminal, and where the scenario cannot be read"},
    {"started", Text, Always,
     "date and time of the start in UTC, to the second (2026-11-22T09:30:00Z); empty without times"},
    {"kept", Texts, Optional, "what is not hidden in this trace", {}, kWhatCanBeKept},
};

inline constexpr Member kCommonMembers[] = {
    {"t", Number, Always, "seconds since the start; 0 without times. It never goes back"},
    {"n", Ordinal, Always, "the number of the line, counted from 1, which is the line after the first"},
    {"kind", MemberType::Kind, Always, "the kind"},
};

inline constexpr Member kSendMembers[] = {
    kSession,
    {"entry", Text, Always, "the entry"},
    {"answered", Flag, Always,
     "whether something in the scenario answered it; of a packed entry, whether every part that was carried out was "
     "answered"},
    {"refused", True, Optional, "the host refused the entry, or a part of it"},
    {"parts", Objects, Optional, "the parts of a packed entry that were carried out, in order", kPartMembers},
    kError,
    {"ms", Number, Optional,
     "milliseconds until the response was ready: those of the call and those for which the scenario keeps it back; 0 "
     "without times. Left out when no response comes"},
    {"never", True, Optional, "the scenario never delivers the response: its buffer stays empty"},
    {"late", Ordinal, Optional, "how many readings of the buffer find it empty at first"},
    {"type", Whole, Optional, "the type of the response"},
    kScreen,
    kSame,
};

inline constexpr Member kKeyMembers[] = {
    kSession,
    {"code", Whole, Always, "the code of the key"},
    {"name", Text, Optional, "its constant in the library, such as kbPA1"},
    {"accepted", Flag, Optional, "whether the terminal accepted the key; left out when the call failed"},
    kError,
};

inline constexpr Member kTypeMembers[] = {
    kSession,
    {"text", Text, Always, "the text"},
    kError,
};

inline constexpr Member kAlarmMembers[] = {
    {"lock", Flag, Always, "true: locked; false: unlocked"},
    kError,
};

inline constexpr Member kRetrieveMembers[] = {
    kSession,
    {"entry", Text, Optional, "the entry that retrieves"},
    {"on_display", True, Optional, "in place of `entry`: the PNR on display was read"},
    {"found", Flag, Optional, "whether there was such a PNR; left out when the call failed"},
    {"locator", Text, Optional, "the record locator of the PNR that was found"},
    kError,
    kScreen,
    kSame,
};

inline constexpr Member kEventMembers[] = {
    kSession,
    {"handlers", Ordinal, Always, "how many handlers were connected"},
};

inline constexpr Member kCallMembers[] = {
    {"operation", Text, Always, "the member"},
    {"argument", Text, Optional, "what the call was about"},
    kError,
};

inline constexpr Member kErrorMembers[] = {
    {"text", Text, Always, "the description"},
    {"number", Whole, Optional, "the number, as in Err.Number; left out for a crash and for the time limit"},
    {"source", Text, Optional, "the source of the error"},
    {"file", Text, Optional, "the file name of the script"},
    {"line", Ordinal, Optional, "the line in the script, counted from 1, where it is known"},
    {"column", Ordinal, Optional, "the column in that line, counted from 1, where it is known"},
};

inline constexpr Member kExpectMembers[] = {
    {"name", Text, Always, "the name of the expectation"},
    {"held", Flag, Always, "whether it held"},
    {"failure", Text, Optional, "what was found and what was expected; only where it did not hold"},
};

inline constexpr Member kWarningMembers[] = {
    {"about",
     Text,
     Always,
     "unanswered: an entry that nothing answered; unused: a reply or a PNR that was never used; warning: anything else",
     {},
     kWhatIsWarnedAbout},
    {"text", Text, Always, "the entry, the reply with its line in the scenario, or the warning"},
};

inline constexpr Member kEndMembers[] = {
    {"status", Whole, Optional, "the exit status; left out where the simulator does not know it"},
    {"duration", Number, Always, "seconds since the start; 0 without times"},
    {"sent", Count, Optional, "how many entries were sent; this and the next five beside the simulator alone"},
    {"unanswered", Count, Optional, "how many different entries nothing answered"},
    {"calls", Count, Optional, "how many calls of simulated members there were; 0 without times"},
    {"expectations", Count, Optional, "how many expectations were recorded"},
    {"failed", Count, Optional, "how many of them failed"},
    {"findings", Count, Optional, "how many findings a strict run counts"},
};

}  // namespace detail

// kRun is the kind of the first line of a trace; the first line has only the members of kRun. Every other line has
// first the members in kCommonMembers, then the members that kKinds lists for the kind of the line.
inline constexpr Kind kRun = {"run", "the first line: what runs", detail::kRunMembers};
inline constexpr std::span<const Member> kCommonMembers = detail::kCommonMembers;

inline constexpr Kind kKinds[] = {
    {"send", "an entry was sent", detail::kSendMembers},
    {"key", "a key was pressed", detail::kKeyMembers},
    {"type", "a text was put on the screen and not sent", detail::kTypeMembers},
    {"alarm", "the alarm was locked or unlocked", detail::kAlarmMembers},
    {"retrieve", "a PNR was read", detail::kRetrieveMembers},
    {"event", "the event ReceivedResponse was delivered", detail::kEventMembers},
    {"call",
     "another member of the simulated components was called. A call that does not fail has a line only the first time "
     "since the last line of another kind",
     detail::kCallMembers},
    {"error", "the script ended with an error, by its time limit or by a crash", detail::kErrorMembers},
    {"expect", "an expectation was recorded", detail::kExpectMembers},
    {"warning", "a finding of the report at the end", detail::kWarningMembers},
    {"end", "the last line", detail::kEndMembers},
};

}  // namespace wendrill::trace
