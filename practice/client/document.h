// A document window of the client: an MDI child with its controls.
#pragma once

#include "practice/client/client_window.h"
#include "practice/controls/area.h"

#include <string>

namespace corvel::practice {

class Document : public ClientWindow {
 public:
  Document(Client& client, std::string caption);

  // Makes the window, hidden and without controls: as a stranger can find it for a while.
  void Create();
  // Makes the controls and shows it. Does nothing on a window that has gone meanwhile.
  void Stand();
  bool Filled() const { return filled_ && Alive(); }
  void RememberFocus(Window control) override { lastFocus_ = control; }
  // What takes the keyboard when the client is activated with this document on top; 0 for nothing.
  Window FocusWhenActive();
  // Its caption as it will be or is.
  const std::string& caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  // Takes it away without asking it, also one that is only asked for yet.
  void Dismiss();
  // As by its frame: a closing message, which others may see or stop.
  void Close();
  // Tab goes on to the next text that can be typed into.
  bool OnNotice(Notice notice, Window control, char character) override;

 protected:
  MessageResult Handle(const Message& message) override;
  virtual void Fill() = 0;
  // The control that gets the keyboard when the window comes; 0 for none.
  virtual Window FirstFocus() { return {}; }
  // Where it comes up, in the pixels of the MDI client.
  virtual Rect FirstPlace() const { return {130, 70, 320, 150}; }
  // Gives the controls their places. By itself: labels and edits from the top, buttons at the
  // bottom, lists and texts in between.
  virtual void Arrange(Area area);
  void Rearrange();

 private:
  void OnSize(const Message& message);
  bool GoToNextText(Window from);
  std::string caption_;
  Window lastFocus_{};
  Size size_{};
  bool filled_ = false;
  bool closing_ = false;
};

}  // namespace corvel::practice
