// The system's shell: opening, the recycle bin, help, the tray.
#pragma once

#include "platform/shell.h"

namespace corvel::win32 {

class Win32Shell : public Shell {
 public:
  bool Open(Window owner, std::string_view target) override;
  bool Recycle(Window owner, std::string_view path) override;
  bool Help(std::string_view helpFile, std::string_view topic) override;
  bool AddTrayIcon(Window owner, MessageId message, std::string_view tip) override;
  bool ChangeTrayIcon(Window owner, TrayPicture picture) override;
  void RemoveTrayIcon(Window owner) noexcept override;
};

}  // namespace corvel::win32
