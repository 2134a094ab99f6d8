// How the conformance test speaks to its other process: lists of words, sent to a hidden window on
// each side with the system's message for bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace corvel::test {

using Words = std::vector<std::string>;

inline constexpr char kOtherChannel[] = "Corvel Conformance Other";
inline constexpr char kHomeChannel[] = "Corvel Conformance Home";

inline std::string Pack(const Words& words) {
  std::string bytes;
  for (const std::string& word : words) {
    const auto size = static_cast<std::uint32_t>(word.size());
    bytes.append(reinterpret_cast<const char*>(&size), sizeof(size));
    bytes += word;
  }
  return bytes;
}

inline Words Unpack(std::string_view bytes) {
  Words words;
  while (!bytes.empty()) {
    std::uint32_t size = 0;
    bytes.copy(reinterpret_cast<char*>(&size), sizeof(size));
    bytes.remove_prefix(sizeof(size));
    words.emplace_back(bytes.substr(0, size));
    bytes.remove_prefix(size);
  }
  return words;
}

// The words that came with a WM_COPYDATA.
inline Words WordsIn(LPARAM lParam) {
  const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  return Unpack({static_cast<const char*>(data.lpData), data.cbData});
}

// False if the receiver is gone or does not answer for a long time.
inline bool SendWords(HWND to, HWND from, const Words& words) {
  constexpr UINT kLongest = 30'000;
  std::string bytes = Pack(words);
  COPYDATASTRUCT data{0, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR result = 0;
  return SendMessageTimeoutA(to, WM_COPYDATA, reinterpret_cast<WPARAM>(from),
                             reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, kLongest, &result) != 0;
}

}  // namespace corvel::test
