#include "app/corvel_process.h"

#include "base/error.h"
#include "core/helpers.h"
#include "core/main.h"
#include "core/report_error.h"

namespace corvel {

namespace {

// An error that no procedure has dealt with is reported like any other, under the name of the event
// procedure that it has left. That can't be run again from here: retrying goes on, too.
void ReportUnhandled(Program& program, const RunTimeError& error, const char* form,
                     const char* procedure) {
  if (ReportError(program, {form, procedure}, error) == ErrorAnswer::kStop) StopProgram(program);
}

// Long fades let what is due happen on their way.
void YieldToEvents(Platform& platform) {
  platform.events.Pump({"FadeEngine", WaitFor::kTime, platform.clock.TickCount()});
}

}  // namespace

CorvelProcess::CorvelProcess(Platform& platform)
    : program_(platform),
      client_(program_),
      fader_(program_.settings.Fader, [&platform] { YieldToEvents(platform); }),
      faderSwitch_(program_),
      wavLibrary_(program_, client_, fader_),
      shell_(program_, client_) {
  program_.forms.onUnhandledError = [this](const RunTimeError& error, const char* form,
                                           const char* procedure) {
    ReportUnhandled(program_, error, form, procedure);
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
