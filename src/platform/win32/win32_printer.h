// The default printer.
#pragma once

#include "platform/shell.h"
#include "platform/win32/owned.h"

#include <windows.h>

namespace corvel::win32 {

class Win32Printer : public Printer {
 public:
  bool HasFont(std::string_view name) override;
  std::unique_ptr<PrintJob> Start(std::string_view title) override;
};

using OwnedContext = Owned<HDC, DeleteDC>;

// A document on any device: lines one below the other within margins of half an inch, long ones
// broken, a new page when one is full.
class Win32PrintJob : public PrintJob {
 public:
  // nullptr if the device takes no document.
  static std::unique_ptr<PrintJob> Begin(OwnedContext device, std::string_view title);
  ~Win32PrintJob() override;
  Win32PrintJob(const Win32PrintJob&) = delete;
  Win32PrintJob& operator=(const Win32PrintJob&) = delete;

  void Line(std::string_view text, const PrintFont& font) override;

 private:
  explicit Win32PrintJob(OwnedContext device);
  void Row(std::string_view text, int height, bool centered);
  std::size_t Fitting(std::string_view text) const;

  OwnedContext device_;
  RECT area_;
  int y_;
  bool pageStarted_ = false;
};

}  // namespace corvel::win32
