#include "platform/win32/win32_form_peer.h"

#include "platform/win32/callback.h"
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_drawing.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

// A form with a sizing edge of its own is all client area; the style only lets the system size it.
DWORD StyleOf(const FormState& state) {
  DWORD style = WS_POPUP | WS_CLIPCHILDREN;
  if (state.resizable) style |= WS_THICKFRAME;
  if (state.draggable) style |= WS_SYSMENU;  // not seen, but Alt+Space opens its menu
  if (!state.border) return style;
  style |= WS_CAPTION;
  if (state.closable) style |= WS_SYSMENU;
  if (state.minimizable) style |= WS_MINIMIZEBOX | WS_SYSMENU;
  return style;
}

DWORD ExtendedStyleOf(const FormState& state) {
  DWORD style = WS_EX_CONTROLPARENT;
  if (state.showsInTaskbar) style |= WS_EX_APPWINDOW;
  if (state.topMost) style |= WS_EX_TOPMOST;
  return style;
}

class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

}  // namespace

HICON LoadProgramIcon() {
  const HICON icon = LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kProgramIcon));
  return icon ? icon : LoadIconA(nullptr, IDI_APPLICATION);
}

// --- Life ----------------------------------------------------------------------------------------

Win32Form::Win32Form(FormSet& set, const FormState& state, FormEvents& events)
    : set_(set), state_(state), events_(events) {
  set_.forms.push_back(this);
  CreateFormWindow();
  ShowGround();
}

