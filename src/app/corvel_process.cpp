#include "app/corvel_process.h"

#include "base/error.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/report_error.h"
#include "core/settings_fader.h"

namespace corvel {

namespace {

// Long fades let what is due happen on their way.
void YieldToEvents(Platform& platform) {
  platform.events.Pump({"FadeEngine", WaitFor::kTime, platform.clock.TickCount()});
}

}  // namespace

CorvelProcess::CorvelProcess(Platform& platform)
    : program_(platform),
      client_(program_),
      fader_(program_.settings.Fader.Fade, [&platform] { YieldToEvents(platform); }),
      faderSwitch_(program_),
      voice_(program_, client_, fader_),
      wavLibrary_(program_, client_, voice_),
      shell_(program_, client_) {
  program_.forms.onUnhandledError = [this](const RunTimeError& error, const char* form,
                                           const char* procedure) {
    ReportUnhandled(program_, form, procedure, error);
  };
  Hub& hub = program_.hub;
  client_.Join(hub);
  faderSwitch_.Join(hub);
  wavLibrary_.Join(hub);
  shell_.Join(hub);
}

void CorvelProcess::Start() {
  running_ = true;
  try {
    Main(program_);
  } catch (const ProcessExit&) {
    running_ = false;
    program_.forms.UnloadAll();
  }
}

void CorvelProcess::EndSession() {
  UnloadAllForms(program_, false);
  FinishWayDown(program_);
}

bool CorvelProcess::Finished() const {
  return !running_ || (program_.forms.All().empty() && !program_.forms.InEvent());
}

}  // namespace corvel
