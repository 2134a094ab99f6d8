// The main window: menu bar, toolbar, MDI client.
#pragma once

#include "practice/client/client_window.h"

#include <vector>

namespace corvel::practice {

class Frame : public ClientWindow {
 public:
  using ClientWindow::ClientWindow;

 protected:
  MessageResult Handle(const Message& message) override;
  void OnDestroyed() override;

 private:
  void Arrange(int width, int height);
};

// Holds the documents.
class MdiClient : public ClientWindow {
 public:
  using ClientWindow::ClientWindow;

 protected:
  MessageResult Handle(const Message& message) override;
};

// The row of toolbar icons: `_AOL_Toolbar` inside `AOL Toolbar`, or the latter itself on
// generation 3.
class Toolbar : public ClientWindow {
 public:
  using ClientWindow::ClientWindow;
  void Fill();
  bool OnNotice(Notice notice, Window control, char character) override;

 private:
  std::vector<Window> icons_;
};

// Makes all of it, hidden from nobody, with its icons as for a client that is signed off.
void MakeFrame(Client& client);
// Enables or disables the icons that need the service.
void UpdateToolbar(Client& client);

}  // namespace corvel::practice
