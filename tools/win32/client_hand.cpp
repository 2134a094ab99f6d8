// The user's hands at the practice client; see client_hand.h.
#include "tools/win32/client_hand.h"

#include "platform/win32/handles.h"
#include "tools/user.h"
#include "tools/win32/message_touch.h"

#include <cstdlib>

namespace corvel::tools {

const ClientHand::Command ClientHand::kCommands[] = {
    {"type", &ClientHand::Type},
    {"key", &ClientHand::Press},
    {"send-icon", &ClientHand::ClickSend},
    {"right-click", &ClientHand::RightClickPerson}};

const ClientHand::Command* ClientHand::Find(const std::string& word) {
  for (const Command& command : kCommands)
    if (word == command.word) return &command;
  return nullptr;
}

bool ClientHand::Knows(const Words& words) { return Find(words[0]) != nullptr; }

std::string ClientHand::Do(const Words& words) { return (this->*Find(words[0])->run)(words); }

std::string ClientHand::Look(const Words& what, Place& place) {
  Words question = {"place-of"};
  question.insert(question.end(), what.begin(), what.end());
  const practice::Reply reply = ask_(question);
  if (!reply.error.empty()) return reply.error;
  if (reply.answers.size() < 5) return "the client does not tell where it is";
  const auto number = [&](std::size_t at) {
    return static_cast<LONG>(std::atol(reply.answers[at].c_str()));
  };
  place.window = win32::ToHwnd(
      {static_cast<std::uint32_t>(std::strtoul(reply.answers[0].c_str(), nullptr, 10))});
  place.middle = {number(1) + number(3) / 2, number(2) + number(4) / 2};
  return {};
}

// A click where one types already would only move the caret.
std::string ClientHand::GoToTyping() {
  Place place;
  if (const std::string why = Look({"typing"}, place); !why.empty()) return why;
  if (typingIn_ == place.window && GetForegroundWindow() == RootOf(place.window)) return {};
  typingIn_ = place.window;
  hands_.Click([place] { return Hands::Spot{place.middle, place.window, ""}; });
  hands_.Await([place] { return GetForegroundWindow() == RootOf(place.window); },
               "the client does not come to the front");
  hands_.Press(VK_END);
  return {};
}

std::string ClientHand::Type(const Words& words) {
  const std::string why = GoToTyping();
  if (why.empty()) hands_.Type(words[1]);
  return why;
}

std::string ClientHand::Press(const Words& words) {
  const auto key = ParseKey(words[1]);
  if (!key) return "there is no key " + words[1];
  const std::string why = GoToTyping();
  if (why.empty()) hands_.Press(VirtualKeyOf(*key), {.control = *key == Key::kControlEnter});
  return why;
}

std::string ClientHand::ClickSend(const Words&) {
  Place place;
  const std::string why = Look({"send-icon"}, place);
  if (why.empty()) hands_.Click([place] { return Hands::Spot{place.middle, place.window, ""}; });
  return why;
}

std::string ClientHand::RightClickPerson(const Words& words) {
  Place place;
  const std::string why = Look({"person", words[1]}, place);
  if (why.empty())
    hands_.Click(
        [place] {
          return Hands::Spot{place.middle, place.window, ""};
        },
        Hands::Button::kRight);
  return why;
}

}  // namespace corvel::tools
