#include "practice/documents/mail.h"

#include "practice/client/client.h"
#include "practice/controls/text_box.h"

namespace corvel::practice {

TextBox* MailWindow::body() { return client().FindAs<TextBox>(body_); }

std::string MailWindow::Field(const std::string& name) {
  const TextBox* box = body();
  return name == "body" && box != nullptr ? box->text() : "";
}

WriteMailWindow::WriteMailWindow(Client& client) : MailWindow(client, client.facts().writeTitle) {}

Window WriteMailWindow::AddLabel(std::string text) {
  return labels_.emplace_back(client().AddStatic(window(), std::move(text)));
}

void WriteMailWindow::FillHead() {
  Client& c = client();
  AddLabel("Send To:");
  to_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  AddLabel("Copy To:");
  copy_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  AddLabel("Subject:");
  subject_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
}

void WriteMailWindow::FillIcons(int count) {
  const Facts& facts = client().facts();
  for (int i = 1; i <= count; ++i) {
    const bool attaches = i == facts.attachIcon, sends = i == count && !attaches;
    const Window icon = client().AddIcon(window(), attaches ? facts.attachText
                                                   : sends  ? "Send"
                                                            : "");
    if (attaches) attach_ = icon;
    if (sends) send_ = icon;
  }
}

void WriteMailWindow::Arrange(Area area) {
  constexpr int kLabel = 56, kButton = 80, kFont = 140;
  const Window fields[] = {to_, copy_, subject_};
  for (std::size_t i = 0; i < std::size(fields) && i < labels_.size(); ++i) {
    Area row = area.Within(area.Top(area.control()));
    client().Put(labels_[i], row.Left(kLabel));
    client().Put(fields[i], row.Rest());
  }
  Area strip = area.Within(area.Bottom(area.control()));
  client().Put(send_, send_ ? strip.Right(kButton) : Rect{});
  client().Put(attach_, strip.Left(kButton));
  client().Put(receipt_, strip.Rest());
  if (font_) client().Put(font_, area.Within(area.Top(area.control())).Left(kFont));
  client().Put(body_, area.Rest());
}

void WriteMailWindow::Fill() {
  Client& c = client();
  constexpr int kIcons3 = 5, kIcons4 = 16;
  if (c.facts().generation == 3) {
    // The fifth of five icons in a row attaches.
    FillIcons(kIcons3);
    c.AddStatic(window(), "Address Book");
    FillHead();
    body_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kPage);
    return;
  }
  FillHead();
  font_ = c.AddControl<PlainWindow>(window(), "_AOL_FontCombo", "Arial");
  FillIcons(kIcons4);
  body_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kPage);
  receipt_ = c.AddControl<PlainWindow>(window(), "_AOL_Checkbox",
                                       "Request \"Return Receipt\" from AOL members");
}

bool WriteMailWindow::OnNotice(Notice notice, Window control, char) {
  if (notice == Notice::kClick && control == send_ && send_) {
    // Nobody is there to get it.
    Close();
    client().ShowMessage("Your mail has been sent.");
    return true;
  }
  if (notice != Notice::kTab) return false;
  const Window order[] = {to_, copy_, subject_, body_};
  for (std::size_t at = 0; at < std::size(order); ++at)
    if (order[at] == control) client().windows().SetFocus(order[(at + 1) % std::size(order)]);
  return true;
}

std::string WriteMailWindow::Field(const std::string& name) {
  const Window field = name == "to" ? to_ : name == "subject" ? subject_ : Window{};
  const auto* box = client().FindAs<TextBox>(field);
  return box != nullptr ? box->text() : MailWindow::Field(name);
}

ReadMailWindow::ReadMailWindow(Client& client, std::string title, std::string text)
    : MailWindow(client, std::move(title)), text_(std::move(text)) {}

void ReadMailWindow::Fill() {
  Client& c = client();
  body_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kReadOnly);
  if (TextBox* box = body()) box->SetText(text_);
  for (int i = 1; i < c.facts().replyStatic; ++i) c.AddStatic(window(), i == 1 ? "Subj:" : "");
  for (const char* text : {"Reply", "Forward"}) {
    labels_.push_back(c.AddStatic(window(), text));
    icons_.push_back(c.AddIcon(window(), text));
  }
}

void ReadMailWindow::Arrange(Area area) {
  // The pictures of the buttons stand above their labels.
  constexpr int kButton = 72;
  Area side = area.Within(area.Right(kButton));
  for (const Window icon : icons_) client().Put(icon, side.Top(side.control()));
  client().Put(body_, area.Rest());
}

std::string ReadMailWindow::Field(const std::string& name) {
  return name == "subject" ? caption() : MailWindow::Field(name);
}

void OpenWriteMail(Client& client) {
  if (client.SignedOn()) client.Open(std::make_shared<WriteMailWindow>(client));
}

void OpenReadMail(Client& client, const std::string& title, const std::string& text) {
  client.Open(std::make_shared<ReadMailWindow>(client, title, text));
}

MailWindow* TopMail(Client& client) {
  WindowSystem& windows = client.windows();
  for (Window child = windows.TopChild(client.mdi()); child; child = windows.Next(child)) {
    auto* mail = client.FindAs<MailWindow>(child);
    if (mail != nullptr && mail->Filled()) return mail;
  }
  return nullptr;
}

}  // namespace corvel::practice
