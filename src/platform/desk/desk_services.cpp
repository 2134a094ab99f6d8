// The desk's services put together, with the small ones: chance, the machine, the client's library.
#include "platform/desk/desk_services.h"

#include "base/text.h"
#include "platform/desk/desk_dialogs.h"
#include "platform/desk/desk_display.h"
#include "platform/desk/desk_media.h"
#include "platform/desk/desk_shell.h"
#include "platform/desk/desk_sound.h"
#include "platform/desk/desk_web.h"
#include "platform/desk/desk_windows.h"

namespace corvel::desk {
namespace {

// A generator of our own: the same draws from the same seed on every machine.
class DeskRandom : public Random {
 public:
  explicit DeskRandom(Desk& desk) : desk_(desk) {}

  void Reseed() override { state_ += static_cast<std::uint64_t>(desk_.NowMs()) * 2 + 1; }

  double Draw() override {
    if (!next_.empty()) {
      const double draw = next_.front();
      next_.pop_front();
      return draw;
    }
    std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;  // SplitMix64
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9u;
    z = (z ^ z >> 27) * 0x94D049BB133111EBu;
    return static_cast<double>((z ^ z >> 31) >> 11) * 0x1p-53;
  }

  void SetSeed(std::uint64_t seed) { state_ = seed; }
  void Next(const std::vector<double>& draws) {
    next_.insert(next_.end(), draws.begin(), draws.end());
  }

 private:
  Desk& desk_;
  std::uint64_t state_ = 1;
  std::deque<double> next_;
};

class DeskSystemInfo : public SystemInfo {
 public:
  explicit DeskSystemInfo(Desk& desk) : desk_(desk) {}
  int WindowsPlatform() override { return platform_; }
  std::string CommandLine() override { return desk_.CommandLineOf(desk_.Current()); }
  std::string ProgramFolder() override { return FolderOf(desk_.PathOf(desk_.Current())); }
  std::string WindowsFolder() override { return "C:\\WINDOWS"; }
  std::string SystemFolder() override { return "C:\\WINDOWS\\SYSTEM"; }

  void SetPlatform(int platform) { platform_ = platform; }

 private:
  Desk& desk_;
  int platform_ = 1;
};

class DeskClientLibrary : public ClientLibrary {
 public:
  explicit DeskClientLibrary(const DeskServices::ClientAnswers& answers) : answers_(answers) {}

  std::string GetVersion(std::string_view clientFolder) override {
    constexpr std::size_t kRoom = 3;
    return answers_.version ? answers_.version(clientFolder).substr(0, kRoom) : "";
  }
  int IsOnline() override { return answers_.isOnline ? answers_.isOnline() : 0; }
  std::vector<std::string> GetScreenNames(std::string_view folder) override {
    constexpr std::size_t kNames = 6;
    auto names = answers_.screenNames ? answers_.screenNames(folder) : std::vector<std::string>{};
    names.resize(kNames);
    return names;
  }

 private:
  const DeskServices::ClientAnswers& answers_;
};

}  // namespace

struct DeskServices::Impl {
  Impl(Desk& ownDesk, const ClientAnswers& answers)
      : desk(ownDesk),
        sound(ownDesk),
        shell(ownDesk),
        printer(ownDesk),
        dialogs(ownDesk),
        random(ownDesk),
        system(ownDesk),
        clientLibrary(answers),
        media(ownDesk),
        web(ownDesk) {}

  Desk& desk;
  DeskSound sound;
  DeskShell shell;
  DeskPrinter printer;
  DeskDialogs dialogs;
  DeskDisplay display;
  DeskRandom random;
  DeskSystemInfo system;
  DeskClientLibrary clientLibrary;
  DeskMedia media;
  DeskWeb web;
};

DeskServices::DeskServices(Desk& desk) : impl_(std::make_unique<Impl>(desk, answers)) {}
DeskServices::~DeskServices() = default;

Sound& DeskServices::sound() { return impl_->sound; }
Shell& DeskServices::shell() { return impl_->shell; }
Printer& DeskServices::printer() { return impl_->printer; }
CommonDialogs& DeskServices::dialogs() { return impl_->dialogs; }
Display& DeskServices::display() { return impl_->display; }
Random& DeskServices::random() { return impl_->random; }
SystemInfo& DeskServices::system() { return impl_->system; }
ClientLibrary& DeskServices::clientLibrary() { return impl_->clientLibrary; }
MediaControl& DeskServices::media() { return impl_->media; }
Web& DeskServices::web() { return impl_->web; }

void DeskServices::SetWindowsPlatform(int platform) { impl_->system.SetPlatform(platform); }
void DeskServices::SetDisplay(int bitsPerPixel, int width, int height) {
  impl_->display.Set(bitsPerPixel, {width, height});
}
void DeskServices::SetTaskbar(bool present) { impl_->shell.SetTaskbar(present); }
void DeskServices::SetSeed(std::uint64_t seed) { impl_->random.SetSeed(seed); }
void DeskServices::NextDraws(std::vector<double> draws) { impl_->random.Next(draws); }
void DeskServices::SetPrinter(bool present, bool hasCourierNew) {
  impl_->printer.Set(present, hasCourierNew);
}

bool DeskServices::IsPlaying() const { return !Playing().empty(); }
std::string DeskServices::Playing() const { return impl_->sound.Playing(); }

std::vector<std::string> DeskServices::TrayIcons() const {
  std::vector<std::string> tips;
  for (const auto& icon : impl_->shell.TrayIcons()) tips.push_back(icon.tip);
  return tips;
}

std::vector<std::string> DeskServices::TrayIconsOf(ProcessId process) const {
  std::vector<std::string> tips;
  for (const auto& icon : impl_->shell.TrayIcons())
    if (icon.process == process) tips.push_back(icon.tip);
  return tips;
}

ProcessId DeskServices::TrayOwner() const {
  const auto& icons = impl_->shell.PassOverTray();
  return icons.empty() ? 0 : icons.front().process;
}

std::optional<TrayPicture> DeskServices::ShownInTray() const {
  const auto& icons = impl_->shell.TrayIcons();
  return icons.empty() ? std::nullopt : std::optional(icons.front().picture);
}

std::vector<std::string> DeskServices::MediaOpenBy(ProcessId process) const {
  return impl_->media.OpenBy(process);
}

WebTable& DeskServices::webTable() { return impl_->web.table(); }

bool DeskServices::TrayMouse(LParam mouseMessage) {
  const auto& icons = impl_->shell.PassOverTray();
  return !icons.empty() &&
         impl_->desk.windows().Post(icons.front().owner, icons.front().message, 0, mouseMessage);
}

void DeskServices::ProcessEnded(ProcessId process) {
  impl_->sound.ProcessEnded(process);
  impl_->shell.ProcessEnded(process);
  impl_->media.ProcessEnded(process);
}

}  // namespace corvel::desk
