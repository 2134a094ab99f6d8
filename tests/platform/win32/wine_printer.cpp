#include "tests/platform/win32/wine_printer.h"

#include "tests/platform/win32/wine_path.h"

#include <sstream>
#include <utility>
#include <winspool.h>

namespace corvel::test {
namespace {

constexpr char kDriver[] = "Wine PostScript Driver", kPrinter[] = "Paper";
constexpr char kDescription[] = R"ppd(*PPD-Adobe: "4.3"
*LanguageLevel: "2"
*ColorDevice: False
*DefaultResolution: 300dpi
*NickName: "Paper"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4: "18 18 577 824"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)ppd";

char* Word(const char* text) { return const_cast<char*>(text); }

void PutDescription() {
  char folder[MAX_PATH];
  DWORD size = 0;
  GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder), MAX_PATH, &size);
  const std::string path = std::string(folder) + "\\3\\paper.ppd";
  for (std::size_t at = 3; (at = path.find('\\', at)) != std::string::npos; ++at)
    CreateDirectoryA(path.substr(0, at).c_str(), nullptr);
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, kDescription, sizeof kDescription - 1, &written, nullptr);
  CloseHandle(file);
}

void PutDriver() {
  DRIVER_INFO_3A driver{};
  driver.cVersion = 3;
  driver.pName = Word(kDriver);
  driver.pDriverPath = driver.pConfigFile = Word("wineps.drv");
  driver.pDataFile = Word("paper.ppd");
  driver.pDefaultDataType = Word("RAW");
  driver.pDependentFiles = Word("\0");
  AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                      APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY);
}

}  // namespace

WinePrinter::WinePrinter(const std::string& file) {
  PutDescription();
  PutDriver();
  PRINTER_INFO_2A made{};
  made.pPrinterName = Word(kPrinter);
  made.pDriverName = Word(kDriver);
  const std::string port = PathBelow(file);
  made.pPortName = Word(port.c_str());
  made.pPrintProcessor = Word("WinPrint");
  made.pDatatype = Word("RAW");
  printer_ = AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&made));
  SetDefaultPrinterA(kPrinter);
}

WinePrinter::~WinePrinter() {
  if (printer_) DeletePrinter(printer_);
  WriteProfileStringA("windows", "device", nullptr);
}

std::vector<std::string> PrintedLines(const std::string& postScript) {
  std::vector<std::string> lines;
  std::istringstream in(postScript);
  bool isNew = true;
  for (std::string line; std::getline(in, line);) {
    if (line.find(" moveto") != std::string::npos) isNew = true;
    const std::size_t end = line.find(" glyphshow");
    if (end == std::string::npos || line[0] != '/') continue;
    if (std::exchange(isNew, false)) lines.emplace_back();
    if (end == 2) lines.back() += line[1];
  }
  return lines;
}

}  // namespace corvel::test