Win32Form::~Win32Form() {
  std::erase(set_.forms, this);
  for (Win32Control* control : controls_) control->LoseForm();
  if (window_) {
    SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
  if (ground_) DeleteObject(ground_);
}

void Win32Form::CreateFormWindow() {
  static const ATOM kRegistered = [] {
    WNDCLASSEXA made{};
    made.cbSize = sizeof made;
    made.lpfnWndProc = &Procedure;
    made.hInstance = GetModuleHandleA(nullptr);
    made.hIcon = LoadProgramIcon();
    made.hIconSm = static_cast<HICON>(LoadImageA(made.hInstance, MAKEINTRESOURCEA(kProgramIcon),
                                                 IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                                 GetSystemMetrics(SM_CYSMICON), LR_SHARED));
    made.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    made.lpszClassName = kFormClass;
    RegisterClassExA(&made);
    made.lpfnWndProc = &DefWindowProcA;
    made.hIcon = made.hIconSm = nullptr;
    made.lpszClassName = kControlClass;
    return RegisterClassExA(&made);
  }();
  if (!kRegistered) return;
  const Counted placing(placing_);
  const Rect& place = state_.place;
  CreateWindowExA(ExtendedStyleOf(state_), kFormClass, state_.caption.c_str(), StyleOf(state_),
                  place.left, place.top, place.width, place.height,
                  state_.showsInTaskbar ? nullptr : set_.hiddenOwner, nullptr,
                  GetModuleHandleA(nullptr), this);
  if (!window_) return;
  EnableWindow(window_, state_.enabled);
  ShowPlace();  // the system may have had its own idea of the size
}

std::unique_ptr<ControlPeer> Win32Form::Add(const ControlState& state, ControlEvents& events) {
  auto control = MakeControl(*this, state, events);
  controls_.push_back(control.get());
  PutFramesBehind();
  ShowDefaultButton();
  Callback::Rethrow();
  return control;
}

HWND Win32Form::ParentOf(const ControlState& control) const {
  if (!control.container) return window_;
  const Win32Control* container = ControlOf(control.container);
  return container ? container->Hwnd() : nullptr;
}

void Win32Form::PutIn(const Win32Control& control) const {
  if (const HWND parent = ParentOf(control.State())) SetParent(control.Hwnd(), parent);
  PutFramesBehind();
}

// Frames stand behind what they frame, an outer one behind those inside it.
void Win32Form::PutFramesBehind() const {
  for (auto control = controls_.rbegin(); control != controls_.rend(); ++control)
    if ((*control)->State().kind == ControlKind::kFrame)
      SetWindowPos((*control)->Hwnd(), HWND_BOTTOM, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32Form::Forget(const Win32Control& control) {
  DropToolTip(control);
  LeaveFocus(control);
  if (lastFocus_ == control.Hwnd()) lastFocus_ = nullptr;
  std::erase_if(controls_, [&](const Win32Control* one) { return one == &control; });
}

Win32Control* FormSet::ControlAt(HWND window) const {
  for (HWND at = window; at; at = GetParent(at)) {
    for (const Win32Form* form : forms)
      for (Win32Control* control : form->Controls())
        if (control->Hwnd() == at) return control;
    const bool isChild = (GetWindowLongPtrA(at, GWL_STYLE) & WS_CHILD) != 0;
    if (!isChild || GetWindowThreadProcessId(at, nullptr) != GetCurrentThreadId()) break;
  }
  return nullptr;
}

Win32Form* FormSet::FormAt(HWND window) const {
  for (Win32Form* form : forms)
    if (form->Hwnd() && form->Hwnd() == window) return form;
  const Win32Control* control = ControlAt(window);
  return control ? control->Form() : nullptr;
}

Win32Control* Win32Form::ControlAt(HWND window) const {
  Win32Control* control = set_.ControlAt(window);
  return control && control->Form() == this ? control : nullptr;
}

Win32Control* Win32Form::ControlOf(const ControlState* state) const {
  const auto hit = std::find_if(controls_.begin(), controls_.end(),
                                [state](const auto* one) { return &one->State() == state; });
  return hit == controls_.end() ? nullptr : *hit;
}

ControlStates Win32Form::States() const {
  ControlStates states;
  for (const Win32Control* control : controls_) states.push_back(&control->State());
  return states;
}

Win32Control* Win32Form::Focused() const {
  const HWND focus = GetFocus();
  return focus ? ControlAt(focus) : nullptr;
}

// --- State ---------------------------------------------------------------------------------------

void Win32Form::Changed(Aspect aspect) {
  if (!window_) return;
  switch (aspect) {
    case Aspect::kText:
      SetWindowTextA(window_, state_.caption.c_str());
      break;
    case Aspect::kPlace:
      ShowPlace();
      break;
    case Aspect::kEnabled:
      EnableWindow(window_, state_.enabled);
      for (Win32Control* control : controls_)
        if (control->State().host) control->Changed(Aspect::kEnabled, -1);
      break;
    default:
      ShowTopMost();
      ShowGround();
      break;
  }
  Callback::Rethrow();
}

void Win32Form::ShowPlace() {
  const Counted placing(placing_);
  const Rect& place = state_.place;
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  if (!state_.etchedEdge) return;
  InvalidateRect(window_, nullptr, TRUE);
  for (Win32Control* control : controls_) control->Changed(Aspect::kPlace, -1);
}

void Win32Form::ShowTopMost() const {
  const bool is = (GetWindowLongPtrA(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  if (is == state_.topMost) return;
  SetWindowPos(window_, state_.topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

COLORREF Win32Form::Ground() const { return groundColor_; }

void Win32Form::ShowGround() {
  const COLORREF color = PureColor(ToColorRef(state_.backColor));
  if (ground_ && color == groundColor_) return;
  if (ground_) DeleteObject(ground_);
  groundColor_ = color;
  ground_ = CreateSolidBrush(color);
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

Size Win32Form::FrameSize() {
  if (!state_.border) return {};
  RECT frame{};
  AdjustWindowRectEx(&frame, StyleOf(state_), FALSE, ExtendedStyleOf(state_));
  return {WidthOf(frame), HeightOf(frame)};
}

void Win32Form::ApplyVisible(bool activate) {
  if (!window_) return;
  if (!state_.visible) {
    ShowWindow(window_, SW_HIDE);
  } else if (!activate) {
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  } else {
    ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(window_);
    if (GetActiveWindow() == window_ && !Focused()) FocusSomething();
  }
  Callback::Rethrow();
}

}  // namespace corvel::win32
