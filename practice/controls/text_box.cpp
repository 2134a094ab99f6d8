#include "practice/controls/text_box.h"

#include "practice/controls/markup.h"
#include "practice/controls/window_host.h"

#include <algorithm>

namespace corvel::practice {
namespace {

constexpr MessageId kGetSelection = 0x00B0;
constexpr MessageId kSetSelection = 0x00B1;
constexpr MessageId kReplaceSelection = 0x00C2;
constexpr WParam kDeleteKey = 0x2E;
// A view holds this many characters at most; the oldest lines go first.
constexpr std::size_t kLongestView = 60000;

// What Control and a letter type.
constexpr char kCopyCharacter = 3;
struct ControlCharacter {
  char character;
  WParam order;
};
constexpr ControlCharacter kControlCharacters[] = {{1, text_command::kSelectAll},
                                                   {kCopyCharacter, text_command::kCopy},
                                                   {22, text_command::kPaste},
                                                   {24, text_command::kCut},
                                                   {26, text_command::kUndo}};

WParam OrderOf(char character) {
  for (const ControlCharacter& row : kControlCharacters)
    if (row.character == character) return row.order;
  return 0;
}

}  // namespace

struct TextBox::Row {
  MessageId id;
  MessageResult (TextBox::*act)(const Message&);
};

const TextBox::Row TextBox::kRows[] = {
    {wm::kSetText, &TextBox::OnSetText},
    {wm::kGetText, &TextBox::OnGetText},
    {wm::kGetTextLength, &TextBox::OnGetTextLength},
    {wm::kChar, &TextBox::OnChar},
    {wm::kKeyDown, &TextBox::OnKeyDown},
    {wm::kCommand, &TextBox::OnCommand},
    {wm::kSetFocus, &TextBox::OnFocus},
    {kSetSelection, &TextBox::OnSetSelection},
    {kGetSelection, &TextBox::OnGetSelection},
    {kReplaceSelection, &TextBox::OnReplaceSelection},
    {kTextAppended, &TextBox::OnPrivate},
    {kTextLaidOut, &TextBox::OnPrivate},
};

MessageResult TextBox::Handle(const Message& message) {
  for (const Row& row : kRows)
    if (row.id == message.id) return (this->*row.act)(message);
  return Default(message);
}

void TextBox::SetText(std::string_view text) {
  KeepForUndo();
  looks_.clear();
  text_ = text;
  start_ = end_ = text_.size();
  Changed();
}

void TextBox::Append(std::string_view text, std::span<const LookRun> looks) {
  AddLooks(text_.size(), text.size(), looks);
  text_ += text;
  if (!CanType() && text_.size() > kLongestView) {
    const std::size_t line = text_.find('\r', text_.size() - kLongestView);
    if (line != std::string::npos) CutFront(line + 1);
  }
  Changed();
}

void TextBox::AddLooks(std::size_t at, std::size_t length, std::span<const LookRun> looks) {
  if (looks_.empty()) looks_ = RunsOf(text_);
  if (looks.empty()) looks_.push_back({at, length, {}});
  for (const LookRun& run : looks) looks_.push_back({at + run.start, run.length, run.look});
}

void TextBox::CutFront(std::size_t length) {
  text_.erase(0, length);
  start_ -= std::min(start_, length);
  end_ -= std::min(end_, length);
  std::erase_if(looks_, [&](const LookRun& run) { return run.start + run.length <= length; });
  for (LookRun& run : looks_) {
    const std::size_t cut = run.start < length ? length - run.start : 0;
    run.start += cut;
    run.start -= length;
    run.length -= cut;
  }
}

void TextBox::Select(std::size_t start, std::size_t end) {
  typing_ = false;
  start_ = std::min(std::min(start, end), text_.size());
  end_ = std::min(std::max(start, end), text_.size());
}

bool TextBox::SelectText(std::string_view part) {
  const std::size_t at = text_.find(part);
  if (at == std::string::npos) return false;
  Select(at, at + part.size());
  return true;
}

MessageResult TextBox::OnSetText(const Message& message) {
  if (use_ == Use::kLog)
    Append(message.text);
  else
    SetText(message.text);
  return 1;
}

MessageResult TextBox::OnGetText(const Message& message) {
  if (message.answer == nullptr || message.wParam == 0) return 0;
  // The sender's room decides: the main loop of a stranger reads the front of a long view often.
  *message.answer = text_.substr(0, message.wParam - 1);
  return static_cast<MessageResult>(message.answer->size());
}

MessageResult TextBox::OnGetTextLength(const Message&) {
  return static_cast<MessageResult>(text_.size());
}

MessageResult TextBox::OnChar(const Message& message) {
  const char character = static_cast<char>(message.wParam);
  if (!CanType()) {
    if (character == kCopyCharacter) Copy();
    return 0;
  }
  switch (character) {
    case '\b':
      Backspace();
      return 0;
    case '\r':
      if (!Tell(Notice::kEnter) && Alive() && use_ == Use::kPage) Insert("\r");
      return 0;
    case '\n':
      if (!Tell(Notice::kControlEnter) && Alive() && use_ == Use::kPage) Insert("\r");
      return 0;
    case '\t':
      Tell(Notice::kTab);
      return 0;
    default:
      break;
  }
  if (const WParam order = OrderOf(character))
    return OnCommand({.id = wm::kCommand, .wParam = order});
  if (static_cast<unsigned char>(character) < ' ' || character == 127) return 0;
  if (!typing_) KeepForUndo();
  typing_ = true;
  Replace(start_, end_, {&character, 1});
  return 0;
}

MessageResult TextBox::OnKeyDown(const Message& message) {
  if (message.wParam != kDeleteKey || !CanType()) return 0;
  KeepForUndo();
  Replace(start_, start_ == end_ ? std::min(end_ + 1, text_.size()) : end_, "");
  return 0;
}

MessageResult TextBox::OnCommand(const Message& message) {
  switch (message.wParam & 0xFFFF) {
    case text_command::kUndo:
      Undo();
      break;
    case text_command::kCut:
      Copy();
      if (CanType()) Insert("");
      break;
    case text_command::kCopy:
      Copy();
      break;
    case text_command::kPaste:
      if (CanType()) Paste();
      break;
    case text_command::kClear:
      if (CanType()) Insert("");
      break;
    case text_command::kSelectAll:
      Select(0, text_.size());
      break;
    default:
      break;
  }
  return 0;
}

MessageResult TextBox::OnSetSelection(const Message& message) {
  // A start of -1 takes the selection off, an end of -1 is the end of the text.
  const auto start = static_cast<std::int32_t>(message.wParam);
  const auto end = static_cast<std::int32_t>(message.lParam);
  if (start < 0)
    Select(end_, end_);
  else
    Select(static_cast<std::size_t>(start), end < 0 ? text_.size() : static_cast<std::size_t>(end));
  return 0;
}

MessageResult TextBox::OnGetSelection(const Message&) {
  return static_cast<MessageResult>((start_ & 0xFFFF) | (end_ & 0xFFFF) << 16);
}

MessageResult TextBox::OnReplaceSelection(const Message& message) {
  Insert(message.text);
  return 0;
}

MessageResult TextBox::OnFocus(const Message& message) {
  const MessageResult result = Default(message);
  if (HostedWindow* parent = Parent()) parent->RememberFocus(window());
  Tell(Notice::kFocus);
  return result;
}

// These tell whoever listens in; the text stands here already when they come.
MessageResult TextBox::OnPrivate(const Message&) { return 0; }

void TextBox::Insert(std::string_view text) {
  KeepForUndo();
  Replace(start_, end_, text);
}

void TextBox::Replace(std::size_t start, std::size_t end, std::string_view text) {
  looks_.clear();
  text_.replace(start, end - start, text);
  start_ = end_ = start + text.size();
  Changed();
}

void TextBox::Backspace() {
  if (start_ == end_ && start_ == 0) return;
  if (!typing_) KeepForUndo();
  typing_ = true;
  Replace(start_ == end_ ? start_ - 1 : start_, end_, "");
}

void TextBox::Copy() {
  const std::string selected = text_.substr(start_, end_ - start_);
  Clipboard& clipboard = host().platform().clipboard;
  if (selected.empty() || !clipboard.Open(window())) return;
  clipboard.Empty();
  clipboard.Set(kClipboardText, Rendered(selected));
  clipboard.Set(clipboard.RegisterFormat(kMailFormat), selected);
  clipboard.Close();
}

void TextBox::Paste() {
  Clipboard& clipboard = host().platform().clipboard;
  if (!clipboard.Open(window())) return;
  auto text = clipboard.Get(clipboard.RegisterFormat(kMailFormat));
  if (!text || text->empty()) text = clipboard.Get(kClipboardText);
  clipboard.Close();
  if (text) Insert(*text);
}

void TextBox::Undo() {
  if (!CanType()) return;
  typing_ = false;
  looks_.clear();
  std::swap(text_, before_);
  start_ = end_ = text_.size();
  Changed();
}

void TextBox::KeepForUndo() {
  typing_ = false;
  if (CanType()) before_ = text_;
}

void TextBox::Changed() { Default({.id = wm::kSetText, .text = text_}); }

}  // namespace corvel::practice
