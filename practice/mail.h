// Mail windows: the one to write in and the one to read.
#pragma once

#include "practice/document.h"

#include <memory>
#include <string>

namespace corvel::practice {

class TextBox;

class MailWindow : public Document {
 public:
  using Document::Document;
  TextBox* body();
  // The text of a field: to, subject, body. "" if this kind has no such field.
  virtual std::string Field(const std::string& name);

 protected:
  Window body_{};
};

class WriteMailWindow : public MailWindow {
 public:
  explicit WriteMailWindow(Client& client);
  std::string Field(const std::string& name) override;
  bool OnNotice(Notice notice, Window control, char character) override;

 protected:
  void Fill() override;
  Window FirstFocus() override { return to_; }

 private:
  void FillHead();
  void FillIcons(int count);
  Window to_{}, copy_{}, subject_{};
};

class ReadMailWindow : public MailWindow {
 public:
  ReadMailWindow(Client& client, std::string title, std::string text);
  std::string Field(const std::string& name) override;

 protected:
  void Fill() override;

 private:
  std::string text_;
};

void OpenWriteMail(Client& client);
void OpenReadMail(Client& client, const std::string& title, const std::string& text);
// The mail window that lies highest among the documents; nullptr for none.
MailWindow* TopMail(Client& client);

}  // namespace corvel::practice
