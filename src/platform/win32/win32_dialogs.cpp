#include "platform/win32/win32_dialogs.h"

#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <algorithm>
#include <commdlg.h>
#include <cstddef>

#undef ChooseColor  // the seam's name

namespace corvel::win32 {
namespace {

constexpr DWORD kOpenFlags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
constexpr DWORD kSaveFlags = OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;

// Windows 95 and 98 refuse the larger structures of later systems.
constexpr DWORD kPathQuestionSize = offsetof(OPENFILENAMEA, lpTemplateName) + sizeof(LPCSTR);
static_assert(sizeof(void*) == 8 || kPathQuestionSize == 76);
static_assert(sizeof(void*) == 8 || sizeof(CHOOSECOLORA) == 36);

using Dialog = BOOL(WINAPI*)(OPENFILENAMEA*);

std::optional<std::string> AskPath(Dialog dialog, Window owner, std::string_view description,
                                   std::string_view pattern, std::string_view preset, DWORD flags) {
  std::array<char, 128> path{};
  preset.substr(0, path.size() - 1).copy(path.data(), path.size() - 1);
  const std::string filter = CutAtNul(description) + '\0' + CutAtNul(pattern) + '\0';
  OPENFILENAMEA question{};
  question.lStructSize = kPathQuestionSize;
  question.hwndOwner = ToHwnd(owner);
  question.lpstrFilter = filter.c_str();
  question.nFilterIndex = 1;
  question.lpstrFile = path.data();
  question.nMaxFile = path.size();
  question.Flags = flags;
  const bool answered = dialog(&question);
  Callback::Rethrow();
  if (!answered) return std::nullopt;
  return CutAtNul({path.data(), path.size()});
}

}  // namespace

std::optional<std::string> Win32CommonDialogs::OpenFile(Window owner, std::string_view description,
                                                        std::string_view pattern) {
  return AskPath(GetOpenFileNameA, owner, description, pattern, "", kOpenFlags);
}

std::optional<std::string> Win32CommonDialogs::SaveFile(Window owner, std::string_view description,
                                                        std::string_view pattern,
                                                        std::string_view preset) {
  return AskPath(GetSaveFileNameA, owner, description, pattern, preset, kSaveFlags);
}

std::optional<Color> Win32CommonDialogs::ChooseColor(Window owner, Color start,
                                                     std::array<Color, 16>& custom) {
  std::array<COLORREF, 16> colors{};
  std::copy(custom.begin(), custom.end(), colors.begin());
  CHOOSECOLORA question{};
  question.lStructSize = sizeof question;
  question.hwndOwner = ToHwnd(owner);
  question.rgbResult = static_cast<COLORREF>(start);
  question.lpCustColors = colors.data();
  question.Flags = CC_RGBINIT | CC_FULLOPEN;
  const bool answered = ChooseColorA(&question);
  std::copy(colors.begin(), colors.end(), custom.begin());
  Callback::Rethrow();
  if (!answered) return std::nullopt;
  return static_cast<Color>(question.rgbResult);
}

int Win32CommonDialogs::PlainMessage(Window owner, std::string_view text, std::string_view title,
                                     int style) {
  // Without an owner it would leave our other windows open to the user.
  const UINT modal = owner ? MB_APPLMODAL : MB_TASKMODAL;
  const int answer = MessageBoxA(ToHwnd(owner), CutAtNul(text).c_str(), CutAtNul(title).c_str(),
                                 static_cast<UINT>(style) | modal);
  Callback::Rethrow();
  return answer;
}

}  // namespace corvel::win32
