// Expectations that the client is asked for; see expectations.h.
#include "tools/expectations.h"

namespace corvel::tools {

using E = Expectations;

std::string E::Ask(const std::vector<std::string>& question, std::string& why) {
  if (stage_.ClientHangs()) {
    why = "the client hangs";
    return {};
  }
  const practice::Reply reply = stage_.AskClient(question);
  why = reply.error;
  return reply.answers.empty() ? "" : reply.answers.front();
}

std::string E::LineSeen(const Words& words) {
  std::string why;
  const bool seen = Ask({"line-seen", words[2], words[3]}, why) == "1";
  if (seen) return {};
  return Failed(words, why.empty() ? "no such line" : why);
}

std::string E::Mail(const Words& words) {
  const bool part = words[2] == "body-has";
  std::string why;
  const std::string got = Ask({"mail", part ? "body" : words[2]}, why);
  if (!why.empty()) return Failed(words, why);
  return Flag(words, part ? got.find(words[3]) != std::string::npos : got == words[3], Quoted(got));
}

std::string E::Input(const Words& words) {
  std::string why;
  const std::string got = Ask({"input"}, why);
  return why.empty() ? Same(words, got, words[2]) : Failed(words, why);
}

std::string E::Im(const Words& words) {
  std::string why;
  if (words[3] == "has") {
    const std::string got = Ask({"im", words[2], "text"}, why);
    if (!why.empty()) return Failed(words, why);
    return Flag(words, got.find(words[4]) != std::string::npos, Quoted(got));
  }
  const bool open = Ask({"im", words[2], "open"}, why) == "1";
  if (!why.empty()) return Failed(words, why);
  return Flag(words, open == (words[3] == "open"), open ? "it is open" : "it is not open");
}

std::string E::ClientMenu(const Words& words) {
  std::string why;
  const bool there = Ask({"menu", words[2]}, why) == "1";
  if (!why.empty()) return Failed(words, why);
  return Flag(words, there == (words[1] == "client-menu"), there ? "the row" : "no such row");
}

// --- Its documents -------------------------------------------------------------------------------

std::string E::Window(const Words& words) {
  std::string why;
  if (words.size() == 5) {
    const std::string got = Ask({"window", words[2], "text"}, why);
    if (!why.empty()) return Failed(words, why);
    return Flag(words, got.find(words[4]) != std::string::npos, Quoted(got));
  }
  const std::string state = Ask({"window", words[2], "state"}, why);
  if (!why.empty()) return Failed(words, why);
  return Flag(words, state == (words.size() > 3 ? words[3] : "shown"), "it is " + state);
}

std::string E::NoWindow(const Words& words) {
  std::string why;
  const std::string caption = Ask({"window", words[2], "visible"}, why);
  if (!why.empty()) return Failed(words, why);
  return Flag(words, caption.empty(), "the window " + Quoted(caption));
}

std::string E::Place(const Words& words) {
  std::string why;
  const std::string got = Ask({"window", words[2], "place"}, why);
  if (!why.empty()) return Failed(words, why);
  return Flag(words, got == words[3] + " " + words[4] + " " + words[5] + " " + words[6], got);
}

// --- The client itself ---------------------------------------------------------------------------

std::string E::ClientRunning(const Words& words) {
  const bool runs = stage_.ClientRuns();
  return Flag(words, runs == (words[1] == "client-running"),
              runs ? "it is running" : "it has ended");
}

std::string E::ClientEnabled(const Words& words) {
  std::string why;
  const bool enabled = Ask({"enabled"}, why) == "1";
  if (!why.empty()) return Failed(words, why);
  return Flag(words, enabled == (words[1] == "client-enabled"),
              enabled ? "it is enabled" : "it is disabled");
}

}  // namespace corvel::tools
