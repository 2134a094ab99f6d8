#include "platform/win32/win32_peers.h"

#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_form_peer.h"

#include <algorithm>
#include <deque>
#include <set>
#include <utility>

namespace corvel::win32 {
namespace {

constexpr UINT kDeed = WM_APP + 0x0C2;  // to the hidden window: the oldest deed is to be done

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

}  // namespace

int VirtualKeyOf(Key key) {
  return std::find_if(std::begin(kKeyCodes), std::end(kKeyCodes),
                      [key](const KeyCode& code) { return code.key == key; })
      ->virtualKey;
}

struct Win32Peers::Impl : MessageFilter {
  using Deed = std::function<void()>;
  struct Waiting {
    std::uint64_t task;
    Deed deed;
  };

  explicit Impl(Win32EventLoop& loop) : events(loop) { events.AddFilter(*this); }
  ~Impl() override {
    events.RemoveFilter(*this);
    if (set.hiddenOwner) DestroyWindow(set.hiddenOwner);
  }

  Win32EventLoop& events;
  FormSet set{};
  std::deque<Waiting> waiting{};
  std::set<std::uint64_t> open{};
  std::uint64_t lastTask = 0;

  bool Filter(MSG& message) override;
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  void CreateHiddenOwner();
  bool IsLastDeedOver() const;
  void DoOldest();
  Win32Form* FormHolding(HWND window) const;
  Win32Form* Form(Window window) const;
  Win32Control* Control(Window window) const;
  Win32Form* FormOf(const Win32Control* control) const;
  std::string Refusal(const Win32Form* form) const;
  std::string Refusal(const Win32Control* control) const;
  Done Post(Deed deed);
  Done Do(Window control, std::string refusal, std::function<void(Win32Control&)> act);
  Done DoToForm(Window form, std::string refusal, std::function<void(Win32Form&)> act);
  void PressKey(Window window, Key key);
};

// --- Windows -------------------------------------------------------------------------------------

bool Win32Peers::Impl::Filter(MSG& message) {
  const Win32Form* form = FormHolding(message.hwnd);
  if (!form) return false;
  form->RelayToToolTips(message);
  return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST &&
         const_cast<Win32Form*>(form)->OnKey(message);
}

Win32Form* Win32Peers::Impl::FormHolding(HWND window) const {
  for (Win32Form* form : set.forms)
    if (form->Hwnd() && (form->Hwnd() == window || IsChild(form->Hwnd(), window))) return form;
  return nullptr;
}

LRESULT CALLBACK Win32Peers::Impl::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<Impl*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (self && id == kDeed) return Callback::Run([self] { return self->DoOldest(), 0; });
  // Each window of the process is told, this one outlives all forms.
  if (self && id == WM_ENDSESSION && wParam)
    return Callback::Run([self] { return self->events.EndSession(), 0; });
  return DefWindowProcA(window, id, wParam, lParam);
}

