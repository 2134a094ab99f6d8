// Scenario files as text; see scenario_file.h.
#include "tools/scenario_file.h"

#include "base/cp1252.h"
#include "base/text.h"

#include <utility>

namespace corvel::tools {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

int HexValue(char digit) {
  const auto at = kHexDigits.find(UpperChar(digit));
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

struct Escape {
  char letter;
  char meaning;
};
constexpr Escape kEscapes[] = {{'"', '"'}, {'\\', '\\'}, {'t', '\t'}, {'r', '\r'}, {'n', '\n'}};

class LineReader {
 public:
  LineReader(std::string_view text, const ReadBeside& readBeside)
      : text_(text), readBeside_(readBeside) {}

  Words Read() {
    Words words;
    SkipBlanks();
    while (error_.empty() && at_ < text_.size()) {
      const bool quoted = text_[at_] == '"';
      std::string word = quoted ? QuotedWord() : BareWord();
      if (error_.empty()) words.Add(std::move(word), quoted);
      SkipBlanks();
    }
    return error_.empty() ? words : Words{};
  }

  const std::string& Error() const { return error_; }

 private:
  static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
  void SkipBlanks() {
    while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
  }
  void Fail(std::string why) {
    if (error_.empty()) error_ = std::move(why);
  }

  std::string BareWord() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && !IsBlank(text_[at_])) {
      if (text_[at_] == '"') {
        Fail("a quote stands inside a word");
        return {};
      }
      ++at_;
    }
    return ToBytes(text_.substr(begin, at_ - begin));
  }

  std::string QuotedWord() {
    ++at_;
    const bool fromFile = at_ < text_.size() && text_[at_] == '@';
    std::string word;
    while (error_.empty()) {
      const std::size_t begin = at_;
      while (at_ < text_.size() && text_[at_] != '"' && text_[at_] != '\\') ++at_;
      word += ToBytes(text_.substr(begin, at_ - begin));
      if (at_ == text_.size()) {
        Fail("the quote is not closed");
      } else if (text_[at_] == '\\') {
        word += EscapedByte();
      } else {
        ++at_;
        break;
      }
    }
    if (at_ < text_.size() && !IsBlank(text_[at_])) Fail("a blank is missing behind the quote");
    return fromFile && error_.empty() ? Beside(word.substr(1)) : word;
  }

  char EscapedByte() {
    const char letter = ++at_ < text_.size() ? text_[at_++] : '\0';
    for (const Escape& escape : kEscapes)
      if (letter == escape.letter) return escape.meaning;
    if (letter == 'x' && at_ + 2 <= text_.size()) {
      const int high = HexValue(text_[at_]), low = HexValue(text_[at_ + 1]);
      at_ += 2;
      if (high >= 0 && low >= 0) return static_cast<char>(high * 16 + low);
    }
    Fail(
        "no such escape; write \\\\ for a backslash (the escapes are \\\" \\\\ \\t \\r \\n \\xHH)");
    return '\0';
  }

  std::string ToBytes(std::string_view utf8) {
    auto bytes = FromUtf8(utf8);
    if (!bytes) Fail("a character is outside Windows-1252, or this is not UTF-8");
    return bytes.value_or("");
  }

  std::string Beside(const std::string& name) {
    auto bytes = readBeside_ ? readBeside_(name) : std::nullopt;
    if (!bytes) Fail("can't read the file \"" + ToUtf8(name) + "\" beside the scenario");
    return bytes.value_or("");
  }

  std::string_view text_;
  const ReadBeside& readBeside_;
  std::size_t at_ = 0;
  std::string error_;
};

bool IsComment(std::string_view line) {
  const auto first = line.find_first_not_of(" \t");
  return first == std::string_view::npos || line[first] == '#';
}

}  // namespace

void Words::Add(std::string text, bool quoted) { words_.push_back({std::move(text), quoted}); }

bool Words::IsBare(std::size_t at, std::string_view text) const {
  return at < words_.size() && !words_[at].quoted && words_[at].text == text;
}

std::vector<std::string> Words::From(std::size_t first) const {
  std::vector<std::string> texts;
  for (std::size_t i = first; i < words_.size(); ++i) texts.push_back(words_[i].text);
  return texts;
}

Words Words::Behind(std::size_t first) const {
  Words behind;
  for (std::size_t i = first; i < words_.size(); ++i) behind.words_.push_back(words_[i]);
  return behind;
}

Words ParseScenarioLine(std::string_view utf8, const ReadBeside& readBeside, std::string& error) {
  error.clear();
  if (IsComment(utf8)) return {};
  LineReader reader(utf8, readBeside);
  Words words = reader.Read();
  error = reader.Error();
  return words;
}

ScenarioFile ParseScenario(std::string_view utf8, const ReadBeside& readBeside) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
  ScenarioFile file;
  int number = 0;
  for (std::string_view line : Lines(utf8)) {
    ++number;
    std::string error;
    ScenarioLine parsed{number, ParseScenarioLine(line, readBeside, error), {}};
    const bool narrates = line.starts_with("#:");
    if (narrates) parsed.narration = Trim(line.substr(2));
    if (!error.empty()) file.errors.push_back({number, error});
    if (narrates || !parsed.words.empty()) file.lines.push_back(std::move(parsed));
  }
  return file;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool undefined = byte < 0x20 || byte == 0x7F ||
                           (byte >= 0x80 && byte < 0xA0 && cp1252::ToCodePoint(byte) == byte);
    const Escape* known = nullptr;
    for (const Escape& escape : kEscapes)
      if (c == escape.meaning) known = &escape;
    if (known) {
      quoted += {'\\', known->letter};
    } else if (undefined) {
      quoted += {'\\', 'x', kHexDigits[byte / 16], kHexDigits[byte % 16]};
    } else {
      quoted += ToUtf8({&c, 1});
    }
  }
  return quoted + "\"";
}

}  // namespace corvel::tools
