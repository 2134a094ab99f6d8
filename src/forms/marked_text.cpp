#include "forms/marked_text.h"

#include "base/cp1252.h"

#include <algorithm>
#include <utility>

namespace corvel::forms {
namespace {

constexpr Color kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000;
constexpr int kClearance = 2;  // free pixels behind each word

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void SetColorByLetter(FontStyle& style, char letter) {
  switch (letter) {
    case 'R':
      style.color = kRed;
      break;
    case 'G':
      style.color = kGreen;
      break;
    case 'B':
      style.color = kBlue;
      break;
    case 'N':
      style.color = FontStyle{}.color;
      break;
    default:
      break;
  }
}

// Reads one marked text from front to end.
class Parser {
 public:
  explicit Parser(std::string_view marked) : rest_(Trimmed(marked)) {}

  std::vector<MarkedPiece> Run() {
    while (!rest_.empty()) {
      const auto end = rest_.find_first_of("~\r\n");
      AddText(Take(std::min(end, rest_.size())));
      if (rest_.empty()) break;
      if (rest_[0] == '~')
        ReadCode();
      else
        ReadLineEnd();
    }
    return std::move(pieces_);
  }

 private:
  std::string_view Take(std::size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  void AddText(std::string_view text) {
    if (!text.empty()) pieces_.push_back({text, style_, false});
  }

  void AddNewLine() { pieces_.push_back({{}, style_, true}); }

  void ReadLineEnd() { Take(rest_.substr(0, 2) == "\r\n" ? 2 : 1), AddNewLine(); }

  void ReadCode() {
    const std::string_view code = Take(2);
    if (code.size() < 2) return;
    switch (UpperChar(code[1])) {
      case 'B':
        style_.bold = !style_.bold;
        break;
      case 'U':
        style_.underline = !style_.underline;
        break;
      case 'I':
        style_.italic = !style_.italic;
        break;
      case 'N':
        AddNewLine();
        break;
      case 'C':
        if (const std::string_view letter = Take(1); !letter.empty())
          SetColorByLetter(style_, UpperChar(letter[0]));
        break;
      default:
        break;
    }
  }

  std::string_view rest_;
  FontStyle style_;
  std::vector<MarkedPiece> pieces_;
};

// Sets words one behind the other, as a line printer does.
class Setter {
 public:
  Setter(const TextSurface& surface, const MeasureText& measure)
      : surface_(surface), measure_(measure), x_(surface.indent) {}

  void PrintWrapped(std::string_view text, const FontStyle& style) {
    while (!text.empty()) {
      const auto blank = text.find(' ');
      const std::string_view word = text.substr(0, blank == text.npos ? blank : blank + 1);
      PrintWord(word, style);
      text.remove_prefix(word.size());
    }
  }

  void NewLine() {
    x_ = 0;
    y_ += surface_.lineHeight;
    lineIsEmpty_ = true;
  }

  SetText Finish() && { return {std::move(runs_), y_ + surface_.lineHeight}; }

 private:
  void PrintWord(std::string_view word, const FontStyle& style) {
    const int width = measure_(word, style);
    if (!lineIsEmpty_ && x_ + width + kClearance > surface_.width - surface_.margin) NewLine();
    if (!lineIsEmpty_ && runs_.back().style == style)
      runs_.back().text += word;
    else
      runs_.push_back({std::string(word), x_, y_, style});
    x_ += width;
    lineIsEmpty_ = false;
  }

  const TextSurface& surface_;
  const MeasureText& measure_;
  int x_, y_ = 0;
  bool lineIsEmpty_ = true;
  std::vector<TextRun> runs_;
};

}  // namespace

std::vector<MarkedPiece> ParseMarkedText(std::string_view marked) { return Parser(marked).Run(); }

std::string PlainText(std::string_view marked) {
  std::string plain;
  for (const MarkedPiece& piece : ParseMarkedText(marked)) {
    if (piece.newLine)
      plain += '\n';
    else
      plain += piece.text;
  }
  return plain;
}

SetText SetMarkedText(std::string_view marked, const TextSurface& surface,
                      const MeasureText& measure) {
  Setter setter(surface, measure);
  for (const MarkedPiece& piece : ParseMarkedText(marked)) {
    if (piece.newLine)
      setter.NewLine();
    else
      setter.PrintWrapped(piece.text, piece.style);
  }
  return std::move(setter).Finish();
}

}  // namespace corvel::forms
