#include "recording/story.h"

#include <algorithm>

#include "common/text.h"

namespace wendrill::recording {
namespace {

const Readings* FirstFull(const ToldEntry& told) {
  const auto full = std::ranges::find_if(told.readings, [](const Readings& each) { return !each.buffer.empty(); });
  return full == told.readings.end() ? nullptr : &*full;
}

std::int64_t EmptyReadings(const ToldEntry& told) {
  std::int64_t count = 0;
  for (const Readings& readings : told.readings) {
    if (!readings.buffer.empty()) {
      break;
    }
    count += readings.byTheProgram ? readings.times : 0;
  }
  return count;
}

// Stores `buffer`, `late` and `never` in `exchange`. `buffer` becomes the first buffer that was not empty, whether the
// program or only the recorder read it. One exception: if the program had found the buffer empty and only the recorder
// later found it filled, `buffer` remains empty.
void ReadBuffer(const ToldEntry& told, RecordingHiding& hiding, Exchange& exchange) {
  const Readings* full = FirstFull(told);
  const std::int64_t late = EmptyReadings(told);
  if (full == nullptr || (late > 0 && !full->byTheProgram)) {
    exchange.never = !told.hadEvent && told.error == 0;
    return;
  }
  exchange.late = late;
  exchange.buffer = hiding.Screen(full->buffer, ColumnsOf(told));
}

Exchange ExchangeOf(const ToldEntry& told, RecordingHiding& hiding) {
  Exchange exchange;
  exchange.told = &told;
  exchange.session = hiding.Words(told.session);
  ReadBuffer(told, hiding, exchange);
  const bool hasText = told.response && !exchange.buffer.empty();
  exchange.text = hasText ? hiding.Screen(told.response->text, ColumnsOf(told)) : exchange.buffer;
  return exchange;
}

Reading ReadingOf(const ToldPnr& told, RecordingHiding& hiding, ContentMaker& contents) {
  Reading reading;
  reading.told = &told;
  reading.session = hiding.Words(told.session);
  reading.content = contents.ContentOf(told);
  return reading;
}

void LearnHost(const ToldCall& call, RecordingHiding& hiding) {
  if (const auto* entry = std::get_if<ToldEntry>(&call)) {
    for (const Readings& readings : entry->readings) {
      hiding.LearnScreen(readings.buffer, ColumnsOf(*entry));
    }
    if (entry->response) {
      hiding.LearnScreen(entry->response->text, ColumnsOf(*entry));
    }
    return;
  }
  const auto& pnr = std::get<ToldPnr>(call);
  hiding.LearnScreen(pnr.pnr.display, kRowWidth);
  for (const auto& [id, elements] : pnr.collections) {
    for (const ReadObject& element : elements) {
      hiding.LearnElement(*CollectionOf(id), element);
    }
  }
}

void LearnEntry(const ToldCall& call, RecordingHiding& hiding) {
  if (const auto* entry = std::get_if<ToldEntry>(&call)) {
    hiding.LearnEntry(entry->entry);
  } else if (const auto& retrieving = std::get<ToldPnr>(call).entry) {
    hiding.LearnEntry(*retrieving);
  }
}

void HideEntry(Event& event, RecordingHiding& hiding) {
  if (auto* exchange = std::get_if<Exchange>(&event)) {
    exchange->entry = hiding.Entry(exchange->told->entry);
    exchange->form = hiding.FormOf(exchange->told->entry);
  } else if (auto& reading = std::get<Reading>(event); reading.told->entry) {
    reading.entry = hiding.Entry(*reading.told->entry);
  }
}

// The names of all sessions with personal data hidden, each once. First come the sessions of the lists that the
// terminal returned, then the sessions that the program used although no list contained them.
std::vector<std::u16string> SessionsOf(const Calls& calls, RecordingHiding& hiding) {
  std::vector<std::u16string> sessions;
  const auto add = [&](const std::u16string& name) {
    std::u16string hidden = hiding.Words(name);
    if (!hidden.empty() && std::ranges::find(sessions, hidden) == sessions.end()) {
      sessions.push_back(std::move(hidden));
    }
  };
  for (const auto& names : calls.sessions.All()) {
    std::ranges::for_each(names, add);
  }
  std::ranges::for_each(calls.usedSessions.All(), add);
  return sessions;
}

}  // namespace

Story StoryOf(const Calls& calls, RecordingHiding& hiding) {
  for (const ToldCall& call : calls.all) {
    LearnHost(call, hiding);
  }
  for (const ToldCall& call : calls.all) {
    LearnEntry(call, hiding);
  }
  Story story;
  ContentMaker contents(hiding);
  for (const ToldCall& call : calls.all) {
    if (const auto* entry = std::get_if<ToldEntry>(&call)) {
      story.events.emplace_back(ExchangeOf(*entry, hiding));
    } else {
      story.events.emplace_back(ReadingOf(std::get<ToldPnr>(call), hiding, contents));
    }
  }
  for (Event& event : story.events) {
    HideEntry(event, hiding);
  }
  story.sessions = SessionsOf(calls, hiding);
  return story;
}

}  // namespace wendrill::recording