// Owns the forms that have no place in the task bar, takes the deeds, and hears of the session's
// end.
void Win32Peers::Impl::CreateHiddenOwner() {
  if (set.hiddenOwner) return;
  WNDCLASSA made{};
  made.lpfnWndProc = &Procedure;
  made.hInstance = GetModuleHandleA(nullptr);
  made.hIcon = LoadProgramIcon();
  made.lpszClassName = "CorvelOwner";
  RegisterClassA(&made);
  set.hiddenOwner = CreateWindowExA(0, made.lpszClassName, "", WS_POPUP, 0, 0, 0, 0, nullptr,
                                    nullptr, made.hInstance, nullptr);
  SetWindowLongPtrA(set.hiddenOwner, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Win32Peers::Win32Peers(Win32EventLoop& events) : impl_(std::make_unique<Impl>(events)) {
  InitCommonControls();
}
Win32Peers::~Win32Peers() = default;

std::unique_ptr<FormPeer> Win32Peers::CreateForm(const FormState& state, FormEvents& events) {
  impl_->CreateHiddenOwner();
  auto form = std::make_unique<Win32Form>(impl_->set, state, events);
  Callback::Rethrow();
  return form;
}

// --- Looking -------------------------------------------------------------------------------------

std::vector<Win32Peers::FormView> Win32Peers::Forms() const {
  std::vector<FormView> views;
  for (Win32Form* form : impl_->set.forms)
    if (form->Hwnd())
      views.push_back({GetCurrentProcessId(), form->Handle(), &form->State(), &form->Events()});
  return views;
}

std::optional<Win32Peers::FormView> Win32Peers::FindForm(std::string_view name) const {
  const std::vector<FormView> forms = Forms();
  const auto found = std::find_if(forms.rbegin(), forms.rend(), [&](const FormView& form) {
    return EqualNoCase(form.state->name, name);
  });
  if (found == forms.rend()) return std::nullopt;
  return *found;
}

std::vector<Win32Peers::ControlView> Win32Peers::ControlsOf(Window form) const {
  std::vector<ControlView> views;
  if (const Win32Form* found = impl_->Form(form))
    for (Win32Control* control : found->Controls())
      views.push_back({control->Handle(), &control->State(), &control->Events()});
  return views;
}

std::optional<Win32Peers::ControlView> Win32Peers::FindControl(Window form, std::string_view name,
                                                               int index) const {
  for (const ControlView& view : ControlsOf(form))
    if (view.state->index == index && EqualNoCase(view.state->name, name)) return view;
  return std::nullopt;
}

Window Win32Peers::FocusedControl() const {
  for (const Win32Form* form : impl_->set.forms)
    if (Win32Control* control = form->Focused()) return control->Handle();
  return {};
}

Win32Form* Win32Peers::Impl::Form(Window window) const {
  for (Win32Form* form : set.forms)
    if (window && form->Hwnd() && form->Handle() == window) return form;
  return nullptr;
}

Win32Control* Win32Peers::Impl::Control(Window window) const {
  for (const Win32Form* form : set.forms)
    for (Win32Control* control : form->Controls())
      if (window && control->Hwnd() && control->Handle() == window) return control;
  return nullptr;
}

Win32Form* Win32Peers::Impl::FormOf(const Win32Control* control) const {
  return control ? FormHolding(control->Hwnd()) : nullptr;
}

// --- Acting --------------------------------------------------------------------------------------

std::string Win32Peers::Impl::Refusal(const Win32Form* form) const {
  if (!form) return "there is no such form";
  if (IsPopupMenuOpen()) return "a pop-up menu is open";
  if (!IsWindowVisible(form->Hwnd())) return form->State().name + " is not visible";
  if (!form->State().enabled) return form->State().name + " is disabled";
  return IsWindowEnabled(form->Hwnd()) ? "" : "a dialog of the system waits for its answer";
}

std::string Win32Peers::Impl::Refusal(const Win32Control* control) const {
  if (!control) return "there is no such control";
  if (const std::string refusal = Refusal(FormOf(control)); !refusal.empty()) return refusal;
  if (!control->State().visible) return NameOf(control->State()) + " is not visible";
  return control->State().enabled ? "" : NameOf(control->State()) + " is disabled";
}

Win32Peers::Done Win32Peers::Impl::Post(Deed deed) {
  waiting.push_back({++lastTask, std::move(deed)});
  open.insert(lastTask);
  PostMessageA(set.hiddenOwner, kDeed, 0, 0);
  return {lastTask, ""};
}

// What the deed before has put in the queue comes first.
bool Win32Peers::Impl::IsLastDeedOver() const {
  MSG message{};
  for (const UINT left : {kNotice, UINT{WM_CHAR}})
    if (PeekMessageA(&message, nullptr, left, left, PM_NOREMOVE)) return false;
  return true;
}

void Win32Peers::Impl::DoOldest() {
  if (waiting.empty()) return;
  if (!IsLastDeedOver()) {
    PostMessageA(set.hiddenOwner, kDeed, 0, 0);
    return;
  }
  const Waiting next = std::move(waiting.front());
  waiting.pop_front();
  struct Close {
    std::set<std::uint64_t>& open;
    std::uint64_t task;
    ~Close() { open.erase(task); }
  } const close{open, next.task};
  next.deed();
}

Win32Peers::Done Win32Peers::Impl::Do(Window window, std::string refusal,
                                      std::function<void(Win32Control&)> act) {
  if (const std::string unreachable = Refusal(Control(window)); !unreachable.empty())
    refusal = unreachable;
  if (!refusal.empty()) return {0, std::move(refusal)};
  return Post([this, window, act = std::move(act)] {
    Win32Control* control = Control(window);
    if (!Refusal(control).empty()) return;
    if (GetForegroundWindow() != FormOf(control)->Hwnd())
      SetForegroundWindow(FormOf(control)->Hwnd());
    if (control->CanHaveFocus()) SetFocus(control->Hwnd());
    control = Control(window);
    if (Refusal(control).empty()) act(*control);
  });
}

Win32Peers::Done Win32Peers::Impl::DoToForm(Window window, std::string refusal,
                                            std::function<void(Win32Form&)> act) {
  if (const std::string unreachable = Refusal(Form(window)); !unreachable.empty())
    refusal = unreachable;
  if (!refusal.empty()) return {0, std::move(refusal)};
  return Post([this, window, act = std::move(act)] {
    Win32Form* form = Form(window);
    if (Refusal(form).empty()) act(*form);
  });
}

Win32Peers::Done Win32Peers::Click(Window control) {
  return impl_->Do(control, "", [](Win32Control& c) { c.HandClick(); });
}

Win32Peers::Done Win32Peers::DoubleClick(Window control) {
  const Win32Control* found = impl_->Control(control);
  const bool noRow =
      found && HasRows(found->State().kind) && !HasRow(found->State(), found->State().selected);
  return impl_->Do(control, noRow ? NameOf(found->State()) + " has no current row" : "",
                   [](Win32Control& c) { c.HandDoubleClick(); });
}

Win32Peers::Done Win32Peers::RightClick(Window control) {
  return impl_->Do(control, "", [](Win32Control& c) { c.HandRightClick(); });
}

Win32Peers::Done Win32Peers::Select(Window control, int row, bool keepMarked) {
  const Win32Control* found = impl_->Control(control);
  const bool noRow = found && !HasRow(found->State(), row);
  return impl_->Do(control,
                   noRow ? NameOf(found->State()) + " has no row " + std::to_string(row) : "",
                   [row, keepMarked](Win32Control& c) {
                     if (HasRow(c.State(), row)) c.HandSelect(row, keepMarked);
                   });
}

Win32Peers::Done Win32Peers::Type(Window control, const std::string& wholeText) {
  const Win32Control* found = impl_->Control(control);
  const bool noText = found && found->State().kind != ControlKind::kTextBox;
  return impl_->Do(control, noText ? NameOf(found->State()) + " is not a text box" : "",
                   [wholeText](Win32Control& c) { c.HandType(wholeText); });
}

Win32Peers::Done Win32Peers::Press(Window control, Key key) {
  return impl_->Do(control, "",
                   [this, control, key](Win32Control&) { impl_->PressKey(control, key); });
}

// As the pump would bring it: to the filter, and on to the window if it isn't used up there.
void Win32Peers::Impl::PressKey(Window window, Key key) {
  const ControlHeld held(key == Key::kControlEnter);
  for (const UINT id : {WM_KEYDOWN, WM_KEYUP}) {
    MSG message{};
    message.hwnd = ToHwnd(window);
    message.message = id;
    message.wParam = static_cast<WPARAM>(VirtualKeyOf(key));
    message.lParam = id == WM_KEYUP ? static_cast<LPARAM>(0xC0000001) : 1;
    if (!Control(window) || Filter(message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

Win32Peers::Done Win32Peers::Drag(Window control, int dx, int dy) {
  return impl_->Do(control, "", [dx, dy](Win32Control& c) { c.HandDrag(dx, dy); });
}

Win32Peers::Done Win32Peers::Close(Window form) {
  const Win32Form* found = impl_->Form(form);
  const bool fixed = found && !found->State().closable;
  return impl_->DoToForm(form, fixed ? found->State().name + " has no close box" : "",
                         [](Win32Form& f) { SendMessageA(f.Hwnd(), WM_CLOSE, 0, 0); });
}

Win32Peers::Done Win32Peers::MoveForm(Window form, int left, int top) {
  return impl_->DoToForm(form, "", [left, top](Win32Form& f) {
    SetWindowPos(f.Hwnd(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  });
}

std::string Win32Peers::RefusalOf(Window window) const {
  const Win32Form* form = impl_->Form(window);
  return form ? impl_->Refusal(form) : impl_->Refusal(impl_->Control(window));
}

bool Win32Peers::IsOver(std::uint64_t task) const { return impl_->open.count(task) == 0; }

}  // namespace corvel::win32
