#include "platform/win32/win32_printer.h"

#include "base/text.h"
#include "platform/win32/callback.h"

#include <algorithm>
#include <commdlg.h>

namespace corvel::win32 {
namespace {

using OwnedFont = Owned<HFONT, DeleteObject>;
using OwnedMemory = Owned<HGLOBAL, GlobalFree>;

OwnedContext DefaultPrinter() {
  PRINTDLGA question{};
  question.lStructSize = sizeof question;
  question.Flags = PD_RETURNDC | PD_RETURNDEFAULT | PD_NOWARNING;  // asks nothing
  const bool found = PrintDlgA(&question);
  const OwnedMemory mode(question.hDevMode), names(question.hDevNames);
  return OwnedContext(found ? question.hDC : nullptr);
}

int CALLBACK FontFound(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

OwnedFont FontOf(HDC device, const PrintFont& font) {
  constexpr int kPointsAnInch = 72;
  LOGFONTA wanted{};
  wanted.lfHeight = -MulDiv(font.points, GetDeviceCaps(device, LOGPIXELSY), kPointsAnInch);
  wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfCharSet = DEFAULT_CHARSET;
  font.name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  return OwnedFont(CreateFontIndirectA(&wanted));
}

// From one edge of the paper, which begins outside of what can be printed on, half an inch.
LONG Margin(HDC device, int pixelsAnInch, int offset) {
  return std::max(GetDeviceCaps(device, pixelsAnInch) / 2 - GetDeviceCaps(device, offset), 0);
}

RECT PrintArea(HDC device) {
  const LONG x = Margin(device, LOGPIXELSX, PHYSICALOFFSETX);
  const LONG y = Margin(device, LOGPIXELSY, PHYSICALOFFSETY);
  return {x, y, GetDeviceCaps(device, HORZRES) - x, GetDeviceCaps(device, VERTRES) - y};
}

}  // namespace

bool Win32Printer::HasFont(std::string_view name) {
  const OwnedContext device = DefaultPrinter();
  bool found = false;
  if (device && !name.empty())
    EnumFontFamiliesA(device.Get(), CutAtNul(name).c_str(), FontFound,
                      reinterpret_cast<LPARAM>(&found));
  return found;
}

std::unique_ptr<PrintJob> Win32Printer::Start(std::string_view title) {
  OwnedContext device = DefaultPrinter();
  Callback::Rethrow();
  return device ? Win32PrintJob::Begin(std::move(device), title) : nullptr;
}

std::unique_ptr<PrintJob> Win32PrintJob::Begin(OwnedContext device, std::string_view title) {
  const std::string name = CutAtNul(title);
  DOCINFOA document{};
  document.cbSize = sizeof document;
  document.lpszDocName = name.c_str();
  if (StartDocA(device.Get(), &document) <= 0) return nullptr;
  return std::unique_ptr<PrintJob>(new Win32PrintJob(std::move(device)));
}

Win32PrintJob::Win32PrintJob(OwnedContext device)
    : device_(std::move(device)), area_(PrintArea(device_.Get())), y_(area_.top) {}

Win32PrintJob::~Win32PrintJob() {
  if (pageStarted_) EndPage(device_.Get());
  EndDoc(device_.Get());
}

void Win32PrintJob::Line(std::string_view text, const PrintFont& font) {
  const OwnedFont made = FontOf(device_.Get(), font);
  const HGDIOBJ before = SelectObject(device_.Get(), made.Get());
  TEXTMETRICA metrics{};
  GetTextMetricsA(device_.Get(), &metrics);
  const int height = metrics.tmHeight + metrics.tmExternalLeading;
  do {
    const std::size_t length = Fitting(text);
    Row(text.substr(0, length), height, font.centered);
    text.remove_prefix(length);
  } while (!text.empty());
  SelectObject(device_.Get(), before);
}

// How many characters of the text go on a row: at least one, so that every text comes to its end.
std::size_t Win32PrintJob::Fitting(std::string_view text) const {
  int count = 0;
  SIZE size;
  if (!GetTextExtentExPointA(device_.Get(), text.data(), static_cast<int>(text.size()),
                             area_.right - area_.left, &count, nullptr, &size))
    return text.size();
  return std::min(text.size(), static_cast<std::size_t>(std::max(count, 1)));
}

void Win32PrintJob::Row(std::string_view text, int height, bool centered) {
  if (pageStarted_ && y_ + height > area_.bottom) {
    EndPage(device_.Get());
    pageStarted_ = false;
    y_ = area_.top;
  }
  if (!pageStarted_) {
    // A new page forgets what was set on Windows 95 and 98.
    const HGDIOBJ font = GetCurrentObject(device_.Get(), OBJ_FONT);
    pageStarted_ = StartPage(device_.Get()) > 0;
    SelectObject(device_.Get(), font);
    SetBkMode(device_.Get(), TRANSPARENT);
  }
  SIZE size{};
  const int length = static_cast<int>(text.size());
  GetTextExtentPoint32A(device_.Get(), text.data(), length, &size);
  const int x = centered ? (area_.left + area_.right - size.cx) / 2 : area_.left;
  TextOutA(device_.Get(), x, y_, text.data(), length);
  y_ += height;
}

}  // namespace corvel::win32
