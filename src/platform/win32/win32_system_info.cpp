#include "platform/win32/win32_system_info.h"

#include "base/text.h"

#include <windows.h>

namespace corvel::win32 {
namespace {

std::string WithoutLastSlash(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

std::string SystemPath(UINT(WINAPI* get)(LPSTR, UINT)) {
  char path[MAX_PATH];
  const UINT length = get(path, sizeof path);
  return WithoutLastSlash({path, length < sizeof path ? length : 0});
}

}  // namespace

std::string_view WithoutProgram(std::string_view commandLine) {
  const bool quoted = commandLine.starts_with('"');
  const std::size_t end = commandLine.find_first_of(quoted ? "\"" : " \t", quoted ? 1 : 0);
  return end == std::string_view::npos ? std::string_view() : commandLine.substr(end + 1);
}

int Win32SystemInfo::WindowsPlatform() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;
  return GetVersionExA(&version) ? static_cast<int>(version.dwPlatformId) : 0;
}

std::string Win32SystemInfo::CommandLine() { return Trim(WithoutProgram(GetCommandLineA())); }

std::string Win32SystemInfo::ProgramFolder() {
  char path[MAX_PATH];
  return FolderOf({path, GetModuleFileNameA(nullptr, path, sizeof path)});
}

std::string Win32SystemInfo::WindowsFolder() { return SystemPath(GetWindowsDirectoryA); }
std::string Win32SystemInfo::SystemFolder() { return SystemPath(GetSystemDirectoryA); }

}  // namespace corvel::win32
