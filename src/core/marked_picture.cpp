#include "core/marked_picture.h"

#include "forms/marked_text.h"

#include <string>
#include <utility>

namespace corvel {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int kIndentTwips = 51;  // of the first line
constexpr int kMargin = 4;        // pixels

}  // namespace

void MarkedPicture::SetMarkedText(Display& display, std::string_view marked, int columns) {
  const Size alphabet = display.TextExtent(kAlphabet, {});
  forms::TextSurface surface;
  surface.width = columns * alphabet.width / static_cast<int>(kAlphabet.size());
  surface.margin = kMargin;
  surface.indent = kIndentTwips / display.TwipsPerPixel();
  surface.lineHeight = alphabet.height;
  auto measure = [&display](std::string_view text, const FontStyle& style) {
    return display.TextExtent(text, style).width;
  };
  state_.text = marked;
  state_.accessibleName = forms::PlainText(marked);
  SetRuns(forms::SetMarkedText(marked, surface, measure).runs);
  Show(Aspect::kText);
}

}  // namespace corvel
