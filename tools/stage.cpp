// The stage of scenarios and the soak; see stage.h.
#include "tools/stage.h"

#include "base/text.h"
#include "platform/desk/desk_services.h"
#include "practice/desk_home.h"
#include "tools/desk_program.h"

#include <algorithm>

namespace corvel::tools {
namespace {

constexpr const char* kSystemFolder = "C:\\WINDOWS\\SYSTEM\\";
constexpr const char* kRuntimeFiles[] = {
    "dwqrvspy.dll", "dwspy5.dll",  "qrvproxy.dll", "qrverrhd.dll", "qrvbtns.ocx",  "qrvbar.ocx",
    "qrvspy32.ocx", "dwsbc36.ocx", "mscomctl.ocx", "dwspy36.dll",  "launch32.dll", "inetwh32.dll"};

std::string LittleEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

std::string WaveBytes(double seconds) {
  constexpr std::uint32_t kRate = 8000;  // 8 bits, one channel
  const auto size = static_cast<std::uint32_t>(std::clamp(seconds, 0.0, 3600.0) * kRate);
  std::string wave = "RIFF" + LittleEndian(36 + size, 4) + "WAVEfmt " + LittleEndian(16, 4) +
                     LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(kRate, 4) +
                     LittleEndian(kRate, 4) + LittleEndian(1, 2) + LittleEndian(8, 2) + "data" +
                     LittleEndian(size, 4);
  return wave.append(size, '\x80');
}

}  // namespace

Stage::Stage(std::uint64_t seed) {
  desk_.SetWallClock({1999, 11, 21, 20, 15, 0, 0});
  desk_.SetTimeZone("Eastern Standard Time");
  desk_.services().SetSeed(seed);
  desk_.services().SetWindowsPlatform(1);
  desk_.services().SetDisplay(16, 800, 600);
  for (const char* name : kRuntimeFiles)
    desk_.files().Put(std::string(kSystemFolder) + name, "runtime file");
  InstallCorvelOnDesk(desk_, [this](ProcessId process) { started_.insert(process); });
}

Stage::~Stage() { EndAll(); }

void Stage::PutClient() {
  hasClient_ = true;
  practice::InstallOnDesk(desk_, setup);
  if (clientRuns) practice::StartOnDesk(desk_);
}

// The frame, the Welcome window and what opens on them, each after the delay.
std::int64_t Stage::StandMs() const { return 3 * static_cast<std::int64_t>(setup.delayMs) + 100; }

void Stage::ChangeClient() {
  if (hasClient_) practice::ChangeSetup(desk_, setup);
}

practice::PracticeClient* Stage::Client() { return practice::RunningOnDesk(desk_); }

ProcessId Stage::ClientProcess() const { return desk_.FindProcess("waol.exe"); }

void Stage::RemoveRuntimeFile(std::string_view name) {
  desk_.files().Remove(kSystemFolder + std::string(name));
}

bool Stage::IsRuntimeFile(std::string_view name) {
  return std::any_of(std::begin(kRuntimeFiles), std::end(kRuntimeFiles),
                     [&](const char* file) { return EqualNoCase(file, name); });
}

void Stage::PutWave(std::string_view path, double seconds) {
  desk_.files().Put(path, WaveBytes(seconds));
}

ProcessId Stage::StartProgram(const std::string& commandLine) {
  std::erase_if(programs_, [this](ProcessId program) { return !desk_.IsRunning(program); });
  programs_.push_back(desk_.Spawn(kProgramPath, commandLine));
  return programs_.back();
}

ProcessId Stage::Program() const { return desk_.FindProcess("corvel32.exe"); }

bool Stage::IsUp(ProcessId program) const {
  return !desk_.IsRunning(program) || started_.contains(program) || desk_.WaitsForUser(program);
}

bool Stage::AnyProgramWaitsForUser() const {
  return std::any_of(programs_.begin(), programs_.end(), [this](ProcessId program) {
    return desk_.IsRunning(program) && desk_.WaitsForUser(program);
  });
}

void Stage::EndAll() {
  for (const ProcessId program : programs_)
    if (desk_.IsRunning(program)) desk_.Kill(program);
  while (const ProcessId client = desk_.FindProcess("waol.exe")) desk_.Kill(client);
  while (const ProcessId starter = desk_.FindProcess("aol.exe")) desk_.Kill(starter);
}

}  // namespace corvel::tools
