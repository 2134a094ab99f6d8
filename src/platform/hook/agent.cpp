// The agent; see agent.h.
#include "platform/hook/agent.h"

#include "platform/hook/hooked_window.h"
#include "platform/hook/menu_deeds.h"
#include "platform/hook/menu_guests.h"

namespace corvel::hook {
namespace {

constexpr char kAgentClass[] = "Corvel.Hook.Agent";
// So often the agent looks whether its program lives.
constexpr UINT kWatchMs = 500;

UINT Registered(UINT& number, const char* name) {
  if (!number) number = RegisterWindowMessageA(name);
  return number;
}

UINT DeedMessage() {
  static UINT number = 0;
  return Registered(number, kDeedMessage);
}
UINT LaterMessage() {
  static UINT number = 0;
  return Registered(number, kLaterMessage);
}

void DoEndDialog(Task& task) {
  task.value = EndDialog(ToHandle<HWND>(task.handle), task.number) != 0;
}

void DoSetFocus(Task& task) {
  SetFocus(ToHandle<HWND>(task.handle));
  task.value = 1;
}

void DoShow(Task& task) { ShowWindow(ToHandle<HWND>(task.handle), task.number); }

void TakeRow(Task& task, UINT lengthMessage, UINT textMessage) {
  const HWND list = ToHandle<HWND>(task.handle);
  const WPARAM row = static_cast<WPARAM>(task.number);
  const LRESULT length = SendMessageA(list, lengthMessage, row, 0);
  task.answer[0] = 0;
  if (length < 0 || static_cast<std::uint64_t>(length) >= task.room) return;
  SendMessageA(list, textMessage, row, reinterpret_cast<LPARAM>(task.answer));
}

void DoListText(Task& task) { TakeRow(task, LB_GETTEXTLEN, LB_GETTEXT); }
void DoComboText(Task& task) { TakeRow(task, CB_GETLBTEXTLEN, CB_GETLBTEXT); }

void DoStopSound(Task& task) {
  using Play = BOOL(WINAPI*)(LPCSTR, UINT);
  const HMODULE library = LoadLibraryA("winmm.dll");
  if (!library) return;
  // Through a pointer without a type, which every procedure's address may take.
  void* const address = reinterpret_cast<void*>(GetProcAddress(library, "sndPlaySoundA"));
  if (const auto play = reinterpret_cast<Play>(address)) task.value = play(nullptr, 0);
  FreeLibrary(library);
}

void DoPresent(Task& task) { task.value = 1; }

constexpr DeedRow kDeeds[] = {
    {Deed::kEndDialog, DoEndDialog}, {Deed::kSetFocus, DoSetFocus}, {Deed::kListText, DoListText},
    {Deed::kComboText, DoComboText}, {Deed::kShow, DoShow},         {Deed::kStopSound, DoStopSound},
    {Deed::kPresent, DoPresent},
};

// What the client has disabled itself stays its own affair.
void Hold(Link& link, Task& task) {
  const HWND window = ToHandle<HWND>(task.handle);
  if (!task.number)
    link.disabled = nullptr;
  else if (IsWindowEnabled(window))
    link.disabled = window;
  task.value = 1;
}

void Enable(Link& link, const Task& task) {
  const HWND window = ToHandle<HWND>(task.handle);
  if (link.disabled == window) link.disabled = nullptr;
  EnableWindow(window, TRUE);
}

// Deeds that are about the link itself.
bool DoForLink(Link* link, Task& task) {
  switch (task.deed) {
    case Deed::kHook:
      task.value = AddHook(link, task);
      return true;
    case Deed::kUnhook:
      RemoveHook(*link, task.id);
      return true;
    case Deed::kHold:
      Hold(*link, task);
      return true;
    case Deed::kEnable:
      Enable(*link, task);
      return true;
    case Deed::kRelease:
      Release(link);
      return true;
    default:
      return false;
  }
}

// What the program has left here for when this thread takes messages again. The program may have
// ended since.
void OnLater(Link* link, WPARAM deedAndNumber, LPARAM value) {
  const auto which = static_cast<std::uint32_t>(deedAndNumber);
  Task task{};
  task.deed = static_cast<Deed>(which & ((1U << kDeedBits) - 1));
  task.number = static_cast<std::int32_t>(which >> kDeedBits);
  task.handle = task.id = static_cast<std::uint32_t>(value);
  ++link->uses;
  if (!DoForLink(link, task)) DoByTable(kDeeds, task);
  --link->uses;
  FreeIfDone(link);
}

LRESULT OnDeed(Link* link, WPARAM index, std::uint32_t sequence) {
  if (index >= kDeedSlots) return 0;
  DeedSlot& slot = link->section->deeds[index];
  // The program has given up waiting for it.
  if (sequence == 0 || Look(slot.sequence) != sequence) return 0;
  // The request's text stands where the reply's goes, so a deed that replies with one takes none.
  Task task{slot.deed, slot.handle,     slot.number, slot.flags, slot.id,  slot.sub,
            slot.text, slot.textLength, 0,           slot.text,  kDeedText};
  ++link->uses;  // the deed may release the link
  if (!DoForLink(link, task) && !DoByTable(kDeeds, task)) DoByTable(kMenuDeeds, task);
  if (task.deed == Deed::kMenuInsert && task.value)
    NoteGuest(*link, MenuOfTask(task), ToHandle<HMENU>(task.sub));
  if (Look(slot.sequence) == sequence) slot.value = task.value;
  --link->uses;
  FreeIfDone(link);
  return static_cast<LRESULT>(sequence);
}

LRESULT CALLBACK AgentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* link = reinterpret_cast<Link*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (message == DeedMessage())
    return link ? OnDeed(link, wParam, static_cast<std::uint32_t>(lParam)) : 0;
  if (message == WM_TIMER && link) {
    if (!OwnerLives(*link)) Release(link);
    return 0;
  }
  if (message == LaterMessage() && link) {
    OnLater(link, wParam, lParam);
    return 0;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

UINT AskMessage() {
  static UINT number = 0;
  return Registered(number, kAskMessage);
}
UINT NoticeMessage() {
  static UINT number = 0;
  return Registered(number, kNoticeMessage);
}
UINT EnterMessage() {
  static UINT number = 0;
  return Registered(number, kEnterMessage);
}

HWND CreateAgent(Link* link) {
  WNDCLASSA info{};
  info.lpfnWndProc = AgentProcedure;
  info.hInstance = libraryInstance;
  info.lpszClassName = kAgentClass;
  RegisterClassA(&info);  // fails from the second time on
  const HWND agent = CreateWindowExA(0, kAgentClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                     libraryInstance, link);
  if (agent) SetTimer(agent, 1, kWatchMs, nullptr);
  return agent;
}

}  // namespace corvel::hook
