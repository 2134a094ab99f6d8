#include "practice/document.h"

#include "practice/client.h"

namespace corvel::practice {

Document::Document(Client& client, std::string caption)
    : ClientWindow(client), caption_(std::move(caption)) {}

void Document::Create() {
  if (Gone()) return;
  NewWindow plan;
  plan.className = "AOL Child";
  plan.caption = caption_;
  plan.parent = client().mdi();
  plan.place = {20, 20, 420, 300};
  plan.visible = false;
  plan.mdiChild = true;
  client().Make(plan, shared_from_this());
}

void Document::Stand() {
  if (!Alive()) return;
  Fill();
  filled_ = true;
  client().windows().Show(window(), show::kShow);
  const Window focus = FirstFocus();
  if (Alive() && focus) client().windows().SetFocus(focus);
}

void Document::SetCaption(const std::string& caption) {
  caption_ = caption;
  client().windows().SendText(window(), wm::kSetText, 0, caption);
}

MessageResult Document::Handle(const Message& message) {
  // While it goes the system looks for another window to take its focus, which it must not be.
  if (message.id == wm::kClose) closing_ = true;
  return Default(message);
}

Window Document::FocusWhenActive() {
  if (!Filled() || closing_) return {};
  return client().windows().Exists(lastFocus_) ? lastFocus_ : FirstFocus();
}

void Document::Dismiss() {
  closing_ = true;
  if (Alive())
    client().platform().ownWindows.Destroy(window());
  else
    GiveUp();
}

void Document::Close() { client().windows().Send(window(), wm::kClose, 0, 0); }

}  // namespace corvel::practice
