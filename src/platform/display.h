// The screen and the fonts: sizes that layout is made of.
#pragma once

#include "platform/peers.h"

#include <string_view>

namespace corvel {

class Display {
 public:
  virtual ~Display() = default;
  virtual Size ScreenSize() = 0;   // pixels
  virtual int BitsPerPixel() = 0;  // of the desktop
  // Twips (1/1440 inch) to a pixel; 15 at the usual 96 dots an inch.
  virtual int TwipsPerPixel() = 0;
  // The extent of a text in the dialog font, in pixels. Height is the same for every text.
  virtual Size TextExtent(std::string_view text, const FontStyle& style) = 0;
};

}  // namespace corvel
