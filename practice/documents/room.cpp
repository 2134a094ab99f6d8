#include "practice/documents/room.h"

#include "practice/client/client.h"
#include "practice/controls/markup.h"
#include "practice/controls/row_list.h"
#include "practice/controls/text_box.h"
#include "practice/documents/boxes.h"
#include "practice/documents/im.h"

namespace corvel::practice {

RoomWindow::RoomWindow(Client& client, std::string name, std::vector<std::string> people)
    : Document(client, std::move(name)), waiting_(std::move(people)) {}

void RoomWindow::Fill() {
  if (client().facts().generation == 3)
    Fill3();
  else
    Fill4();
  if (auto* view = client().FindAs<TextBox>(view_))
    view->Append(Line("OnlineHost", "*** You are in \"" + caption() + "\". ***"));
  Enter(client().session().signedOnAs);
  for (const std::string& person : waiting_) Enter(person);
}

void RoomWindow::Fill3() {
  Client& c = client();
  view_ = c.AddControl<TextBox>(window(), "_AOL_VIEW", "", TextBox::Use::kLog);
  input_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  sendIcon_ = c.AddIcon(window(), "Send");
  list_ = c.AddControl<RowList>(window(), "_AOL_LISTBOX", "");
  preferences_ = c.AddIcon(window(), "Chat Preferences");
}

void RoomWindow::Fill4() {
  Client& c = client();
  view_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kReadOnly);
  faces_.push_back(c.AddControl<PlainWindow>(window(), "_AOL_COMBOBOX", "Arial"));
  for (const char* face : {"B", "I", "U"}) faces_.push_back(c.AddIcon(window(), face));
  input_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kLine);
  // The British room has one control more between the input and its icon.
  if (c.facts().Is(Locale::kUk)) c.AddStatic(window(), "");
  sendIcon_ = c.AddIcon(window(), "Send");
  heading_ = c.AddStatic(window(), "people here");
  list_ = c.AddControl<RowList>(window(), "_AOL_LISTBOX", "");
  preferences_ = c.AddIcon(window(), "Chat Preferences");
}

void RoomWindow::Arrange(Area area) {
  constexpr int kPeople = 130, kSend = 64, kFont = 130, kFace = 24;
  Area side = area.Within(area.Right(kPeople));
  client().Put(heading_, heading_ ? side.Top(side.line() + 2) : Rect{});
  client().Put(preferences_, side.Bottom(side.control()));
  client().Put(list_, side.Rest());
  Area entry = area.Within(area.Bottom(area.control()));
  client().Put(sendIcon_, entry.Right(kSend));
  client().Put(input_, entry.Rest());
  if (!faces_.empty()) {
    Area strip = area.Within(area.Bottom(area.control()));
    for (const Window face : faces_)
      client().Put(face, strip.Left(face == faces_.front() ? kFont : kFace));
  }
  client().Put(view_, area.Rest());
}

bool RoomWindow::OnNotice(Notice notice, Window control, char) {
  const bool enter =
      control == input_ && (notice == Notice::kEnter || notice == Notice::kControlEnter);
  if (control == list_ && notice == Notice::kEnter) {
    // Pressed twice, a person is written to.
    const RowList* list = people();
    if (list != nullptr) OpenCompose(client(), list->NameAt(list->selected()));
    return true;
  }
  const bool click = control == sendIcon_ && notice == Notice::kClick;
  if (!enter && !click) return false;
  SendLine();
  return true;
}

void RoomWindow::SendLine() {
  TextBox* box = input();
  if (box == nullptr || box->text().empty()) return;
  Session& session = client().session();
  if (session.refuseNextLine) {
    session.refuseNextLine = false;
    client().ShowMessage(
        "Your message is too long or too complex to be sent. Please shorten or simplify it.");
    return;
  }
  const std::string text = box->text();
  box->SetText("");
  client().Note("line", {text});
  Show(session.signedOnAs, text);
}

std::string RoomWindow::Line(std::string_view sender, std::string_view text) {
  return std::string(sender) + ":\t" + Rendered(text);
}

void RoomWindow::Show(std::string_view sender, std::string_view text) {
  auto* view = client().FindAs<TextBox>(view_);
  if (view == nullptr) return;
  const std::string added = (view->text().empty() ? "" : "\r") + Line(sender, text);
  WindowSystem& windows = client().windows();
  if (client().facts().generation == 3) {
    windows.SendText(view_, wm::kSetText, 0, added);
    return;
  }
  ShownText shown;
  if (!view->text().empty()) shown.Add("\r");
  shown.Add(std::string(sender) + ":\t", {.bold = true});
  shown.Add(Shown(text));
  view->Append(shown.text, shown.looks);
  windows.SendText(view_, kTextAppended, 0, added);
  windows.Send(view_, kTextLaidOut, 0, 0);
}

bool RoomWindow::Holds(std::string_view sender, std::string_view text) const {
  const std::string view = "\r" + viewText() + "\r";
  return view.find("\r" + Line(sender, text) + "\r") != std::string::npos;
}

void RoomWindow::Enter(const std::string& person) {
  RowList* list = people();
  if (list != nullptr && !list->RowOf(person)) list->Add(person);
}

bool RoomWindow::Leave(const std::string& person) {
  RowList* list = people();
  return list != nullptr && list->Remove(person);
}

TextBox* RoomWindow::input() { return client().FindAs<TextBox>(input_); }
RowList* RoomWindow::people() { return client().FindAs<RowList>(list_); }

std::string RoomWindow::viewText() const {
  const auto* view = client().FindAs<TextBox>(view_);
  return view == nullptr ? "" : view->text();
}

void OpenRoom(Client& client, const std::string& name, std::vector<std::string> people) {
  for (const auto& room : client.Documents<RoomWindow>()) room->Dismiss();
  client.Open(std::make_shared<RoomWindow>(client, name, std::move(people)));
}

void EnterRoom(Client& client, const std::string& name) {
  const auto full = client.session().triesToFail.find(NameKey(name));
  if (full == client.session().triesToFail.end() || full->second <= 0)
    return OpenRoom(client, name, {});
  --full->second;
  OpenRoomFull(client, name);
}

}  // namespace corvel::practice
