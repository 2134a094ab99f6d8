#include "practice/documents/im.h"

#include "practice/client/client.h"
#include "practice/controls/markup.h"
#include "practice/controls/text_box.h"

namespace corvel::practice {
namespace {

constexpr int kIcons = 16;  // of a conversation
constexpr std::int32_t kTheirColor = 0x0000FF, kOwnColor = 0xFF0000;

std::string Caption(const std::string& person, bool fromThem, bool unread) {
  return std::string(unread ? ">" : "") + "Instant Message " + (fromThem ? "From: " : "To: ") +
         person;
}

bool TakesIms(const Member& member) {
  return member.state != "offline" && member.state != "unknown" && member.state != "no-ims";
}

}  // namespace

ImWindow::ImWindow(Client& client, std::string person, Begun begun)
    : Document(client, Caption(person, begun != Begun::kByUser, begun != Begun::kByUser)),
      person_(std::move(person)),
      begun_(begun) {}

bool ImWindow::IsWith(std::string_view name) const { return NameKey(person_) == NameKey(name); }

void ImWindow::Fill() {
  if (begun_ == Begun::kFromInternet)
    FillRequest();
  else
    FillConversation();
}

void ImWindow::FillRequest() {
  client().AddControl<PlainWindow>(
      window(), "_AOL_Static",
      "You have an instant message from Internet user " + person_ + ". Accept?");
  accept_ = client().AddIcon(window(), "Accept");
  client().AddIcon(window(), "Cancel");
}

void ImWindow::FillConversation() {
  Client& c = client();
  const Facts& facts = c.facts();
  for (int i = 1; i < facts.imNameStatic; ++i)
    c.AddControl<PlainWindow>(window(), "_AOL_Static", "Instant Message");
  name_ = c.AddControl<PlainWindow>(window(), "_AOL_Static", person_);
  transcript_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kReadOnly);
  entry_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kPage);
  if (auto* box = c.FindAs<TextBox>(transcript_)) box->Append(shown_.text, shown_.looks);
  for (int i = 1; i <= kIcons; ++i) {
    const char* text = i == facts.imSendIcon       ? "Send"
                       : i == facts.imSendIcon + 1 ? "Respond"
                       : i == facts.imNotifyIcon   ? "Notify AOL"
                                                   : "";
    icons_.push_back(c.AddIcon(window(), text));
  }
  // What has come only shows until the user wants to answer; what the user began can be written in.
  const Window respond = icons_[static_cast<std::size_t>(facts.imSendIcon)];
  answers_ = begun_ == Begun::kByUser;
  c.windows().Show(answers_ ? respond : entry_, show::kHide);
}

void ImWindow::ShowEntry() {
  answers_ = true;
  client().windows().Show(entry_, show::kShow);
  if (Filled()) Rearrange();
}

void ImWindow::Arrange(Area area) {
  if (begun_ == Begun::kFromInternet) return Document::Arrange(area);
  constexpr int kButton = 84;
  client().Put(name_, area.Top(area.line() + 2));
  Area strip = area.Within(area.Bottom(area.control()));
  const Facts& facts = client().facts();
  const auto send = static_cast<std::size_t>(facts.imSendIcon - 1);
  if (icons_.size() > static_cast<std::size_t>(facts.imNotifyIcon)) {
    // Send and Respond take the same place: whichever is of use lies there.
    const Rect first = strip.Left(kButton);
    client().Put(icons_[send], answers_ ? first : Rect{});
    client().Put(icons_[send + 1], answers_ ? Rect{} : first);
    client().Put(icons_[static_cast<std::size_t>(facts.imNotifyIcon - 1)], strip.Right(kButton));
  }
  if (answers_) client().Put(entry_, area.Bottom(area.Rest().height * 2 / 5));
  client().Put(transcript_, area.Rest());
}

void ImWindow::Append(std::string_view sender, std::int32_t color, std::string_view text) {
  ShownText shown;
  shown.Add(std::string(sender) + ":\t", {.color = color, .bold = true});
  shown.Add(Shown(text));
  shown.Add("\r");
  auto* box = client().FindAs<TextBox>(transcript_);
  if (box == nullptr) return shown_.Add(shown);
  box->Append(shown.text, shown.looks);
  client().windows().SendText(transcript_, kTextAppended, 0, shown.text);
  client().windows().Send(transcript_, kTextLaidOut, 0, 0);
}

void ImWindow::Receive(const std::string& text) {
  Append(person_, kTheirColor, text);
  if (Alive()) SetCaption(Caption(person_, true, !HasFocus()));
}

void ImWindow::ShowSent(const std::string& text) {
  Append(client().session().signedOnAs, kOwnColor, text);
}

bool ImWindow::HasFocus() const {
  const Window focus = client().windows().Focus();
  return focus && (focus == entry_ || focus == transcript_);
}

TextBox* ImWindow::entry() { return client().FindAs<TextBox>(entry_); }

std::string ImWindow::transcriptText() const {
  const auto* box = client().FindAs<TextBox>(transcript_);
  return box == nullptr ? "" : box->text();
}

