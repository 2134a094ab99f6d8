// Other processes: listing, starting, reading their memory. And the system's idea of our own.
#pragma once

#include "platform/window_types.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

struct ProcessEntry {
  ProcessId id = 0;
  std::string path;  // with its folder, as Windows 95 and 98 give it
};

// An open process; closes with the object.
class ProcessMemory {
 public:
  virtual ~ProcessMemory() = default;
  // Exactly `size` bytes at `address`, or nothing if any of them can't be read.
  virtual std::optional<std::string> Read(std::uint32_t address, std::size_t size) = 0;
};

class Processes {
 public:
  virtual ~Processes() = default;
  // Nothing if the snapshot can't be taken.
  virtual std::optional<std::vector<ProcessEntry>> Snapshot() = 0;
  // nullptr if it can't be opened for reading.
  virtual std::unique_ptr<ProcessMemory> Open(ProcessId id) = 0;
  // The path of a loaded module, asked of the process itself; "" if not found.
  virtual std::string ModulePath(ProcessId id, std::string_view module) = 0;
  // Starts a program; false if there is none of that name.
  virtual bool Run(std::string_view commandLine, int showCommand) = 0;
  // Another instance of this very program is running.
  virtual bool PreviousInstance() = 0;
};

// The machine and this process's place on it.
class SystemInfo {
 public:
  virtual ~SystemInfo() = default;
  virtual int WindowsPlatform() = 0;        // 1: Windows 95 or 98; 2: NT
  virtual std::string CommandLine() = 0;    // without the program's own name
  virtual std::string ProgramFolder() = 0;  // no trailing backslash
  virtual std::string WindowsFolder() = 0;
  virtual std::string SystemFolder() = 0;
};

// launch32.dll, the closed library that answers for the client.
class ClientLibrary {
 public:
  virtual ~ClientLibrary() = default;
  virtual std::string GetVersion(std::string_view clientFolder) = 0;  // "4.0"; at most 3 characters
  virtual int IsOnline() = 0;                                         // 1 while signed on
  // Six names for AOL 3.0, each as its buffer holds it: the name, a NUL, what stood there before.
  // The sixth is the signed-on one.
  virtual std::vector<std::string> GetScreenNames(std::string_view clientFolderWithSlash) = 0;
};

}  // namespace corvel
