// launch32.dll: what is asked of the client without touching its windows. It asks the practice
// client that runs; where none runs, its version stands in the practice.ini of its folder.
#include "practice/win32/channel_client.h"

#include <algorithm>
#include <array>
#include <cstring>

using corvel::practice::PracticeChannel;

namespace {

constexpr std::size_t kVersionBytes = 3, kNameBytes = 175, kNames = 6;

// A buffer of fixed length takes what fits, and a NUL behind it where there is room.
void Fill(char* buffer, std::size_t room, const std::string& bytes) {
  if (buffer == nullptr) return;
  const std::size_t length = std::min(room, bytes.size());
  std::memcpy(buffer, bytes.data(), length);
  if (length < room) buffer[length] = '\0';
}

std::string VersionOnDisk(const char* folder) {
  const std::string path = std::string(folder == nullptr ? "" : folder) + "\\practice.ini";
  char version[16] = "";
  GetPrivateProfileStringA("client", "version", "4.0", version, sizeof version, path.c_str());
  return version;
}

// No error of ours may leave into a program that knows of none.
template <class F>
int Guarded(F work) noexcept {
  try {
    return work();
  } catch (...) {
    return 0;
  }
}

}  // namespace

extern "C" {

__declspec(dllexport) int WINAPI AOLGetVersion(const char* folder, char* buffer) {
  return Guarded([&] {
    PracticeChannel channel;
    Fill(buffer, kVersionBytes, channel.Version().value_or(VersionOnDisk(folder)));
    return 1;
  });
}

__declspec(dllexport) int WINAPI AOLIsOnline() {
  return Guarded([] {
    PracticeChannel channel;
    return channel.IsOnline().value_or(false) ? 1 : 0;
  });
}

__declspec(dllexport) int WINAPI
    AOLGetScreenName(const char* folder, char* first, char* second, char* third, char* fourth,
                     char* fifth, char* current) {
  return Guarded([&] {
    static_cast<void>(folder);  // there is one client, and it knows where it lies
    const std::array<char*, kNames> buffers = {first, second, third, fourth, fifth, current};
    PracticeChannel channel;
    const auto names = channel.ScreenNames();
    for (std::size_t i = 0; i < buffers.size(); ++i)
      Fill(buffers[i], kNameBytes, names && i < names->size() ? (*names)[i] : "");
    return names ? 1 : 0;
  });
}

}  // extern "C"
