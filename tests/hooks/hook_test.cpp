// The library in a client's process, tried against a real second process: what each side may do to
// the other by dying, hanging, or being there twice. Runs by itself and prints what failed.
#include "platform/win32/callback.h"
#include "platform/win32/win32_proxy.h"
#include "platform/win32/win32_window_system.h"
#include "tests/hooks/program.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace corvel::test {
namespace {

void AMessageIsPassedOrConsumedWithAResult() {
  Program p;
  Handler handler;
  const HookId hook = p.Hook(p.client.box, handler);
  CHECK(p.hooks.IsAttached(hook));
  p.client.Type(2);
  CHECK_SEEN(handler.count == 2, handler.count);
  handler.act = [](HookedMessage& message) {
    message.consume = true;
    message.result = -42;
  };
  p.client.Type(1);
  CHECK_SEEN(p.client.Ask(kTyped, 2) == -42, p.client.Ask(kTyped, 2));
  CHECK(p.client.Text() == "aa");
  p.hooks.Detach(hook);
  p.client.Type(1);
  CHECK(p.client.Text() == "aaa" && handler.count == 3);
}

void ATextIsCopied() {
  Program p;
  Handler handler;
  p.Hook(p.client.box, handler, kSetText);
  for (const std::string& text : {std::string("some \xE4 text"), std::string(40000, 'x')}) {
    SendMessageA(p.client.box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    CHECK_SEEN(handler.text == text.substr(0, 32767), handler.text.size());
  }
}

void AHandlerMayDoAsItLikes() {
  Program p;
  Handler handler;
  bool inside = false;
  handler.act = [&](HookedMessage& message) {
    if (std::exchange(inside, true)) return;
    SendMessageA(p.client.box, WM_CHAR, 'b', 0);
    const auto bar = p.menus.MenuOf(FromHwnd(p.client.frame));
    CHECK_SEEN(p.menus.Count(bar) == 1, p.menus.Count(bar));
    message.consume = true;
  };
  p.Hook(p.client.box, handler);
  p.client.Type(1);
  CHECK(p.client.Text() == "b");
  CHECK_SEEN(handler.count == 2, handler.count);
}

void AHandlerThatPumpsHasAllTheTime() {
  Program p;
  Handler handler;
  handler.act = [](HookedMessage& message) {
    PumpFor(6000);
    message.consume = true;
    message.result = 7;
  };
  p.Hook(p.client.box, handler);
  p.client.Type(1);
  CHECK_SEEN(p.client.Ask(kTyped, 2) == 7, p.client.Ask(kTyped, 2));
  CHECK(p.client.Text().empty());
}

void AProgramThatHangsIsPassedByOnce() {
  Program p;
  Handler handler;
  p.Hook(p.client.box, handler);
  p.client.Post(kType, 50);
  Sleep(6000);
  CHECK_SEEN(handler.count == 0, handler.count);
  p.client.Settle();
  CHECK_SEEN(p.client.Ask(kTyped) == 50, p.client.Ask(kTyped));
  CHECK_SEEN(p.client.Ask(kTyped, 1) < 5000, p.client.Ask(kTyped, 1));
  PumpFor(20);  // we are back
  const int before = handler.count;
  p.client.Type(3);
  CHECK_SEEN(handler.count == before + 3, handler.count);
}

void AProgramThatDiesIsForgotten() {
  Program p;
  Process stranger("stranger " + Number(p.client.box));
  WaitForStranger(p.client.box);
  p.client.Type(3);
  CHECK(p.client.Text() == "aaa");
  p.client.Post(kType, 20000);
  PumpFor(100);
  stranger.Kill();
  p.client.Settle();
  CHECK_SEEN(p.client.Ask(kTyped) == 20000, p.client.Ask(kTyped));
  CHECK_SEEN(p.client.Ask(kTyped, 1) < 100, p.client.Ask(kTyped, 1));
  Handler handler;
  p.Hook(p.client.box, handler);
  p.client.Type(2);
  CHECK_SEEN(handler.count == 2, handler.count);
}

void AProgramThatDiesWhileItIsAskedIsForgotten() {
  Program p;
  Process stranger("busy " + Number(p.client.box));
  WaitForStranger(p.client.box);
  p.client.Post(kType, 5);
  PumpFor(500);
  const DWORD passed = TimeOf([&] {
    stranger.Kill();
    p.client.Settle();
  });
  CHECK_SEEN(p.client.Ask(kTyped) == 5, p.client.Ask(kTyped));
  CHECK_SEEN(passed < 300, passed);
}

void TwoProgramsHookTheSameWindow() {
  Program p;
  Handler handler;
  const HookId first = p.Hook(p.client.box, handler);
  Process stranger("stranger " + Number(p.client.box));
  WaitForStranger(p.client.box);
  p.client.Type(5);
  CHECK_SEEN(handler.count == 5, handler.count);
  p.hooks.Detach(first);
  const HookId second = p.Hook(p.client.box, handler);
  p.client.Type(5);
  stranger.Kill();
  p.client.Type(5);
  CHECK_SEEN(handler.count == 15 && p.hooks.IsAttached(second), handler.count);
  CHECK(p.client.Text() == std::string(15, 'a'));
}

void AClientThatSubclassesAfterUsGoesOn() {
  Program p;
  Handler handler;
  const HookId first = p.Hook(p.client.box, handler);
  p.client.Ask(kSubclass);
  p.hooks.Detach(first);
  p.client.Type(2);
  CHECK(handler.count == 0 && p.client.Text() == "aa");
  p.Hook(p.client.box, handler);
  p.client.Type(2);
  CHECK_SEEN(handler.count == 2, handler.count);
  CHECK(p.client.Text() == "aaaa");
}

void AClientThatDiesLeavesNothingToWaitFor() {
  Program p;
  Handler handler;
  handler.act = [&](HookedMessage&) {
    p.client.Kill();
    const DWORD passed = TimeOf([&] { SendMessageA(p.client.box, WM_CHAR, 'b', 0); });
    CHECK_SEEN(passed < 100, passed);
  };
  const HookId hook = p.Hook(p.client.box, handler);
  const auto bar = p.menus.MenuOf(FromHwnd(p.client.frame));
  CHECK(p.menus.Count(bar) == 1);
  p.client.Post(kType, 1);
  CHECK(PumpUntil(5000, [&] { return handler.count > 0; }));
  CHECK(!p.hooks.IsAttached(hook));
  CHECK(p.menus.Count(bar) == -1);
  p.hooks.Detach(hook);
  CHECK(p.Hook(p.client.box, handler) == 0);
}

void AClientThatHangsIsGivenUpAndTakenUpAgain() {
  Program p;
  Handler handler;
  p.client.Post(kSleep, 9000);
  PumpFor(100);
  HookId hook = 0;
  DWORD passed = TimeOf([&] { hook = p.Hook(p.client.box, handler); });
  CHECK_SEEN(hook == 0 && passed < 8000, passed);
  passed = TimeOf([&] { hook = p.Hook(p.client.box, handler); });
  CHECK_SEEN(hook == 0 && passed < 100, passed);
  p.client.Settle();
  hook = p.Hook(p.client.box, handler);
  p.client.Post(kSleep, 2000);
  PumpFor(100);
  CHECK(p.menus.MenuOf(FromHwnd(p.client.frame)) != MenuHandle{});
  p.client.Type(2);
  CHECK_SEEN(handler.count == 2, handler.count);
}

HWND AgentOf(const Client& client) {
  for (HWND at = nullptr;
       (at = FindWindowExA(nullptr, at, "Corvel.Hook.Agent", nullptr)) != nullptr;) {
    DWORD process = 0;
    GetWindowThreadProcessId(at, &process);
    if (process == client.id()) return at;
  }
  return nullptr;
}

// Hooks, menus and windows; and the program is gone before the client looks at its messages again.
void WhatWasTakenComesBackAfterAHang() {
  Client client;
  const Window frame = FromHwnd(client.frame);
  {
    win32::HookChannel channel;
    win32::Win32Hooks hooks{channel};
    win32::Win32InClient inClient{channel};
    win32::Win32Menus menus{inClient};
    win32::Win32WindowSystem windows{inClient};
    Handler handler;
    CHECK(hooks.Attach(FromHwnd(client.box), kChar, handler) != 0);
    const auto popup = menus.CreatePopup();
    menus.Insert(popup, -1, MF_BYPOSITION, 4, {}, "row");
    CHECK(menus.Insert(menus.MenuOf(frame), -1, MF_BYPOSITION | MF_POPUP, 0, popup, "&Corvel"));
    windows.Enable(frame, false);
    windows.Show(FromHwnd(client.room), SW_HIDE);
    CHECK(!IsWindowEnabled(client.frame) && AgentOf(client));
    client.Post(kSleep, 9000);
    PumpFor(100);
    const DWORD passed = TimeOf([&] {
      windows.Enable(frame, true);
      windows.Show(FromHwnd(client.room), SW_SHOW);
    });
    CHECK_SEEN(passed < 8000, passed);
  }
  CHECK(!IsWindowEnabled(client.frame));
  client.Settle();
  CHECK(IsWindowEnabled(client.frame) && !AgentOf(client));
  CHECK(GetWindowLongA(client.room, GWL_STYLE) & WS_VISIBLE);
  client.Type(1);
  CHECK(client.Text() == "a");
  win32::HookChannel channel;
  win32::Win32InClient inClient{channel};
  win32::Win32Menus menus{inClient};
  CHECK_SEEN(menus.Count(menus.MenuOf(frame)) == 1, menus.Count(menus.MenuOf(frame)));
}

void MenusAreReachedAlsoWhileTheyOpen() {
  Program p;
  Handler handler;
  constexpr MessageId kInit[] = {WM_INITMENUPOPUP};
  handler.act = [&](HookedMessage& message) {
    const MenuHandle menu{static_cast<std::uint32_t>(message.wParam)};
    const auto bar = p.menus.MenuOf(message.window);
    CHECK(p.menus.SubMenu(bar, 0) == menu);
    CHECK(p.menus.Insert(menu, 0, MF_BYPOSITION, 900, {}, "first"));
    CHECK(p.menus.Modify(menu, 101, MF_BYCOMMAND | MF_CHECKED, 103, "changed"));
    CHECK(p.menus.Delete(menu, 102, MF_BYCOMMAND));
    CHECK(p.menus.Count(menu) == 2 && p.menus.TextAt(menu, 1) == "changed");
    CHECK(p.menus.IdAt(menu, 1) == 103 && p.menus.StateAt(menu, 1) == MF_CHECKED);
  };
  p.Hook(p.client.frame, handler, kInit);
  p.client.Post(kOpenMenu);
  CHECK(PumpUntil(5000, [&] { return handler.count > 0; }));
}

void AMenuOfOursMovesIntoTheClient() {
  Program p;
  const auto bar = p.menus.MenuOf(FromHwnd(p.client.frame));
  const auto popup = p.menus.CreatePopup(), deeper = p.menus.CreatePopup();
  p.menus.Insert(deeper, -1, MF_BYPOSITION | MF_GRAYED, 5, {}, "deep");
  p.menus.Insert(popup, -1, MF_BYPOSITION, 4, {}, "row\tF1");
  p.menus.Insert(popup, -1, MF_BYPOSITION | MF_SEPARATOR, 0, {}, "");
  p.menus.Insert(popup, -1, MF_BYPOSITION | MF_POPUP, 0, deeper, "more");
  CHECK(p.menus.Insert(bar, -1, MF_BYPOSITION | MF_POPUP, 0, popup, "&Corvel"));
  CHECK(p.menus.SubMenu(bar, 1) == popup && p.menus.SubMenu(popup, 2) == deeper);
  CHECK_SEEN(p.menus.Count(popup) == 3, p.menus.Count(popup));
  CHECK(p.menus.TextAt(popup, 0) == "row\tF1" && p.menus.IdAt(popup, 1) == 0);
  CHECK(p.menus.StateAt(deeper, 0) == MF_GRAYED && p.menus.TextAt(bar, 1) == "&Corvel");
  CHECK(p.menus.Modify(bar, 5, MF_BYCOMMAND, 6, "changed") && p.menus.IdAt(deeper, 0) == 6);
  p.menus.DrawBar(FromHwnd(p.client.frame));
  CHECK(p.menus.Delete(bar, 1, MF_BYPOSITION));
  CHECK(p.menus.Count(popup) == -1 && p.menus.Count(deeper) == -1);
}

void CALLBACK Throw(HWND, UINT, UINT_PTR, DWORD) {
  win32::Callback::Run([]() -> LRESULT { throw std::runtime_error("stop"); });
}

// A row is chosen by keys; a menu whose loop throws comes down and throws on.
void APopUpMenuAnswersAndLetsExceptionsThrough() {
  Program p;
  const HWND owner = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                     GetModuleHandleA(nullptr), nullptr);
  const auto menu = p.menus.CreatePopup();
  p.menus.Insert(menu, -1, MF_BYPOSITION, 71, {}, "one");
  p.menus.Insert(menu, -1, MF_BYPOSITION, 72, {}, "two");
  for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN}) PostMessageA(owner, WM_KEYDOWN, key, 0);
  const auto row = p.menus.TrackPopup(menu, FromHwnd(owner));
  CHECK_SEEN(row == 72, row);
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, Throw);
  bool thrown = false;
  try {
    p.menus.TrackPopup(menu, FromHwnd(owner));
  } catch (const std::runtime_error&) {
    thrown = true;
  }
  KillTimer(nullptr, timer);
  CHECK(thrown && !win32::Callback::IsThrown());
  p.menus.Destroy(menu);
  CHECK(p.menus.Count(menu) == -1);
  DestroyWindow(owner);
}

