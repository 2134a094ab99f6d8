#include "core/helpers.h"

#include "base/error.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/settings_mail.h"

#include <cstdint>

namespace corvel {

namespace {

// The tick count wraps after 49 days, so what counts is the difference.
bool HasPassed(std::uint32_t now, std::uint32_t target) {
  return static_cast<std::int32_t>(now - target) >= 0;
}

constexpr std::uint32_t kHelpWindowMs = 10'000;

// The help viewer is another program: its window comes some time after it was asked for.
void RaiseHelpWindow(Program& program) {
  const std::uint32_t until = program.platform.clock.TickCount() + kHelpWindowMs;
  while (!program.g.Unloading && !HasPassed(program.platform.clock.TickCount(), until)) {
    if (const Window help = program.platform.windows.Find("MS_WINHELP", std::nullopt)) {
      program.platform.windows.BringToTop(help);
      return;
    }
    program.platform.events.Pump({"ShowHelp", WaitFor::kTime, until});
  }
}

int ScreenTwips(Program& program, int Size::*side) {
  return program.platform.display.ScreenSize().*side * program.platform.display.TwipsPerPixel();
}

// A path without its last backslash, but for a drive's root.
std::string_view WithoutLastSlash(std::string_view path) {
  if (path.size() > 3 && path.back() == '\\') path.remove_suffix(1);
  return path;
}

}  // namespace

void Pause(Program& program, double seconds) {
  const std::uint32_t target =
      program.platform.clock.TickCount() + static_cast<std::uint32_t>(seconds * 1000);
  do {
    program.platform.events.Pump({"Pause", WaitFor::kTime, target});
  } while (!HasPassed(program.platform.clock.TickCount(), target));
}

bool FileExists(Program& program, std::string_view pathOrPattern) {
  return program.platform.files.Exists(pathOrPattern);
}

bool DirExists(Program& program, std::string_view path) {
  return !path.empty() && program.platform.files.IsFolder(WithoutLastSlash(path));
}

void MakeDirIfMissing(Program& program, std::string_view path) {
  if (!DirExists(program, path)) program.platform.files.MakeFolder(WithoutLastSlash(path));
}

std::string ReadWholeFile(Program& program, std::string_view path) {
  return program.platform.files.Read(path);
}

void WriteWholeFile(Program& program, std::string_view path, std::string_view text) {
  program.platform.files.Write(path, text);
}

void RecycleFile(Program& program, Window owner, std::string_view path) {
  if (!program.platform.shell.Recycle(owner, path))
    throw RunTimeError(FileExists(program, path) ? err::kPathFileAccess : err::kFileNotFound);
}

std::string GetWinDir(Program& program) { return program.platform.system.WindowsFolder(); }
std::string GetSysDir(Program& program) { return program.platform.system.SystemFolder(); }

void RePosForm(Program& program, forms::Form& form, int mode) {
  // 64 bits: a stored coordinate can be any number.
  if (mode == 0) {
    const int screen = ScreenTwips(program, &Size::height);
    if (std::int64_t{form.Top()} + form.Height() > screen) form.SetTop(screen - form.Height());
    if (form.Top() < 0) form.SetTop(0);
    return;
  }
  const int screen = ScreenTwips(program, &Size::width);
  if (form.Left() < 0) form.SetLeft(0);
  if (std::int64_t{form.Left()} + form.Width() > screen) form.SetLeft(screen - form.Width());
}

void CenterForm(forms::Form& form) { form.Center(); }

void RestorePlace(Program& program, forms::Form& form, PlaceSetting& place) {
  if (!place.Top.IsStored()) {
    form.Center();
    return;
  }
  form.MoveTo(place.Left.Read(), place.Top.Read());
  RePosForm(program, form, 0);
  RePosForm(program, form, 1);
}

void SavePlace(const forms::Form& form, PlaceSetting& place) {
  place.Top.Set(form.Top());
  place.Left.Set(form.Left());
}

void ClickWindow(Program& program, Window window) {
  program.platform.windows.Post(window, wm::kLButtonDown, 0, 0);
  program.platform.windows.Post(window, wm::kLButtonUp, 0, 0);
}

void OpenWithShell(Program& program, const forms::Form* form, std::string_view target) {
  program.platform.shell.Open(form ? form->Handle() : Window{}, target);
}

void ShowHelp(Program& program, std::string_view topic) {
  const std::string file = program.InFolder("corvel32.hlp");
  if (!FileExists(program, file)) {
    MsgBoxEx(program,
             "The file ~B~CRcorvel32.hlp~B~CN is missing from your ~B~CB" + program.Folder() +
                 "~B~CN directory.~N ~NPlease reinstallCorvel 32 to replace this file.",
             style::kOk + style::kExclamation);
    return;
  }
  if (program.platform.shell.Help(file, topic)) RaiseHelpWindow(program);
}

std::string BuildDate(Program& program) {
  const DateStyle style = program.settings.EMail.DateFormat;
  Clock& clock = program.platform.clock;
  if (style == DateStyle::kLong) return clock.DateText(clock.Now(), DateForm::kLong);
  if (style == DateStyle::kShort) return clock.DateText(clock.Now(), DateForm::kShort);
  return {};
}

std::string BuildTime(Program& program) {
  Clock& clock = program.platform.clock;
  std::string time = clock.TimeText(clock.Now());
  if (program.settings.EMail.IncludeTimeZone) time += " " + CutAtNul(clock.TimeZoneName());
  return time;
}

std::string CMinSec(int milliseconds) {
  const int minutes = milliseconds / 60'000, seconds = milliseconds / 1000 % 60,
            hundredths = milliseconds % 1000 / 10;
  return TwoDigits(minutes) + ":" + TwoDigits(seconds) + "." + TwoDigits(hundredths);
}

void EndProgram() { throw ProcessExit{}; }

}  // namespace corvel
