// The desk as a home of the conformance suite.
#include "tests/platform/desk_home.h"

namespace corvel::test {

std::unique_ptr<Home> MakeHome() { return std::make_unique<DeskHome>(); }

DeskHome::DeskHome() {
  for (const char* path : {kProgram, kOther, kShortLived})
    desk.Install(path,
                 [path](desk::Desk&) { return std::make_unique<IdleBody>(path == kShortLived); });
  program = desk.Spawn(kProgram, CommandLine());
  otherId = desk.Spawn(kOther, "");
  desk.RunDue();
  other_ = std::make_unique<DeskOther>(desk, otherId);
  user_ = std::make_unique<DeskUser>(desk, *this);
  desk.services().answers.stopSound = [this] { desk.platform().sound.Stop(); };
}

bool DeskHome::IsSeenByAnotherInstance() {
  const ProcessId second = desk.Spawn(kProgram, "");
  bool seen = false;
  desk.RunAs(second, [&] { seen = desk.platform().processes.PreviousInstance(); });
  desk.Kill(second);
  return seen;
}

Log DeskHome::Printed() {
  Log lines;
  for (const auto& entry : desk.journal().Entries())
    if (entry.kind == "print-line") lines.push_back(entry.words[0]);
  return lines;
}

// On the desk for one answer only: a wait with nobody there is a fault.
void DeskUser::WillAnswer(Answer answer) {
  answer_ = std::move(answer);
  desk_.SetAgent(this);
}

bool DeskUser::Act() {
  if (!answer_ || desk_.Prompts().empty()) return false;
  desk_.SetAgent(nullptr);
  const Answer answer = *std::exchange(answer_, std::nullopt);
  if (answer.before) answer.before();
  desk::Prompt& prompt = *desk_.Prompts().back();
  prompt.button = answer.button;
  if (answer.button == 1) {
    prompt.path = answer.path;
    prompt.color = answer.color;
  }
  if (answer.row >= 0) prompt.row = desk_.platform().menus.IdAt(prompt.menu, answer.row);
  return prompt.answered = true;
}

bool DeskOther::StartSound(const std::string& path) {
  bool started = false;
  desk_.RunAs(id_, [&] {
    started = desk_.platform().sound.Play(path, sound_flag::kAsync | sound_flag::kNoStop);
  });
  return started;
}

Window DeskOther::Make(const std::string& name, const NewWindow& window) {
  Window made{};
  making_ = name;
  desk_.RunAs(id_, [&] { made = desk_.platform().ownWindows.Create(window, *this); });
  names_[made] = name;
  return made;
}

void DeskOther::Destroy(Window window) {
  desk_.RunAs(id_, [&] { desk_.platform().ownWindows.Destroy(window); });
}

Window DeskOther::ShowDialog(Window owner, const std::string& caption, const std::string& text) {
  Window dialog{};
  desk_.RunAs(id_, [&] { dialog = desk_.platform().ownWindows.ShowDialog(owner, caption, text); });
  return dialog;
}

void DeskOther::MakeMenu(Window window, const std::vector<std::string>& rows) {
  desk_.RunAs(id_, [&] {
    Menus& menus = desk_.platform().menus;
    const MenuHandle bar = desk_.platform().ownWindows.CreateMenuBar();
    std::map<std::string, MenuHandle> popups;
    for (const std::string& row : rows) {
      const std::size_t slash = row.find('/');
      MenuHandle menu = bar;
      if (slash != std::string::npos) {
        MenuHandle& popup = popups[row.substr(0, slash)];
        if (!popup) {
          popup = menus.CreatePopup();
          menus.Insert(bar, -1, menu_flag::kByPosition | menu_flag::kPopup, 0, popup,
                       row.substr(0, slash));
        }
        menu = popup;
      }
      const std::string rest = slash == std::string::npos ? row : row.substr(slash + 1);
      const std::size_t equals = rest.find('=');
      if (rest == "-")
        menus.Insert(menu, -1, menu_flag::kByPosition | menu_flag::kSeparator, 0, {}, "");
      else
        menus.Insert(menu, -1, menu_flag::kByPosition,
                     static_cast<std::uint32_t>(std::stoul(rest.substr(equals + 1))), {},
                     rest.substr(0, equals));
    }
    desk_.platform().ownWindows.SetMenuBar(window, bar);
  });
}

std::vector<std::string> DeskOther::TakeLog() {
  std::vector<std::string> taken;
  taken.swap(log_);
  return taken;
}

MessageResult DeskOther::OnMessage(Window window, const Message& message) {
  const auto name = names_.find(window);
  if (recorded_.count(message.id))
    log_.push_back(LogLine(name == names_.end() ? making_ : name->second, message));
  if (onMessage) onMessage(window, message);
  if (const auto answer = answers_.find(message.id); answer != answers_.end())
    return answer->second;
  return desk_.platform().ownWindows.Default(window, message);
}

}  // namespace corvel::test
