// The desk's screen: its size and the widths of the dialog font.
#pragma once

#include "platform/desk/desk.h"

namespace corvel::desk {

class DeskDisplay : public Display {
 public:
  Size ScreenSize() override { return size_; }
  int BitsPerPixel() override { return bitsPerPixel_; }
  int TwipsPerPixel() override { return 15; }
  Size TextExtent(std::string_view text, const FontStyle& style) override;

  void Set(int bitsPerPixel, Size size) {
    bitsPerPixel_ = bitsPerPixel;
    size_ = size;
  }

 private:
  int bitsPerPixel_ = 16;
  Size size_{800, 600};
};

}  // namespace corvel::desk
