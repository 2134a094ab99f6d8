#include "practice/win32/skin.h"

#include "base/text.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_drawing.h"

namespace corvel::practice {

MessageResult Skin::OnMessage(Window window, const Message& message) {
  const auto self = shared_from_this();
  if (hwnd_ == nullptr) hwnd_ = win32::ToHwnd(window);
  if (PaintAll(message)) return 0;
  MessageResult result = 0;
  if (OnOwn(message, result)) return result;
  result = Pass(message);
  if (IsWindow(hwnd_)) OnSeen(message);
  return result;
}

bool Skin::PaintAll(const Message& message) {
  if (message.id != WM_PAINT) return false;
  const win32::BufferedPaint paint(hwnd_);
  Paint(paint.Dc(), paint.Area());
  return true;
}

MessageResult Skin::Pass(const Message& message) {
  return inner_.OnMessage(win32::FromHwnd(hwnd_), message);
}

bool Skin::OnDefault(const Message& message, MessageResult& result) {
  // All of a window is painted at once, so nothing needs to be erased.
  if (message.id != WM_ERASEBKGND) return false;
  result = 1;
  return true;
}

void Skin::OnSeen(const Message& message) {
  if (message.id == WM_SETTEXT || message.id == WM_ENABLE || message.id == WM_SIZE) Repaint();
}

void Skin::Repaint() { InvalidateRect(hwnd_, nullptr, FALSE); }

std::string Skin::Text() const {
  std::string text(256, '\0');
  const LRESULT length =
      SendMessageA(hwnd_, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length < 0 ? 0 : length));
  return text;
}

void Skin::ShowProgramIcon() {
  const HICON icon = LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(1));
  SendMessageA(hwnd_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
  SendMessageA(hwnd_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

void Skin::AddStyles(DWORD style, DWORD extended) {
  SetWindowLongA(hwnd_, GWL_STYLE, GetWindowLongA(hwnd_, GWL_STYLE) | static_cast<LONG>(style));
  SetWindowLongA(hwnd_, GWL_EXSTYLE,
                 GetWindowLongA(hwnd_, GWL_EXSTYLE) | static_cast<LONG>(extended));
  SetWindowPos(hwnd_, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

// --- The windows ---------------------------------------------------------------------------------

// Stands between the system and the skin: notes the window as soon as it has a handle, and forgets
// it when it has gone.
class SkinnedWindows::Entered : public WindowProcedure {
 public:
  Entered(SkinnedWindows& windows, std::shared_ptr<Skin> skin)
      : windows_(windows), skin_(std::move(skin)) {}
  void SetSelf(std::shared_ptr<Entered> self) { self_ = std::move(self); }
  Skin& skin() { return *skin_; }

  MessageResult OnMessage(Window window, const Message& message) override {
    const auto stays = self_.lock();
    windows_.entered_.try_emplace(window.value, stays);
    const MessageResult result = skin_->OnMessage(window, message);
    if (message.id == WM_SETFOCUS) windows_.ShowActive(win32::ToHwnd(window));
    if (message.id == WM_NCDESTROY) windows_.entered_.erase(window.value);
    return result;
  }

 private:
  SkinnedWindows& windows_;
  std::shared_ptr<Skin> skin_;
  std::weak_ptr<Entered> self_;
};

// The document in which the focus stands gets the title bar of an active window.
void SkinnedWindows::ShowActive(HWND focus) {
  constexpr char kDocument[] = "AOL Child";
  char name[32] = "";
  for (; focus != nullptr; focus = GetParent(focus)) {
    GetClassNameA(focus, name, sizeof name);
    if (EqualNoCase(name, kDocument)) break;
  }
  if (focus == nullptr || focus == active_) return;
  if (IsWindow(active_)) SendMessageA(active_, WM_NCACTIVATE, FALSE, 0);
  active_ = focus;
  SendMessageA(focus, WM_NCACTIVATE, TRUE, 0);
}

Window SkinnedWindows::Create(const NewWindow& plan, WindowProcedure& procedure) {
  const auto entered = std::make_shared<Entered>(*this, MakeSkin(plan, procedure, fonts_));
  entered->SetSelf(entered);
  const Window window = windows_.Create(plan, *entered);
  if (window) entered->skin().OnMade();
  return window;
}

MessageResult SkinnedWindows::Default(Window window, const Message& message) {
  MessageResult result = 0;
  const auto at = entered_.find(window.value);
  if (at != entered_.end()) {
    const auto entered = at->second;
    if (entered->skin().OnDefault(message, result)) return result;
  }
  return windows_.Default(window, message);
}

}  // namespace corvel::practice
