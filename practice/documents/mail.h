// Mail windows: the one to write in and the one to read.
#pragma once

#include "practice/client/document.h"

#include <memory>
#include <string>
#include <vector>

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
  Rect FirstPlace() const override { return {30, 20, 520, 340}; }
  void Arrange(Area area) override;

 private:
  void FillHead();
  void FillIcons(int count);
  Window AddLabel(std::string text);
  Window to_{}, copy_{}, subject_{}, font_{}, receipt_{}, attach_{}, send_{};
  std::vector<Window> labels_;
};

class ReadMailWindow : public MailWindow {
 public:
  ReadMailWindow(Client& client, std::string title, std::string text);
  std::string Field(const std::string& name) override;

 protected:
  void Fill() override;
  Rect FirstPlace() const override { return {50, 30, 480, 300}; }
  void Arrange(Area area) override;

 private:
  std::string text_;
  std::vector<Window> labels_, icons_;
};

void OpenWriteMail(Client& client);
void OpenReadMail(Client& client, const std::string& title, const std::string& text);
// The mail window that lies highest among the documents; nullptr for none.
MailWindow* TopMail(Client& client);

}  // namespace corvel::practice
