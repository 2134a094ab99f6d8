// The skins of what is only looked at or pressed: buttons, labels, check boxes, gauges, pictures,
// and the grounds that they stand on.
#pragma once

#include "practice/win32/skin.h"

namespace corvel::practice {

class ButtonSkin : public Skin {
 public:
  using Skin::Skin;
  void OnMade() override;

 protected:
  bool OnOwn(const Message& message, MessageResult& result) override;
  void OnSeen(const Message& message) override;
  void Paint(HDC dc, const RECT& area) override;

 private:
  void SetPressed(bool pressed);
  bool inToolbar_ = false;
  bool pressed_ = false;
};

class LabelSkin : public Skin {
 public:
  using Skin::Skin;

 protected:
  bool OnOwn(const Message&, MessageResult&) override { return false; }
  void Paint(HDC dc, const RECT& area) override;
};

class CheckSkin : public Skin {
 public:
  using Skin::Skin;

 protected:
  bool OnOwn(const Message& message, MessageResult& result) override;
  void Paint(HDC dc, const RECT& area) override;

 private:
  bool checked_ = false;
};

class GaugeSkin : public Skin {
 public:
  using Skin::Skin;
  void OnMade() override { AddStyles(0, WS_EX_CLIENTEDGE); }

 protected:
  bool OnOwn(const Message&, MessageResult&) override { return false; }
  void Paint(HDC dc, const RECT& area) override;
};

class GlyphSkin : public Skin {
 public:
  using Skin::Skin;

 protected:
  bool OnOwn(const Message&, MessageResult&) override { return false; }
  void Paint(HDC dc, const RECT& area) override;
};

// A ground of one colour.
class GroundSkin : public Skin {
 public:
  GroundSkin(int systemColor, WindowProcedure& inner, win32::DialogFonts& fonts)
      : Skin(inner, fonts), systemColor_(systemColor) {}

 protected:
  bool OnOwn(const Message&, MessageResult&) override { return false; }
  void Paint(HDC dc, const RECT& area) override;

 private:
  int systemColor_;
};

// The client's main window.
class FrameSkin : public GroundSkin {
 public:
  using GroundSkin::GroundSkin;
  void OnMade() override { ShowProgramIcon(); }
};

// A document: its title bar shows which one has the keyboard.
class DocumentSkin : public GroundSkin {
 public:
  using GroundSkin::GroundSkin;
  void OnMade() override { ShowProgramIcon(); }

 protected:
  bool OnOwn(const Message& message, MessageResult& result) override;
  void OnSeen(const Message& message) override;
};

}  // namespace corvel::practice
