// aolclient: the one place where the client's windows are touched.
//
// The client has no interface: all that is known of it are its windows' classes, captions, child
// order and texts, and its lists' memory. docs/practice-client.md lists these facts by version and
// country. A search answers a window or 0. Every operation that waits pumps events, so timers and
// hooks run inside; no handle that was found before a wait may be trusted after it.
#pragma once

#include "core/features/client.h"
#include "core/program.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

class AolClient : public Client {
 public:
  explicit AolClient(Program& program) : program_(program) {}
  void Join(Hub& hub) { hub.client = this; }

  // --- Searching (window_search.cpp) -----------------------------------------------------------
  // The n-th direct child (from 1) of that class, case ignored; n below 1 gives 0 without walking.
  Window FindChildByClass(Window parent, std::string_view className, int n = 1) override;
  // The n-th direct child whose caption holds `title`, case ignored.
  Window FindChildByTitle(Window parent, std::string_view title, int n = 1) override;
  // Until it is there: 10 seconds. The limits go by the time of day; a wait over midnight ends at
  // once.
  Window WaitForWindow(std::optional<std::string_view> className,
                       std::optional<std::string_view> title);
  Window WaitChildByClass(Window parent, std::string_view className);  // and visible: 5 seconds
  Window WaitChildByTitle(Window parent, std::string_view title);      // and visible: 10 seconds
  std::string GetClassText(Window window);  // trimmed, at most 99 characters
  std::string GetCaptionText(Window window);
  int CountChildren(Window window);
  // The whole text; with `wait`, until it isn't blank, for 10 seconds.
  std::string GetAPIText(Window window, bool wait = false) override;

  // --- Version, country, names (version.cpp, screen_names.cpp) ----------------------------------
  void GetAOLVersion() override;
  void LoadAOLStrings() override;
  bool IsAOLAU();
  bool IsAOLOnline(bool showMessage) override;
  bool IsModalCancelUp();  // a sign-on is in progress
  void GetScreenNames() override;
  void ReadSignOnNames();
  std::string GetUserSN() override;
  void MSNCheck() override;

  // --- The chat room (chat_room.cpp) -------------------------------------------------------------
  bool EnumChatRoom(Window window, Window parent);  // true: go on; false: found, in hChatRoom
  void LookForRoom() override;                      // hChatRoom = the room, or 0
  Window FindChatRoom(Window parent, std::string_view className);
  Window ChatInput(Window room);
  void TextToChat(const std::string& text, int mode);  // 0 put, 1 send, 2 send after half a second
  std::string GetSNFromLB();
  std::string ReadLBItem(int row);
  std::vector<std::string> ListRoomNames();  // the user excepted
  std::string GetLastChatLine(Window view);

  // --- The clipboard (rich_text.cpp) -------------------------------------------------------------
  std::string GetRichText(Window owner);
  void PutRichText(Window owner, std::string_view text);

  // --- Driving (driving.cpp) ---------------------------------------------------------------------
  bool RunMenuByString(Window window, std::string_view caption, bool run);
  void RunKeyword(const std::string& target) override;
  Window OpenEMail();
  Window AOLOpenEMail(std::string_view address, bool tabOn);
  Window IsWriteMailWindow(Window window) override;
  void AOLGetProfile(std::string_view name);
  void AOLCursor();
  void OpenMemberPage(std::string_view name);
  void Hushlet();  // stops the program's sound and the client's

 private:
  Program& program_;
};

// True if every character is a blank or alphanumeric.
bool IsScreenName(std::string_view name);

// The names in an account index (idb\main.idx), at most seven, in order; any bytes are taken.
// "Guest" is found only where it does not cross a border of 16384 bytes.
std::vector<std::string> NamesInAccountIndex(std::string_view bytes);

}  // namespace corvel
