#include "wavlib/modal.h"

#include "core/helpers.h"

namespace corvel {

void ShowModal(Program& program, forms::Form& owner, forms::Form& dialog, const char* waitName) {
  const auto keepAlive = owner.shared_from_this();
  owner.SetEnabled(false);
  dialog.SetOwner(owner.Handle());
  dialog.Center();
  dialog.Show();
  WaitWhileVisible(program, dialog, waitName);
  if (owner.IsLoaded()) owner.SetEnabled(true);
}

}  // namespace corvel
