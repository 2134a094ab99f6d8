// Text with looks, broken into lines: where each stretch stands, and which byte is at which place.
#pragma once

#include "practice/controls/markup.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace corvel::practice {

// The widths of characters in pixels.
class CharacterWidths {
 public:
  virtual ~CharacterWidths() = default;
  virtual int Of(char character, const TextLook& look) const = 0;
};

// A stretch of one look in a line: bytes of the text, and where they begin.
struct LinePiece {
  std::size_t start = 0, length = 0;
  int x = 0;
  TextLook look{};
};

struct TextLine {
  std::size_t start = 0, end = 0;  // its bytes, tags included, the character that ends it not
  std::vector<LinePiece> pieces{};
};

class TextLayout {
 public:
  TextLayout() : TextLayout({}, {}, 0, nullptr) {}
  // Breaks at CR and LF (CR LF is one end) and, unless `width` is 0, at blanks so that no line is
  // wider; a word that is wider by itself is broken within. `widths` is not kept.
  TextLayout(std::string_view text, const std::vector<LookRun>& runs, int width,
             const CharacterWidths* widths);

  const std::vector<TextLine>& Lines() const { return lines_; }  // never empty
  std::size_t LineOf(std::size_t position) const;
  // Of the character at this position, or of the place behind the last one.
  int XOf(std::size_t position) const;
  // The position in that line that is nearest to x.
  std::size_t At(std::size_t line, int x) const;
  // The next position that a caret can stand at, over the tags between.
  std::size_t After(std::size_t position) const;
  std::size_t Before(std::size_t position) const;

 private:
  // A character that can be seen, or ends a line.
  struct Spot {
    std::size_t position = 0;
    int x = 0, width = 0;
    std::size_t line = 0;
  };
  class Builder;
  std::vector<Spot> spots_;  // by position; the last is the end of the text
  std::vector<TextLine> lines_;
};

}  // namespace corvel::practice
