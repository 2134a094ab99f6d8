#include "practice/mail.h"

#include "practice/client.h"
#include "practice/text_box.h"

namespace corvel::practice {

TextBox* MailWindow::body() { return client().FindAs<TextBox>(body_); }

std::string MailWindow::Field(const std::string& name) {
  const TextBox* box = body();
  return name == "body" && box != nullptr ? box->text() : "";
}

WriteMailWindow::WriteMailWindow(Client& client) : MailWindow(client, client.facts().writeTitle) {}

void WriteMailWindow::FillHead() {
  Client& c = client();
  c.AddStatic(window(), "Send To:");
  to_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  c.AddStatic(window(), "Copy To:");
  copy_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  c.AddStatic(window(), "Subject:");
  subject_ = c.AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
}

void WriteMailWindow::FillIcons(int count) {
  for (int i = 1; i <= count; ++i)
    client().AddIcon(window(), i == client().facts().attachIcon ? client().facts().attachText : "");
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
  c.AddControl<PlainWindow>(window(), "_AOL_FontCombo", "");
  FillIcons(kIcons4);
  body_ = c.AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kPage);
  c.AddControl<PlainWindow>(window(), "_AOL_Checkbox",
                            "Request \"Return Receipt\" from AOL members");
}

bool WriteMailWindow::OnNotice(Notice notice, Window control, char) {
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
  c.AddStatic(window(), "Reply");
  c.AddIcon(window(), "Reply");
  c.AddStatic(window(), "Forward");
  c.AddIcon(window(), "Forward");
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
