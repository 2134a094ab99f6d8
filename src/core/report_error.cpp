#include "core/report_error.h"

#include "core/frmReport.h"
#include "core/main.h"

#include <optional>

namespace corvel {

ErrorAnswer ReportError(Program& program, const ErrorPlace& place, const RunTimeError& error,
                        bool canRetry) {
  return Ask<frmReport>(program, nullptr, place, error, canRetry);
}

void ReportUnhandled(Program& program, const char* form, const char* procedure,
                     const RunTimeError& error) {
  if (ReportError(program, {form, procedure, 0}, error, false) == ErrorAnswer::kStop)
    StopProgram(program);
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
