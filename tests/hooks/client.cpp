// The client of the hook tests: a frame with a menu, an edit box, and a room.
#include "tests/hooks/stage.h"

#include <algorithm>

namespace corvel::test {
namespace {

struct Client {
  HWND frame = nullptr, box = nullptr, room = nullptr, view = nullptr, dialog = nullptr;
  WNDPROC before = nullptr;  // the box's procedure before we subclassed it ourselves
  LRESULT typed = 0, longest = 0, last = 0, dialogResult = 0, marks = 0;
} client;

LRESULT CALLBACK PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcA(client.before, window, message, wParam, lParam);
}

INT_PTR CALLBACK OnDialog(HWND dialog, UINT message, WPARAM, LPARAM) {
  if (message == WM_INITDIALOG) client.dialog = dialog;
  return FALSE;
}

void Type(WPARAM count) {
  client.typed = client.longest = 0;
  for (WPARAM i = 0; i < count; ++i) {
    const DWORD start = GetTickCount();
    client.last = SendMessageA(client.box, WM_CHAR, 'a', 0);
    client.longest = std::max(client.longest, static_cast<LRESULT>(GetTickCount() - start));
    ++client.typed;
  }
}

void Say(WPARAM count) {
  for (WPARAM i = 0; i < count; ++i) {
    const std::string line = "\rMember " + std::to_string(i % 7) + ":\tline " + std::to_string(i);
    SendMessageA(client.view, kTextAppended, 0, reinterpret_cast<LPARAM>(line.c_str()));
  }
}

void AskUser() {
  struct {
    DLGTEMPLATE box{};
    WORD menu = 0, windowClass = 0, title = 0;
  } sheet;
  sheet.box.style = WS_POPUP | WS_CAPTION;
  sheet.box.cx = sheet.box.cy = 100;
  client.dialogResult =
      DialogBoxIndirectParamA(GetModuleHandleA(nullptr), &sheet.box, client.frame, OnDialog, 0);
  client.dialog = nullptr;
}

void SubclassBox() {
  client.before = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(client.box, GWLP_WNDPROC));
  SetWindowLongPtrA(client.box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PassOn));
}

LRESULT OnQuestion(UINT order, LPARAM lParam) {
  switch (order) {
    case kBox:
      return reinterpret_cast<LRESULT>(client.box);
    case kRoom:
      return reinterpret_cast<LRESULT>(client.room);
    case kTyped:
      return lParam == 1 ? client.longest : lParam == 2 ? client.last : client.typed;
    case kDialog:
      return reinterpret_cast<LRESULT>(client.dialog);
    case kDialogResult:
      return client.dialogResult;
    case kMarks:
      return client.marks;
    default:
      return -1;
  }
}

bool OnOrder(UINT order, WPARAM wParam) {
  switch (order) {
    case kType:
      Type(wParam);
      return true;
    case kSay:
      Say(wParam);
      return true;
    case kSleep:
      Sleep(static_cast<DWORD>(wParam));
      return true;
    case kSubclass:
      SubclassBox();
      return true;
    case kMark:
      ++client.marks;
      return true;
    case kAskUser:
      AskUser();
      return true;
    case kOpenMenu:
      SendMessageA(client.frame, WM_INITMENUPOPUP,
                   reinterpret_cast<WPARAM>(GetSubMenu(GetMenu(client.frame), 0)), 0);
      return true;
    default:
      return false;
  }
}

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY && window == client.frame) PostQuitMessage(0);
  if (message > WM_APP && OnOrder(message, wParam)) return 0;
  if (message > WM_APP && message < 0xC000) return OnQuestion(message, lParam);
  return DefWindowProcA(window, message, wParam, lParam);
}

void Register(const char* name) {
  WNDCLASSA info{};
  info.lpfnWndProc = FrameProcedure;
  info.hInstance = GetModuleHandleA(nullptr);
  info.lpszClassName = name;
  RegisterClassA(&info);
}

HWND Make(const char* name, DWORD style, HWND parent, HMENU menu) {
  return CreateWindowExA(0, name, "", style, 0, 0, 300, 200, parent, menu,
                         GetModuleHandleA(nullptr), nullptr);
}

}  // namespace

int RunClient() {
  Register(kFrameClass);
  Register("AOL Child");
  Register("RICHCNTL");
  const HMENU bar = CreateMenu(), file = CreatePopupMenu();
  AppendMenuA(file, MF_STRING, 101, "&New\tCtrl+N");
  AppendMenuA(file, MF_STRING, 102, "E&xit");
  AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), "&File");
  const HWND frame = Make(kFrameClass, WS_OVERLAPPEDWINDOW, nullptr, bar);
  client.box = Make("EDIT", WS_CHILD, frame, nullptr);
  client.room = Make("AOL Child", WS_CHILD, frame, nullptr);
  client.view = Make("RICHCNTL", WS_CHILD, client.room, nullptr);
  client.frame = frame;
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  return 0;
}

}  // namespace corvel::test
