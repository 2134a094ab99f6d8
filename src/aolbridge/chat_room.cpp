// The chat room: finding it, who is in it, what was said last, and putting text into it.
#include "aolbridge/aolclient.h"
#include "aolbridge/client_facts.h"
#include "aolbridge/list_memory.h"
#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"

namespace corvel {
namespace {

constexpr std::size_t kViewStart = 150;  // so much of the view tells a room from other windows

ClientList PeopleOf(AolClient& client, Program& program) {
  const Window list = client.FindChildByClass(program.g.hChatRoom, facts::kList);
  return ClientList(program.platform, list);
}

}  // namespace

bool AolClient::EnumChatRoom(Window window, Window parent) {
  WindowSystem& windows = program_.platform.windows;
  if (windows.Parent(window) != parent) return true;
  if (!FindChildByClass(window, facts::kList)) return true;
  const Window view = FindChildByClass(window, Fact(facts::kRoomView));
  if (!view || !FindChildByClass(window, Fact(facts::kFilledRoomMark))) return true;
  const std::string text = windows.SendForText(view, wm::kGetText, kViewStart + 1, kViewStart + 1);
  if (text.find(':') == std::string::npos || text.find('\t') == std::string::npos) return true;
  program_.g.hChatRoom = window;
  return false;
}

void AolClient::LookForRoom() {
  const Window mdi = program_.g.hMDI;
  const bool unstopped = program_.platform.windows.EnumDescendants(
      mdi, [&](Window window) { return EnumChatRoom(window, mdi); });
  if (unstopped) program_.g.hChatRoom = {};
}

Window AolClient::FindChatRoom(Window parent, std::string_view className) {
  WindowSystem& windows = program_.platform.windows;
  for (Window w = windows.TopChild(parent); parent && w; w = windows.Next(w)) {
    if (EqualNoCase(windows.ClassOf(w), className) && FindChildByClass(w, facts::kList) &&
        FindChildByClass(w, Fact(facts::kRoomView)) && FindChildByClass(w, Fact(facts::kRoomMark)))
      return w;
  }
  return {};
}

Window AolClient::ChatInput(Window room) {
  return FindChildByClass(room, Fact(facts::kRoomInput), Fact(facts::kRoomInputPlace));
}

RoomParts AolClient::PartsOfRoom(Window room) {
  RoomParts parts;
  parts.view = FindChildByClass(room, Fact(facts::kRoomView));
  parts.input = parts.sendIcon = ChatInput(room);
  parts.list = FindChildByClass(room, facts::kList);
  for (int steps = Fact(facts::kSendIconBehindInput); steps > 0; --steps)
    parts.sendIcon = program_.platform.windows.Next(parts.sendIcon);
  parts.viewTellsLines = Fact(facts::kViewTellsLines);
  return parts;
}

void AolClient::TextToChat(const std::string& text, int mode) {
  if (!program_.g.hChatRoom) {
    MsgBoxEx(program_,
             "~B~CRNo AOL Chat Room visible!~B~CN~N ~NYou must be in a chat room to use this "
             "feature!",
             style::kOk + style::kExclamation);
    return;
  }
  WindowSystem& windows = program_.platform.windows;
  const Window input = ChatInput(program_.g.hChatRoom);
  windows.SetFocus(input);
  windows.SendText(input, wm::kSetText, 0, text);
  if (mode == 0) return;
  if (mode == 2) Pause(program_, 0.5);
  windows.Send(input, wm::kChar, 13, 0);
}

std::string AolClient::ReadLBItem(int row) { return PeopleOf(*this, program_).Row(row); }

std::string AolClient::GetSNFromLB() {
  const ClientList people = PeopleOf(*this, program_);
  return people.Row(people.Selected());
}

std::vector<std::string> AolClient::ListRoomNames() {
  Globals& g = program_.g;
  if (g.CurrentSN.empty()) g.CurrentSN = GetUserSN();
  std::vector<std::string> names = PeopleOf(*this, program_).Rows();
  std::erase(names, g.CurrentSN);
  return names;
}

std::string AolClient::GetLastChatLine(Window view) {
  const std::string text = GetAPIText(view);
  const auto tab = text.rfind('\t');
  if (tab == std::string::npos) return {};
  const auto before = text.rfind('\r', tab);
  const std::size_t start = before == std::string::npos ? 0 : before + 1;
  return text.substr(start, tab - start) + text.substr(tab + 1);
}

}  // namespace corvel
