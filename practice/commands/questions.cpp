// The table of questions: what an onlooker can see of the client.
#include "practice/client/client.h"
#include "practice/commands/commands.h"
#include "practice/commands/user_hand.h"
#include "practice/commands/window_questions.h"
#include "practice/controls/row_list.h"
#include "practice/controls/text_box.h"
#include "practice/documents/im.h"
#include "practice/documents/mail.h"
#include "practice/documents/room.h"
#include "practice/session/menu_bar.h"

namespace corvel::practice {
namespace {

using Words = std::vector<std::string>;

Reply Answer(std::string text) { return {"", {std::move(text)}}; }
Reply YesNo(bool yes) { return Answer(yes ? "1" : "0"); }

Reply AskInput(Client& client, const Words&) {
  const auto room = client.Standing<RoomWindow>();
  const TextBox* input = room ? room->input() : nullptr;
  return input == nullptr ? Reply{"no room is open", {}} : Answer(input->text());
}

Reply AskRoom(Client& client, const Words&) {
  const auto room = client.Standing<RoomWindow>();
  return Answer(room ? room->caption() : "");
}

Reply AskView(Client& client, const Words&) {
  const auto room = client.Standing<RoomWindow>();
  return room ? Answer(room->viewText()) : Reply{"no room is open", {}};
}

Reply AskLineSeen(Client& client, const Words& words) {
  const auto room = client.Standing<RoomWindow>();
  return YesNo(words.size() > 2 && room && room->Holds(words[1], words[2]));
}

Reply AskIm(Client& client, const Words& words) {
  if (words.size() < 3) return {"which IM, and what of it?", {}};
  const ImWindow* im = FindIm(client, words[1]);
  const bool stands = im != nullptr && im->Filled();
  if (words[2] == "open") return YesNo(stands);
  if (words[2] != "text") return {"text or open?", {}};
  return stands ? Answer(im->transcriptText()) : Reply{"no IM with " + words[1] + " is open", {}};
}

Reply AskMail(Client& client, const Words& words) {
  MailWindow* mail = TopMail(client);
  if (mail == nullptr) return {"no mail is open", {}};
  if (words.size() < 2) return {"to, subject, body or attached?", {}};
  if (words[1] == "attached") return {"", {}};  // nothing can be attached to it yet
  return Answer(mail->Field(words[1]));
}

Reply AskMenu(Client& client, const Words& words) {
  return YesNo(words.size() > 1 && FindMenuRow(client, words[1]).has_value());
}

Reply AskEnabled(Client& client, const Words&) {
  return YesNo(client.windows().IsEnabled(client.frame()));
}

Reply AskSignedOnAs(Client& client, const Words&) { return Answer(client.session().signedOnAs); }

Reply AskTarget(Client& client, const Words&) {
  WindowSystem& windows = client.windows();
  Window top = windows.TopChild(client.mdi());
  while (top && !windows.IsVisible(top)) top = windows.Next(top);
  return {"", {windows.ClassOf(top), windows.SendForText(top, wm::kGetText, 0, 260)}};
}

Reply AskBusy(Client& client, const Words&) { return YesNo(client.Busy()); }

Reply AskHourglass(Client& client, const Words&) { return YesNo(client.session().hourglass); }

// Where a user would point: the window, and the part of the screen.
Reply Place(Client& client, Window window, std::optional<std::size_t> row = {}) {
  if (!window) return {"no room is open", {}};
  Rect place = client.windows().PlaceOf(window);
  if (row) {
    place.top += static_cast<int>(*row) * RowList::kRowHeight;
    place.height = RowList::kRowHeight;
  }
  return {"",
          {std::to_string(window.value), std::to_string(place.left), std::to_string(place.top),
           std::to_string(place.width), std::to_string(place.height)}};
}

Reply AskPlaceOf(Client& client, const Words& words) {
  const std::string what = words.size() > 1 ? words[1] : "";
  if (!client.windows().IsEnabled(client.frame())) return {"the client is disabled", {}};
  if (what == "typing") return Place(client, TypingTarget(client));
  const auto room = client.Standing<RoomWindow>();
  if (what == "send-icon") return Place(client, room ? room->sendIcon() : Window{});
  if (what != "person" || words.size() < 3) return {"typing, send-icon, or which person?", {}};
  const RowList* people = room ? room->people() : nullptr;
  const auto row = people ? people->RowOf(words[2]) : std::nullopt;
  if (people && !row) return {words[2] + " is not in the room", {}};
  return Place(client, room ? room->listWindow() : Window{}, row);
}

struct Question {
  std::string_view word;
  Reply (*answer)(Client&, const Words&);
};

constexpr Question kQuestions[] = {
    {"input", AskInput},
    {"room", AskRoom},
    {"view", AskView},
    {"line-seen", AskLineSeen},
    {"im", AskIm},
    {"mail", AskMail},
    {"menu", AskMenu},
    {"enabled", AskEnabled},
    {"target", AskTarget},
    {"signed-on-as", AskSignedOnAs},
    {"hourglass", AskHourglass},
    {"busy", AskBusy},
    {"place-of", AskPlaceOf},
    {"window", AskWindow},
};

}  // namespace

Reply AnswerQuestion(Client& client, const std::vector<std::string>& words) {
  if (words.empty()) return {"no question", {}};
  for (const Question& question : kQuestions)
    if (question.word == words[0]) return question.answer(client, words);
  return {words[0] + ": not built yet", {}};
}

}  // namespace corvel::practice