void DialogsEndAndSoundsStop() {
  Program p;
  p.client.Post(kAskUser);
  HWND dialog = nullptr;
  CHECK(PumpUntil(
      5000, [&] { return (dialog = reinterpret_cast<HWND>(p.client.Ask(kDialog))) != nullptr; }));
  p.inClient.Ask(dialog,
                 {.deed = win32::Deed::kEndDialog, .handle = FromHwnd(dialog).value, .number = -1});
  CHECK(PumpUntil(5000, [&] { return !IsWindow(dialog); }));
  CHECK_SEEN(p.client.Ask(kDialogResult) == -1, p.client.Ask(kDialogResult));
  win32::Win32ClientProxy proxy(p.inClient);
  CHECK(proxy.Attach(FromHwnd(p.client.frame)));
  proxy.StopSound();
  CHECK(!proxy.Attach({1}));
}

void LinesOfARoomComeInOrder() {
  constexpr std::size_t kLines = 300;
  Program p;
  Heard heard;
  heard.act = [&] {
    if (heard.lines.size() == 5) PumpFor(50);  // the next lines come in between
  };
  const HookId hook = p.hooks.AttachChat(FromHwnd(p.client.room), heard);
  CHECK(hook != 0);
  p.client.Post(kSay, kLines);
  PumpUntil(5000, [&] { return heard.lines.size() == kLines; });
  CHECK_SEEN(heard.lines.size() == kLines, heard.lines.size());
  for (std::size_t i = 0; i < heard.lines.size(); ++i)
    CHECK_SEEN(heard.lines[i] == "Member " + std::to_string(i % 7) + "|line " + std::to_string(i),
               i);
  p.client.Post(kSay, 5);
  Sleep(100);
  p.hooks.DetachChat(hook);
  PumpFor(100);
  CHECK(heard.lines.size() == kLines);
}

