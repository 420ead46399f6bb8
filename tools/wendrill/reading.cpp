#include "reading.h"

#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "common/error.h"
#include "common/text.h"

namespace wendrill::tool {
namespace {

// Each thread takes the displays in batches. A batch is large enough that the locking costs next to nothing, and small
// enough to limit the memory in use.
constexpr std::size_t kDisplaysInBatch = 32;
constexpr std::size_t kBytesInBatch = 1 << 20;
constexpr std::uint64_t kMostAhead = 16;  // how many batches a thread may be ahead of the next batch to write

struct Batch {
  std::uint64_t number = 0;
  std::vector<FoundDisplay> displays;
};

struct Written {
  std::string text;
  std::string errors;  // the messages for standard error
  std::uint64_t displays = 0;
  std::uint64_t bad = 0;
};

// Reads the displays of one batch after another. Each thread has its own Worker.
class Worker {
 public:
  explicit Worker(const ReadingOptions& options) : options_(options), reader_(options.keys) {}

  // Stores the output of the batch in `written`. The old content is cleared, but its memory is reused.
  void Read(Batch batch, Written& written) {
    written.text.clear();
    written.errors.clear();
    written.displays = written.bad = 0;
    for (FoundDisplay& found : batch.displays) {
      const ReadyDisplay ready = Prepared(std::move(found));
      const auto error = ready.error ? ready.error : Append(ready, written.text);
      ++written.displays;
      if (error) {
        ++written.bad;
        AppendBad(ready.id, *error, written);
        if (options_.onError == OnError::Stop) {
          break;
        }
      }
    }
  }

 private:
  std::optional<Unreadable> Append(const ReadyDisplay& ready, std::string& text) {
    const std::size_t before = text.size();
    try {
      if (auto error = reader_.Read(ready.text)) {
        return error;
      }
      if (options_.out == OutputForm::Csv) {
        AppendCsv(text, ready.id, reader_, options_.keys, *options_.selection.kinds.begin());
      } else {
        AppendSeparator(text);
        AppendObject(text, ready.id, reader_, options_.keys, options_.selection);
        AppendEnd(text);
      }
    } catch (const Error& error) {
      text.resize(before);
      return Unreadable{0, error.Description()};
    }
    return std::nullopt;
  }

  void AppendBad(const std::string& id, const Unreadable& error, Written& written) {
    if (options_.onError == OnError::Keep && options_.out != OutputForm::Csv) {
      AppendSeparator(written.text);
      AppendError(written.text, id, error);
      AppendEnd(written.text);
    } else if (options_.onError != OnError::Skip) {
      written.errors += "wendrill: " + id + ": row " + std::to_string(error.row) + ": " + ToUtf8(error.text) + "\n";
    }
  }

  // In a JSON array, every object is preceded by its separating comma. PutText drops the first comma of the output.
  void AppendSeparator(std::string& text) const {
    if (options_.out == OutputForm::Json) {
      text += ",\n";
    }
  }
  void AppendEnd(std::string& text) const {
    if (options_.out == OutputForm::JsonLines) {
      text += '\n';
    }
  }

  const ReadingOptions& options_;
  RecordReader reader_;
};

// The state that all threads share. `sourceLock_` serialises their access to the source, `outputLock_` that to the
// output.
class Reading {
 public:
  Reading(DisplaySource& source, const ReadingOptions& options,
          const std::function<void(const ReadingTotals&)>& onProgress)
      : source_(source), options_(options), onProgress_(onProgress) {}

  ReadingTotals Run() {
    if (options_.out == OutputForm::Csv) {
      Put(CsvHeading(*options_.selection.kinds.begin(), options_.keys));
    } else if (options_.out == OutputForm::Json) {
      Put("[");
    }
    // The calling thread works too, so only options_.threads - 1 threads are started.
    std::vector<std::thread> threads;
    for (unsigned n = 1; n < options_.threads; ++n) {
      threads.emplace_back([this] { Work(); });
    }
    Work();
    for (std::thread& thread : threads) {
      thread.join();
    }
    if (failure_) {
      std::rethrow_exception(failure_);
    }
    if (options_.out == OutputForm::Json) {
      Put("\n]\n");
    }
    return totals_;
  }

 private:
  void Work() {
    try {
      Worker worker(options_);
      Written written;
      for (Batch batch = Take(); !batch.displays.empty(); batch = Take()) {
        const std::uint64_t number = batch.number;
        worker.Read(std::move(batch), written);
        Give(number, written);
      }
    } catch (...) {  // in practice out of memory: stops all other threads; Run rethrows the exception
      const std::lock_guard lock(outputLock_);
      failure_ = std::current_exception();
      stopped_ = true;
      turn_.notify_all();
    }
  }

  Batch Take() {
    const std::lock_guard lock(sourceLock_);
    Batch batch;
    std::size_t bytes = 0;
    while (!stopped_ && batch.displays.size() < kDisplaysInBatch && bytes < kBytesInBatch) {
      auto found = source_.Next();
      if (!found) {
        break;
      }
      bytes += found->content.size();
      batch.displays.push_back(std::move(*found));
    }
    batch.number = nextBatch_++;
    return batch;
  }

