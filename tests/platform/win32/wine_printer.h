// A printer that prints into a file, as Wine can have one: by its driver for PostScript, with a
// description of our own, at a port that is a path of the system below.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace corvel::test {

class WinePrinter {
 public:
  explicit WinePrinter(const std::string& file);  // the system's default from now on
  ~WinePrinter();
  WinePrinter(const WinePrinter&) = delete;
  WinePrinter& operator=(const WinePrinter&) = delete;

 private:
  HANDLE printer_ = nullptr;
};

// The lines of a printed file, of whose characters it knows the letters only.
std::vector<std::string> PrintedLines(const std::string& postScript);

}  // namespace corvel::test