void WindowsOfOurOwnAreHookedToo() {
  Program p;
  const HWND box = CreateWindowExA(0, "EDIT", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                   GetModuleHandleA(nullptr), nullptr);
  Handler handler;
  const HookId hook = p.Hook(box, handler);
  SendMessageA(box, WM_CHAR, 'a', 0);
  handler.act = [&](HookedMessage&) { DestroyWindow(box); };
  CHECK(SendMessageA(box, WM_CHAR, 'b', 0) == 0);
  CHECK_SEEN(handler.count == 2, handler.count);
  CHECK(!IsWindow(box) && !p.hooks.IsAttached(hook));
}

void WithoutTheLibraryNothingIsHooked() {
  Program p;
  const std::string own = OwnPath(), folder = own.substr(0, own.rfind('\\') + 1) + "alone";
  CreateDirectoryA(folder.c_str(), nullptr);
  CopyFileA(own.c_str(), (folder + "\\hook_test.exe").c_str(), FALSE);
  const std::string library = folder + "\\corvelhk.dll", role = "alone " + Number(p.client.box);
  DeleteFileA(library.c_str());
  CHECK(Process(role, folder + "\\hook_test.exe").ExitCode() == 0);
  CopyFileA(own.c_str(), library.c_str(), FALSE);  // not the library at all
  CHECK(Process(role, folder + "\\hook_test.exe").ExitCode() == 0);
}