  // Writes the output of batch `number`, or keeps it until all earlier batches are written. Leaves in `written` a
  // buffer that the caller may reuse.
  void Give(std::uint64_t number, Written& written) {
    std::unique_lock lock(outputLock_);
    if (!options_.isOrdered) {
      PutAll(written);
      return;
    }
    // A thread whose batch is not the next one goes on reading. It waits only when it is kMostAhead batches ahead.
    turn_.wait(lock, [&] { return number < nextToWrite_ + kMostAhead || stopped_; });
    finished_.emplace(number, std::move(written));
    for (auto next = finished_.begin(); next != finished_.end() && next->first == nextToWrite_;
         next = finished_.erase(next)) {
      PutAll(next->second);
      written = std::move(next->second);
      ++nextToWrite_;
    }
    turn_.notify_all();
  }

  void PutAll(const Written& written) {
    if (stopped_) {
      return;
    }
    std::fputs(written.errors.c_str(), stderr);
    totals_.displays += written.displays;
    totals_.bad += written.bad;
    PutText(written.text);
    if (options_.onError == OnError::Stop && written.bad > 0) {
      stopped_ = true;
    }
    onProgress_(totals_);
  }

  void PutText(const std::string& text) {
    const bool isFirstOfArray = options_.out == OutputForm::Json && !hasObject_ && !text.empty();
    hasObject_ = hasObject_ || !text.empty();
    Put(isFirstOfArray ? text.substr(1) : text);
  }

  void Put(const std::string& text) {
    if (!WriteOut(text, totals_.outputFailed)) {
      stopped_ = true;
    }
  }

  DisplaySource& source_;
  const ReadingOptions& options_;
  const std::function<void(const ReadingTotals&)>& onProgress_;

  std::mutex sourceLock_;
  std::uint64_t nextBatch_ = 0;

  std::mutex outputLock_;
  std::condition_variable turn_;
  std::uint64_t nextToWrite_ = 0;
  std::map<std::uint64_t, Written> finished_;  // by batch number: the output that waits for earlier batches
  ReadingTotals totals_;
  bool hasObject_ = false;
  std::exception_ptr failure_;
  std::atomic<bool> stopped_ = false;
};

// The display as a multi-line TOML string. It is a literal string (''') where possible. A display with an apostrophe or
// a control character becomes a basic string (""") with escapes.
std::string TomlBlock(const std::u16string& display) {
  std::string text;
  bool needsEscapes = false;
  for (DisplayLines lines(display); !lines.AtEnd();) {
    for (const char character : ToUtf8(TrimmedRight(lines.Next())) + "\n") {
      needsEscapes = needsEscapes || (static_cast<unsigned char>(character) < 0x20 && character != '\n') ||
                     character == 0x7F || character == '\'';
      text += character;
    }
  }
  if (!needsEscapes) {
    return "'''\n" + text + "'''";
  }
  std::string escaped = "\"\"\"\n";
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      escaped += {'\\', character};
    } else if ((code < 0x20 && character != '\n') || code == 0x7F) {
      constexpr char kDigits[] = "0123456789ABCDEF";
      escaped += {'\\', 'u', '0', '0', kDigits[code >> 4], kDigits[code & 0xF]};
    } else {
      escaped += character;
    }
  }
  return escaped + R"(""")";
}

}  // namespace

bool WriteOut(const std::string& text, bool& failed) {
  if (text.empty() || (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0)) {
    return true;
  }
  const bool isClosedPipe = errno == EPIPE
#ifdef _WIN32
                            || errno == EINVAL  // the error of Windows for a closed pipe
#endif
      ;
  failed = failed || !isClosedPipe;
  return false;
}

ReadingTotals ReadDisplays(DisplaySource& source, const ReadingOptions& options,
                           const std::function<void(const ReadingTotals&)>& onProgress) {
  return Reading(source, options, onProgress).Run();
}

ReadingTotals WriteScenario(DisplaySource& source) {
  ReadingTotals totals;
  RecordReader reader(Keys::Plain);
  std::string text = "# Made by wendrill scenario: each PNR is read from its display.\n\n[[session]]\nname = \"A\"\n";
  while (auto found = source.Next()) {
    const ReadyDisplay ready = Prepared(std::move(*found));
    const auto error = ready.error ? ready.error : reader.Read(ready.text);
    ++totals.displays;
    if (error) {
      ++totals.bad;
      const std::string what = ready.id + ": row " + std::to_string(error->row) + ": " + ToUtf8(error->text);
      text += "\n# left out: " + what + "\n";
      std::fprintf(stderr, "wendrill: %s\n", what.c_str());
    } else {
      const bool isFirst = totals.displays - totals.bad == 1;
      text += "\n# " + ready.id + "\n[[pnr]]\n" + (isFirst ? "on_display = true\n" : "") +
              "display = " + TomlBlock(ready.text) + "\n";
    }
    if (!WriteOut(text, totals.outputFailed)) {
      return totals;
    }
    text.clear();
  }
  WriteOut(text, totals.outputFailed);
  return totals;
}

}  // namespace wendrill::tool
