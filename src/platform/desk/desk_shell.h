// The desk's shell and printer.
#pragma once

#include "platform/desk/desk.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class DeskShell : public Shell {
 public:
  explicit DeskShell(Desk& desk) : desk_(desk) {}
  bool Open(Window owner, std::string_view target) override;
  bool Recycle(Window owner, std::string_view path) override;
  bool Help(std::string_view helpFile, std::string_view topic) override;
  bool AddTrayIcon(Window owner, MessageId message, std::string_view tip) override;
  bool ChangeTrayIcon(Window owner, TrayPicture picture) override;
  void RemoveTrayIcon(Window owner) noexcept override;

  struct TrayIcon {
    Window owner;
    ProcessId process;
    MessageId message;
    std::string tip;
    TrayPicture picture = TrayPicture::kNormal;
  };
  // In the order in which they came. An icon outlives its window until the pointer passes over it.
  const std::vector<TrayIcon>& TrayIcons() const { return trayIcons_; }
  // The pointer passes over the tray: icons of dead windows go.
  const std::vector<TrayIcon>& PassOverTray();
  void SetTaskbar(bool present);
  void ProcessEnded(ProcessId process);

 private:
  Desk& desk_;
  bool taskbar_ = true;
  std::vector<TrayIcon> trayIcons_;
};

class DeskPrinter : public Printer {
 public:
  explicit DeskPrinter(Desk& desk) : desk_(desk) {}
  bool HasFont(std::string_view name) override;
  std::unique_ptr<PrintJob> Start(std::string_view title) override;
  void Set(bool present, bool hasCourierNew);

 private:
  Desk& desk_;
  bool present_ = true, hasCourierNew_ = true;
};

}  // namespace corvel::desk
