// Instant messages: the window of a conversation, and the window in which a first message is
// written.
#pragma once

#include "practice/client/document.h"
#include "practice/controls/markup.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

class TextBox;

class ImWindow : public Document {
 public:
  enum class Begun { kByThem, kByUser, kFromInternet };
  ImWindow(Client& client, std::string person, Begun begun);

  const std::string& person() const { return person_; }
  bool IsWith(std::string_view name) const;
  // A message of the other party: it is added, and the caption rewritten, with a ">" in front while
  // the user has not looked.
  void Receive(const std::string& text);
  // A message of the user that has gone out.
  void ShowSent(const std::string& text);
  TextBox* entry();
  void ShowEntry();  // the user wants to answer
  std::string transcriptText() const;
  bool OnNotice(Notice notice, Window control, char character) override;

 protected:
  void Fill() override;
  Rect FirstPlace() const override { return {340, 290, 430, 175}; }
  void Arrange(Area area) override;

 private:
  void FillConversation();
  void FillRequest();
  void Append(std::string_view sender, std::int32_t color, std::string_view text);
  void Send();
  void Accept();
  bool HasFocus() const;

  std::string person_;
  Begun begun_;
  bool answers_ = false;
  ShownText shown_;  // what the transcript holds before it has a control
  Window transcript_{}, entry_{}, accept_{}, name_{};
  std::vector<Window> icons_;
};

// "Send Instant Message".
class ComposeWindow : public Document {
 public:
  ComposeWindow(Client& client, std::string to);
  bool OnNotice(Notice notice, Window control, char character) override;

 protected:
  void Fill() override;
  Window FirstFocus() override { return name_.empty() ? to_ : message_; }
  Rect FirstPlace() const override { return {150, 90, 400, 230}; }
  void Arrange(Area area) override;

 private:
  void Send();
  void AskAvailable();
  std::string To();
  std::string name_;
  Window label_{}, to_{}, message_{}, send_{}, available_{};
};

// A message arrives: in the window that is open with this person, or in a new one.
void ReceiveIm(Client& client, const std::string& person, const std::string& text,
               ImWindow::Begun begun);
// The user has sent a first message; its conversation opens.
void BeginIm(Client& client, const std::string& person, const std::string& text);
void OpenCompose(Client& client, const std::string& to);
// The newest conversation with this person that is asked for or stands; nullptr for none.
ImWindow* FindIm(Client& client, std::string_view person);

}  // namespace corvel::practice
