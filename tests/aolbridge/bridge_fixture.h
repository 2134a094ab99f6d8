// The bridge beside a practice client on the desk, without the rest of the program.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/helpers.h"
#include "platform/desk/desk.h"
#include "platform/desk/desk_peers.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "practice/desk/desk_home.h"
#include "tools/hand/desk_touch.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvel {

// Presses the default button of whatever box the program shows, and keeps its text.
class BoxPresser : public desk::Agent {
 public:
  explicit BoxPresser(desk::Desk& desk) : desk_(desk) {}
  std::vector<std::string> texts;

  bool Act() override {
    const auto box = desk_.peers().FindForm("frmMsg");
    if (!box || !box->state->visible || box->window == pressed_) return false;
    pressed_ = box->window;
    for (const auto& control : desk_.peers().ControlsOf(box->window)) {
      if (control.state->name == "Picture2") texts.push_back(control.state->text);
      if (control.state->isDefault && control.state->visible) hand_.Click(control.window);
    }
    return true;
  }
  std::optional<std::int64_t> NextActAt() override { return std::nullopt; }

 private:
  desk::Desk& desk_;
  tools::DeskTouch touch_{desk_};
  tools::Hand hand_{touch_};
  Window pressed_{};
};

class Bridge {
 public:
  explicit Bridge(const practice::Setup& setup) : presser(desk) {
    desk.SetAgent(&presser);
    practice::InstallOnDesk(desk, setup);
    clientProcess = practice::StartOnDesk(desk);
    desk.Install("C:\\Corvel\\corvel32.exe", [this](desk::Desk& d) {
      auto body = std::make_unique<Body>(d.platform());
      body_ = body.get();
      return body;
    });
    process_ = desk.Spawn("C:\\Corvel\\corvel32.exe", "");
    desk.RunFor(1000);
    Do([&](AolClient&, Program& p) {
      p.g.hAOL = p.platform.windows.Find("AOL Frame25", std::nullopt);
      p.g.hMDI = p.platform.windows.FindChild(p.g.hAOL, {}, "MDIClient", std::nullopt);
      p.g.AOLPath = setup.folder;
    });
  }

  // Runs as the program, with time passing, until it comes back.
  void Do(const std::function<void(AolClient&, Program&)>& step) {
    const auto task = desk.PostTask(process_, [&] { step(body_->client, body_->program); });
    for (int i = 0; desk.IsPending(task); ++i) {
      ASSERT_LT(i, 1'000'000) << "a wait does not end";
      desk.Round(desk.NowMs() + 1000);
    }
  }
  // Finds out version and country, as start-up does.
  void Identify() {
    Do([](AolClient& client, Program&) {
      client.GetAOLVersion();
      client.LoadAOLStrings();
    });
  }
  // The user in the client; time passes for its windows to come.
  void Client(const std::vector<std::string>& words) {
    std::string error;
    const auto task = desk.PostTask(
        clientProcess, [&] { error = practice::RunningOnDesk(desk)->Do(words).error; });
    while (desk.IsPending(task)) desk.Round(desk.NowMs() + 10);
    ASSERT_EQ(error, "") << words.front();
    desk.RunFor(500);
  }
  std::string Ask(const std::vector<std::string>& words) {
    const auto reply = practice::RunningOnDesk(desk)->Ask(words);
    return reply.answers.empty() ? "(" + reply.error + ")" : reply.answers.front();
  }
  Program& program() { return body_->program; }
  bool IsRunning() { return desk.IsRunning(process_); }

  desk::Desk desk;
  BoxPresser presser;
  ProcessId clientProcess = 0;

 private:
  struct Body : desk::ProcessBody {
    explicit Body(Platform& platform) : program(platform), client(program) {
      client.Join(program.hub);
    }
    void Start(const std::string&) override {}
    bool Finished() override { return false; }
    Program program;
    AolClient client;
  };
  Body* body_ = nullptr;
  ProcessId process_ = 0;
};

}  // namespace corvel
