// The table of commands. A command that a real user could not give just now says why.
#include "practice/commands/commands.h"

#include "base/text.h"
#include "practice/client/client.h"
#include "practice/commands/user_hand.h"
#include "practice/commands/window_questions.h"
#include "practice/controls/markup.h"
#include "practice/controls/text_box.h"
#include "practice/documents/boxes.h"
#include "practice/documents/im.h"
#include "practice/documents/mail.h"
#include "practice/documents/room.h"
#include "practice/session/keywords.h"
#include "practice/session/menu_bar.h"
#include "practice/session/sign_on.h"

#include <algorithm>
#include <cmath>

namespace corvel::practice {
namespace {

using Words = std::vector<std::string>;

constexpr const char* kNoRoom = "no room is open";

std::string NoIm(const std::string& person) { return "no IM with " + person + " is open"; }

// --- The room ------------------------------------------------------------------------------------

std::string DoRoom(Client& client, const Words& words) {
  OpenRoom(client, words[1], {words.begin() + 2, words.end()});
  return "";
}

std::string DoLeaveRoom(Client& client, const Words&) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  room->Close();
  return "";
}

std::string DoSay(Client& client, const Words& words) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  room->Show(words[1], words[2]);
  return "";
}

std::string DoEnter(Client& client, const Words& words) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  room->Enter(words[1]);
  return "";
}

std::string DoLeave(Client& client, const Words& words) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  return room->Leave(words[1]) ? "" : words[1] + " is not in the room";
}

std::string DoType(Client& client, const Words& words) {
  const Window target = TypingTarget(client);
  if (!target) return kNoRoom;
  TypeText(client, target, words[1]);
  return "";
}

std::string DoKey(Client& client, const Words& words) {
  const Window target = TypingTarget(client);
  if (!target) return kNoRoom;
  return PressKey(client, target, words[1]) ? "" : "there is no key " + words[1];
}

std::string DoSendIcon(Client& client, const Words&) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  Click(client, room->sendIcon());
  return "";
}

std::string DoClickInput(Client& client, const Words&) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  client.windows().BringToTop(room->window());
  client.windows().SetFocus(room->inputWindow());
  return "";
}

std::string DoRightClick(Client& client, const Words& words) {
  const auto room = client.Standing<RoomWindow>();
  if (!room) return kNoRoom;
  return RightClickPerson(client, *room, words[1]) ? "" : words[1] + " is not in the room";
}

std::string DoRefuseNextLine(Client& client, const Words&) {
  client.session().refuseNextLine = true;
  return "";
}

std::string DoRoomFull(Client& client, const Words& words) {
  client.session().triesToFail[NameKey(words[1])] = IntVal(words[2]);
  return "";
}

// --- Instant messages ----------------------------------------------------------------------------

std::string DoIm(Client& client, const Words& words) {
  ReceiveIm(client, words[1], words[2], ImWindow::Begun::kByThem);
  return "";
}

std::string DoImInternet(Client& client, const Words& words) {
  ReceiveIm(client, words[1], words[2], ImWindow::Begun::kFromInternet);
  return "";
}

std::string DoImTo(Client& client, const Words& words) {
  BeginIm(client, words[1], words[2]);
  return "";
}

// The user turns to a conversation and afterwards away from it: what comes next is unread again.
class Turned {
 public:
  Turned(Client& client, const std::string& person)
      : client_(client), before_(client.windows().Focus()) {
    ImWindow* im = FindIm(client, person);
    TextBox* entry = im == nullptr ? nullptr : im->entry();
    if (entry == nullptr) return;
    entry_ = entry->window();
    im->ShowEntry();
    client.windows().SetFocus(entry_);
  }
  // Not if something else has taken the keyboard meanwhile.
  void Back() {
    if (client_.windows().Focus() == entry_) client_.windows().SetFocus(Home());
  }
  Window entry() const { return entry_; }  // 0: there is no such conversation

