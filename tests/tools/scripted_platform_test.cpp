// The platform that a scenario makes for the program on Windows, put in front of the desk: the same
// scenarios hold, with the dialogs, menus, tray and printer of the script instead of the desk's.
#include "tools/scripted_platform.h"

#include "platform/desk/desk_services.h"
#include "tools/desk/desk_stage.h"
#include "tools/scenario_player.h"

#include <gtest/gtest.h>

namespace corvel::tools {
namespace {

class ScriptedStage : public DeskStage {
 public:
  ScriptedStage() : DeskStage(1) {
    script_.note = [this](std::string_view kind, const std::vector<std::string>& words) {
      noted.push_back(std::string(kind));
      // The others come from the desk as well.
      if (kind == "opened" || kind == "help") Note(kind, words);
    };
    script_.timeZone = "Eastern Standard Time";
    // The desk itself would refuse all of this.
    DeskStage::SetWindowsPlatform(2);
    DeskStage::SetTaskbar(false);
    desk().services().SetPrinter(false, false);
    InstallProgram(platform_.platform());
  }
  ~ScriptedStage() override { EndAll(); }
  void SetWindowsPlatform(int platform) override { script_.windowsPlatform = platform; }
  void SetTaskbar(bool present) override { script_.taskbar = present; }
  void NextDraws(const std::vector<double>& draws) override {
    script_.draws.assign(draws.begin(), draws.end());
  }
  void FailFile(int call, int errorNumber, const std::string& part) override {
    script_.faults.FailCall(call, errorNumber, part);
  }
  void SetFreeSpace(std::int64_t bytes) override { script_.faults.SetFreeSpace(bytes); }
  void SetDrive(char letter, DriveKind kind, bool hasDisk) override {
    AddDrive(desk().platform().files, script_.drives, letter, {kind, hasDisk});
  }
  desk::WebTable& web() override { return script_.web; }
  Deed Start(const std::string& commandLine) override {
    script_.commandLine = commandLine;
    script_.previousInstance = ProgramRuns();
    return DeskStage::Start(commandLine);
  }
  std::vector<std::shared_ptr<desk::Prompt>>& Prompts() override { return script_.prompts; }
  int HookCount() override { return static_cast<int>(script_.hooks.size()); }
  bool HasTrayIcon() override { return script_.trayIcon.has_value(); }
  bool TrayMouse(LParam mouseMessage) override {
    return script_.trayIcon &&
           desk().platform().windows.Post(script_.trayIcon->owner, script_.trayIcon->message, 0,
                                          mouseMessage);
  }

  std::vector<std::string> noted;

 private:
  Script script_;
  ScriptedPlatform platform_{desk().platform(), desk().platform().clientLibrary, script_};
};

bool Has(const std::vector<std::string>& list, const char* word) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

TEST(ScriptedPlatform, PlaysTheSameScenarios) {
  const std::pair<const char*, const char*> kFiles[] = {{"demo.scn", "sound"},
                                                        {"send_random_styles.scn", "hook"},
                                                        {"send_room.scn", "hook"},
                                                        {"start_change_client.scn", nullptr},
                                                        {"start_on_nt.scn", nullptr},
                                                        {"start_other_command_line.scn", nullptr},
                                                        {"start_second_instance.scn", "hook"},
                                                        {"access_tray.scn", "unhook"},
                                                        {"wav_printing.scn", "print-line"},
                                                        {"desc_failures.scn", nullptr},
                                                        {"wav_favwavs_write_fails.scn", nullptr},
                                                        {"wav_path_save_fails.scn", nullptr},
                                                        {"wav_printing_write_fails.scn", nullptr},
                                                        {"wav_send_to_disk_full.scn", nullptr}};
  for (const auto& [file, effect] : kFiles) {
    ScriptedStage stage;
    const auto verdict =
        PlayScenarioFile(stage, std::string(CORVEL_SOURCE_DIR) + "/tests/scenarios/" + file, {});
    EXPECT_EQ(verdict.exitCode, kHeld) << file;
    for (const std::string& message : verdict.messages) ADD_FAILURE() << message;
    if (effect) EXPECT_TRUE(Has(stage.noted, effect)) << file;
  }
}

}  // namespace
}  // namespace corvel::tools
