#include "platform/win32/win32_control_peer.h"

#include "platform/form_keyboard.h"
#include "platform/win32/callback.h"
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

struct KeyRow {
  WPARAM virtualKey;
  Key key;
};

constexpr KeyRow kKeys[] = {
    {VK_RETURN, Key::kEnter},   {VK_ESCAPE, Key::kEscape}, {VK_TAB, Key::kTab},
    {VK_BACK, Key::kBackspace}, {VK_DELETE, Key::kDelete}, {VK_UP, Key::kUp},
    {VK_DOWN, Key::kDown},      {VK_LEFT, Key::kLeft},     {VK_RIGHT, Key::kRight},
    {VK_HOME, Key::kHome},      {VK_END, Key::kEnd},       {VK_SPACE, Key::kSpace},
};

// Where a form draws its etched edge the controls must keep clear of it, and of the edge by which
// the user sizes it.
constexpr int kEdge = 4;

Rect KeptOffEdge(const Rect& place, HWND form) {
  RECT room{};
  GetClientRect(form, &room);
  InflateRect(&room, -kEdge, -kEdge);
  const RECT wanted = ToRect(place);
  RECT kept{};
  if (!IntersectRect(&kept, &wanted, &room)) return place;
  return {static_cast<int>(kept.left), static_cast<int>(kept.top), WidthOf(kept), HeightOf(kept)};
}

}  // namespace

Key KeyOf(WPARAM virtualKey) {
  if (virtualKey == VK_RETURN && IsHeld(VK_CONTROL)) return Key::kControlEnter;
  for (const KeyRow& row : kKeys)
    if (row.virtualKey == virtualKey) return row.key;
  return Key::kOther;
}

// --- Life ----------------------------------------------------------------------------------------

Win32Control::Win32Control(Win32Form& form, const ControlState& state, ControlEvents& events)
    : form_(&form), state_(state), events_(events) {}

Win32Control::~Win32Control() {
  if (form_) form_->Forget(*this);
  if (!window_) return;
  SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
  SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own_));
  DestroyWindow(window_);
}

void Win32Control::Create() {
  const HWND parent = form_->ParentOf(state_);
  if (!parent) return;  // it has gone before us
  const WindowKind kind = Kind();
  window_ = CreateWindowExA(kind.extendedStyle, kind.className, "",
                            kind.style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr,
                            GetModuleHandleA(nullptr), nullptr);
  if (!window_) return;
  SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  own_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
  Changed(Aspect::kAll, -1);
}

LRESULT CALLBACK Win32Control::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<Win32Control*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (!self) return DefWindowProcA(window, id, wParam, lParam);
  const WNDPROC own = self->own_;
  if (id == WM_NCDESTROY) {  // with what it stands in
    self->window_ = nullptr;
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    Callback::Run([&] { return self->OnLoss(), 0; });
    return CallWindowProcA(own, window, id, wParam, lParam);
  }
  std::optional<LRESULT> answer;
  Callback::Run([&] { return (answer = self->OnMessage(id, wParam, lParam)).has_value(); });
  if (answer) return *answer;
  return IsWindow(window) ? CallWindowProcA(own, window, id, wParam, lParam) : 0;
}

// --- State ---------------------------------------------------------------------------------------

void Win32Control::Changed(Aspect aspect, int row) {
  if (!window_) return;
  ++updating_;
  Show(aspect, row);
  --updating_;
  Callback::Rethrow();
}

void Win32Control::Show(Aspect aspect, int) {
  const bool all = aspect == Aspect::kAll;
  if (all || aspect == Aspect::kLook)
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(form_->Fonts().Of(state_.font)), TRUE);
  if (aspect == Aspect::kParent && form_) form_->PutIn(*this);
  if (all || aspect == Aspect::kPlace) {
    const Rect place = WindowPlace();
    SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (all || aspect == Aspect::kEnabled || aspect == Aspect::kVisible) {
    if (!IsUsable() && form_) form_->LeaveFocus(*this);
    EnableWindow(window_, TakesInput());
    ShowWindow(window_, state_.visible ? SW_SHOWNA : SW_HIDE);
  }
  if (aspect != Aspect::kText && aspect != Aspect::kSelection) ShowToolTip();
}

// What hangs elsewhere isn't disabled with its form by the system.
bool Win32Control::TakesInput() const {
  return state_.enabled && !(state_.host && form_ && !form_->State().enabled);
}

Rect Win32Control::WindowPlace() const {
  const bool onEdge = form_ && form_->State().etchedEdge && !state_.container && !state_.host;
  return onEdge ? KeptOffEdge(state_.place, form_->Hwnd()) : state_.place;
}

void Win32Control::ShowToolTip() {
  if (form_) form_->ShowToolTip(*this);
}

void Win32Control::SetWindowTextIfOther(const std::string& text) const {
  if (WindowText() != text) SetWindowTextA(window_, text.c_str());
}

std::string Win32Control::WindowText() const {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window_)) + 1, '\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextA(window_, text.data(), static_cast<int>(text.size()))));
  return text;
}

void Win32Control::TakeFocus() {
  if (CanHaveFocus(state_.kind) && window_) SetFocus(window_);
  Callback::Rethrow();
}

// --- What the user does --------------------------------------------------------------------------

void Win32Control::PostNotice(int notice) const {
  PostMessageA(window_, kNotice, static_cast<WPARAM>(notice), 0);
}

std::optional<LRESULT> Win32Control::OnMessage(UINT id, WPARAM wParam, LPARAM) {
  if (id == kNotice) {
    OnNotice(static_cast<int>(wParam));
    return 0;
  }
  if ((id == WM_SETFOCUS || id == WM_KILLFOCUS) && form_) form_->ShowDefaultButton();
  if (id == WM_RBUTTONUP && !Calls([](ControlEvents& events) { events.UserRightClick(); }))
    return 0;
  return std::nullopt;
}

// --- Kinds ---------------------------------------------------------------------------------------

std::unique_ptr<Win32Control> MakeControl(Win32Form& form, const ControlState& state,
                                          ControlEvents& events) {
  struct Maker {
    ControlKind kind;
    std::unique_ptr<Win32Control> (*make)(Win32Form&, const ControlState&, ControlEvents&);
  };
  static constexpr Maker kMakers[] = {
      {ControlKind::kLabel, MakeLabel},
      {ControlKind::kButton, MakeButton},
      {ControlKind::kFlatButton, MakeFlatButton},
      {ControlKind::kTextBox, MakeTextBox},
      {ControlKind::kCheckBox, MakeButton},
      {ControlKind::kOptionButton, MakeButton},
      {ControlKind::kListBox, MakeListBox},
      {ControlKind::kComboBox, MakeComboBox},
      {ControlKind::kListView, MakeListView},
      {ControlKind::kTabStrip, MakeTabStrip},
      {ControlKind::kProgressBar, MakeProgressBar},
      {ControlKind::kPicture, MakePicture},
      {ControlKind::kFrame, MakeFrame},
      {ControlKind::kContainer, MakeContainer},
  };
  const auto maker = std::find_if(std::begin(kMakers), std::end(kMakers),
                                  [&](const Maker& one) { return one.kind == state.kind; });
  auto control = maker->make(form, state, events);
  control->Create();
  return control;
}

}  // namespace corvel::win32
