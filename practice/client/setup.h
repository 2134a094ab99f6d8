// What a client is told when it starts: which one it is to be, and who sees what leaves it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

enum class Locale { kUs, kUk, kCanada, kAustralia, kGermany };

struct Setup {
  std::string version = "4.0";  // "3.0", "4.0", "5.0", "5.1", "6.0", or any text
  Locale locale = Locale::kUs;
  std::vector<std::string> screenNames = {"PracticeOne"};  // the master name first; at most 7
  std::string signedOnAs = "PracticeOne";                  // "" for signed off
  std::uint32_t delayMs = 50;  // from asking for a window until it shows
  std::string folder = "C:\\AOL";
};

// Things that leave the client: what the service, or another member, would see. Kinds are the words
// of the scenario language: line {text}, keyword {target}, im-sent {person, text}, ...
using Witness = std::function<void(std::string_view kind, std::vector<std::string> words)>;

}  // namespace corvel::practice
