#include "platform/win32/win32_peers.h"

#include "platform/win32/callback.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_form_peer.h"

#include <commctrl.h>

namespace corvel::win32 {

struct Win32Peers::Impl : MessageFilter {
  explicit Impl(Win32EventLoop& loop) : events(loop) { events.AddFilter(*this); }
  ~Impl() override {
    events.RemoveFilter(*this);
    if (set.hiddenOwner) DestroyWindow(set.hiddenOwner);
  }

  bool Filter(MSG& message) override;
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam);
  void CreateHiddenOwner();

  Win32EventLoop& events;
  FormSet set{};
};

bool Win32Peers::Impl::Filter(MSG& message) {
  Win32Form* form = set.FormAt(message.hwnd);
  if (!form) return false;
  form->RelayToToolTips(message);
  return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST && form->OnKey(message);
}

LRESULT CALLBACK Win32Peers::Impl::Procedure(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<Impl*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  // Each window of the process is told, this one outlives all forms.
  if (self && id == WM_ENDSESSION && wParam)
    return Callback::Run([self] { return self->events.EndSession(), 0; });
  return DefWindowProcA(window, id, wParam, lParam);
}

// Owns the forms that have no place in the task bar, and hears of the session's end.
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

const FormSet& Win32Peers::Set() const { return impl_->set; }

std::unique_ptr<FormPeer> Win32Peers::CreateForm(const FormState& state, FormEvents& events) {
  impl_->CreateHiddenOwner();
  auto form = std::make_unique<Win32Form>(impl_->set, state, events);
  Callback::Rethrow();
  return form;
}

}  // namespace corvel::win32
