#include "unit/pnr/element_file.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "common/host_date.h"
#include "common/text.h"

namespace wendrill::testing {
namespace {

constexpr std::int32_t kCarAssociation = 44;

std::vector<std::string> LinesOf(const std::filesystem::path& path) {
  std::ifstream in(path);
  if (!in) {
    throw std::runtime_error(path.string() + ": cannot be read");
  }
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with('#')) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::u16string Quoted(const std::string& text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
    throw std::runtime_error("no quoted text: " + text);
  }
  return FromUtf8(text.substr(1, text.size() - 2));
}

Value ValueIn(const std::string& text) {
  const auto blank = text.find(' ');
  const std::string head = text.substr(0, blank);
  const std::string rest = blank == std::string::npos ? "" : text.substr(blank + 1);
  if (text == "Empty") {
    return {};
  }
  if (text.starts_with('"')) {
    return Quoted(text);
  }
  if (head == "int32") {
    return static_cast<std::int32_t>(std::stoi(rest));
  }
  if (head == "double") {
    return std::stod(rest);
  }
  if (head == "date" && rest.size() == 10) {
    return DateOf({std::stoi(rest.substr(0, 4)), std::stoi(rest.substr(5, 2)), std::stoi(rest.substr(8, 2))});
  }
  throw std::runtime_error("no value: " + text);
}

SegmentType TypeIn(const std::string& text) {
  if (text != "timed" && text != "untimed") {
    throw std::runtime_error("no segment type: " + text);
  }
  return text == "timed" ? SegmentType::Timed : SegmentType::Untimed;
}

std::vector<std::u16string> TextsIn(const std::string& text) {
  std::vector<std::u16string> texts;
  for (std::int32_t n = 1; !FieldOf(FromUtf8(text), n, u" ").empty(); ++n) {
    texts.push_back(Quoted(ToUtf8(FieldOf(FromUtf8(text), n, u" "))));
  }
  return texts;
}

void ReadProperty(const std::string& line, ElementFile& file) {
  const auto mark = line.find(" = ");
  if (mark == std::string::npos) {
    throw std::runtime_error("no \"name = value\": " + line);
  }
  const std::string name = line.substr(0, mark);
  const std::string value = line.substr(mark + 3);
  if (name == "type") {
    file.type = TypeIn(value);
  } else if (name == "index") {
    file.index = static_cast<std::int16_t>(std::stoi(value));
  } else if (name == "Passengers") {
    file.passengers = TextsIn(value);
  } else {
    file.properties.emplace_back(FromUtf8(name), ValueIn(value));
  }
}

std::u16string DisplayIn(std::vector<std::string>::const_iterator from, std::vector<std::string>::const_iterator end,
                         bool asRows) {
  std::vector<std::u16string> lines;
  std::u16string broken;
  for (; from != end; ++from) {
    lines.push_back(FromUtf8(*from));
    broken += lines.back() + u"\r\n";
  }
  return asRows ? Rows(lines) : broken;
}

}  // namespace

ElementFile ReadElementFile(const std::filesystem::path& path) {
  ElementFile file;
  const auto lines = LinesOf(path);
  for (auto line = lines.begin(); line != lines.end(); ++line) {
    if (*line == "display:" || *line == "rows:") {
      file.display = DisplayIn(line + 1, lines.end(), *line == "rows:");
      break;
    }
    try {
      ReadProperty(*line, file);
    } catch (const std::exception& error) {
      throw std::runtime_error(path.string() + ": " + error.what());
    }
  }
  return file;
}

std::string ReadExpectedBag(const std::filesystem::path& path) {
  std::string text;
  for (const auto& line : LinesOf(path)) {
    text += line + "\n";
  }
  return text;
}

FakeObjectRef ObjectOf(const PnrDesk& desk, const ElementFile& file) {
  auto object = desk.Object("element");
  for (const auto& [name, value] : file.properties) {
    if (IsDigit(name.front())) {
      object->With(std::atoi(ToUtf8(name).c_str()), value);
    } else {
      object->With(name.c_str(), value);
    }
  }
  if (file.type) {
    object->OfType(*file.type);
  }
  std::vector<ObjectRef> passengers;
  for (const auto& number : file.passengers) {
    auto passenger = desk.Object("passenger");
    passenger->With(u"ElementNo", Value(number));
    passengers.push_back(passenger);
  }
  auto association = desk.Object("association");
  association->With(u"Passengers", ObjectRef(FakeCollection(desk.calls, "passengers", passengers)));
  object->With(kCarAssociation, ObjectRef(association));
  return object;
}

}  // namespace wendrill::testing
