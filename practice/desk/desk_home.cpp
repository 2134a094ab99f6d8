#include "practice/desk/desk_home.h"

#include "platform/desk/desk_services.h"

#include <algorithm>
#include <map>

namespace corvel::practice {
namespace {

class DeskMemory : public OwnMemory {
 public:
  DeskMemory(desk::Desk& desk, ProcessId process) : desk_(desk), process_(process) {}
  std::uint32_t Allocate(std::string_view bytes) override {
    return desk_.Allocate(process_, bytes);
  }
  void Write(std::uint32_t address, std::string_view bytes) override {
    desk_.Poke(process_, address, bytes);
  }
  void Free(std::uint32_t address) override {
    // The memory of a process that was ended from outside has gone with it.
    if (desk_.IsRunning(process_)) desk_.Free(process_, address);
  }

 private:
  desk::Desk& desk_;
  ProcessId process_;
};

class WaolBody;

// The client as installed on one desk: kept by the programs that stand on it.
struct Home {
  Setup setup;
  std::vector<WaolBody*> running;  // oldest first
};

// waol.exe: the client, or the messenger that hands a target to the one that runs.
class WaolBody : public desk::ProcessBody {
 public:
  WaolBody(desk::Desk& desk, std::shared_ptr<Home> home) : desk_(desk), home_(std::move(home)) {}
  ~WaolBody() override { std::erase(home_->running, this); }

  void Start(const std::string& commandLine) override {
    process_ = desk_.Current();
    if (WaolBody* other = Running(*home_, desk_)) {
      other->TakeLater(TargetOf(commandLine));
      finished_ = true;
      return;
    }
    memory_.emplace(desk_, process_);
    client_.emplace(desk_.platform(), *memory_, home_->setup,
                    [this](std::string_view kind, std::vector<std::string> words) {
                      desk_.Note(kind, std::move(words));
                    });
    home_->running.push_back(this);
    client_->Start();
    TakeLater(TargetOf(commandLine));
  }

  bool Finished() override { return finished_ || (client_ && client_->Finished()); }
  PracticeClient* client() { return client_ ? &*client_ : nullptr; }

  static WaolBody* Running(const Home& home, const desk::Desk& desk) {
    for (WaolBody* body : home.running)
      if (!body->Finished() && desk.IsRunning(body->process_)) return body;
    return nullptr;
  }

 private:
  static std::string TargetOf(const std::string& commandLine) {
    constexpr std::string_view kSwitch = "-s";
    return commandLine.starts_with(kSwitch) ? commandLine.substr(kSwitch.size()) : "";
  }
  void TakeLater(const std::string& target) {
    if (!target.empty())
      desk_.PostTask(process_, [this, target] { client_->TakeCommandLine(target); });
  }

  desk::Desk& desk_;
  std::shared_ptr<Home> home_;
  ProcessId process_ = 0;
  std::optional<DeskMemory> memory_;
  std::optional<PracticeClient> client_;
  bool finished_ = false;
};

// aol.exe starts the client and ends.
class AolBody : public desk::ProcessBody {
 public:
  AolBody(desk::Desk& desk, std::shared_ptr<Home> home) : desk_(desk), home_(std::move(home)) {}
  void Start(const std::string&) override {
    desk_.Spawn(home_->setup.folder + "\\waol.exe", "");
    finished_ = true;
  }
  bool Finished() override { return finished_; }

 private:
  desk::Desk& desk_;
  std::shared_ptr<Home> home_;
  bool finished_ = false;
};

// Which home stands on which desk. A desk that has gone took its home with it.
std::map<const desk::Desk*, std::weak_ptr<Home>>& Homes() {
  static std::map<const desk::Desk*, std::weak_ptr<Home>> homes;
  return homes;
}

std::shared_ptr<Home> HomeOf(desk::Desk& desk) {
  const auto at = Homes().find(&desk);
  return at == Homes().end() ? nullptr : at->second.lock();
}

std::vector<std::string> LibraryNames(const std::weak_ptr<Home>& weak, desk::Desk& desk) {
  const auto home = weak.lock();
  WaolBody* body = home ? WaolBody::Running(*home, desk) : nullptr;
  return body == nullptr ? std::vector<std::string>(6, std::string(1, '\0'))
                         : body->client()->LibraryScreenNames();
}

// launch32.dll and the proxy reach whichever client runs.
void AnswerForLibrary(desk::Desk& desk, const std::weak_ptr<Home>& weak) {
  auto& answers = desk.services().answers;
  answers.version = [weak](std::string_view) {
    const auto home = weak.lock();
    return home ? home->setup.version.substr(0, 3) : "";
  };
  answers.isOnline = [&desk] {
    const PracticeClient* client = RunningOnDesk(desk);
    return client == nullptr ? 0 : client->LibraryIsOnline();
  };
  answers.screenNames = [weak, &desk](std::string_view) { return LibraryNames(weak, desk); };
  answers.stopSound = [&desk] {
    if (PracticeClient* client = RunningOnDesk(desk)) client->StopSound();
  };
}

void LayFiles(desk::Desk& desk, const Setup& setup) {
  desk::DeskFiles& files = desk.files();
  files.Put(setup.folder + "\\iwengx32.dll", "MZ");
  files.Put(setup.folder + "\\idb\\main.idx", AccountIndex(setup.screenNames));
}

}  // namespace

void InstallOnDesk(desk::Desk& desk, const Setup& setup) {
  const auto home = std::make_shared<Home>(Home{setup, {}});
  std::erase_if(Homes(), [](const auto& entry) { return entry.second.expired(); });
  Homes()[&desk] = home;
  LayFiles(desk, setup);
  desk.Install(setup.folder + "\\waol.exe",
               [home](desk::Desk& on) { return std::make_unique<WaolBody>(on, home); });
  desk.Install(setup.folder + "\\aol.exe",
               [home](desk::Desk& on) { return std::make_unique<AolBody>(on, home); });
  AnswerForLibrary(desk, home);
}

void ChangeSetup(desk::Desk& desk, const Setup& setup) {
  const auto home = HomeOf(desk);
  if (!home || home->setup.folder != setup.folder) return InstallOnDesk(desk, setup);
  home->setup = setup;
  LayFiles(desk, setup);
}

ProcessId StartOnDesk(desk::Desk& desk) {
  const auto home = HomeOf(desk);
  return home ? desk.Spawn(home->setup.folder + "\\waol.exe", "") : 0;
}

PracticeClient* RunningOnDesk(desk::Desk& desk) {
  const auto home = HomeOf(desk);
  WaolBody* body = home ? WaolBody::Running(*home, desk) : nullptr;
  return body == nullptr ? nullptr : body->client();
}

}  // namespace corvel::practice
