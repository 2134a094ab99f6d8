// The client's lists of rows: the people of a room, the names to sign on with.
#pragma once

#include "practice/controls/row_list.h"
#include "practice/win32/skin.h"

namespace corvel::practice {

class ListSkin : public Skin {
 public:
  ListSkin(RowList& list, WindowProcedure& inner, win32::DialogFonts& fonts)
      : Skin(inner, fonts), list_(list) {}
  void OnMade() override { AddStyles(0, WS_EX_CLIENTEDGE); }
  bool OnDefault(const Message& message, MessageResult& result) override;

 protected:
  bool OnOwn(const Message& message, MessageResult& result) override;
  void OnSeen(const Message& message) override;
  void Paint(HDC dc, const RECT& area) override;

 private:
  void OnScroll(int request);
  void ScrollTo(int top);
  void UpdateBar();
  void MoveSelection(int rows);
  int VisibleRows() const;
  RowList& list_;
  int top_ = 0;
  bool focused_ = false;
};

// A closed combo box; pressed, it offers its rows as a menu. Without rows it shows its text.
class ComboSkin : public Skin {
 public:
  ComboSkin(RowList* list, WindowProcedure& inner, win32::DialogFonts& fonts)
      : Skin(inner, fonts), list_(list) {}
  void OnMade() override { AddStyles(0, WS_EX_CLIENTEDGE); }
  bool OnDefault(const Message& message, MessageResult& result) override;

 protected:
  bool OnOwn(const Message& message, MessageResult& result) override;
  void Paint(HDC dc, const RECT& area) override;

 private:
  void Choose();
  RowList* list_;
};

}  // namespace corvel::practice
