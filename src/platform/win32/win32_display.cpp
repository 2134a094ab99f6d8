#include "platform/win32/win32_display.h"

#include "platform/win32/win32_drawing.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr std::string_view kFace = "MS Sans Serif";

std::size_t VariantOf(const FontStyle& style) {
  return (style.bold ? 1U : 0U) + (style.italic ? 2U : 0U) + (style.underline ? 4U : 0U);
}

int OfScreen(int capability) {
  const WindowDc dc(nullptr);
  return GetDeviceCaps(dc.Get(), capability);
}

}  // namespace

DialogFonts::DialogFonts() : dc_(CreateCompatibleDC(nullptr)) {
  GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof plain_, &plain_);
  // Where the system names only an alias, it may measure with one font and draw with another.
  plain_.lfFaceName[kFace.copy(plain_.lfFaceName, LF_FACESIZE - 1)] = '\0';
  const Selected font(dc_, Of({}));
  TEXTMETRICA metrics{};
  GetTextMetricsA(dc_, &metrics);
  height_ = metrics.tmHeight;
}

DialogFonts::~DialogFonts() {
  DeleteDC(dc_);
  for (HFONT font : fonts_)
    if (font) DeleteObject(font);
}

HFONT DialogFonts::Of(const FontStyle& style) {
  HFONT& font = fonts_[VariantOf(style)];
  if (font) return font;
  LOGFONTA wanted = plain_;
  if (style.bold) wanted.lfWeight = FW_BOLD;
  wanted.lfItalic = style.italic;
  wanted.lfUnderline = style.underline;
  return font = CreateFontIndirectA(&wanted);
}

Size DialogFonts::Extent(std::string_view text, const FontStyle& style) {
  const Selected font(dc_, Of(style));
  SIZE size{};
  GetTextExtentPoint32A(dc_, text.data(), static_cast<int>(text.size()), &size);
  return {static_cast<int>(size.cx), height_};
}

Size Win32Display::ScreenSize() {
  return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

int Win32Display::BitsPerPixel() { return OfScreen(BITSPIXEL) * OfScreen(PLANES); }

int Win32Display::TwipsPerPixel() { return kTwipsPerInch / std::max(OfScreen(LOGPIXELSX), 1); }

Size Win32Display::TextExtent(std::string_view text, const FontStyle& style) {
  return fonts_.Extent(text, style);
}

}  // namespace corvel::win32