 private:
  Window Home() const {
    // The frame would hand the keyboard on to the conversation, which lies on top.
    const bool nowhere =
        before_ == entry_ || before_ == client_.frame() || before_ == client_.mdi();
    if (!nowhere) return before_;
    const auto room = client_.Standing<RoomWindow>();
    if (room) return room->inputWindow();
    return client_.windows().FindChild(client_.frame(), {}, "AOL Toolbar", std::nullopt);
  }
  Client& client_;
  Window before_, entry_{};
};

std::string DoImType(Client& client, const Words& words) {
  Turned turned(client, words[1]);
  if (!turned.entry()) return NoIm(words[1]);
  TypeText(client, turned.entry(), words[2]);
  turned.Back();
  return "";
}

std::string DoImKey(Client& client, const Words& words) {
  Turned turned(client, words[1]);
  if (!turned.entry()) return NoIm(words[1]);
  const bool known = PressKey(client, turned.entry(), words[2]);
  turned.Back();
  return known ? "" : "there is no key " + words[2];
}

std::string DoImClose(Client& client, const Words& words) {
  ImWindow* im = FindIm(client, words[1]);
  if (im == nullptr || !im->Alive()) return NoIm(words[1]);
  im->Close();
  return "";
}

// --- Mail ----------------------------------------------------------------------------------------

std::string DoWriteMail(Client& client, const Words&) {
  OpenWriteMail(client);
  return "";
}

std::string DoReadMail(Client& client, const Words& words) {
  OpenReadMail(client, words[1], words[2]);
  return "";
}

std::string DoMailSelect(Client& client, const Words& words) {
  MailWindow* mail = TopMail(client);
  TextBox* body = mail == nullptr ? nullptr : mail->body();
  if (body == nullptr) return "no mail is open";
  return body->SelectText(words[1]) ? "" : "the mail does not hold that text";
}

std::string DoMailClose(Client& client, const Words&) {
  MailWindow* mail = TopMail(client);
  if (mail == nullptr) return "no mail is open";
  mail->Close();
  return "";
}

// --- The client ----------------------------------------------------------------------------------

std::string DoClientMenu(Client& client, const Words& words) {
  const auto row = LookForMenuRow(client, words[1]);
  if (!row) return "the client's menus have no row " + words[1];
  if (!row->enabled) return "the row " + words[1] + " is greyed";
  client.windows().Send(client.frame(), wm::kCommand, row->id, 0);
  return "";
}

std::string DoCloseWindow(Client& client, const Words& words) {
  for (const auto& document : StandingDocuments(client)) {
    if (!HoldsNoCase(CaptionThatStands(client, *document), words[1])) continue;
    document->Close();
    return "";
  }
  return "no window " + words[1] + " is open";
}

std::string DoClientClose(Client& client, const Words&) {
  client.windows().Send(client.frame(), wm::kClose, 0, 0);
  return "";
}

std::string DoClientDelay(Client& client, const Words& words) {
  if (!IsNumeric(words[1])) return words[1] + " is no number of seconds";
  const double seconds = std::clamp(Val(words[1]), 0.0, 3600.0);
  client.setup().delayMs = static_cast<std::uint32_t>(std::lround(seconds * 1000));
  return "";
}

std::string DoSignOn(Client& client, const Words& words) {
  if (client.SignedOn() || client.session().signingOn) return "the user is signed on already";
  SignOn(client, words[1]);
  return "";
}

std::string DoSignOff(Client& client, const Words&) {
  SignOff(client);
  return "";
}

std::string DoKeyword(Client& client, const Words& words) {
  GoToKeyword(client, words[1]);
  return "";
}

// --- The world -----------------------------------------------------------------------------------

std::string DoMember(Client& client, const Words& words) {
  static constexpr std::string_view kStates[] = {"offline", "online",     "private", "no-ims",
                                                 "unknown", "conference", "room"};
  const std::string& state = words[2];
  if (std::find(std::begin(kStates), std::end(kStates), state) == std::end(kStates))
    return "a member can't be " + state;
  const bool inRoom = state == "room" || state == "conference";
  if (inRoom != (words.size() > 3)) return inRoom ? "which room?" : "that state has no room";
  client.session().members[NameKey(words[1])] = {state, inRoom ? words[3] : ""};
  return "";
}

