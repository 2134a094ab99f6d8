// Marked-up text: the codes in which the program's messages are written, read and set in lines.
//
// A code begins with "~", case ignored: ~B ~U ~I turn bold, underline and italic on and off; ~CR
// ~CG ~CB colour red, green and blue, ~CN back to the normal colour; ~N is a new line. "~" and a
// character that make no code are dropped, "~C" with the character behind it; so is a code that the
// end of the text cuts off. Line ends (CR LF, CR, LF) are new lines too.
//
// All of this takes any bytes, never fails, and runs in linear time.
#pragma once

#include "platform/peers.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::forms {

// A stretch of text in one style, or a new line.
struct MarkedPiece {
  std::string_view text;  // of the marked text
  FontStyle style;
  bool newLine = false;
};

// The pieces of a marked text in order, blanks cut from both ends of the whole. No piece of text is
// empty.
std::vector<MarkedPiece> ParseMarkedText(std::string_view marked);

// The text without its codes, lines parted by "\n".
std::string PlainText(std::string_view marked);

// The surface that a marked text is set on, in pixels.
struct TextSurface {
  int width = 0;
  int margin = 0;  // kept free at the right
  int indent = 0;  // where the first line begins; the others begin at 0
  int lineHeight = 0;
};

struct SetText {
  std::vector<TextRun> runs;
  int height = 0;  // that the surface needs; one line for an empty text
};

// The width in pixels of a text without line ends.
using MeasureText = std::function<int(std::string_view text, const FontStyle& style)>;

// Breaks lines at blanks so that the words fit; a word with its blank that is wider than the
// surface stands on a line of its own and is clipped by it.
SetText SetMarkedText(std::string_view marked, const TextSurface& surface,
                      const MeasureText& measure);

}  // namespace corvel::forms
