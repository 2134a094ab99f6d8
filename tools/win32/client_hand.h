// The user's hands at the practice client, a window of another process: typing, and the places to
// click that the client tells when asked.
#pragma once

#include "practice/practice_client.h"
#include "tools/win32/hands.h"

#include <functional>
#include <string>
#include <vector>

namespace corvel::tools {

class ClientHand {
 public:
  using Words = std::vector<std::string>;
  using Ask = std::function<practice::Reply(const Words&)>;
  ClientHand(Hands& hands, Ask ask) : hands_(hands), ask_(std::move(ask)) {}

  // The command is one that hands can carry out here.
  static bool Knows(const Words& words);
  // Begins it, or says why it can't be.
  std::string Do(const Words& words);

 private:
  struct Command {
    const char* word;
    std::string (ClientHand::*run)(const Words&);
  };
  struct Place {
    HWND window = nullptr;
    POINT middle{};
  };
  static const Command kCommands[];
  static const Command* Find(const std::string& word);

  std::string Type(const Words& words);
  std::string Press(const Words& words);
  std::string ClickSend(const Words& words);
  std::string RightClickPerson(const Words& words);
  std::string Look(const Words& what, Place& place);
  std::string GoToTyping();

  Hands& hands_;
  const Ask ask_;
  HWND typingIn_ = nullptr;
};

}  // namespace corvel::tools
