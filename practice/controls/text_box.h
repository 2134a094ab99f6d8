// The client's text windows: RICHCNTL, _AOL_EDIT and _AOL_VIEW.
#pragma once

#include "practice/controls/hosted_window.h"
#include "practice/controls/markup.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvel::practice {

// Private messages of the client's text windows.
inline constexpr MessageId kTextAppended = 0x2803;  // carries the text that has been added
inline constexpr MessageId kTextLaidOut = 0x2C00;   // and it can be seen now
// The format of text with its mark-up on the clipboard.
inline constexpr std::string_view kMailFormat = "AOLMAIL";

namespace text_command {  // wParam of kCommand
inline constexpr WParam kUndo = 20000;
inline constexpr WParam kCut = 20001;
inline constexpr WParam kCopy = 20002;
inline constexpr WParam kPaste = 20003;
inline constexpr WParam kClear = 20004;
inline constexpr WParam kSelectAll = 20005;
}  // namespace text_command

class TextBox : public HostedWindow {
 public:
  enum class Use {
    kLine,      // typed into; Enter is the owner's
    kPage,      // typed into; Enter breaks the line unless the owner takes it
    kReadOnly,  // shows; text from outside replaces it
    kLog,       // shows; text from outside is added at its end (the view of generation 3)
  };
  TextBox(WindowHost& host, Use use) : HostedWindow(host), use_(use) {}

  // All of it with its mark-up, as it was given. Positions below count its bytes.
  const std::string& text() const { return text_; }
  void SetText(std::string_view text);
  // Adds at the end. Of a text that can't be typed into, lines at the front go when it grows long.
  // `looks` are the added text's; without them it is plain.
  void Append(std::string_view text, std::span<const LookRun> looks = {});
  void Select(std::size_t start, std::size_t end);
  // Selects the first place of `part`; false if it isn't there.
  bool SelectText(std::string_view part);
  std::pair<std::size_t, std::size_t> selection() const { return {start_, end_}; }
  // What is to be seen, by the looks that were given with it or by its own mark-up.
  std::vector<LookRun> Runs() const { return looks_.empty() ? RunsOf(text_) : looks_; }
  bool BreaksLines() const { return use_ != Use::kLine; }
  bool CanType() const { return use_ == Use::kLine || use_ == Use::kPage; }

 protected:
  MessageResult Handle(const Message& message) override;

 private:
  struct Row;
  static const Row kRows[];
  MessageResult OnSetText(const Message& message);
  MessageResult OnGetText(const Message& message);
  MessageResult OnGetTextLength(const Message& message);
  MessageResult OnChar(const Message& message);
  MessageResult OnKeyDown(const Message& message);
  MessageResult OnCommand(const Message& message);
  MessageResult OnSetSelection(const Message& message);
  MessageResult OnGetSelection(const Message& message);
  MessageResult OnReplaceSelection(const Message& message);
  MessageResult OnFocus(const Message& message);
  MessageResult OnPrivate(const Message& message);

  void AddLooks(std::size_t at, std::size_t length, std::span<const LookRun> looks);
  void CutFront(std::size_t length);
  void Insert(std::string_view text);  // over the selection; the caret stands behind it
  void Replace(std::size_t start, std::size_t end, std::string_view text);
  void Backspace();
  void Copy();
  void Paste();
  void Undo();
  void KeepForUndo();
  void Changed();  // hands the text to the system, which draws it

  Use use_;
  std::string text_;
  std::vector<LookRun> looks_;       // of a text that was added piece by piece, else empty
  std::size_t start_ = 0, end_ = 0;  // the selection; the caret where they meet
  std::string before_;               // what Undo brings back
  bool typing_ = false;              // keys in a row are undone together
};

}  // namespace corvel::practice
