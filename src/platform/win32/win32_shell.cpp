#include "platform/win32/win32_shell.h"

#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <shellapi.h>

namespace corvel::win32 {
namespace {

// Windows 95 and 98 refuse the larger structures of later systems, whose first part is the same.
constexpr DWORD kTrayIconSize = NOTIFYICONDATAA_V1_SIZE;
static_assert(sizeof(void*) == 8 || kTrayIconSize == 88);
constexpr std::size_t kLongestTip = 63;
constexpr UINT kTrayId = 1;
// In the program's resources.
constexpr WORD kProgramIcon = 1, kImsOffIcon = 2;

HICON TrayIcon(TrayPicture picture) {
  const WORD number = picture == TrayPicture::kImsOff ? kImsOffIcon : kProgramIcon;
  const HICON own = LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(number));
  return own ? own : LoadIconA(nullptr, reinterpret_cast<const char*>(IDI_APPLICATION));
}

NOTIFYICONDATAA TrayData(Window owner) {
  NOTIFYICONDATAA data{};
  data.cbSize = kTrayIconSize;
  data.hWnd = ToHwnd(owner);
  data.uID = kTrayId;
  return data;
}

bool IsFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

}  // namespace

bool Win32Shell::Open(Window owner, std::string_view target) {
  const HINSTANCE opened = ShellExecuteA(ToHwnd(owner), "open", CutAtNul(target).c_str(), nullptr,
                                         nullptr, SW_SHOWNORMAL);
  Callback::Rethrow();
  return reinterpret_cast<INT_PTR>(opened) > 32;  // up to there it is an error
}

bool Win32Shell::Recycle(Window owner, std::string_view path) {
  const std::string file = CutAtNul(path);
  if (!IsFile(file)) return false;  // the shell would say so in a box of its own
  const std::string list = file + '\0';
  SHFILEOPSTRUCTA operation{};
  operation.hwnd = ToHwnd(owner);
  operation.wFunc = FO_DELETE;
  operation.pFrom = list.c_str();
  operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION;
  const bool done = SHFileOperationA(&operation) == 0 && !operation.fAnyOperationsAborted;
  Callback::Rethrow();
  return done;
}

bool Win32Shell::Help(std::string_view helpFile, std::string_view topic) {
  const std::string file = CutAtNul(helpFile), key = CutAtNul(topic);
  if (!IsFile(file)) return false;
  const bool shown = WinHelpA(GetActiveWindow(), file.c_str(), HELP_PARTIALKEY,
                              reinterpret_cast<ULONG_PTR>(key.c_str()));
  Callback::Rethrow();
  return shown;
}

bool Win32Shell::AddTrayIcon(Window owner, MessageId message, std::string_view tip) {
  NOTIFYICONDATAA data = TrayData(owner);
  data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  data.uCallbackMessage = message;
  data.hIcon = TrayIcon(TrayPicture::kNormal);
  tip.substr(0, kLongestTip).copy(data.szTip, kLongestTip);
  return Shell_NotifyIconA(NIM_ADD, &data);
}

bool Win32Shell::ChangeTrayIcon(Window owner, TrayPicture picture) {
  NOTIFYICONDATAA data = TrayData(owner);
  data.uFlags = NIF_ICON;
  data.hIcon = TrayIcon(picture);
  return Shell_NotifyIconA(NIM_MODIFY, &data);
}

void Win32Shell::RemoveTrayIcon(Window owner) noexcept {
  NOTIFYICONDATAA data = TrayData(owner);
  Shell_NotifyIconA(NIM_DELETE, &data);
}

}  // namespace corvel::win32
