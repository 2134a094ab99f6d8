// The system's shell: opening things, the recycle bin, the tray, help, the printer.
#pragma once

#include "platform/window_types.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvel {

// What the program's icon in the tray shows.
enum class TrayPicture { kNormal, kImsOff };

class Shell {
 public:
  virtual ~Shell() = default;
  virtual bool Open(Window owner, std::string_view target) = 0;
  // Sends a file to the recycle bin without asking. False: it stays where it is.
  virtual bool Recycle(Window owner, std::string_view path) = 0;
  // Opens the help file at the first topic whose keyword begins with `topic`.
  virtual bool Help(std::string_view helpFile, std::string_view topic) = 0;

  // The tray icon of `owner`; its mouse messages come to that window as `message` with the mouse
  // message in lParam. False if there is no taskbar.
  virtual bool AddTrayIcon(Window owner, MessageId message, std::string_view tip) = 0;
  // False if `owner` has no icon there. A new icon shows kNormal.
  virtual bool ChangeTrayIcon(Window owner, TrayPicture picture) = 0;
  virtual void RemoveTrayIcon(Window owner) noexcept = 0;
};

struct PrintFont {
  std::string name;
  int points = 12;
  bool bold = false, centered = false;
};

// One document at the printer; ends with the object.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  virtual void Line(std::string_view text, const PrintFont& font) = 0;
};

class Printer {
 public:
  virtual ~Printer() = default;
  virtual bool HasFont(std::string_view name) = 0;
  virtual std::unique_ptr<PrintJob> Start(std::string_view title) = 0;  // nullptr: no printer
};

}  // namespace corvel
