// A platform for a scenario; see scripted_platform.h. Each part stands before one of the home's.
#include "tools/scripted_platform.h"

#include "base/error.h"
#include "base/text.h"
#include "tools/scripted_files.h"

#include <algorithm>
#include <utility>

namespace corvel::tools {
namespace {

constexpr std::size_t kLongestPath = 127;  // the caller's buffer of 128 holds a NUL too

template <class Part>
struct Before {
  Before(Part& part, Script& known) : home(part), script(known) {}
  Part& home;
  Script& script;
};

// --- Waits ---------------------------------------------------------------------------------------

struct InProgress {
  InProgress(std::vector<Wait>& list, const Wait& one) : waits(list) { waits.push_back(one); }
  ~InProgress() { waits.pop_back(); }
  std::vector<Wait>& waits;
};

void ThrowIfEnded(const Script& script) {
  if (script.ended) throw ProcessExit{};
}

struct ScriptedEvents : EventLoop, Before<EventLoop> {
  using Before::Before;
  void Pump(const Wait& wait) override {
    ThrowIfEnded(script);
    const InProgress inProgress(script.waits, wait);
    home.Pump(wait);
    ThrowIfEnded(script);
  }
  void StartTimer(Window window, std::uintptr_t id, std::uint32_t milliseconds) override {
    home.StartTimer(window, id, milliseconds);
  }
  void StopTimer(Window window, std::uintptr_t id) override { home.StopTimer(window, id); }
};

struct OpenPrompt {
  OpenPrompt(Script& known, std::shared_ptr<desk::Prompt> shown)
      : script(known), prompt(std::move(shown)) {
    script.prompts.push_back(prompt);
  }
  ~OpenPrompt() { std::erase(script.prompts, prompt); }
  Script& script;
  std::shared_ptr<desk::Prompt> prompt;
};

// Waits until the scenario has answered, or nobody would see the prompt any more.
void Ask(Script& script, EventLoop& events, const std::shared_ptr<desk::Prompt>& prompt,
         const char* waitName, const std::function<bool()>& stands = {}) {
  const OpenPrompt open(script, prompt);
  while (!prompt->answered && (!stands || stands())) events.Pump({waitName, WaitFor::kUser});
}

// --- Menus and dialogs ---------------------------------------------------------------------------

struct ScriptedMenus : Menus, Before<Menus> {
  ScriptedMenus(Platform& home, Script& script, EventLoop& loop)
      : Before(home.menus, script), events(loop), windows(home.windows) {}
  EventLoop& events;
  WindowSystem& windows;

  std::uint32_t TrackPopup(MenuHandle menu, Window owner) override {
    if (home.Count(menu) < 0 || !windows.Exists(owner)) return 0;
    const auto prompt = std::make_shared<desk::Prompt>();
    prompt->kind = desk::Prompt::Kind::kPopup;
    prompt->menu = menu;
    if (script.realMenus) return TrackReal(prompt, owner);
    Ask(script, events, prompt, "the pop-up menu",
        [&] { return home.Count(menu) >= 0 && windows.Exists(owner); });
    return prompt->answered ? prompt->row : 0;
  }
  std::uint32_t TrackReal(const std::shared_ptr<desk::Prompt>& prompt, Window owner) {
    const OpenPrompt open(script, prompt);
    const InProgress inProgress(script.waits, {"the pop-up menu", WaitFor::kUser});
    const std::uint32_t row = home.TrackPopup(prompt->menu, owner);
    ThrowIfEnded(script);
    return row;
  }

  MenuHandle MenuOf(Window window) override { return home.MenuOf(window); }
  int Count(MenuHandle menu) override { return home.Count(menu); }
  MenuHandle SubMenu(MenuHandle menu, int position) override {
    return home.SubMenu(menu, position);
  }
  std::uint32_t IdAt(MenuHandle menu, int position) override { return home.IdAt(menu, position); }
  std::string TextAt(MenuHandle menu, int position) override { return home.TextAt(menu, position); }
  std::uint32_t StateAt(MenuHandle menu, int position) override {
    return home.StateAt(menu, position);
  }
  MenuHandle CreatePopup() override { return home.CreatePopup(); }
  void Destroy(MenuHandle menu) override { home.Destroy(menu); }
  bool Insert(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id, MenuHandle sub,
              std::string_view text) override {
    return home.Insert(menu, at, flags, id, sub, text);
  }
  bool Modify(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
              std::string_view text) override {
    return home.Modify(menu, at, flags, id, text);
  }
  bool Delete(MenuHandle menu, int at, std::uint32_t flags) override {
    return home.Delete(menu, at, flags);
  }
  void DrawBar(Window window) override { home.DrawBar(window); }
};

struct ScriptedDialogs : CommonDialogs {
  ScriptedDialogs(Script& known, EventLoop& loop) : script(known), events(loop) {}
  Script& script;
  EventLoop& events;
  using Kind = desk::Prompt::Kind;

