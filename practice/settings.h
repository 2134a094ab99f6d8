// How practice.exe is told what client it is to be: practice.ini beside it, and words on its
// command line that count more.
//
//   [client]                             practice.exe version=5.0 signed-on=nobody -swelcome
//   version=4.0
//   locale=us            us uk ca au de
//   names=One,Two        the master name first; at most 7 of at most 16 characters
//   signed-on=One        the first name, if this is missing; "nobody": signed off
//   delay=50             milliseconds from asking for a window until it shows
//   people=on            invented people who talk to the user
#pragma once

#include "platform/files.h"
#include "practice/client/setup.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

struct Settings {
  Setup setup;
  bool people = true;                 // invented ones talk to a user by hand
  std::string target;                 // behind "-s"
  std::vector<std::string> mistakes;  // a sentence each; what they are about kept its default
};

Settings ReadSettings(Files& files, const std::string& folder, std::string_view commandLine);

}  // namespace corvel::practice
