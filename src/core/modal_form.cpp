#include "core/modal_form.h"

#include <algorithm>

namespace corvel {

void ModalWindow::Wait(forms::Form* owner) {
  TakeOwner(owner);
  if (!owner_ || owner_->State().topMost) SetTopMost();
  Center();
  Show();
  // The system takes a window away with its owner, and only the handle tells.
  while (waits_ && IsLoaded() && platform().windows.Exists(Handle()))
    platform().events.Pump({Name().c_str(), WaitFor::kUser});
  GiveOwnerBack();
  Unload();
}

// The owner first: as long as it takes no input, hiding this window would bring up another one.
void ModalWindow::End() {
  waits_ = false;
  GiveOwnerBack();
  Hide();
}

// Whoever waits for the answer unloads the window.
bool ModalWindow::Form_QueryUnload(bool byUser) {
  if (byUser) Cancel();
  return !byUser;
}

void ModalWindow::TakeOwner(forms::Form* owner) {
  if (!owner || !owner->IsLoaded()) return;
  owner_ = owner->shared_from_this();
  owner_->SetEnabled(false);
  SetOwner(owner_->Handle());
}

void ModalWindow::GiveOwnerBack() {
  const auto owner = std::exchange(owner_, nullptr);
  const auto& all = program.forms.All();
  const bool isHeld = std::any_of(all.begin(), all.end(), [&owner](const auto& form) {
    const auto* other = dynamic_cast<const ModalWindow*>(form.get());
    return other && other->owner_ == owner;
  });
  if (owner && !isHeld) owner->SetEnabled(true);
}

}  // namespace corvel