  std::shared_ptr<desk::Prompt> Show(Kind kind, std::string_view text, int style,
                                     const char* waitName) {
    const auto prompt = std::make_shared<desk::Prompt>();
    prompt->kind = kind;
    prompt->text = text;
    prompt->style = style;
    Ask(script, events, prompt, waitName);
    if (prompt->path && prompt->path->size() > kLongestPath) prompt->path.reset();
    return prompt;
  }
  std::optional<std::string> OpenFile(Window, std::string_view description,
                                      std::string_view) override {
    return Show(Kind::kOpenFile, description, 0, "the open dialog")->path;
  }
  std::optional<std::string> SaveFile(Window, std::string_view description, std::string_view,
                                      std::string_view) override {
    return Show(Kind::kSaveFile, description, 0, "the save dialog")->path;
  }
  std::optional<Color> ChooseColor(Window, Color, std::array<Color, 16>&) override {
    return Show(Kind::kColor, "", 0, "the colour dialog")->color;
  }
  int PlainMessage(Window, std::string_view text, std::string_view, int style) override {
    return Show(Kind::kPlainMessage, text, style, "the system's message box")->button;
  }
};

// --- Effects -------------------------------------------------------------------------------------

struct ScriptedSound : Sound, Before<Sound> {
  using Before::Before;
  // A machine without a sound device plays nothing; what counts is what was asked for.
  bool Play(std::string_view path, std::uint32_t flags) override {
    const bool started = home.Play(RealPath(path), flags);
    const bool refused = !started && (flags & sound_flag::kNoStop) != 0;
    if (!refused) script.note("sound", {std::string(path)});
    return started;
  }
  void Stop() override {
    home.Stop();
    script.note("sound-stopped", {});
  }
};

// Nothing is opened, and the tray is the scenario's: no stranger's window comes in between.
struct ScriptedShell : Shell, Before<Shell> {
  ScriptedShell(Platform& home, Script& script, ScriptedFiles& drive)
      : Before(home.shell, script), files(drive) {}
  ScriptedFiles& files;

  bool Open(Window, std::string_view target) override {
    script.note("opened", {std::string(target)});
    return true;
  }
  bool Recycle(Window owner, std::string_view path) override {
    const std::size_t size = files.SizeOf(path);
    const bool gone = home.Recycle(owner, RealPath(path));
    if (gone) script.faults.Changed(size, 0);
    if (gone) script.note("recycled", {std::string(path)});
    return gone;
  }
  bool Help(std::string_view helpFile, std::string_view topic) override {
    if (!files.Exists(helpFile)) return false;
    script.note("help", {std::string(helpFile), std::string(topic)});
    return true;
  }
  bool AddTrayIcon(Window owner, MessageId message, std::string_view) override {
    if (!script.taskbar || script.trayIcon) return false;
    script.trayIcon = Script::TrayIcon{owner, message};
    return true;
  }
  bool ChangeTrayIcon(Window owner, TrayPicture picture) override {
    if (!script.trayIcon || script.trayIcon->owner != owner) return false;
    script.trayIcon->picture = picture;
    return true;
  }
  void RemoveTrayIcon(Window owner) noexcept override {
    if (script.trayIcon && script.trayIcon->owner == owner) script.trayIcon.reset();
  }
};

// No real server is asked.
struct ScriptedWeb : Web {
  ScriptedWeb(Script& known, Clock& ticks) : script(known), clock(ticks) {}
  Script& script;
  Clock& clock;

  struct Request : WebRequest {
    Request(Clock& ticks, desk::WebAnswer given)
        : clock(ticks),
          answer(std::move(given)),
          end(clock.TickCount() + static_cast<std::uint32_t>(answer.afterMs)) {}
    Clock& clock;
    desk::WebAnswer answer;
    std::uint32_t end;
    bool IsOver() override { return static_cast<std::int32_t>(clock.TickCount() - end) >= 0; }
    std::uint32_t Error() override { return IsOver() ? answer.error : 0; }
    std::string Text() override { return IsOver() ? answer.text : ""; }
  };
  std::unique_ptr<WebRequest> Begin(std::string_view, std::string_view address) override {
    script.note("web", {std::string(address)});
    return std::make_unique<Request>(clock, script.web.For(address));
  }
};

struct ScriptedPrinter : Printer {
  explicit ScriptedPrinter(Script& known) : script(known) {}
  Script& script;

  struct Job : PrintJob {
    explicit Job(Script& known) : script(known) {}
    Script& script;
    void Line(std::string_view text, const PrintFont& font) override {
      script.note("print-line", {std::string(text), font.name, std::to_string(font.points)});
    }
  };
  bool HasFont(std::string_view name) override {
    return EqualNoCase(name, "Courier New") || EqualNoCase(name, "Times New Roman");
  }
  std::unique_ptr<PrintJob> Start(std::string_view title) override {
    script.note("print", {std::string(title)});
    return std::make_unique<Job>(script);
  }
};

struct ScriptedHooks : Hooks, Before<Hooks> {
  ScriptedHooks(Platform& home, Script& script)
      : Before(home.hooks, script), windows(home.windows) {}
  WindowSystem& windows;

