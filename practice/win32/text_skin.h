// A text window of the client as a person sees and uses it: marked-up text in its colours, a caret,
// a selection, a scroll bar.
#pragma once

#include "practice/controls/text_layout.h"
#include "practice/win32/skin.h"

#include <array>

namespace corvel::practice {

class TextBox;

// The dialog font's widths, each variant measured once.
class FontWidths : public CharacterWidths {
 public:
  explicit FontWidths(win32::DialogFonts& fonts) : fonts_(fonts) {}
  int Of(char character, const TextLook& look) const override;

 private:
  using Table = std::array<int, 256>;
  win32::DialogFonts& fonts_;
  mutable std::array<std::unique_ptr<Table>, 4> tables_;
};

FontStyle StyleOf(const TextLook& look);

class TextSkin : public Skin {
 public:
  TextSkin(TextBox& box, WindowProcedure& inner, win32::DialogFonts& fonts);
  void OnMade() override;
  bool OnDefault(const Message& message, MessageResult& result) override;

 protected:
  bool OnOwn(const Message& message, MessageResult& result) override;
  void OnSeen(const Message& message) override;
  void Paint(HDC dc, const RECT& area) override;

 private:
  bool OnMouse(const Message& message);
  bool OnKey(const Message& message);
  void OnScroll(int request);
  const TextLayout& Layout();
  void PaintLine(HDC dc, const TextLine& line, int y);
  void PaintPiece(HDC dc, const LinePiece& piece, int y, bool selected);
  void PaintSelection(HDC dc, std::size_t number, const TextLine& line, int y);
  void TextChanged();
  void PlaceCaret(bool show);
  void ScrollTo(int top);
  void UpdateBar();
  void SelectTo(std::size_t position, bool extend);
  std::size_t PositionAt(LPARAM point);
  int LineHeight();
  int VisibleLines() const;
  int Width() const;
  int LineCount();
  int LastTop();

  TextBox& box_;
  FontWidths widths_;
  TextLayout layout_;
  bool stale_ = true;
  bool focused_ = false, dragging_ = false;
  int top_ = 0, left_ = 0;  // the first line that is seen; pixels that a long line is pushed left
  std::size_t anchor_ = 0, caret_ = 0;
};

}  // namespace corvel::practice
