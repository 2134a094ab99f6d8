// The desk's shell and printer: what they are asked for goes into the journal.
#include "platform/desk/desk_shell.h"

#include "base/text.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"

#include <algorithm>

namespace corvel::desk {

bool DeskShell::Open(Window, std::string_view target) {
  const bool isPath = target.substr(1, 1) == ":";
  if (isPath && !desk_.files().Exists(target)) return false;
  desk_.Note("opened", {std::string(target)});
  return true;
}

bool DeskShell::Recycle(Window, std::string_view path) {
  if (!desk_.files().TakeAway(path)) return false;
  desk_.Note("recycled", {std::string(path)});
  return true;
}

bool DeskShell::Help(std::string_view helpFile, std::string_view topic) {
  if (!desk_.files().Peek(helpFile)) return false;
  desk_.Note("help", {std::string(helpFile), std::string(topic)});
  return true;
}

bool DeskShell::AddTrayIcon(Window owner, MessageId message, std::string_view tip) {
  constexpr std::size_t kLongestTip = 63;
  const bool known = std::any_of(trayIcons_.begin(), trayIcons_.end(),
                                 [&](const TrayIcon& icon) { return icon.owner == owner; });
  if (!taskbar_ || known) return false;
  trayIcons_.push_back({owner, desk_.Current(), message, std::string(tip.substr(0, kLongestTip))});
  return true;
}

bool DeskShell::ChangeTrayIcon(Window owner, TrayPicture picture) {
  const auto icon = std::find_if(trayIcons_.begin(), trayIcons_.end(),
                                 [&](const TrayIcon& one) { return one.owner == owner; });
  if (icon == trayIcons_.end()) return false;
  icon->picture = picture;
  return true;
}

void DeskShell::RemoveTrayIcon(Window owner) noexcept {
  std::erase_if(trayIcons_, [&](const TrayIcon& icon) { return icon.owner == owner; });
}

const std::vector<DeskShell::TrayIcon>& DeskShell::PassOverTray() {
  std::erase_if(trayIcons_,
                [&](const TrayIcon& icon) { return !desk_.windows().Exists(icon.owner); });
  return trayIcons_;
}

void DeskShell::ProcessEnded(ProcessId process) {
  std::erase_if(trayIcons_, [&](const TrayIcon& icon) { return icon.process == process; });
}

void DeskShell::SetTaskbar(bool present) {
  taskbar_ = present;
  if (!present) trayIcons_.clear();
}

namespace {

class DeskPrintJob : public PrintJob {
 public:
  explicit DeskPrintJob(Desk& desk) : desk_(desk) {}
  void Line(std::string_view text, const PrintFont& font) override {
    desk_.Note("print-line", {std::string(text), font.name, std::to_string(font.points)});
  }

 private:
  Desk& desk_;
};

}  // namespace

bool DeskPrinter::HasFont(std::string_view name) {
  if (!present_) return false;
  return EqualNoCase(name, "Courier New") ? hasCourierNew_ : EqualNoCase(name, "Times New Roman");
}

std::unique_ptr<PrintJob> DeskPrinter::Start(std::string_view title) {
  if (!present_) return nullptr;
  desk_.Note("print", {std::string(title)});
  return std::make_unique<DeskPrintJob>(desk_);
}

void DeskPrinter::Set(bool present, bool hasCourierNew) {
  present_ = present;
  hasCourierNew_ = hasCourierNew;
}

}  // namespace corvel::desk
