// Starts the practice client, or hands a target to the one that runs.
#include "base/error.h"
#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/win32_system_info.h"
#include "practice/win32/channel_client.h"
#include "practice/win32/practice_app.h"

#include <exception>

namespace corvel::practice {
namespace {

constexpr char kTitle[] = "Practice client";

// There is one client on a machine, as with the real one.
bool HandOver() {
  constexpr std::string_view kTarget = "-s";
  PracticeChannel running;
  if (!running.IsThere()) return false;
  const std::string line = Trim(win32::WithoutProgram(GetCommandLineA()));
  const std::size_t target = line.starts_with(kTarget) ? 0 : line.find(" -s");
  if (target != std::string::npos)
    running.GoTo(Trim(std::string_view(line).substr(target + (target == 0 ? 2 : 3))));
  return true;
}

int RunPractice() {
  try {
    if (!HandOver()) PracticeApp().Run();
    return 0;
  } catch (const ProcessExit&) {
    return 0;
  } catch (const RunTimeError& error) {
    MessageBoxA(nullptr, error.Text().c_str(), kTitle, MB_OK | MB_ICONSTOP);
  } catch (const std::exception& error) {
    MessageBoxA(nullptr, error.what(), kTitle, MB_OK | MB_ICONSTOP);
  }
  return 1;
}

}  // namespace
}  // namespace corvel::practice

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) { return corvel::practice::RunPractice(); }