  HookId Attach(Window window, std::span<const MessageId> messages, HookHandler& handler) override {
    return Noted(home.Attach(window, messages, handler), window);
  }
  void Detach(HookId hook) noexcept override {
    Forget(hook);
    home.Detach(hook);
  }
  bool IsAttached(HookId hook) override { return home.IsAttached(hook); }
  HookId AttachChat(Window room, ChatLineHandler& handler) override {
    return Noted(home.AttachChat(room, handler), room);
  }
  void DetachChat(HookId hook) noexcept override {
    Forget(hook);
    home.DetachChat(hook);
  }

 private:
  HookId Noted(HookId hook, Window window) {
    if (hook == 0) return 0;
    script.hooks[hook] = window;
    script.note("hook", {windows.ClassOf(window)});
    return hook;
  }
  void Forget(HookId hook) noexcept {
    const auto at = script.hooks.find(hook);
    if (at == script.hooks.end()) return;
    script.note("unhook", {windows.ClassOf(at->second)});
    script.hooks.erase(at);
  }
};

// --- The machine ---------------------------------------------------------------------------------

struct ScriptedDisplay : Display, Before<Display> {
  using Before::Before;
  Size ScreenSize() override { return script.screen; }
  int BitsPerPixel() override { return script.bitsPerPixel; }
  int TwipsPerPixel() override { return home.TwipsPerPixel(); }
  Size TextExtent(std::string_view text, const FontStyle& style) override {
    return home.TextExtent(text, style);
  }
};

struct ScriptedProcesses : Processes, Before<Processes> {
  using Before::Before;
  std::optional<std::vector<ProcessEntry>> Snapshot() override { return home.Snapshot(); }
  std::unique_ptr<ProcessMemory> Open(ProcessId id) override { return home.Open(id); }
  std::string ModulePath(ProcessId id, std::string_view module) override {
    return home.ModulePath(id, module);
  }
  bool Run(std::string_view commandLine, int showCommand) override {
    return home.Run(commandLine, showCommand);
  }
  bool PreviousInstance() override { return script.previousInstance; }
};

struct ScriptedSystem : SystemInfo {
  explicit ScriptedSystem(Script& known) : script(known) {}
  Script& script;
  int WindowsPlatform() override { return script.windowsPlatform; }
  std::string CommandLine() override { return script.commandLine; }
  std::string ProgramFolder() override { return "C:\\Corvel"; }
  std::string WindowsFolder() override { return "C:\\WINDOWS"; }
  std::string SystemFolder() override { return "C:\\WINDOWS\\SYSTEM"; }
};

struct ScriptedClock : Clock, Before<Clock> {
  using Before::Before;
  std::uint32_t TickCount() override { return home.TickCount(); }
  CivilTime Now() override {
    return CivilFromMilliseconds(MillisecondsFromCivil(home.Now()) + script.clockAhead);
  }
  std::string TimeZoneName() override { return script.timeZone; }
  std::string DateText(const CivilTime& date, DateForm form) override {
    return form == DateForm::kLong ? LongDate(date) : ShortDate(date);
  }
  std::string TimeText(const CivilTime& time) override { return LongTime(time); }
};

struct ScriptedRandom : Random, Before<Random> {
  using Before::Before;
  void Reseed() override { home.Reseed(); }
  double Draw() override {
    if (script.draws.empty()) return home.Draw();
    const double draw = script.draws.front();
    script.draws.pop_front();
    return draw;
  }
};

}  // namespace

struct ScriptedPlatform::Parts {
  Parts(Platform& home, ClientLibrary& library, Script& script)
      : events(home.events, script),
        menus(home, script, events),
        dialogs(script, events),
        files(home.files, script.faults, script.drives),
        sound(home.sound, script),
        shell(home, script, files),
        printer(script),
        hooks(home, script),
        display(home.display, script),
        processes(home.processes, script),
        system(script),
        clock(home.clock, script),
        random(home.random, script),
        web(script, home.clock),
        platform{home.windows, menus,      events,  home.ownWindows, hooks,
                 home.proxy,   home.peers, display, home.registry,   files,
                 processes,    system,     library, home.clipboard,  sound,
                 shell,        printer,    dialogs, clock,           random,
                 home.media,   web} {}
  ScriptedEvents events;
  ScriptedMenus menus;
  ScriptedDialogs dialogs;
  ScriptedFiles files;
  ScriptedSound sound;
  ScriptedShell shell;
  ScriptedPrinter printer;
  ScriptedHooks hooks;
  ScriptedDisplay display;
  ScriptedProcesses processes;
  ScriptedSystem system;
  ScriptedClock clock;
  ScriptedRandom random;
  ScriptedWeb web;
  Platform platform;
};

ScriptedPlatform::ScriptedPlatform(Platform& home, ClientLibrary& library, Script& script)
    : parts_(std::make_unique<Parts>(home, library, script)) {}
ScriptedPlatform::~ScriptedPlatform() = default;

Platform& ScriptedPlatform::platform() { return parts_->platform; }

}  // namespace corvel::tools
