// The one rule for run-time errors, in two forms.
//
// Reported: a procedure that has a handler. A RunTimeError in its body is shown to the user, who
// stops the program, retries, or goes on behind the body; so a body should be one step that can be
// run again. OnError goes first: it may know the error and deal with it.
//
// GoOn: a statement of a procedure that must not fail: a RunTimeError is dropped, the next
// statement runs. Other exceptions are faults of ours and always go through.
#pragma once

#include "base/error.h"
#include "core/program.h"

#include <functional>
#include <string>

namespace corvel {

enum class ErrorAnswer { kStop = 3, kRetry = 4, kGoOn = 5 };

// Where an error was met. The line is that on which this is made, so make it where the step stands;
// 0 if nobody knows it. Names must outlive the report.
struct ErrorPlace {
  ErrorPlace(const char* moduleName, const char* procedureName, int atLine = __builtin_LINE())
      : module(moduleName), procedure(procedureName), line(atLine) {}

  const char* module;
  const char* procedure;
  int line;
};

// Shows the report and waits for the answer. `canRetry` offers to run the step again.
ErrorAnswer ReportError(Program& program, const ErrorPlace& place, const RunTimeError& error,
                        bool canRetry = true);
// An error that has left the event procedure `procedure` of `form`. It isn't run again: what it has
// done before the error would be done twice (a line sent, a row written), and whoever wants that
// clicks once more.
void ReportUnhandled(Program& program, const char* form, const char* procedure,
                     const RunTimeError& error);

// Runs `body`; on an error reports it and does what the user answers: stop (UnloadAllForms, end),
// retry, go on (true: the body ran through; false: it was given up).
bool Reported(Program& program, const ErrorPlace& place, const std::function<void()>& body);
// The same, but `onError` first gets the error and answers whether it has dealt with it.
bool Reported(Program& program, const ErrorPlace& place, const std::function<void()>& body,
              const std::function<bool(const RunTimeError&)>& onError);

template <typename Statement>
void GoOn(Statement&& statement) {
  try {
    statement();
  } catch (const RunTimeError&) {  // the next statement runs
  }
}

}  // namespace corvel
