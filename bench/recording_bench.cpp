// Measures the end of a recording, in which the scenario is created, rehearsed, proved and written. The CPU time should
// be linear in the number of recorded calls. With a file name as its argument, the program writes rows of
// script/bench's table to that file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/text.h"
#include "compared_benchmarks.h"
#include "recording/recording.h"

namespace wendrill::bench {
namespace {

using recording::Recording;

constexpr int kFewCalls = 1'000;
constexpr int kManyCalls = 10'000;

std::u16string Row(std::u16string text) {
  text.resize(kRowWidth, kBlank);
  return text;
}

void Answer(Recording& recording, std::u16string_view entry, const std::u16string& screen) {
  const recording::SendId answer = recording.Sent(u"A", entry);
  recording.BufferRead(answer, screen);
  recording.ResponseRead(answer, {std::u16string(entry), screen, 0, 80, 24});
}

// Records a program that sends one entry again and again and gets a different screen each time.
void AnswerOneEntry(Recording& recording, int calls) {
  for (int i = 0; i < calls; ++i) {
    Answer(recording, u"QT", Row(u"MESSAGES WAITING  " + DecimalText(i)));
  }
}

// Records a program that sends a different entry each time.
void AnswerManyEntries(Recording& recording, int calls) {
  for (int i = 0; i < calls; ++i) {
    Answer(recording, u"DO" + DecimalText(100'000 + i), Row(u"FLIGHT " + DecimalText(i) + u" ON TIME"));
  }
}

// Records entries of which redaction hides everything but the beginning. After redaction, the pattern of one entry also
// matches the other entries.
void AnswerHiddenEntries(Recording& recording, int calls) {
  for (int i = 0; i < calls; ++i) {
    std::u16string name = u"NM1";
    for (int rest = i, letter = 0; letter < 6; ++letter, rest /= 26) {
      name += static_cast<char16_t>(u'A' + rest % 26);
    }
    Answer(recording, name + u"/ANNA MRS", Row(u" 1." + name.substr(3) + u"/ANNA MRS"));
    Answer(recording, u"FPCC" + DecimalText(4'000'000'000'000'000 + 7'919LL * i) + u"/1226", Row(u"OK"));
  }
}

// Records a program that changes a PNR and retrieves it again, so that each retrieval shows another state of the PNR.
void ReadManyStates(Recording& recording, int calls) {
  recording::ReadPnr pnr;
  pnr.header.emplace();
  for (int i = 0; i < calls; ++i) {
    const std::u16string head = Row(u"RP/PARXX0100/PARXX0100            AM/SU  12JUN08/0930Z   ABC123");
    pnr.display = head + Row(u"  1.TREMBLAY/ODETTE MRS") + Row(u"  2 OP PARXX0100/12JUN/" + DecimalText(i));
    pnr.header->properties[u"Text"] = head;
    pnr.header->properties[u"RecordLocator"] = u"ABC123";
    Answer(recording, u"ER", Row(u"END OF TRANSACTION COMPLETE"));
    recording.Retrieved(u"A", u"RTABC123", pnr);
  }
}

struct Kind {
  const char* name;
  const char* what;
  void (*tell)(Recording&, int calls);
};
constexpr Kind kKinds[] = {{"OneEntry", "answers to one entry", AnswerOneEntry},
                           {"ManyEntries", "entries", AnswerManyEntries},
                           {"HiddenEntries", "hidden entries", AnswerHiddenEntries},
                           {"States", "states of a PNR", ReadManyStates}};

void EndRecording(benchmark::State& run, const Kind& kind) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "recording_bench.toml";
  std::filesystem::remove(file);
  Recording recording({file, {}, true});
  recording.Sessions(std::vector<std::u16string>{u"A"});
  kind.tell(recording, static_cast<int>(run.range(0)));
  for (auto _ : run) {
    const recording::Outcome outcome = recording.Finish();
    if (!outcome.isWritten || !outcome.notReproduced.empty()) {
      run.SkipWithError("the recording is not whole");
    }
  }
  std::filesystem::remove(file);
  run.SetItemsProcessed(run.iterations() * run.range(0));
}

std::string NameOf(const Kind& kind, int calls) {
  return std::string(kind.name) + "/" + std::to_string(calls);
}

int Run(int count, char** words) {
  std::vector<Comparison> rows;
  for (const Kind& kind : kKinds) {
    benchmark::RegisterBenchmark(kind.name, [&kind](benchmark::State& run) { EndRecording(run, kind); })
        ->Arg(kFewCalls)
        ->Arg(kManyCalls)
        ->Unit(benchmark::kMillisecond);
    rows.push_back({std::string("the end of a recording, 10,000 ") + kind.what, "the same, 1,000",
                    NameOf(kind, kManyCalls), NameOf(kind, kFewCalls), 20});
  }
  return RunAndWrite(count, words, rows);
}

}  // namespace
}  // namespace wendrill::bench

int main(int count, char** words) {
  return wendrill::bench::Run(count, words);
}
