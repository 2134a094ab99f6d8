// The collection of loaded forms.
#include "forms/form.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace corvel::forms {

Forms::~Forms() {
  for (auto form = loaded_.rbegin(); form != loaded_.rend(); ++form) (*form)->DropPeers();
}

Forms::EventScope::~EventScope() {
  if (--forms_.depth_ == 0) const auto dead = std::exchange(forms_.dying_, {});
}

void Forms::Run(const Form& form, const std::string& owner, const char* event,
                const std::function<void()>& procedure) {
  const EventScope scope(*this);
  std::optional<RunTimeError> escaped;
  try {
    procedure();
  } catch (const RunTimeError& error) {
    escaped = error;
  }
  if (!escaped) return;
  const std::string name = owner + "_" + event;
  if (!onUnhandledError) throw std::logic_error(form.Name() + "." + name + ": " + escaped->Text());
  onUnhandledError(*escaped, form.Name().c_str(), name.c_str());
}

void Forms::Adopt(std::shared_ptr<Form> form) {
  // Counts as an event procedure, but frees nothing at its end: a form that unloaded itself in
  // Form_Load is still to be handed to whoever asked for it.
  struct Hold {
    explicit Hold(int& depth) : depth_(depth) { ++depth_; }
    ~Hold() { --depth_; }
    int& depth_;
  } const hold(depth_);
  if (over_) return dying_.push_back(std::move(form));
  loaded_.push_back(form);
  try {
    form->MakePeers();
    form->Form_Load();
  } catch (...) {
    Release(*form);
    throw;
  }
}

void Forms::Release(Form& form) {
  const auto place = std::find_if(loaded_.begin(), loaded_.end(),
                                  [&form](const auto& loaded) { return loaded.get() == &form; });
  if (place == loaded_.end()) return;
  dying_.push_back(std::move(*place));
  loaded_.erase(place);
  form.DropPeers();
}

void Forms::UnloadAll() {
  const EventScope scope(*this);
  for (const auto& form : loaded_) form->mustGo_ = true;
  for (;;) {
    const auto newest = std::find_if(loaded_.rbegin(), loaded_.rend(),
                                     [](const auto& form) { return !form->unloading_; });
    if (newest == loaded_.rend()) break;
    (*newest)->mustGo_ = true;  // it may have been loaded by another one's Form_Unload
    (*newest)->Unload();
  }
  over_ = true;
}

}  // namespace corvel::forms
