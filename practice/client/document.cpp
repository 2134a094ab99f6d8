#include "practice/client/document.h"

#include "practice/controls/simple_layout.h"
#include "practice/controls/text_box.h"

namespace corvel::practice {

Document::Document(Client& client, std::string caption)
    : ClientWindow(client), caption_(std::move(caption)) {}

void Document::Create() {
  if (Gone()) return;
  NewWindow plan;
  plan.className = "AOL Child";
  plan.caption = caption_;
  plan.parent = client().mdi();
  plan.place = FirstPlace();
  if (size_ == Size{}) size_ = {plan.place.width, plan.place.height};
  plan.visible = false;
  plan.mdiChild = true;
  client().Make(plan, shared_from_this());
}

void Document::Stand() {
  if (!Alive()) return;
  Fill();
  filled_ = true;
  if (Alive()) Rearrange();
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
  const MessageResult result = Default(message);
  if (message.id == wm::kSize) OnSize(message);
  if (message.id == wm::kSetFocus && Alive())
    if (const Window focus = FocusWhenActive()) client().windows().SetFocus(focus);
  return result;
}

void Document::OnSize(const Message& message) {
  constexpr WParam kMinimized = 1;
  if (message.wParam == kMinimized) return;
  size_ = {static_cast<int>(message.lParam & 0xFFFF),
           static_cast<int>(message.lParam >> 16 & 0xFFFF)};
  if (Filled()) Rearrange();
}

void Document::Rearrange() { Arrange(Area(size_, client().LineHeight())); }

void Document::Arrange(Area area) { ArrangeSimply(client(), window(), area); }

bool Document::OnNotice(Notice notice, Window control, char) {
  return notice == Notice::kTab && GoToNextText(control);
}

bool Document::GoToNextText(Window from) {
  WindowSystem& windows = client().windows();
  Window at = from;
  do {
    at = windows.Next(at);
    if (!at) at = windows.TopChild(window());
    const auto* box = client().FindAs<TextBox>(at);
    if (box == nullptr || !box->CanType() || !windows.IsVisible(at)) continue;
    windows.SetFocus(at);
    return true;
  } while (at && at != from);
  return false;
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