bool ImWindow::OnNotice(Notice notice, Window control, char) {
  const auto send = static_cast<std::size_t>(client().facts().imSendIcon - 1);
  if (notice == Notice::kTab) return Document::OnNotice(notice, control, 0);
  if (notice == Notice::kFocus && caption().starts_with('>')) {
    SetCaption(caption().substr(1));
  } else if (notice == Notice::kControlEnter && control == entry_) {
    Send();
  } else if (notice != Notice::kClick) {
    return false;
  } else if (control == accept_) {
    Accept();
  } else if (icons_.size() > send + 1 && control == icons_[send]) {
    Send();
  } else if (icons_.size() > send + 1 && control == icons_[send + 1]) {
    client().windows().Show(control, show::kHide);
    ShowEntry();
  }
  return true;
}

void ImWindow::Accept() {
  accept_ = {};
  // The question goes with all its controls; the conversation takes their place.
  WindowSystem& windows = client().windows();
  for (Window child = windows.TopChild(window()); child; child = windows.TopChild(window()))
    client().platform().ownWindows.Destroy(child);
  begun_ = Begun::kByThem;
  if (Alive()) FillConversation();
  if (Alive()) Rearrange();
}

void ImWindow::Send() {
  TextBox* box = entry();
  if (box == nullptr || box->text().empty()) return;
  const std::string text = box->text();
  box->SetText("");
  client().Note("im-sent", {person_, text});
  ShowSent(text);
}

ComposeWindow::ComposeWindow(Client& client, std::string to)
    : Document(client, "Send Instant Message"), name_(std::move(to)) {}

void ComposeWindow::Fill() {
  Client& c = client();
  constexpr int kIconsBefore = 9;  // so Send is the tenth
  label_ = c.AddStatic(window(), "To:");
  to_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  if (auto* box = c.FindAs<TextBox>(to_)) box->SetText(name_);
  for (int i = 0; i < kIconsBefore; ++i) c.AddIcon(window());
  message_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kPage);
  send_ = c.AddIcon(window(), "Send");
  const int between = c.facts().Is(Locale::kUk) ? 2 : 0;
  for (int i = 0; i < between; ++i) c.AddIcon(window());
  available_ = c.AddIcon(window(), "Available?");
}

void ComposeWindow::Arrange(Area area) {
  constexpr int kLabel = 30, kButton = 84;
  Area head = area.Within(area.Top(area.control()));
  client().Put(label_, head.Left(kLabel));
  client().Put(to_, head.Rest());
  Area strip = area.Within(area.Bottom(area.control()));
  client().Put(send_, strip.Left(kButton));
  client().Put(available_, strip.Right(kButton));
  client().Put(message_, area.Rest());
}

bool ComposeWindow::OnNotice(Notice notice, Window control, char) {
  if (notice == Notice::kControlEnter || (notice == Notice::kClick && control == send_)) {
    Send();
    return true;
  }
  if (notice == Notice::kClick && control == available_) {
    AskAvailable();
    return true;
  }
  return Document::OnNotice(notice, control, 0);
}

std::string ComposeWindow::To() {
  const auto* box = client().FindAs<TextBox>(to_);
  return box == nullptr ? "" : box->text();
}

void ComposeWindow::Send() {
  const auto* box = client().FindAs<TextBox>(message_);
  const std::string to = To();
  if (box == nullptr || to.empty()) return;
  const std::string text = box->text();
  const bool order = to.starts_with("$im_");
  if (!order && !TakesIms(client().session().members[NameKey(to)])) {
    client().ShowMessage(to + " is not currently signed on.");
    return;
  }
  Dismiss();
  if (!order) return BeginIm(client(), to, text);
  client().Note("im-sent", {to, text});
  client().ShowMessage(to.starts_with("$im_off") ? "You are now ignoring Instant Messages."
                                                 : "You are no longer ignoring Instant Messages.");
}

void ComposeWindow::AskAvailable() {
  const std::string to = To();
  const Member& member = client().session().members[NameKey(to)];
  if (member.state == "offline" || member.state == "unknown")
    client().ShowMessage(to + " is not currently signed on.");
  else if (TakesIms(member))
    client().ShowMessage(to + " is online and able to receive Instant Messages.");
  else
    client().ShowMessage(to + " is online but cannot receive Instant Messages.");
}

ImWindow* FindIm(Client& client, std::string_view person) {
  ImWindow* newest = nullptr;
  for (const auto& im : client.Documents<ImWindow>())
    if (im->IsWith(person)) newest = im.get();
  return newest;
}

void ReceiveIm(Client& client, const std::string& person, const std::string& text,
               ImWindow::Begun begun) {
  if (ImWindow* open = FindIm(client, person)) return open->Receive(text);
  const auto im = std::make_shared<ImWindow>(client, person, begun);
  im->Receive(text);
  client.Open(im);
}

void BeginIm(Client& client, const std::string& person, const std::string& text) {
  client.Note("im-sent", {person, text});
  const auto im = std::make_shared<ImWindow>(client, person, ImWindow::Begun::kByUser);
  im->ShowSent(text);
  client.Open(im);
}

void OpenCompose(Client& client, const std::string& to) {
  client.Open(std::make_shared<ComposeWindow>(client, to));
}

}  // namespace corvel::practice
