// Looking at the program's forms; see desk_peers.h.
#include "platform/desk/desk_peers.h"

#include "base/text.h"
#include "platform/desk/desk_form.h"

#include <algorithm>

namespace corvel::desk {

struct DeskPeers::Impl {
  Desk& desk;
  std::vector<DeskForm*> forms{};
};

DeskPeers::DeskPeers(Desk& desk) : impl_(new Impl{.desk = desk}) {}
DeskPeers::~DeskPeers() = default;

std::unique_ptr<FormPeer> DeskPeers::CreateForm(const FormState& state, FormEvents& events) {
  return std::make_unique<DeskForm>(impl_->desk, impl_->forms, state, events);
}

std::vector<DeskPeers::FormView> DeskPeers::Forms() const {
  std::vector<FormView> views;
  for (DeskForm* form : impl_->forms)
    if (impl_->desk.windows().Exists(form->Handle()))
      views.push_back({form->Process(), form->Handle(), &form->State(), &form->Events()});
  return views;
}

std::optional<DeskPeers::FormView> DeskPeers::FindForm(std::string_view name) const {
  const std::vector<FormView> forms = Forms();
  const auto found = std::find_if(forms.rbegin(), forms.rend(), [&](const FormView& form) {
    return EqualNoCase(form.state->name, name);
  });
  if (found == forms.rend()) return std::nullopt;
  return *found;
}

std::optional<DeskPeers::FormView> DeskPeers::FindFormAt(Window window) const {
  for (const FormView& form : Forms())
    if (form.window == window) return form;
  return std::nullopt;
}

std::vector<DeskPeers::ControlView> DeskPeers::ControlsOf(Window form) const {
  std::vector<ControlView> views;
  for (DeskForm* one : impl_->forms)
    if (form && one->Handle() == form)
      for (DeskControl* control : one->Controls())
        if (control->Handle())
          views.push_back({control->Handle(), form, &control->State(), &control->Events()});
  return views;
}

std::optional<DeskPeers::ControlView> DeskPeers::FindControl(Window form, std::string_view name,
                                                             int index) const {
  for (const ControlView& view : ControlsOf(form))
    if (view.state->index == index && EqualNoCase(view.state->name, name)) return view;
  return std::nullopt;
}

std::optional<DeskPeers::ControlView> DeskPeers::Find(Window control) const {
  for (const FormView& form : Forms())
    for (const ControlView& view : ControlsOf(form.window))
      if (view.window == control) return view;
  return std::nullopt;
}

Window DeskPeers::FocusedControl() const {
  const auto view = Find(impl_->desk.windows().Focus());
  return view ? view->window : Window{};
}

}  // namespace corvel::desk
