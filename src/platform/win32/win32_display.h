// The screen, and the dialog font in all its variants.
#pragma once

#include "platform/display.h"

#include <array>
#include <string_view>
#include <windows.h>

namespace corvel::win32 {

// The system's font for dialogs ("MS Sans Serif" of 8 points), bold, italic and underlined as
// asked. Each variant is made at its first use and lives as long as this object.
class DialogFonts {
 public:
  DialogFonts();
  ~DialogFonts();
  DialogFonts(const DialogFonts&) = delete;
  DialogFonts& operator=(const DialogFonts&) = delete;

  HFONT Of(const FontStyle& style);
  int Height() const { return height_; }  // of a line, the same for all variants
  Size Extent(std::string_view text, const FontStyle& style);

 private:
  HDC dc_;  // for measuring
  LOGFONTA plain_{};
  int height_ = 0;
  std::array<HFONT, 8> fonts_{};
};

class Win32Display : public Display {
 public:
  Size ScreenSize() override;
  int BitsPerPixel() override;
  int TwipsPerPixel() override;
  Size TextExtent(std::string_view text, const FontStyle& style) override;

 private:
  DialogFonts fonts_;
};

}  // namespace corvel::win32
