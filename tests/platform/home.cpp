// The words of the message logs.
#include "tests/platform/home.h"

#include <iterator>

namespace corvel::test {
namespace {

// What of a message the log tells.
enum class Detail { kNone, kNumber, kText };
struct Word {
  MessageId id;
  const char* word;
  Detail detail;
};
constexpr Word kWords[] = {
    {wm::kCreate, "create", Detail::kNone},
    {wm::kDestroy, "destroy", Detail::kNone},
    {wm::kNcDestroy, "ncdestroy", Detail::kNone},
    {wm::kShowWindow, "show", Detail::kNumber},
    {wm::kEnable, "enable", Detail::kNumber},
    {wm::kSetFocus, "setfocus", Detail::kNone},
    {wm::kKillFocus, "killfocus", Detail::kNone},
    {wm::kSetText, "settext", Detail::kText},
    {wm::kGetText, "gettext", Detail::kNumber},
    {wm::kGetTextLength, "gettextlength", Detail::kNone},
    {wm::kClose, "close", Detail::kNone},
    {wm::kChar, "char", Detail::kNumber},
    {wm::kKeyDown, "keydown", Detail::kNumber},
    {wm::kKeyUp, "keyup", Detail::kNumber},
    {wm::kCommand, "command", Detail::kNumber},
    {wm::kTimer, "timer", Detail::kNumber},
    {wm::kMdiCreate, "mdicreate", Detail::kNone},
    {wm::kMove, "move", Detail::kNone},
    {wm::kSize, "size", Detail::kNone},
};

const Word* Find(MessageId id) {
  for (const Word& word : kWords)
    if (word.id == id) return &word;
  return nullptr;
}

// Of a parent's notice the event, for the child's handle is another each time.
std::string ParentNotice(const Message& message) {
  return "child-" + WordOf(static_cast<MessageId>(message.wParam & 0xFFFF));
}

}  // namespace

std::string WordOf(MessageId id) {
  const Word* word = Find(id);
  return word ? word->word : std::to_string(id);
}

std::string LogLine(const std::string& window, const Message& message) {
  if (message.id == wm::kParentNotify) return window + ":" + ParentNotice(message);
  const Word* word = Find(message.id);
  const std::string line = window + ":" + WordOf(message.id);
  if (word && word->detail == Detail::kNone) return line;
  if (word && word->detail == Detail::kText) return line + "(" + std::string(message.text) + ")";
  return line + "(" + std::to_string(message.wParam) + ")";
}

std::string WaveFile(int milliseconds) {
  const auto number = [](std::size_t value, std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
  };
  const std::string data(static_cast<std::size_t>(milliseconds) * 8, '\x80');
  return "RIFF" + number(data.size() + 36, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
         number(1, 2) + number(8000, 4) + number(8000, 4) + number(1, 2) + number(8, 2) + "data" +
         number(data.size(), 4) + data;
}

}  // namespace corvel::test
