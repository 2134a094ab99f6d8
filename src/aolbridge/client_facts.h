// What the known clients have, each in its own way: one line a fact, found by reading each client's
// windows. The practice client has a table of its own, so that each checks the other.
//
// A client of any other version has no facts: AolClient asks through Fact(), which answers 0, ""
// or false for it, and a search for class "" or for the 0th window finds nothing.
//
// Places among the windows of one class are counted from 1; a place of 0 says that there is none.
#pragma once

#include "core/features/client.h"
#include "core/program.h"
#include "platform/window_types.h"

#include <optional>
#include <string_view>

namespace corvel {

// A client that is known.
struct Edition {
  int version;  // 3, 4, 5
  int locale;   // of AOLLocale; 0 on 3.0, which shows no country
};
std::optional<Edition> EditionOf(std::string_view aolVer, int aolLocale);

// {3.0, 4.0, 5.0}
template <typename T>
struct ByVersion {
  T v3, v4, v5;
  constexpr const T& operator()(const Edition& e) const {
    return e.version == 3 ? v3 : e.version == 4 ? v4 : v5;
  }
};

// {3.0, {4.0 US, UK, Canada, Australia}, {5.0 US, UK, Canada, Australia}}
template <typename T>
struct ByClient {
  T v3, v4[4], v5[4];
  constexpr const T& operator()(const Edition& e) const {
    const int column = e.locale < 4 ? e.locale : 0;
    return e.version == 3 ? v3 : e.version == 4 ? v4[column] : v5[column];
  }
};

// The client's own texts. LoadAOLStrings fills them; "" of a client that nobody knows.
struct AolStrings {
  std::string_view AOLWriteTitle, AOLName, AOLAbout, AOLTitle, AOLSignOnTitle, AOLGoodbyeTitle,
      AOLAttachText;
};
AolStrings StringsOf(const std::optional<Edition>& edition);

Country CountryAt(int aolLocale);
HouseColors HouseColorsAt(int aolLocale);

namespace facts {

using Text = std::string_view;
template <typename T>
using V = ByVersion<T>;
template <typename T>
using C = ByClient<T>;

// --- The same in all of them ---------------------------------------------------------------------

inline constexpr Text kFrame = "AOL Frame25", kMdi = "MDIClient", kDocument = "AOL Child",
                      kToolbar = "AOL Toolbar", kIconRow = "_AOL_Toolbar", kModal = "_AOL_Modal",
                      kBox = "#32770";  // a message box
inline constexpr Text kIcon = "_AOL_ICON", kLabel = "_AOL_STATIC", kEdit = "_AOL_EDIT",
                      kRichText = "RICHCNTL", kList = "_AOL_LISTBOX", kCombo = "_AOL_COMBOBOX",
                      kCheckBox = "_AOL_Checkbox", kFontCombo = "_AOL_FontCombo",
                      kGauge = "_AOL_GAUGE", kGlyph = "_AOL_GLYPH", kBoxLabel = "Static";

// --- The session ---------------------------------------------------------------------------------

inline constexpr V<bool> kToolbarHoldsIcons{true, false, false};  // else its icon row does
inline constexpr V<int> kOnlineIcon{6, 1, 1};                     // enabled while signed on
inline constexpr V<bool> kMenusTellCountry{false, true, true};
inline constexpr V<bool> kNamesInAccountIndex{false, true, true};  // else the library gives them
inline constexpr V<int> kNamesKept{5, 5, 7};                       // of an account
inline constexpr V<Text> kSignOnRow{"Set Up && Sign On", "&Sign On Screen", "&Sign On Screen"};
inline constexpr Text kWelcome = "Welcome,";  // in a caption, then the name and "!"
inline constexpr V<Text> kWelcomeKeyword{"", "", "welcome"};
// 5.0 US works in a window of many check boxes; there that one is hidden, not the Welcome window.
inline constexpr C<bool> kHasMainWindow{
    false, {false, false, false, false}, {true, false, false, false}};
inline constexpr C<int> kMainWindowCheckBoxes{0, {0, 0, 0, 0}, {19, 17, 19, 19}};

// --- The chat room -------------------------------------------------------------------------------

inline constexpr V<Text> kRoomView{"_AOL_VIEW", kRichText, kRichText};
inline constexpr V<Text> kRoomInput{kEdit, kRichText, kRichText};
inline constexpr V<int> kRoomInputPlace{1, 2, 2};
inline constexpr V<Text> kRoomMark{kEdit, kCombo, kCombo};        // of a room that opens
inline constexpr V<Text> kFilledRoomMark{kIcon, kCombo, kCombo};  // and of one with a line in it
inline constexpr V<bool> kViewTellsLines{true, false, false};     // by messages that can be hooked
inline constexpr C<int> kSendIconBehindInput{1, {1, 2, 1, 1}, {1, 2, 1, 1}};  // so many windows on
inline constexpr V<bool> kCanFade{false, true, true};  // mark-up shows in rooms and in mail
// A full room refuses by a modal window: with this title ("": any), to be closed by this button.
inline constexpr C<Text> kFullRoomTitle{
    "Sorry...", {"Sorry...", "", "", ""}, {"Sorry...", "", "", ""}};
inline constexpr C<Text> kFullRoomButton{kIcon,
                                         {kIcon, "_AOL_BUTTON", "_AOL_BUTTON", kIcon},
                                         {kIcon, "_AOL_BUTTON", "_AOL_BUTTON", kIcon}};

// --- Mail ----------------------------------------------------------------------------------------

// Opens the write-mail window; "": the second icon of the toolbar does.
inline constexpr V<Text> kWriteMailRow{"&Compose Mail\tCtrl+M", "", ""};
// A write-mail window has a label "Address Book"; else a font box and the box for a receipt.
inline constexpr V<bool> kMailHasAddressBook{true, false, false};
inline constexpr V<int> kAttachIcon{5, 13, 14};  // on 3.0 the fourth window behind the first icon
inline constexpr int kAddressField = 1, kSubjectField = 3;           // of the edit boxes
inline constexpr C<int> kReplyLabel{3, {3, 9, 3, 3}, {3, 9, 3, 3}};  // "Reply", in a read mail

// --- IMs -----------------------------------------------------------------------------------------

inline constexpr Text kIMFrom = "Instant Message From: ", kIMTo = "Instant Message To: ",
                      kUnreadIMFrom = ">Instant Message From: ", kNewIM = "Send Instant Message",
                      kInvitation = "Invitation From: ";
inline constexpr int kTranscript = 1, kEntryBox = 2;  // of the rich texts
inline constexpr V<bool> kCanManageIMs{false, true, true};
inline constexpr C<int> kIMNameLabel{1, {1, 1, 1, 1}, {1, 1, 1, 2}};
inline constexpr C<int> kIMSendIcon{0, {9, 9, 9, 9}, {9, 9, 9, 10}};
inline constexpr V<int> kAnswererSendIcon{0, 9, 9};  // the answerer counts alike everywhere
inline constexpr int kNewIMSendIcon = 10;
// "Respond": where it is when another IM comes on top; and as an IM comes in, how many icons behind
// the first are read in search of it, and whether the last of them counts whatever its text.
inline constexpr C<int> kIMRespondIcon{0, {10, 10, 10, 11}, {10, 10, 10, 11}};
inline constexpr C<int> kIMRespondSearch{0, {10, 9, 10, 10}, {10, 9, 10, 10}};
inline constexpr C<bool> kIMRespondIsLast{
    false, {false, true, false, false}, {false, true, false, false}};
// Further icons of an IM, which a manager hides: so many, behind the first ten.
inline constexpr C<int> kIMExtraIcons{0, {0, 0, 0, 0}, {0, 0, 0, 5}};
// Pixels added to an IM's height so that its own icons lie below the manager's edge.
inline constexpr C<int> kIMHeightAdded{0, {99, 137, 99, 99}, {99, 92, 95, 64}};
// The size in twips that an IM gets back when it leaves the manager; {}: the one that it has.
inline constexpr V<Size> kIMReturnedSize{{}, {4500, 4500}, {5500, 4500}};
// An IM is reported by the icon with the text "notify aol", by the 15th, or by a keyword.
enum class Notify { kIconByText, kFifteenthIcon, kKeyword };
inline constexpr C<Notify> kIMNotify{
    Notify::kIconByText,
    {Notify::kIconByText, Notify::kFifteenthIcon, Notify::kKeyword, Notify::kIconByText},
    {Notify::kIconByText, Notify::kFifteenthIcon, Notify::kKeyword, Notify::kIconByText}};
inline constexpr Text kNotifyKeyword = "aol://1722:notifyaol";
// In a new IM "Available?" lies so many windows behind the rich text.
inline constexpr C<int> kAvailableBehindText{2, {2, 4, 2, 2}, {2, 4, 2, 2}};

// --- Members, menus, boxes -----------------------------------------------------------------------

// Opens the question for a profile; "": the character g to the first icon of the toolbar does.
inline constexpr V<Text> kProfileRow{"Get a Member's Profile\tCtrl+G", "", ""};
inline constexpr V<bool> kProfileAnswers{false, true, true};  // by a window or a box
inline constexpr V<bool> kAboutHasButton{false, true, true};  // else its frame closes it
// The top-level menu at whose end the open windows are listed, by us.
inline constexpr V<int> kWindowMenu{0, 3, 3};
inline constexpr Text kRefusal = "message is too long or too complex";  // of a faded line

// Where our menu goes in the client's bar: with up to `few` menus to one place, else to the other.
struct MenuPlace {
  int few, place, placeBeyond;
};
inline constexpr MenuPlace kMenuPlaceElsewhere{8, 8, 9};  // 3.0, and clients that nobody knows
inline constexpr V<MenuPlace> kMenuPlace{kMenuPlaceElsewhere, {6, 6, 7}, {6, 6, 7}};

}  // namespace facts
}  // namespace corvel
