// Programs beside the one under test: a stranger who hooks the same window, and one without its
// library.
#include "platform/win32/handles.h"
#include "platform/win32/win32_hooks.h"
#include "platform/win32/win32_in_client.h"
#include "tests/hooks/stage.h"

namespace corvel::test {
namespace {

class Passing : public HookHandler {
 public:
  void OnHookedMessage(HookedMessage&) override {}
};

constexpr MessageId kChar[] = {WM_CHAR};

}  // namespace

int RunStranger(HWND box, bool busy) {
  win32::HookChannel channel;
  win32::Win32Hooks hooks(channel);
  Passing handler;
  if (!hooks.Attach(win32::FromHwnd(box), kChar, handler)) return 1;
  // The test waits for this property before it goes on.
  SetPropA(box, "Stranger", reinterpret_cast<HANDLE>(1));
  if (busy) Sleep(20000);
  PumpFor(20000);
  return 0;
}

int RunWithoutLibrary(HWND box) {
  win32::HookChannel channel;
  win32::Win32Hooks hooks(channel);
  win32::Win32InClient inClient(channel);
  Passing handler;
  const HookId hook = hooks.Attach(win32::FromHwnd(box), kChar, handler);
  hooks.Detach(hook);
  return hook != 0 || hooks.IsAttached(hook) || inClient.Ask(box, {.deed = win32::Deed::kPresent});
}

}  // namespace corvel::test
