// Searching the client's windows by class and caption.
#include "aolbridge/aolclient.h"
#include "aolbridge/polling.h"
#include "base/text.h"

namespace corvel {
namespace {

constexpr std::size_t kBuffer = 100;  // class and caption texts are read into so many characters
constexpr std::size_t kTitleRoom = 512;

// The n-th direct child that `matches`, counted from 1.
template <typename Matches>
Window NthChild(WindowSystem& windows, Window parent, int n, Matches matches) {
  if (n < 1 || !parent) return {};
  for (Window child = windows.TopChild(parent); child; child = windows.Next(child))
    if (matches(child) && --n == 0) return child;
  return {};
}

}  // namespace

Window AolClient::FindChildByClass(Window parent, std::string_view className, int n) {
  WindowSystem& windows = program_.platform.windows;
  Window child{};
  for (; n > 0 && parent && !className.empty(); --n) {
    child = windows.FindChild(parent, child, className, std::nullopt);
    if (!child) return {};
  }
  return child;
}

Window AolClient::FindChildByTitle(Window parent, std::string_view title, int n) {
  WindowSystem& windows = program_.platform.windows;
  return NthChild(windows, parent, n, [&](Window child) {
    return HoldsNoCase(windows.SendForText(child, wm::kGetText, kTitleRoom, kTitleRoom), title);
  });
}

Window AolClient::WaitForWindow(std::optional<std::string_view> className,
                                std::optional<std::string_view> title) {
  return Poll(program_, "WaitForWindow", 10,
              [&] { return program_.platform.windows.Find(className, title); });
}

Window AolClient::WaitChildByClass(Window parent, std::string_view className) {
  return Poll(program_, "WaitChildByClass", 5, [&] {
    const Window child = FindChildByClass(parent, className);
    return program_.platform.windows.IsVisible(child) ? child : Window{};
  });
}

Window AolClient::WaitChildByTitle(Window parent, std::string_view title) {
  return Poll(program_, "WaitChildByTitle", 10, [&] {
    const Window child = FindChildByTitle(parent, title);
    return program_.platform.windows.IsVisible(child) ? child : Window{};
  });
}

std::string AolClient::GetClassText(Window window) {
  return Trim(program_.platform.windows.ClassOf(window).substr(0, kBuffer - 1));
}

std::string AolClient::GetCaptionText(Window window) {
  return Trim(program_.platform.windows.SendForText(window, wm::kGetText, kBuffer, kBuffer));
}

int AolClient::CountChildren(Window window) {
  if (!window) return 0;
  int count = 0;
  NthChild(program_.platform.windows, window, 1, [&](Window) { return ++count, false; });
  return count;
}

std::string AolClient::GetAPIText(Window window, bool wait) {
  WindowSystem& windows = program_.platform.windows;
  const auto read = [&] {
    const auto length = static_cast<std::size_t>(windows.Send(window, wm::kGetTextLength, 0, 0));
    return windows.SendForText(window, wm::kGetText, length + 1, length + 1);
  };
  if (!wait) return read();
  const auto text = Poll(program_, "GetAPIText", 10, [&]() -> std::optional<std::string> {
    std::string now = read();
    return Trim(now).empty() ? std::nullopt : std::optional(std::move(now));
  });
  return text.value_or("");
}

}  // namespace corvel
