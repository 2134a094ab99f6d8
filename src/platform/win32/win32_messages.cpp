// Messages sent and posted, with and without texts; see win32_window_system.h.
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32_text.h"
#include "platform/win32/win32_window_system.h"

#include <algorithm>

namespace corvel::win32 {
namespace {

// The part in front of the NUL, as every call with a C text takes it.
std::string CText(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

}  // namespace

bool IsOurs(HWND window) {
  return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

std::optional<LRESULT> Ask(HWND window, UINT id, WPARAM wParam, LPARAM lParam) {
  if (!IsWindow(window)) return std::nullopt;
  std::optional<LRESULT> answer;
  if (IsOurs(window)) {
    answer = SendMessageA(window, id, wParam, lParam);
  } else {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutA(window, id, wParam, lParam, SMTO_ABORTIFHUNG | SMTO_NORMAL,
                            kLongestAnswerMs, &result))
      answer = static_cast<LRESULT>(result);
  }
  Callback::Rethrow();
  return answer;
}

bool TakesOrders(HWND window) {
  return IsWindow(window) && (IsOurs(window) || Ask(window, WM_NULL, 0, 0));
}

MessageResult Win32WindowSystem::Send(Window window, MessageId id, WParam wParam, LParam lParam) {
  return Ask(ToHwnd(window), id, wParam, lParam).value_or(0);
}

MessageResult Win32WindowSystem::SendText(Window window, MessageId id, WParam wParam,
                                          std::string_view text) {
  const HWND handle = ToHwnd(window);
  const bool knownToSystem = CarriesText(id);
  if (!knownToSystem && !IsOurs(handle)) return 0;
  const std::string sent = CText(text);
  const TextUnderWay underWay(handle, id, sent);
  return Ask(handle, id, wParam, underWay.Pointer()).value_or(0);
}

std::string Win32WindowSystem::SendForText(Window window, MessageId id, WParam wParam,
                                           std::size_t room) {
  if (room == 0) return {};
  std::string text;
  if (id == LB_GETTEXT || id == CB_GETLBTEXT) {
    text = AskListText(ToHwnd(window), id == CB_GETLBTEXT, wParam);
  } else if (id == WM_GETTEXT) {
    text.resize(room);
    const auto length = Ask(ToHwnd(window), id, room, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(
        std::clamp<LRESULT>(length.value_or(0), 0, static_cast<LRESULT>(room - 1))));
  }
  if (text.size() > room - 1) text.resize(room - 1);
  return CText(text);
}

// The texts of a list in another process come back garbled from some systems, so its own process
// reads them.
std::string Win32WindowSystem::AskListText(HWND window, bool combo, WParam row) {
  if (!IsOurs(window)) {
    const auto reply = client_.Ask(window, {.deed = combo ? Deed::kComboText : Deed::kListText,
                                            .handle = FromHwnd(window).value,
                                            .number = static_cast<std::int32_t>(row)});
    Callback::Rethrow();
    return reply ? reply->text : std::string();
  }
  const auto length = Ask(window, combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, row, 0);
  if (!length || *length <= 0) return {};
  std::string text(static_cast<std::size_t>(*length) + 1, '\0');
  Ask(window, combo ? CB_GETLBTEXT : LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
  return text;
}

bool Win32WindowSystem::Post(Window window, MessageId id, WParam wParam, LParam lParam) {
  // Without a window the system would post to the thread.
  return IsWindow(ToHwnd(window)) && PostMessageA(ToHwnd(window), id, wParam, lParam);
}

}  // namespace corvel::win32
