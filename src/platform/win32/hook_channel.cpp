// The road to our library; see hook_channel.h.
#include "platform/win32/hook_channel.h"

#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <utility>

namespace corvel::win32 {
namespace {

constexpr char kOwnerClass[] = "Corvel.Hook.Owner";

UINT AskMessage() {
  static const UINT message = RegisterWindowMessageA(hook::kAskMessage);
  return message;
}
UINT NoticeMessage() {
  static const UINT message = RegisterWindowMessageA(hook::kNoticeMessage);
  return message;
}

// The library stands beside the program, wherever it was started from.
std::string LibraryPath() {
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
  std::string folder(path, length);
  folder.resize(folder.rfind('\\') + 1);
  return folder + hook::kLibraryName;
}

template <class Function>
Function Export(HMODULE module, const char* name) {
  // Through a pointer without a type, which every procedure's address may take.
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// A hook of the system, taken off with the object.
class SystemHook {
 public:
  SystemHook(HOOKPROC procedure, HMODULE module, DWORD thread)
      : hook_(SetWindowsHookExA(WH_CALLWNDPROC, procedure, module, thread)) {}
  ~SystemHook() {
    if (hook_) UnhookWindowsHookEx(hook_);
  }
  SystemHook(const SystemHook&) = delete;
  SystemHook& operator=(const SystemHook&) = delete;
  explicit operator bool() const { return hook_ != nullptr; }

 private:
  HHOOK hook_;
};

}  // namespace

HookLibrary::~HookLibrary() {
  if (module_) FreeLibrary(module_);
}

bool HookLibrary::Load() {
  if (module_) return true;
  const HMODULE module = LoadLibraryA(LibraryPath().c_str());
  if (!module) return false;
  const auto version = Export<hook::VersionFunction>(module, "CorvelHookVersion");
  onMessage_ = Export<HOOKPROC>(module, "CorvelHookMessage");
  enter_ = Export<hook::EnterFunction>(module, "CorvelHookEnter");
  if (version && version() == hook::kLayoutVersion && onMessage_ && enter_) {
    module_ = module;
    return true;
  }
  FreeLibrary(module);
  return false;
}

bool HookLibrary::Enter(HWND window, DWORD thread, DWORD link) {
  if (thread == GetCurrentThreadId()) {
    enter_(GetCurrentProcessId(), link);
    return true;
  }
  static const UINT message = RegisterWindowMessageA(hook::kEnterMessage);
  const SystemHook carrier(onMessage_, module_, thread);
  DWORD_PTR reply = 0;
  return carrier &&
         SendMessageTimeoutA(window, message, GetCurrentProcessId(), static_cast<LPARAM>(link),
                             SMTO_NORMAL | SMTO_ABORTIFHUNG, kLongestAnswerMs, &reply);
}

HookChannel::~HookChannel() {
  sink_ = nullptr;
  LetGo();
  if (owner_) DestroyWindow(owner_);
}

// The last messages of links that go may come in meanwhile; they find none any more.
void HookChannel::LetGo() { const auto leaving = std::exchange(links_, {}); }

bool HookChannel::MakeOwner() {
  if (owner_) return true;
  const HINSTANCE instance = GetModuleHandleA(nullptr);
  WNDCLASSA info{};
  info.lpfnWndProc = OwnerProcedure;
  info.hInstance = instance;
  info.lpszClassName = kOwnerClass;
  RegisterClassA(&info);  // fails from the second time on
  owner_ = CreateWindowExA(0, kOwnerClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, instance,
                           nullptr);
  if (owner_) SetWindowLongPtrA(owner_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return owner_ != nullptr;
}

void HookChannel::ForgetTheDead() {
  std::erase_if(links_, [](const auto& entry) { return !entry.second->Lives(); });
}

std::shared_ptr<HookLink> HookChannel::Entered(HWND window) const {
  const DWORD thread = window ? GetWindowThreadProcessId(window, nullptr) : 0;
  for (const auto& [number, link] : links_)
    if (thread != 0 && link->thread() == thread && link->Lives()) return link;
  return nullptr;
}

std::shared_ptr<HookLink> HookChannel::Enter(HWND window) {
  if (auto link = Entered(window)) return link;
  const DWORD thread = window ? GetWindowThreadProcessId(window, nullptr) : 0;
  if (thread == 0) return nullptr;
  ForgetTheDead();
  if (!library_.Load() || !MakeOwner()) return nullptr;
  const auto link = std::make_shared<HookLink>(owner_, nextNumber_++, thread);
  if (!link->section() || !library_.Enter(window, thread, link->number()) || !link->Lives())
    return nullptr;
  links_[link->number()] = link;
  return link;
}

std::shared_ptr<HookLink> HookChannel::LinkOf(WPARAM which) const {
  const auto it = links_.find(static_cast<DWORD>(which >> hook::kSlotBits));
  return it == links_.end() ? nullptr : it->second;
}

LRESULT HookChannel::OnAsk(WPARAM which, std::uint32_t sequence) {
  const auto link = LinkOf(which);
  if (!link || !sink_) return 0;
  hook::AskSlot& slot = link->section()->asks[which & (hook::kAskSlots - 1)];
  if (sequence == 0 || hook::Look(slot.sequence) != sequence) return 0;
  const bool hasText = slot.textLength < hook::kAskText;
  const std::string text = hasText ? std::string(slot.text, slot.textLength) : std::string();
  HookedMessage message{.window = {slot.window},
                        .id = slot.message,
                        .wParam = static_cast<WParam>(slot.wParam),
                        .lParam = static_cast<LParam>(slot.lParam),
                        .text = text};
  const HookId hook = slot.hook;
  hook::Set(slot.state, hook::SlotState::kTaken);
  Callback::Run([&] {
    sink_->OnAsked(hook, message);
    return 0;
  });
  // Unless the client has given up meanwhile, and asks something else by now.
  if (hook::Look(slot.sequence) != sequence) return 0;
  slot.consume = message.consume;
  slot.result = message.result;
  hook::Set(slot.state, hook::SlotState::kDone);
  return static_cast<LRESULT>(sequence);
}

LRESULT HookChannel::OnNotice(WPARAM which, LPARAM value) {
  const auto link = LinkOf(which);
  if (!link || !sink_) return 0;
  switch (static_cast<hook::Notice>(which & (hook::kAskSlots - 1))) {
    case hook::Notice::kTexts:
      for (const auto& [hook, text] : link->TakeTexts()) sink_->OnTold(hook, text);
      sink_->DeliverTold();
      break;
    case hook::Notice::kGone:
      sink_->OnGone(static_cast<HookId>(value));
      break;
    case hook::Notice::kAreYouUp:
      hook::Set(link->section()->hung, 0U);
      break;
  }
  return 0;
}

LRESULT CALLBACK HookChannel::OwnerProcedure(HWND window, UINT message, WPARAM wParam,
                                             LPARAM lParam) {
  auto* const channel = reinterpret_cast<HookChannel*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (channel && message == AskMessage())
    return Callback::Run(
        [&] { return channel->OnAsk(wParam, static_cast<std::uint32_t>(lParam)); });
  if (channel && message == NoticeMessage())
    return Callback::Run([&] { return channel->OnNotice(wParam, lParam); });
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace corvel::win32
