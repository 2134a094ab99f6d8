// aol.exe: starts the client, waol.exe, that lies beside it, with its own command line.
#include <string>
#include <windows.h>

namespace {

std::string Folder() {
  char path[MAX_PATH] = "";
  const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string program(path, length);
  return program.substr(0, program.rfind('\\') + 1);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR arguments, int show) {
  const std::string client = Folder() + "waol.exe";
  const std::string line = "\"" + client + "\" " + arguments;
  constexpr UINT kLeastOfSuccess = 32;
  if (WinExec(line.c_str(), static_cast<UINT>(show)) >= kLeastOfSuccess) return 0;
  const std::string text = "The client could not be started: " + client + " was not found.";
  MessageBoxA(nullptr, text.c_str(), "Practice client", MB_OK | MB_ICONSTOP);
  return 1;
}
