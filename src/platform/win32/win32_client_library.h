// launch32.dll, looked for beside the program and where the system looks.
#pragma once

#include "platform/processes.h"
#include "platform/win32/owned.h"

#include <string>
#include <utility>
#include <windows.h>

namespace corvel::win32 {

class Win32ClientLibrary : public ClientLibrary {
 public:
  explicit Win32ClientLibrary(std::string file = "launch32.dll") : file_(std::move(file)) {}

  std::string GetVersion(std::string_view clientFolder) override;
  int IsOnline() override;
  std::vector<std::string> GetScreenNames(std::string_view clientFolderWithSlash) override;

 private:
  FARPROC Find(const char* name);

  std::string file_;
  Owned<HMODULE, FreeLibrary> library_;
};

}  // namespace corvel::win32