struct Test {
  const char* name;
  void (*run)();
};
#define TEST_ROW(name) \
  { #name, name }
constexpr Test kTests[] = {
    TEST_ROW(AMessageIsPassedOrConsumedWithAResult),
    TEST_ROW(ATextIsCopied),
    TEST_ROW(AHandlerMayDoAsItLikes),
    TEST_ROW(AHandlerThatPumpsHasAllTheTime),
    TEST_ROW(AProgramThatHangsIsPassedByOnce),
    TEST_ROW(AProgramThatDiesIsForgotten),
    TEST_ROW(AProgramThatDiesWhileItIsAskedIsForgotten),
    TEST_ROW(TwoProgramsHookTheSameWindow),
    TEST_ROW(AClientThatSubclassesAfterUsGoesOn),
    TEST_ROW(AClientThatDiesLeavesNothingToWaitFor),
    TEST_ROW(AClientThatHangsIsGivenUpAndTakenUpAgain),
    TEST_ROW(WhatWasTakenComesBackAfterAHang),
    TEST_ROW(MenusAreReachedAlsoWhileTheyOpen),
    TEST_ROW(AMenuOfOursMovesIntoTheClient),
    TEST_ROW(APopUpMenuAnswersAndLetsExceptionsThrough),
    TEST_ROW(DialogsEndAndSoundsStop),
    TEST_ROW(LinesOfARoomComeInOrder),
    TEST_ROW(WindowsOfOurOwnAreHookedToo),
    TEST_ROW(WithoutTheLibraryNothingIsHooked),
};

int RunTests(const char* only) {
  for (const Test& test : kTests) {
    if (only && !std::strstr(test.name, only)) continue;
    const int before = failures;
    const DWORD passed = TimeOf(test.run);
    std::printf("%s %s (%lu ms)\n", failures == before ? "ok    " : "FAILED", test.name, passed);
    std::fflush(stdout);
  }
  std::printf(failures ? "%d failures\n" : "all good\n", failures);
  return failures != 0;
}

}  // namespace
}  // namespace corvel::test

int main(int argc, char** argv) {
  using namespace corvel::test;
  const std::string role = argc > 1 ? argv[1] : "";
  const HWND box =
      argc > 2 ? reinterpret_cast<HWND>(static_cast<LONG_PTR>(std::atol(argv[2]))) : nullptr;
  if (role == "client") return RunClient();
  if (role == "stranger") return RunStranger(box, false);
  if (role == "busy") return RunStranger(box, true);
  if (role == "alone") return RunWithoutLibrary(box);
  return RunTests(argc > 1 ? argv[1] : nullptr);
}
