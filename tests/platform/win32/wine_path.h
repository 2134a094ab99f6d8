// Where a path of Wine's drives lies on the system below.
#pragma once

#include <string>
#include <windows.h>

namespace corvel::test {

// The path itself on a real Windows.
inline std::string PathBelow(const std::string& path) {
  using NameOf = char*(CDECL*)(const wchar_t*);
  const auto nameOf = reinterpret_cast<NameOf>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
  return nameOf ? nameOf(std::wstring(path.begin(), path.end()).c_str()) : path;
}

}  // namespace corvel::test
