// A desk with the practice client on it, and a stranger who looks at it from another process.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "practice/desk/desk_home.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

inline Setup MakeSetup(std::string version, Locale locale, std::uint32_t delayMs = 50) {
  Setup setup;
  setup.version = std::move(version);
  setup.locale = locale;
  setup.delayMs = delayMs;
  return setup;
}

class StrangerBody : public desk::ProcessBody {
 public:
  void Start(const std::string&) override {}
  bool Finished() override { return false; }
};

class PracticeDesk {
 public:
  explicit PracticeDesk(const Setup& setup = {}) {
    InstallOnDesk(desk, setup);
    desk.Install("C:\\Stranger\\stranger.exe",
                 [](desk::Desk&) { return std::make_unique<StrangerBody>(); });
    stranger = desk.Spawn("C:\\Stranger\\stranger.exe", "");
    process = StartOnDesk(desk);
    desk.RunDue();
  }

  WindowSystem& windows() { return desk.platform().windows; }
  PracticeClient& client() { return *RunningOnDesk(desk); }
  bool running() { return RunningOnDesk(desk) != nullptr; }

  // The error of a command, "" if all is well.
  std::string Do(const std::vector<std::string>& words) {
    Reply reply;
    desk.RunAs(process, [&] { reply = client().Do(words); });
    return reply.error;
  }
  // A command that asks for a window, and the time until that stands.
  std::string DoAndWait(const std::vector<std::string>& words) {
    const std::string error = Do(words);
    desk.RunFor(1000);
    return error;
  }
  std::string Ask(const std::vector<std::string>& words) {
    Reply reply;
    desk.RunAs(process, [&] { reply = client().Ask(words); });
    return reply.answers.empty() ? "error: " + reply.error : reply.answers.front();
  }

  // --- As the stranger sees it ---------------------------------------------------------------
  template <class F>
  auto AsStranger(F look) {
    std::optional<decltype(look())> result;
    desk.RunAs(stranger, [&] { result = look(); });
    return *result;
  }
  Window Frame() { return windows().Find("AOL FRAME25", std::nullopt); }
  Window Mdi() { return windows().FindChild(Frame(), {}, "MDIClient", std::nullopt); }
  // The n-th direct child of the class, from 1.
  Window Child(Window parent, std::string_view className, int n = 1) {
    Window child{};
    for (int i = 0; i < n; ++i) {
      child = windows().FindChild(parent, child, className, std::nullopt);
      if (!child) return {};
    }
    return child;
  }
  Window Document(std::string_view caption) {
    return windows().FindChild(Mdi(), {}, "AOL Child", caption);
  }
  std::string Text(Window window) {
    return AsStranger([&] { return windows().SendForText(window, wm::kGetText, 0, 60000); });
  }
  void Click(Window icon) {
    AsStranger([&] {
      windows().Post(icon, wm::kLButtonDown, 0, 0);
      return windows().Post(icon, wm::kLButtonUp, 0, 0);
    });
    desk.RunFor(1000);
  }
  void RunMenu(std::string_view caption) {
    AsStranger([&] { return windows().Send(Frame(), wm::kCommand, MenuId(caption), 0); });
    desk.RunFor(1000);
  }
  // The command of the row with exactly this caption, one level deep; 0 for none.
  std::uint32_t MenuId(std::string_view caption) {
    Menus& menus = desk.platform().menus;
    const MenuHandle bar = menus.MenuOf(Frame());
    for (int top = 0; top < menus.Count(bar); ++top) {
      const MenuHandle popup = menus.SubMenu(bar, top);
      for (int row = 0; row < menus.Count(popup); ++row)
        if (menus.TextAt(popup, row) == caption) return menus.IdAt(popup, row);
    }
    return 0;
  }
  void Keyword(const std::string& target) {
    AsStranger([&] { return desk.platform().processes.Run("C:\\AOL\\waol.exe -s" + target, 0); });
    desk.RunFor(1000);
  }
  // Row `row` of a list or combo, read out of the client's memory.
  std::string RowName(Window list, MessageId itemData, int row) {
    return AsStranger([&]() -> std::string {
      const auto data =
          static_cast<std::uint32_t>(windows().Send(list, itemData, static_cast<WParam>(row), 0));
      const auto memory = desk.platform().processes.Open(windows().ProcessOf(list));
      const auto pointer = memory->Read(data + 24, 4);
      if (!pointer) return "(unreadable)";
      std::uint32_t record = 0;
      for (int i = 3; i >= 0; --i)
        record = record << 8 | static_cast<unsigned char>((*pointer)[static_cast<std::size_t>(i)]);
      const auto name = memory->Read(record + 6, 16);
      return name ? name->substr(0, name->find('\0')) : "(unreadable)";
    });
  }
  std::vector<std::string> RowNames(Window list, MessageId count, MessageId itemData) {
    const auto rows = AsStranger([&] { return windows().Send(list, count, 0, 0); });
    std::vector<std::string> names;
    for (int row = 0; row < rows; ++row) names.push_back(RowName(list, itemData, row));
    return names;
  }
  // All that was noted of a kind, its words parted by "|".
  std::vector<std::string> Noted(std::string_view kind) {
    std::vector<std::string> found;
    for (const auto& entry : desk.journal().Entries()) {
      if (entry.kind != kind) continue;
      std::string line;
      for (const std::string& word : entry.words) line += (line.empty() ? "" : "|") + word;
      found.push_back(line);
    }
    return found;
  }

  desk::Desk desk;
  ProcessId stranger = 0, process = 0;
};

using Strings = std::vector<std::string>;

}  // namespace corvel::practice
