#include "practice/session/by_hand.h"

#include "practice/client/client.h"
#include "practice/controls/row_list.h"
#include "practice/controls/text_box.h"
#include "practice/documents/boxes.h"
#include "practice/documents/im.h"
#include "practice/documents/mail.h"
#include "practice/documents/room.h"
#include "practice/session/keywords.h"

namespace corvel::practice {
namespace {

constexpr const char* kRooms[] = {"Town Square", "The Porch", "Night Owls", "Music Corner",
                                  "Garden Talk"};

constexpr const char* kLetterTitle = "Welcome to the practice client";
constexpr const char* kLetter =
    "<B>Hello!</B>\r\rHere nobody but you is real: the people in the rooms are "
    "<FONT COLOR=#C00000>inv<FONT COLOR=#8000A0>ent<FONT COLOR=#0000FF>ed</FONT>, and what you "
    "write goes nowhere.\r\rTo chat, press <I>find a chat</I> in the toolbar.\r";

// One line to type in, and a button.
class AskWindow : public Document {
 public:
  using Use = void (*)(Client&, const std::string&);
  AskWindow(Client& client, std::string caption, std::string label, std::string button, Use use)
      : Document(client, std::move(caption)),
        label_(std::move(label)),
        button_(std::move(button)),
        use_(use) {}
  bool OnNotice(Notice notice, Window control, char character) override {
    if (notice != Notice::kEnter && notice != Notice::kClick)
      return Document::OnNotice(notice, control, character);
    const auto* box = client().FindAs<TextBox>(text_);
    const std::string text = box == nullptr ? "" : box->text();
    if (text.empty()) return true;
    Close();
    use_(client(), text);
    return true;
  }

 protected:
  void Fill() override {
    client().AddStatic(window(), label_);
    text_ = client().AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
    client().AddIcon(window(), button_);
  }
  Window FirstFocus() override { return text_; }
  Rect FirstPlace() const override { return {120, 80, 320, 130}; }

 private:
  std::string label_, button_;
  Use use_;
  Window text_{};
};

class ChatList : public Document {
 public:
  explicit ChatList(Client& client) : Document(client, "Find a Chat") {}
  bool OnNotice(Notice notice, Window control, char character) override {
    if (notice != Notice::kEnter && notice != Notice::kClick)
      return Document::OnNotice(notice, control, character);
    const std::string room = Chosen();
    if (room.empty()) return true;
    Close();
    EnterRoom(client(), room);
    return true;
  }

 protected:
  void Fill() override {
    client().AddStatic(window(), "Choose a room, or type the name of a private one:");
    text_ = client().AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
    list_ = client().AddControl<RowList>(window(), "_AOL_LISTBOX", "");
    client().AddIcon(window(), "Go Chat");
    if (auto* list = client().FindAs<RowList>(list_)) {
      for (const char* room : kRooms) list->Add(room);
      list->Select(0);
    }
  }
  Window FirstFocus() override { return text_; }
  Rect FirstPlace() const override { return {100, 50, 340, 230}; }

 private:
  std::string Chosen() const {
    const auto* box = client().FindAs<TextBox>(text_);
    if (box != nullptr && !box->text().empty()) return box->text();
    const auto* list = client().FindAs<RowList>(list_);
    return list == nullptr ? "" : list->NameAt(list->selected());
  }
  Window text_{}, list_{};
};

void Ask(Client& client, const char* caption, const char* label, const char* button,
         AskWindow::Use use) {
  if (client.SignedOn())
    client.Open(std::make_shared<AskWindow>(client, caption, label, button, use));
}

}  // namespace

void OpenChatList(Client& client) {
  if (client.SignedOn()) client.Open(std::make_shared<ChatList>(client));
}

void OpenKeywordBox(Client& client) {
  Ask(client, "Keyword", "Type a keyword:", "Go",
      [](Client& c, const std::string& text) { GoToKeyword(c, text); });
}

void OpenLocateBox(Client& client) {
  Ask(client, "Locate Member Online", "Type a screen name:", "Locate", OpenLocate);
}

void OpenEmptyCompose(Client& client) {
  if (client.SignedOn()) OpenCompose(client, "");
}

void OpenInbox(Client& client) {
  if (client.SignedOn()) OpenReadMail(client, kLetterTitle, kLetter);
}

}  // namespace corvel::practice
