// What the versions and locales of the client differ in, as data: captions, rows, and the places of
// the controls that the program counts its way to.
#pragma once

#include "practice/client/setup.h"

#include <string>

namespace corvel::practice {

struct Facts {
  int generation = 4;           // 3, 4 or 5: whose windows these are
  Locale locale = Locale::kUs;  // always kUs on generation 3, which shows no other

  std::string writeTitle;    // caption of the write-mail window
  std::string name;          // what the client calls itself in sentences
  std::string aboutRow;      // menu row
  std::string title;         // caption of the main window and of every message box
  std::string signOnTitle;   // caption of the sign-on window before the first session
  std::string goodbyeTitle;  // and after one
  std::string attachText;    // on the button of the attach dialog
  std::string signOnRow;     // menu row that brings up the sign-on window

  // Places among the controls of their class, from 1.
  int onlineIcon = 1;       // in the toolbar: enabled while signed on
  int attachIcon = 13;      // in the write-mail window
  int replyStatic = 3;      // in the read-mail window
  int imNameStatic = 1;     // in an IM: the other party's name
  int imSendIcon = 9;       // in an IM; Respond is the next
  int imNotifyIcon = 11;    // in an IM
  int mainCheckboxes = 19;  // in the main document of generation 5

  bool Is(Locale other) const { return locale == other; }
};

Facts FactsFor(const Setup& setup);

}  // namespace corvel::practice
