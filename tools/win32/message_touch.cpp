#include "tools/win32/message_touch.h"

#include "platform/form_keyboard.h"
#include "platform/win32/callback.h"
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_form_peer.h"
#include "platform/win32/win32_peers.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvel::tools {
namespace {

using win32::ToHwnd;

constexpr UINT kDeed = WM_APP + 1;  // the oldest deed is to be done

bool IsPopupMenuOpen() { return IsWindowVisible(FindWindowA("#32768", nullptr)) != FALSE; }

struct KeyCode {
  Key key;
  int virtualKey;
};
constexpr KeyCode kKeyCodes[] = {
    {Key::kEnter, VK_RETURN},        {Key::kEscape, VK_ESCAPE}, {Key::kTab, VK_TAB},
    {Key::kBackspace, VK_BACK},      {Key::kDelete, VK_DELETE}, {Key::kUp, VK_UP},
    {Key::kDown, VK_DOWN},           {Key::kLeft, VK_LEFT},     {Key::kRight, VK_RIGHT},
    {Key::kHome, VK_HOME},           {Key::kEnd, VK_END},       {Key::kSpace, VK_SPACE},
    {Key::kControlEnter, VK_RETURN}, {Key::kOther, VK_F12},
};

// The Control key is held down, for this thread.
class ControlHeld {
 public:
  explicit ControlHeld(bool held) {
    GetKeyboardState(before_);
    BYTE now[256];
    std::copy(std::begin(before_), std::end(before_), now);
    now[VK_CONTROL] = held ? 0x80 : 0;
    SetKeyboardState(now);
  }
  ~ControlHeld() { SetKeyboardState(before_); }
  ControlHeld(const ControlHeld&) = delete;
  ControlHeld& operator=(const ControlHeld&) = delete;

