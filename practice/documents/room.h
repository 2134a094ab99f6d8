// The chat room window.
#pragma once

#include "practice/client/document.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

class RowList;
class TextBox;

class RoomWindow : public Document {
 public:
  RoomWindow(Client& client, std::string name, std::vector<std::string> people);
  bool OnNotice(Notice notice, Window control, char character) override;

  // Each of these may be called with a window that is just going.
  void Show(std::string_view sender, std::string_view text);  // a line in the view
  void Enter(const std::string& person);
  bool Leave(const std::string& person);
  // "name:" TAB "what is seen of the text", as the view holds a line.
  static std::string Line(std::string_view sender, std::string_view text);
  bool Holds(std::string_view sender, std::string_view text) const;

  TextBox* input();
  RowList* people();
  std::string viewText() const;
  Window inputWindow() const { return input_; }
  Window sendIcon() const { return sendIcon_; }
  Window listWindow() const { return list_; }

 protected:
  Rect FirstPlace() const override { return {6, 6, 520, 280}; }
  void Arrange(Area area) override;
  void Fill() override;
  Window FirstFocus() override { return input_; }

 private:
  void Fill3();
  void Fill4();
  void SendLine();
  std::vector<std::string> waiting_;  // people who are in from the start
  Window view_{}, input_{}, sendIcon_{}, list_{}, heading_{}, preferences_{};
  std::vector<Window> faces_;  // what stands above the input: font and face
};

// The user comes into a room with these people; the room that stood before closes.
void OpenRoom(Client& client, const std::string& name, std::vector<std::string> people);
// The user asks to be let into a room, which may be full.
void EnterRoom(Client& client, const std::string& name);

}  // namespace corvel::practice
