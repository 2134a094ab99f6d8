// aolclient: the one place where the client's windows are touched.
//
// The client has no interface: all that is known of it are its windows' classes, captions, child
// order and texts, and its lists' memory. client_facts.h is the table of what differs by version
// and country; nobody else asks for either.
//
// A search answers a window or 0. Every operation that waits pumps events, so timers and hooks run
// inside; no handle that was found before a wait may be trusted after it. For a client that nobody
// knows (AOLVer is "") what needs a fact answers 0, "" or false, and what would drive it does
// nothing.
#pragma once

#include "aolbridge/client_facts.h"
#include "core/features/client.h"
#include "core/program.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel {

struct MailParts {
  Window address, subject, body;
};

struct IMParts {
  Window name, transcript, entry, sendIcon, respondIcon;
};

class AolClient : public Client {
 public:
  explicit AolClient(Program& program) : program_(program) {}
  void Join(Hub& hub) { hub.client = this; }

  // --- Searching (window_search.cpp) -----------------------------------------------------------
  // The n-th direct child (from 1) of that class, case ignored; n below 1 or class "" gives 0
  // without walking.
  Window FindChildByClass(Window parent, std::string_view className, int n = 1);
  // The n-th direct child whose caption holds `title`, case ignored.
  Window FindChildByTitle(Window parent, std::string_view title, int n = 1);
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
  std::string GetAPIText(Window window, bool wait = false);

  // --- Which client it is (version.cpp, screen_names.cpp) ---------------------------------------
  Window FindFrame() override;
  Window FindMdi() override;
  void GetAOLVersion() override;
  void LoadAOLStrings() override;
  bool IsAOLAU();
  bool IsAOLOnline(bool showMessage) override;
  bool IsModalCancelUp();  // a sign-on is in progress
  void GetScreenNames() override;
  void ReadSignOnNames();
  std::string GetUserSN() override;
  void MSNCheck() override;

  // --- What it can -------------------------------------------------------------------------------
  const AolStrings& Strings() const { return strings_; }
  bool CanFade() const override { return Fact(facts::kCanFade); }
  bool CanManageIMs() const override { return Fact(facts::kCanManageIMs); }
  bool HasMainWindow() const override { return Fact(facts::kHasMainWindow); }
  Country CountryOf() const override;

  // --- The chat room (chat_room.cpp) -------------------------------------------------------------
  bool EnumChatRoom(Window window, Window parent);  // true: go on; false: found, in hChatRoom
  void LookForRoom() override;                      // hChatRoom = the room, or 0
  Window FindChatRoom(Window parent, std::string_view className);
  RoomParts PartsOfRoom(Window room) override;
  Window ChatInput(Window room);
  void TextToChat(const std::string& text, int mode);  // 0 put, 1 send, 2 send after half a second
  std::string GetSNFromLB();
  std::string ReadLBItem(int row);
  std::vector<std::string> ListRoomNames();  // the user excepted
  std::string GetLastChatLine(Window view);

  // --- Documents, boxes, menus (documents.cpp) ---------------------------------------------------
  Window TopDocument();
  Window DocumentTitled(std::string_view caption);  // whole, case ignored; 0 for ""
  Window FirstDocumentIn(Window parent);            // at any depth
  Window IsWriteMailWindow(Window window);          // the window itself, or 0
  Window WriteMailOnTop() override;
  Window WriteMailByTitle();  // by its title alone, answers included
  MailParts PartsOfMail(Window mail);
  Window BodyOf(Window document);       // the first rich text of a mail, a new IM, a text
  Window WaitForBody(Window document);  // 5 seconds
  Window ReadMailOnTop() override;
  Window WelcomeWindow();
  Window MainWindow();
  Window ModalWindow();   // the client's, whatever it is for
  Window UploadWindow();  // the modal window that shows an upload's progress
  Window ClientBox();     // a message box of the client's
  Window RefusalBox() override;
  Window BuddyInvitation() override;
  MenuHandle WindowMenu() override;
  int PlaceOfOurMenu(int count) const;  // in its bar, which has so many menus

  // --- IMs (ims.cpp) -----------------------------------------------------------------------------
  bool IsIM(Window window);
  Window IMOnTop();
  bool IMFromSomebodyOnTop();  // by its caption, which may hold more
  Window ManagerOnTop();       // the frame of the program's own manager
  Window ManagedIMOnTop();     // in front of the others in that
  Window UnreadIM() override;
  Window NewIMWindow();  // in which an IM is begun
  std::string GetIMSender(Window im) override;
  IMParts PartsOfIM(Window im);

  // --- The clipboard (rich_text.cpp) -------------------------------------------------------------
  std::string GetRichText(Window owner);
  void PutRichText(Window owner, std::string_view text);

  // --- Driving (driving.cpp) ---------------------------------------------------------------------
  // The row of its menus with this text, shortcut included; `run` also runs it.
  bool RunMenuByString(Window window, std::string_view caption, bool run);
  void RunKeyword(const std::string& target) override;
  Window OpenEMail();
  Window AOLOpenEMail(std::string_view address, bool tabOn);
  void AOLGetProfile(std::string_view name);
  void AOLCursor();
  void OpenMemberPage(std::string_view name);
  void Hushlet();  // stops the program's sound and the client's

 private:
  std::optional<Edition> KnownEdition() const;
  // A fact about this client; what is false, 0 or "" of one that nobody knows.
  template <typename T, template <typename> class Table>
  T Fact(const Table<T>& table) const {
    const auto edition = KnownEdition();
    return edition ? table(*edition) : T{};
  }
  Window IconRow();
  Window SignOnWindow();
  Window CallForWelcome();
  void AskLibraryForNames();
  void ReadAccountIndex();

  Program& program_;
  AolStrings strings_;
};

// True if every character is a blank or alphanumeric.
bool IsScreenName(std::string_view name);

// The names in an account index (idb\main.idx), at most seven, in order; any bytes are taken.
// "Guest" is found only where it does not cross a border of 16384 bytes.
std::vector<std::string> NamesInAccountIndex(std::string_view bytes);

}  // namespace corvel