 private:
  BYTE before_[256]{};
};

HWND HwndOf(const ControlView& control) { return ToHwnd(control.window); }

LRESULT Send(HWND window, UINT id, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageA(window, id, wParam, lParam);
}

// As if the user had done what the control's window now shows.
void TellCommand(HWND control, int code) {
  Send(GetParent(control), WM_COMMAND, MAKEWPARAM(0, code), reinterpret_cast<LPARAM>(control));
}

void TellNotice(HWND control, UINT code) {
  NMITEMACTIVATE notice{};
  notice.hdr = {control, 0, code};
  notice.iItem = -1;
  Send(GetParent(control), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
}

// --- Choosing a row, kind by kind ----------------------------------------------------------------

void SelectInList(HWND list, const ControlState& state, int row, bool keepMarked) {
  if (!state.multiSelect) {
    Send(list, LB_SETCURSEL, static_cast<WPARAM>(row));
  } else {
    const bool mark = !keepMarked || Send(list, LB_GETSEL, static_cast<WPARAM>(row)) <= 0;
    if (!keepMarked) Send(list, LB_SETSEL, FALSE, -1);
    Send(list, LB_SETSEL, mark, row);
    Send(list, LB_SETCARETINDEX, static_cast<WPARAM>(row));
  }
  TellCommand(list, LBN_SELCHANGE);
}

void SelectInCombo(HWND combo, const ControlState&, int row, bool) {
  Send(combo, CB_SETCURSEL, static_cast<WPARAM>(row));
  TellCommand(combo, CBN_SELCHANGE);
}

// A view tells by itself of a row that is marked, and of the click only where none was.
void SelectInView(HWND view, const ControlState& state, int row, bool) {
  LVITEMA item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  if (state.selected == row)
    Send(view, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  item.state = item.stateMask;
  Send(view, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  Send(view, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void SelectInTabs(HWND tabs, const ControlState&, int row, bool) {
  Send(tabs, TCM_SETCURSEL, static_cast<WPARAM>(row));
  TellNotice(tabs, static_cast<UINT>(TCN_SELCHANGE));
}

struct Selecting {
  ControlKind kind;
  void (*select)(HWND window, const ControlState& state, int row, bool keepMarked);
};
constexpr Selecting kSelecting[] = {{ControlKind::kListBox, SelectInList},
                                    {ControlKind::kComboBox, SelectInCombo},
                                    {ControlKind::kListView, SelectInView},
                                    {ControlKind::kTabStrip, SelectInTabs}};

}  // namespace

int VirtualKeyOf(Key key) {
  return std::find_if(std::begin(kKeyCodes), std::end(kKeyCodes),
                      [key](const KeyCode& code) { return code.key == key; })
      ->virtualKey;
}

// --- What is there -------------------------------------------------------------------------------

Win32Touch::Win32Touch(win32::Win32Platform& system)
    : set_(system.peers().Set()), events_(system.events()) {}

std::vector<FormView> Win32Touch::Forms() {
  std::vector<FormView> forms;
  for (win32::Win32Form* form : set_.forms)
    if (form->Hwnd()) forms.push_back({form->Handle(), &form->State()});
  return forms;
}

std::vector<ControlView> Win32Touch::ControlsOf(Window form) {
  std::vector<ControlView> controls;
  for (win32::Win32Form* one : set_.forms)
    if (form && one->Hwnd() && one->Handle() == form)
      for (win32::Win32Control* control : one->Controls())
        if (control->Hwnd()) controls.push_back({control->Handle(), &control->State()});
  return controls;
}

bool Win32Touch::IsSeen(Window window) { return IsWindowVisible(ToHwnd(window)) != FALSE; }

std::string Win32Touch::ObstacleTo(const FormView& form) {
  if (IsPopupMenuOpen()) return "a pop-up menu is open";
  const bool stopped = form.state->enabled && !IsWindowEnabled(ToHwnd(form.window));
  return stopped ? "a dialog of the system waits for its answer" : "";
}

Window Win32Touch::FocusedControl() const {
  const win32::Win32Control* control = set_.ControlAt(GetFocus());
  return control ? win32::FromHwnd(control->Hwnd()) : Window{};
}

// --- In their order ------------------------------------------------------------------------------

MessageTouch::MessageTouch(win32::Win32Platform& system) : Win32Touch(system) {
  WNDCLASSA made{};
  made.lpfnWndProc = &Procedure;
  made.hInstance = GetModuleHandleA(nullptr);
  made.lpszClassName = "CorvelHand";
  RegisterClassA(&made);
  window_ = CreateWindowExA(0, made.lpszClassName, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                            made.hInstance, nullptr);
  SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageTouch::~MessageTouch() { DestroyWindow(window_); }

LRESULT CALLBACK MessageTouch::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<MessageTouch*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (self && id == kDeed) return win32::Callback::Run([self] { return self->DoOldest(), 0; });
  return DefWindowProcA(window, id, wParam, lParam);
}

Deed MessageTouch::Begin(Window, std::function<void()> act) {
  const std::uint64_t task = ++lastTask_;
  waiting_.push_back({task, std::move(act)});
  open_.insert(task);
  PostMessageA(window_, kDeed, 0, 0);
  return {.over = [this, task] { return !open_.contains(task); }};
}

// What the deed before has put in the queue comes first.
bool MessageTouch::IsLastDeedOver() const {
  MSG message{};
  for (const UINT left : {win32::kNotice, UINT{WM_CHAR}})
    if (PeekMessageA(&message, nullptr, left, left, PM_NOREMOVE)) return false;
  return true;
}

void MessageTouch::DoOldest() {
  if (waiting_.empty()) return;
  if (!IsLastDeedOver()) {
    PostMessageA(window_, kDeed, 0, 0);
    return;
  }
  const Waiting next = std::move(waiting_.front());
  waiting_.pop_front();
  struct Close {
    std::set<std::uint64_t>& open;
    std::uint64_t task;
    ~Close() { open.erase(task); }
  } const close{open_, next.task};
  next.act();
}

// --- Doing it ------------------------------------------------------------------------------------

void MessageTouch::GoTo(const ControlView& control) {
  HWND root = HwndOf(control);
  while (GetWindowLongPtrA(root, GWL_STYLE) & WS_CHILD) root = GetParent(root);
  if (GetForegroundWindow() != root) SetForegroundWindow(root);
  if (CanHaveFocus(control.state->kind)) SetFocus(HwndOf(control));
}

void MessageTouch::Click(const ControlView& control) {
  const HWND window = HwndOf(control);
  const LPARAM middle = MAKELPARAM(control.state->place.width / 2, control.state->place.height / 2);
  Send(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  Send(window, WM_LBUTTONUP, 0, middle);
}

void MessageTouch::DoubleClick(const ControlView& control) {
  if (control.state->kind == ControlKind::kListBox) TellCommand(HwndOf(control), LBN_DBLCLK);
  if (control.state->kind == ControlKind::kListView)
    TellNotice(HwndOf(control), static_cast<UINT>(NM_DBLCLK));
}

void MessageTouch::RightClick(const ControlView& control) {
  Send(HwndOf(control), WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
}

void MessageTouch::Select(const ControlView& control, int row, bool keepMarked) {
  for (const Selecting& one : kSelecting)
    if (one.kind == control.state->kind)
      one.select(HwndOf(control), *control.state, row, keepMarked);
}

// EM_REPLACESEL tells of the change as typing does; setting the text of a box of several lines
// doesn't.
void MessageTouch::Type(const ControlView& control, const std::string& wholeText) {
  Send(HwndOf(control), EM_SETSEL, 0, -1);
  Send(HwndOf(control), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wholeText.c_str()));
}

void MessageTouch::Press(const ControlView& control, Key key) {
  const HWND window = HwndOf(control);
  const ControlHeld held(key == Key::kControlEnter);
  for (const UINT id : {WM_KEYDOWN, WM_KEYUP}) {
    if (!IsWindow(window)) return;
    MSG message{};
    message.hwnd = window;
    message.message = id;
    message.wParam = static_cast<WPARAM>(VirtualKeyOf(key));
    message.lParam = id == WM_KEYUP ? static_cast<LPARAM>(0xC0000001) : 1;
    Events().Dispatch(message);
  }
}

// The messages that the system's own loop gives the form, between the button's down and up.
void MessageTouch::DragForm(const FormView& form, const ControlView&, int dx, int dy) {
  const HWND window = ToHwnd(form.window);
  const int left = form.state->place.left + dx, top = form.state->place.top + dy;
  Send(window, WM_ENTERSIZEMOVE);
  SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  Send(window, WM_EXITSIZEMOVE);
}

void MessageTouch::Close(const FormView& form) { Send(ToHwnd(form.window), WM_CLOSE); }

void MessageTouch::Move(const FormView& form, int left, int top) {
  SetWindowPos(ToHwnd(form.window), nullptr, left, top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace corvel::tools