std::string DoInvite(Client& client, const Words& words) {
  OpenInvitation(client, words[1]);
  return "";
}

std::string DoUpload(Client& client, const Words& words) {
  if (words[1] == "on")
    BeginUpload(client);
  else if (words[1] == "off")
    EndUpload(client);
  else
    return "on or off?";
  return "";
}

std::string DoHourglass(Client& client, const Words& words) {
  client.session().hourglass = words[1] == "on";
  return "";
}

// --- The table -----------------------------------------------------------------------------------

enum Needs : unsigned {
  kNothing = 0,
  kOnline = 1,   // the user must be signed on
  kEnabled = 2,  // it is the user's hand, which a disabled client doesn't feel
  kUser = kOnline | kEnabled,
};

struct Command {
  std::string_view word;
  std::size_t fewest, most;  // words behind it
  unsigned needs;
  std::string (*run)(Client&, const Words&);
};

constexpr std::size_t kMany = 100000;

constexpr Command kCommands[] = {
    {"room", 1, kMany, kOnline, DoRoom},
    {"leave-room", 0, 0, kUser, DoLeaveRoom},
    {"say", 2, 2, kOnline, DoSay},
    {"enter", 1, 1, kOnline, DoEnter},
    {"leave", 1, 1, kOnline, DoLeave},
    {"type", 1, 1, kEnabled, DoType},
    {"key", 1, 1, kEnabled, DoKey},
    {"send-icon", 0, 0, kUser, DoSendIcon},
    {"click-input", 0, 0, kUser, DoClickInput},
    {"right-click", 1, 1, kUser, DoRightClick},
    {"refuse-next-line", 0, 0, kNothing, DoRefuseNextLine},
    {"room-full", 2, 2, kNothing, DoRoomFull},
    {"im", 2, 2, kOnline, DoIm},
    {"im-internet", 2, 2, kOnline, DoImInternet},
    {"im-to", 2, 2, kUser, DoImTo},
    {"im-type", 2, 2, kUser, DoImType},
    {"im-key", 2, 2, kUser, DoImKey},
    {"im-close", 1, 1, kUser, DoImClose},
    {"write-mail", 0, 0, kUser, DoWriteMail},
    {"read-mail", 2, 2, kUser, DoReadMail},
    {"mail-select", 1, 1, kUser, DoMailSelect},
    {"mail-close", 0, 0, kUser, DoMailClose},
    {"client-menu", 1, 1, kEnabled, DoClientMenu},
    {"close-window", 1, 1, kEnabled, DoCloseWindow},
    {"client-close", 0, 0, kEnabled, DoClientClose},
    {"client-delay", 1, 1, kNothing, DoClientDelay},
    {"sign-on", 1, 1, kEnabled, DoSignOn},
    {"sign-off", 0, 0, kUser, DoSignOff},
    {"keyword", 1, 1, kEnabled, DoKeyword},
    {"member", 2, 3, kNothing, DoMember},
    {"invite", 1, 1, kOnline, DoInvite},
    {"upload", 1, 1, kOnline, DoUpload},
    {"hourglass", 1, 1, kNothing, DoHourglass},
};

}  // namespace

Reply DoCommand(Client& client, const std::vector<std::string>& words) {
  if (words.empty()) return {"no command", {}};
  for (const Command& command : kCommands) {
    if (command.word != words[0]) continue;
    const std::size_t given = words.size() - 1;
    if (given < command.fewest || given > command.most)
      return {words[0] + (given < command.fewest ? " needs more words" : " has too many words"),
              {}};
    if ((command.needs & kEnabled) != 0 && !client.windows().IsEnabled(client.frame()))
      return {"the client is disabled", {}};
    if ((command.needs & kOnline) != 0 && !client.SignedOn())
      return {"the user is not signed on", {}};
    return {command.run(client, words), {}};
  }
  return {words[0] + ": not built yet", {}};
}

}  // namespace corvel::practice
