// The machine and this process's place on it.
#pragma once

#include "platform/processes.h"

namespace corvel::win32 {

class Win32SystemInfo : public SystemInfo {
 public:
  int WindowsPlatform() override;
  std::string CommandLine() override;
  std::string ProgramFolder() override;
  std::string WindowsFolder() override;
  std::string SystemFolder() override;
};

// A command line without the program's name in front, which may stand in quotes.
std::string_view WithoutProgram(std::string_view commandLine);

}  // namespace corvel::win32
