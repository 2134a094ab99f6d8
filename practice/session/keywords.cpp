#include "practice/session/keywords.h"

#include "base/text.h"
#include "practice/client/client.h"
#include "practice/controls/markup.h"
#include "practice/documents/boxes.h"
#include "practice/documents/im.h"
#include "practice/documents/room.h"
#include "practice/session/sign_on.h"

namespace corvel::practice {
namespace {

void GoToIm(Client& client, std::string_view argument) { OpenCompose(client, Unescaped(argument)); }

void GoToLocate(Client& client, std::string_view argument) {
  OpenLocate(client, Unescaped(argument));
}

// "CODE-2-NAME"
void GoToRoom(Client& client, std::string_view argument) {
  constexpr std::string_view kMark = "-2-";
  const std::size_t mark = argument.find(kMark);
  if (mark == std::string_view::npos) return;
  const std::string name = Unescaped(argument.substr(mark + kMark.size()));
  if (!name.empty()) EnterRoom(client, name);
}

void GoToWelcome(Client& client, std::string_view) { ShowWelcome(client); }

struct Keyword {
  std::string_view front;  // in lower case
  void (*go)(Client&, std::string_view argument);
};

constexpr Keyword kKeywords[] = {
    {"aol://9293:", GoToIm},
    {"aol://3548:", GoToLocate},
    {"aol://2719:", GoToRoom},
    {"welcome", GoToWelcome},
};

}  // namespace

void GoToKeyword(Client& client, std::string_view target) {
  client.Note("keyword", {std::string(target)});
  if (!client.SignedOn()) return ShowSignOn(client);
  const std::string lower = Lower(target);
  for (const Keyword& keyword : kKeywords)
    if (lower.starts_with(keyword.front))
      return keyword.go(client, target.substr(keyword.front.size()));
}

}  // namespace corvel::practice
