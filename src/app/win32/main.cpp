// corvel32.exe: the program in real windows.
#include "app/corvel_process.h"
#include "base/error.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_platform.h"

#include <windows.h>

namespace {

// The program lives on events until its last window has gone.
void Live(corvel::win32::Win32Platform& home) {
  corvel::CorvelProcess process(home.platform());
  home.events().SetSessionEnd([&process] { process.EndSession(); });
  process.Start();
  try {
    while (!process.Finished()) home.events().Pump({"WinMain", corvel::WaitFor::kUser});
  } catch (const corvel::ProcessExit&) {  // by itself, or with the end of the session
  }
  home.events().SetSessionEnd({});  // the process goes before its home does
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  corvel::win32::Win32Platform home;
  Live(home);
  return 0;
}
