#include "tests/tidy/source_text.h"

#include <algorithm>
#include <string_view>

namespace corvel::tidy {
namespace {

constexpr auto kNone = std::string::npos;

void Blank(std::string& text, std::size_t from, std::size_t to) {
  for (std::size_t i = from; i < to; ++i)
    if (text[i] != '\n') text[i] = ' ';
}

// A line that ends with a backslash goes on in the next one. Every character keeps its place.
std::string Joined(std::string text) {
  for (std::size_t at = text.find('\\'); at != kNone; at = text.find('\\', at + 1)) {
    const std::size_t end = text.compare(at + 1, 1, "\r") == 0 ? at + 2 : at + 1;
    if (text.compare(end, 1, "\n") == 0) std::fill(&text[at], &text[end] + 1, ' ');
  }
  std::replace(text.begin(), text.end(), '\r', ' ');
  return text;
}

// One walk over the text that takes out comments, and from `code` the insides of literals too.
class Stripper {
 public:
  explicit Stripper(std::string text) : bare(std::move(text)), code(bare) {
    while ((at_ = code.find_first_of("/\"'", at_)) != kNone) {
      if (code[at_] == '/')
        Comment();
      else if (code[at_] == '"' && IsRaw())
        RawLiteral();
      else if (code[at_] == '"' || !IsInNumber())
        Literal();
      else
        ++at_;
    }
  }

  std::string bare, code;

 private:
  void Comment() {
    const char kind = at_ + 1 < code.size() ? code[at_ + 1] : ' ';
    if (kind != '/' && kind != '*') return static_cast<void>(++at_);
    const std::size_t found = kind == '/' ? code.find('\n', at_) : code.find("*/", at_ + 2);
    const std::size_t end = found == kNone ? code.size() : kind == '/' ? found : found + 2;
    Blank(bare, at_, end);
    Blank(code, at_, end);
    at_ = end;
  }

  // The first character of the word that ends in front of here.
  std::size_t WordStart() const {
    std::size_t start = at_;
    while (start > 0 && (IsWordCharacter(code[start - 1]) || code[start - 1] == '\'')) --start;
    return start;
  }
  bool IsInNumber() const {
    const std::size_t start = WordStart();
    return start < at_ && code[start] >= '0' && code[start] <= '9';
  }
  bool IsRaw() const {
    const std::string_view prefix(&code[WordStart()], at_ - WordStart());
    return prefix == "R" || prefix == "u8R" || prefix == "uR" || prefix == "UR" || prefix == "LR";
  }

  void RawLiteral() {
    const std::size_t open = code.find('(', at_);
    if (open == kNone) return static_cast<void>(at_ = code.size());
    const std::string close = ")" + code.substr(at_ + 1, open - at_ - 1) + "\"";
    End(code.find(close, open), close.size());
  }

  void Literal() {
    const char quote = code[at_];
    std::size_t end = at_ + 1;
    while (end < code.size() && code[end] != quote && code[end] != '\n')
      end += code[end] == '\\' ? 2 : 1;
    End(std::min(end, code.size()), 1);
  }

  void End(std::size_t close, std::size_t closeLength) {
    const std::size_t inside = at_ + 1;
    const std::size_t end = close == kNone ? code.size() : close;
    Blank(code, inside, end);
    at_ = std::min(end + closeLength, code.size());
  }

  std::size_t at_ = 0;
};

Directive ReadDirective(std::string_view bareLine, std::size_t afterMark, std::size_t line) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\f' || c == '\v'; };
  bareLine.remove_prefix(afterMark);
  while (!bareLine.empty() && isBlank(bareLine.front())) bareLine.remove_prefix(1);
  std::size_t length = 0;
  while (length < bareLine.size() && IsWordCharacter(bareLine[length])) ++length;
  Directive directive{line, std::string(bareLine.substr(0, length)), {}};
  bareLine.remove_prefix(length);
  while (!bareLine.empty() && isBlank(bareLine.front())) bareLine.remove_prefix(1);
  while (!bareLine.empty() && isBlank(bareLine.back())) bareLine.remove_suffix(1);
  directive.rest = bareLine;
  return directive;
}

std::vector<std::size_t> LineStarts(const std::string& text) {
  std::vector<std::size_t> starts = {0};
  for (std::size_t at = text.find('\n'); at != kNone; at = text.find('\n', at + 1))
    starts.push_back(at + 1);
  return starts;
}

}  // namespace

bool IsWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::size_t SourceText::LineOf(std::size_t offset) const {
  const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), offset);
  return static_cast<std::size_t>(next - lineStarts.begin());
}

SourceText ReadSource(const std::string& text) {
  Stripper stripped(Joined(text));
  SourceText source;
  source.lineStarts = LineStarts(text);
  const std::string& code = stripped.code;
  for (std::size_t start = 0; start < code.size();) {
    const std::size_t end = std::min(code.find('\n', start), code.size());
    const std::size_t mark = code.find_first_not_of(" \t\f\v", start);
    const bool isDigraph = mark < end && code.compare(mark, 2, "%:") == 0;
    if (mark < end && (code[mark] == '#' || isDigraph)) {
      const std::string_view line(&stripped.bare[start], end - start);
      source.directives.push_back(
          ReadDirective(line, mark - start + (isDigraph ? 2 : 1), source.LineOf(mark)));
    }
    start = end + 1;
  }
  source.code = std::move(stripped.code);
  return source;
}

}  // namespace corvel::tidy
