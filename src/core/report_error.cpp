#include "core/report_error.h"

#include "core/dialogs.h"
#include "core/frmReport.h"
#include "core/helpers.h"
#include "core/main.h"

namespace corvel {

ErrorAnswer ReportError(Program& program, const ErrorPlace& place, const RunTimeError& error) {
  // Behind the way down there is nobody to ask: what still unwinds goes on to its end.
  if (program.g.Unloading) return ErrorAnswer::kGoOn;
  const auto form = program.forms.LoadNew<frmReport>(program, place, error);
  form->Show();
  while (!form->Answer() && form->IsLoaded())
    program.platform.events.Pump({"ReportError", WaitFor::kUser});
  form->Unload();
  return form->Answer().value_or(ErrorAnswer::kGoOn);
}

bool Reported(Program& program, const ErrorPlace& place, const std::function<void()>& body) {
  return Reported(program, place, body, [](const RunTimeError&) { return false; });
}

bool Reported(Program& program, const ErrorPlace& place, const std::function<void()>& body,
              const std::function<bool(const RunTimeError&)>& onError) {
  for (;;) {
    // The report waits, with events going on, so it must not stand inside the catch clause.
    std::optional<RunTimeError> failed;
    try {
      body();
      return true;
    } catch (const RunTimeError& error) {
      failed = error;
    }
    if (onError(*failed)) return false;
    switch (ReportError(program, place, *failed)) {
      case ErrorAnswer::kRetry:
        continue;
      case ErrorAnswer::kStop:
        StopProgram(program);
      case ErrorAnswer::kGoOn:
        return false;
    }
  }
}

}  // namespace corvel
