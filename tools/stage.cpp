// What every home's stage has alike; see stage.h.
#include "tools/stage.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>

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

void Stage::SetMachine() {
  SetWallClock({1999, 11, 21, 20, 15, 0, 0});
  SetTimeZone("Eastern Standard Time");
  SetWindowsPlatform(1);
  SetDisplay(16, 800, 600);
  for (const char* name : kRuntimeFiles) PutFile(std::string(kSystemFolder) + name, "runtime file");
}

void Stage::RemoveRuntimeFile(std::string_view name) {
  RemoveFile(kSystemFolder + std::string(name));
}

bool Stage::IsRuntimeFile(std::string_view name) {
  return std::any_of(std::begin(kRuntimeFiles), std::end(kRuntimeFiles),
                     [&](const char* file) { return EqualNoCase(file, name); });
}

void Stage::PutWave(std::string_view path, double seconds) { PutFile(path, WaveBytes(seconds)); }

void Stage::PutClient() {
  hasClient_ = true;
  InstallClient(clientRuns);
}

// The frame, the Welcome window and what opens on them, each after the delay.
std::int64_t Stage::StandMs() const { return 3 * static_cast<std::int64_t>(setup.delayMs) + 100; }

void Stage::ChooseRow(desk::Prompt& popup, const std::vector<int>& rows) {
  MenuHandle menu = popup.menu;
  for (std::size_t depth = 0; depth + 1 < rows.size(); ++depth)
    menu = menus().SubMenu(menu, rows[depth]);
  popup.row = menus().IdAt(menu, rows.back());
  popup.answered = true;
}

void Stage::Note(std::string_view kind, std::vector<std::string> words) {
  journal().Add(NowMs(), kind, std::move(words));
}

}  // namespace corvel::tools
