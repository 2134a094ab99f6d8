// What only real windows have: callbacks, system classes, the message queue, threads that hang.
#include "base/error.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_event_loop.h"
#include "tests/platform/win32/win32_home.h"

#include <functional>
#include <gtest/gtest.h>

namespace corvel::test {
namespace {

constexpr Wait kWait{"the test", WaitFor::kTime};

// Does what it is told to on kUser, and leaves the rest to the system.
class Told : public WindowProcedure {
 public:
  explicit Told(OwnWindows& own) : own_(own) {}
  Window Make(const std::string& name, const std::string& systemClass = "") {
    return own_.Create({.className = "Told " + systemClass,
                        .caption = name,
                        .place = {0, 0, 100, 100},
                        .visible = false,
                        .systemClass = systemClass},
                       *this);
  }
  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id < wm::kUser || !act) return own_.Default(window, message);
    act(message);
    return 7;
  }
  std::function<void(const Message&)> act;

 private:
  OwnWindows& own_;
};

class OnWindows : public testing::Test {
 protected:
  win32::Win32Platform system;
  WindowSystem& windows = system.platform().windows;
  win32::Win32EventLoop& events = system.events();
  Told told{system.platform().ownWindows};
  const Window window = told.Make("window");
  ~OnWindows() override { system.platform().ownWindows.Destroy(window); }
};

TEST_F(OnWindows, AnEndOfTheProcessGoesUpThroughAllThatIsUnderWay) {
  int passed = 0;
  told.act = [&](const Message& message) {
    if (message.wParam == 0) throw ProcessExit{};
    windows.Post(window, wm::kUser, message.wParam - 1, 0);
    if (message.wParam % 2) windows.Send(window, wm::kUser + 1, message.wParam - 1, 0);
    for (;;) events.Pump(kWait);
    ++passed;
  };
  EXPECT_THROW(windows.Send(window, wm::kUser, 4, 0), ProcessExit);
  EXPECT_EQ(passed, 0);
  told.act = nullptr;
  EXPECT_EQ(windows.SendText(window, wm::kSetText, 0, "alive"), 1);
  EXPECT_EQ(windows.SendForText(window, wm::kGetText, 0, 10), "alive");
}

TEST_F(OnWindows, TheSystemsOwnQuitEndsEveryPump) {
  PostQuitMessage(0);
  EXPECT_THROW(for (;;) events.Pump(kWait), ProcessExit);
  EXPECT_THROW(events.Pump(kWait), ProcessExit);
}

TEST_F(OnWindows, AListBoxWorksUnderAnotherName) {
  const Window list = told.Make("list", "LISTBOX");
  EXPECT_EQ(windows.ClassOf(list), "Told LISTBOX");
  EXPECT_EQ(windows.SendText(list, LB_ADDSTRING, 0, "first"), 0);
  EXPECT_EQ(windows.SendText(list, LB_ADDSTRING, 0, "second"), 1);
  EXPECT_EQ(windows.SendForText(list, LB_GETTEXT, 1, 100), "second");
  EXPECT_EQ(windows.SendForText(list, LB_GETTEXT, 1, 4), "sec");
  EXPECT_EQ(windows.SendForText(list, LB_GETTEXT, 2, 100), "");
  system.platform().ownWindows.Destroy(list);
}

TEST_F(OnWindows, FiltersSeeMessagesFirstAndIdlersComeLast) {
  class TakesAll : public win32::MessageFilter {
   public:
    bool Filter(MSG& message) override { return message.message == wm::kUser && ++taken; }
    int taken = 0;
  } filter;
  std::string order;
  told.act = [&](const Message&) { order += "message "; };
  events.SetIdle([&] { return order += "idle ", false; });
  events.AddFilter(filter);
  windows.Post(window, wm::kUser, 0, 0);
  windows.Post(window, wm::kUser + 1, 0, 0);
  events.Pump(kWait);
  events.RemoveFilter(filter);
  EXPECT_EQ(order, "message ");
  EXPECT_EQ(filter.taken, 1);
  windows.Post(window, wm::kUser, 0, 0);
  events.Pump(kWait);
  events.Pump(kWait);
  EXPECT_EQ(order, "message message idle ");
}

TEST_F(OnWindows, AHookThatTakesPaintingIsNotAskedForEver) {
  class TakesAll : public HookHandler {
   public:
    void OnHookedMessage(HookedMessage& message) override {
      ++came;
      message.consume = true;
    }
    int came = 0;
  } hook;
  constexpr MessageId kMessages[] = {wm::kPaint};
  windows.Show(window, show::kNoActivate);
  events.Pump(kWait);
  const HookId id = system.platform().hooks.Attach(window, kMessages, hook);
  InvalidateRect(win32::ToHwnd(window), nullptr, TRUE);
  for (int i = 0; i < 20; ++i) events.Pump({"the test", WaitFor::kTime, GetTickCount() + 10});
  EXPECT_EQ(hook.came, 1);
  EXPECT_FALSE(GetUpdateRect(win32::ToHwnd(window), nullptr, FALSE));
  system.platform().hooks.Detach(id);
}

// A window of a thread that never looks at its messages.
DWORD WINAPI Hang(void* made) {
  auto* const handles = static_cast<HANDLE*>(made);
  handles[0] = CreateWindowExA(0, "STATIC", "hangs", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                               nullptr, nullptr);
  SetEvent(handles[1]);
  WaitForSingleObject(handles[2], INFINITE);
  return 0;
}

TEST_F(OnWindows, AThreadThatHangsIsGivenUpInBoundedTime) {
  HANDLE handles[3] = {nullptr, CreateEventA(nullptr, TRUE, FALSE, nullptr),
                       CreateEventA(nullptr, TRUE, FALSE, nullptr)};
  DWORD id = 0;
  const HANDLE thread = CreateThread(nullptr, 0, Hang, handles, 0, &id);
  WaitForSingleObject(handles[1], INFINITE);
  const Window hanging = win32::FromHwnd(static_cast<HWND>(handles[0]));
  const DWORD start = GetTickCount();
  EXPECT_EQ(windows.Send(hanging, wm::kGetTextLength, 0, 0), 0);
  windows.Place(hanging, {1, 1, 1, 1});
  windows.SetFocus(hanging);
  EXPECT_LT(GetTickCount() - start, 25'000u);
  EXPECT_TRUE(windows.Exists(hanging));
  SetEvent(handles[2]);
  WaitForSingleObject(thread, INFINITE);
  for (const HANDLE handle : {handles[1], handles[2], thread}) CloseHandle(handle);
}

}  // namespace
}  // namespace corvel::test
