// What a window of the client looks like and how it takes the mouse: laid over the client's own
// window procedures, which know nothing of drawing.
//
// A skin sees each message first. It uses up what belongs to the looks (painting, scrolling, the
// mouse where it means a place in a text) and hands everything else on.
#pragma once

#include "platform/own_windows.h"
#include "platform/win32/win32_display.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <windows.h>

namespace corvel::practice {

class Skin : public WindowProcedure, public std::enable_shared_from_this<Skin> {
 public:
  Skin(WindowProcedure& inner, win32::DialogFonts& fonts) : inner_(inner), fonts_(fonts) {}

  MessageResult OnMessage(Window window, const Message& message) final;
  // The client's procedure leaves a message to the system. True: that is done, with `result`.
  virtual bool OnDefault(const Message& message, MessageResult& result);
  // The window has been made.
  virtual void OnMade() {}

 protected:
  // True: used up.
  virtual bool OnOwn(const Message& message, MessageResult& result) = 0;
  // The client's procedure has seen it.
  virtual void OnSeen(const Message& message);
  virtual void Paint(HDC dc, const RECT& area) = 0;

  HWND hwnd() const { return hwnd_; }
  win32::DialogFonts& fonts() { return fonts_; }
  MessageResult Pass(const Message& message);
  void Repaint();
  std::string Text() const;
  bool IsEnabled() const { return IsWindowEnabled(hwnd_) != FALSE; }
  void ShowProgramIcon();  // in the title bar
  void AddStyles(DWORD style, DWORD extended);

 private:
  bool PaintAll(const Message& message);
  WindowProcedure& inner_;
  win32::DialogFonts& fonts_;
  HWND hwnd_ = nullptr;
};

// The skin for a window of this class, by what its procedure is; never nullptr.
std::shared_ptr<Skin> MakeSkin(const NewWindow& plan, WindowProcedure& procedure,
                               win32::DialogFonts& fonts);

// The system's windows with a skin over each one that the client makes.
class SkinnedWindows : public OwnWindows {
 public:
  explicit SkinnedWindows(OwnWindows& windows) : windows_(windows) {}
  Window Create(const NewWindow& window, WindowProcedure& procedure) override;
  MessageResult Default(Window window, const Message& message) override;
  void Destroy(Window window) override { windows_.Destroy(window); }
  void SetMenuBar(Window window, MenuHandle menu) override { windows_.SetMenuBar(window, menu); }
  MenuHandle CreateMenuBar() override { return windows_.CreateMenuBar(); }
  Window ShowDialog(Window owner, const std::string& caption, const std::string& text) override {
    return windows_.ShowDialog(owner, caption, text);
  }

 private:
  class Entered;  // the procedure of a window with its skin
  void ShowActive(HWND focus);
  OwnWindows& windows_;
  win32::DialogFonts fonts_;
  HWND active_ = nullptr;  // the document whose title bar says so
  std::unordered_map<std::uint32_t, std::shared_ptr<Entered>> entered_;
};

}  // namespace corvel::practice
