#include "practice/controls/markup.h"

#include "base/text.h"

#include <algorithm>

namespace corvel::practice {
namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

struct Tag {
  std::size_t length = 0;  // 0: none
  bool ends = false;
  std::string_view word{}, attributes{};
};

// COLOR=#RRGGBB, with or without quotes around the value.
void TakeColor(TextLook& look, std::string_view attributes) {
  constexpr std::string_view kName = " color=";
  const std::string lower = Lower(attributes);
  std::size_t at = lower.find(kName);
  if (at == std::string::npos) return;
  at += kName.size();
  if (at < lower.size() && lower[at] == '"') ++at;
  if (at + 7 > lower.size() || lower[at] != '#') return;
  std::int32_t color = 0;
  for (int part = 0; part < 3; ++part) {
    const std::size_t digit = at + 1 + static_cast<std::size_t>(part) * 2;
    const int high = HexDigit(lower[digit]), low = HexDigit(lower[digit + 1]);
    if (high < 0 || low < 0) return;
    color |= (high * 16 + low) << (8 * part);
  }
  look.color = color;
}

struct TagRow {
  std::string_view word;
  void (*apply)(TextLook&, const Tag&);
};

constexpr TagRow kTags[] = {
    {"font",
     [](TextLook& look, const Tag& tag) {
       if (tag.ends)
         look.color = -1;
       else
         TakeColor(look, tag.attributes);
     }},
    {"b", [](TextLook& look, const Tag& tag) { look.bold = !tag.ends; }},
    {"i", [](TextLook& look, const Tag& tag) { look.italic = !tag.ends; }},
    {"u", [](TextLook& look, const Tag& tag) { look.underline = !tag.ends; }},
    {"sup", [](TextLook& look, const Tag& tag) { look.rise = tag.ends ? 0 : 1; }},
    {"sub", [](TextLook& look, const Tag& tag) { look.rise = tag.ends ? 0 : -1; }},
};

const TagRow* RowOf(std::string_view word) {
  for (const TagRow& row : kTags)
    if (EqualNoCase(word, row.word)) return &row;
  return nullptr;
}

// The tag at the front of the text.
Tag TagAt(std::string_view text) {
  constexpr std::size_t kLongest = 200;
  const std::size_t end = text.substr(0, kLongest).find('>');
  if (text.empty() || text[0] != '<' || end == std::string_view::npos) return {};
  std::string_view inside = text.substr(1, end - 1);
  Tag tag;
  tag.ends = inside.starts_with('/');
  if (tag.ends) inside.remove_prefix(1);
  tag.word = inside.substr(0, inside.find(' '));
  tag.attributes = inside.substr(tag.word.size());
  if (RowOf(tag.word) != nullptr) tag.length = end + 1;
  return tag;
}

void AddRun(std::vector<LookRun>& runs, std::size_t start, std::size_t length,
            const TextLook& look) {
  if (length == 0) return;
  const bool joins =
      !runs.empty() && runs.back().look == look && runs.back().start + runs.back().length == start;
  if (joins)
    runs.back().length += length;
  else
    runs.push_back({start, length, look});
}

}  // namespace

std::vector<LookRun> RunsOf(std::string_view text) {
  std::vector<LookRun> runs;
  TextLook look;
  std::size_t start = 0;
  for (std::size_t at = 0; at <= text.size();) {
    const Tag tag = TagAt(text.substr(at));
    if (tag.length == 0 && at < text.size()) {
      ++at;
      continue;
    }
    AddRun(runs, start, at - start, look);
    if (tag.length == 0) break;
    RowOf(tag.word)->apply(look, tag);
    start = at += tag.length;
  }
  return runs;
}

void ShownText::Add(std::string_view plain, const TextLook& look) {
  AddRun(looks, text.size(), plain.size(), look);
  text += plain;
}

void ShownText::Add(const ShownText& more) {
  for (const LookRun& run : more.looks)
    Add(std::string_view(more.text).substr(run.start, run.length), run.look);
}

ShownText Shown(std::string_view marked) {
  ShownText shown;
  for (const LookRun& run : RunsOf(marked))
    shown.Add(marked.substr(run.start, run.length), run.look);
  return shown;
}

std::string Rendered(std::string_view text) {
  std::string shown;
  for (const LookRun& run : RunsOf(text)) shown += text.substr(run.start, run.length);
  return shown;
}

std::string NameKey(std::string_view name) { return Lower(WithoutBlanks(name)); }

std::string Unescaped(std::string_view argument) {
  std::string plain;
  for (std::size_t at = 0; at < argument.size(); ++at) {
    const bool escape = argument[at] == '%' && at + 2 < argument.size() &&
                        HexDigit(argument[at + 1]) >= 0 && HexDigit(argument[at + 2]) >= 0;
    if (!escape) {
      plain += argument[at];
      continue;
    }
    plain += static_cast<char>(HexDigit(argument[at + 1]) * 16 + HexDigit(argument[at + 2]));
    at += 2;
  }
  return plain;
}

}  // namespace corvel::practice
