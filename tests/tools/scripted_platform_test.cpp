// The platform that a scenario makes for the program on Windows, put in front of the desk: the same
// scenarios hold, with the dialogs, menus, tray and printer of the script instead of the desk's.
#include "tools/scripted_platform.h"

#include "base/error.h"
#include "platform/desk/desk_services.h"
#include "tools/desk/desk_stage.h"
#include "tools/scenario_player.h"

#include <algorithm>
#include <functional>
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

// What such a platform does with the drives, the web and the tray of its script.
class ScriptedParts : public ::testing::Test {
 protected:
  ScriptedParts() {
    script.note = [](std::string_view, const std::vector<std::string>&) {};
    desk.files().PutFolder("C:\\Corvel");
  }
  int ErrorOf(const std::function<void()>& call) {
    try {
      call();
      return 0;
    } catch (const RunTimeError& error) {
      return error.Number();
    }
  }
  desk::Desk desk;
  Script script;
  ScriptedPlatform scripted{desk.platform(), desk.platform().clientLibrary, script};
  Files& files = scripted.platform().files;
};

TEST_F(ScriptedParts, DrivesAreThoseOfTheScript) {
  EXPECT_EQ(files.Drives(), (std::vector<std::string>{"a:", "c:"}));
  EXPECT_EQ(files.DriveKindOf("A:\\"), DriveKind::kFloppy);
  EXPECT_EQ(files.DriveState("a:"), 68);
  EXPECT_EQ(ErrorOf([&] { files.Write("A:\\x", "x"); }), 71);
  EXPECT_EQ(ErrorOf([&] { files.Copy("C:\\Corvel", "D:\\x"); }), 68);
  for (const char letter : {'A', 'R'})
    AddDrive(desk.platform().files, script.drives, letter, {DriveKind::kRemovable, true});
  files.Write("A:\\x.dat", "on a");
  files.MakeFolder("r:\\sub");
  files.Copy("A:\\x.dat", "R:\\sub\\X.dat");
  EXPECT_EQ(files.Read("r:\\SUB\\x.dat"), "on a");
  EXPECT_EQ(files.Search("R:\\*").size(), 1u);
  EXPECT_EQ(files.ShortPath("r:\\sub\\x.dat"), "R:\\SUB\\X.DAT");
  EXPECT_EQ(ErrorOf([&] { files.Rename("R:\\sub", "C:\\Corvel\\sub"); }), 75);
  EXPECT_EQ(ErrorOf([&] { files.Rename("R:\\sub\\x.dat", "C:\\Corvel\\x.dat"); }), 0);
  EXPECT_FALSE(files.Exists("C:\\sub"));
  AddDrive(desk.platform().files, script.drives, 'A', {DriveKind::kFloppy, false});
  EXPECT_FALSE(files.Exists("A:\\x.dat"));
}

TEST_F(ScriptedParts, TheWebAndTheTrayAreTheScripts) {
  script.web.Set("/ver", {.text = "9.1.0"});
  const auto request = scripted.platform().web.Begin("agent", "http://server/ver");
  desk.RunFor(199);
  EXPECT_FALSE(request->IsOver());
  desk.RunFor(1);
  EXPECT_EQ(request->Text(), "9.1.0");
  Shell& shell = scripted.platform().shell;
  EXPECT_FALSE(shell.ChangeTrayIcon(Window{7}, TrayPicture::kImsOff));
  EXPECT_TRUE(shell.AddTrayIcon(Window{7}, wm::kUser, "tip"));
  EXPECT_TRUE(shell.ChangeTrayIcon(Window{7}, TrayPicture::kImsOff));
  EXPECT_EQ(script.trayIcon->picture, TrayPicture::kImsOff);
}

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
