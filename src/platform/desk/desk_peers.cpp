// The user's hand at the program's forms; see desk_peers.h.
#include "platform/desk/desk_peers.h"

#include "base/text.h"
#include "platform/desk/desk_form.h"

#include <algorithm>

namespace corvel::desk {
namespace {

void EditKey(DeskControl& control, Key key) {
  std::string text = control.State().text;
  if (key == Key::kBackspace) {
    if (text.empty()) return;
    text.pop_back();
  } else if (key == Key::kSpace) {
    text += ' ';
  } else if (key == Key::kEnter && control.State().multiLine) {
    text += "\r\n";
  } else {
    return;
  }
  control.Events().UserText(text);
}

void ListKey(DeskControl& control, Key key) {
  const int last = static_cast<int>(control.State().items.size()) - 1;
  const int selected = control.State().selected;
  int row = selected;
  if (key == Key::kUp) row = std::max(selected - 1, 0);
  if (key == Key::kDown) row = std::min(selected + 1, last);
  if (key == Key::kHome) row = 0;
  if (key == Key::kEnd) row = last;
  if (row != selected && HasRow(control.State(), row)) control.Events().UserSelect(row, false);
}

// What the system does with a key that the control's own events have not used up. Which button
// Enter and Escape press is the toolkit's affair.
void SystemKey(DeskControl& control, Key key) {
  const ControlState& state = control.State();
  const bool isButton =
      state.kind == ControlKind::kButton || state.kind == ControlKind::kFlatButton ||
      state.kind == ControlKind::kCheckBox || state.kind == ControlKind::kOptionButton;
  if (isButton && key == Key::kSpace) return control.Events().UserClick();
  if (state.kind == ControlKind::kTextBox) EditKey(control, key);
  if (HasRows(state.kind)) ListKey(control, key);
}

}  // namespace

struct DeskPeers::Impl {
  Desk& desk;
  std::vector<DeskForm*> forms{};

  DeskForm* Form(Window window) const {
    for (DeskForm* form : forms)
      if (form->Handle() == window && desk.windows().Exists(window)) return form;
    return nullptr;
  }
  DeskControl* Control(Window window) const {
    for (const DeskForm* form : forms)
      for (DeskControl* control : form->Controls())
        if (control->Handle() == window && desk.windows().Exists(window)) return control;
    return nullptr;
  }
  // Why the user can't reach it; "" if he can.
  std::string Refusal(const DeskForm* form) const;
  std::string Refusal(const DeskControl* control) const;
  Done Do(Window control, std::string refusal, std::function<void(DeskControl&)> act);
  Done DoToForm(Window form, std::string refusal, std::function<void(DeskForm&)> act);
};

std::string DeskPeers::Impl::Refusal(const DeskForm* form) const {
  if (!form) return "there is no such form";
  if (!desk.IsRunning(form->Process()) && form->Process() != 0) return "its program has ended";
  for (const auto& prompt : desk.Prompts())
    if (!prompt->answered)
      return prompt->kind == Prompt::Kind::kPopup ? "a pop-up menu is open"
                                                  : "a dialog of the system waits for its answer";
  if (!desk.windows().IsVisible(const_cast<DeskForm*>(form)->Handle()))
    return form->State().name + " is not visible";
  return form->State().enabled ? "" : form->State().name + " is disabled";
}

std::string DeskPeers::Impl::Refusal(const DeskControl* control) const {
  if (!control) return "there is no such control";
  if (const std::string refusal = Refusal(control->Form()); !refusal.empty()) return refusal;
  if (!control->State().visible) return NameOf(control->State()) + " is not visible";
  return control->State().enabled ? "" : NameOf(control->State()) + " is disabled";
}

// The act is an event of the form's process; by then the control may have gone, or be out of reach.
DeskPeers::Done DeskPeers::Impl::Do(Window window, std::string refusal,
                                    std::function<void(DeskControl&)> act) {
  const DeskControl* found = Control(window);
  if (const std::string unreachable = Refusal(found); !unreachable.empty()) refusal = unreachable;
  if (!refusal.empty()) return {0, std::move(refusal)};
  return {desk.PostTask(found->Form()->Process(),
                        [this, window, act = std::move(act)] {
                          DeskControl* control = Control(window);
                          if (!Refusal(control).empty()) return;
                          control->TakeFocus();
                          control = Control(window);
                          if (Refusal(control).empty()) act(*control);
                        }),
          ""};
}

DeskPeers::Done DeskPeers::Impl::DoToForm(Window window, std::string refusal,
                                          std::function<void(DeskForm&)> act) {
  const DeskForm* found = Form(window);
  if (const std::string unreachable = Refusal(found); !unreachable.empty()) refusal = unreachable;
  if (!refusal.empty()) return {0, std::move(refusal)};
  return {desk.PostTask(found->Process(),
                        [this, window, act = std::move(act)] {
                          DeskForm* form = Form(window);
                          if (Refusal(form).empty()) act(*form);
                        }),
          ""};
}

DeskPeers::DeskPeers(Desk& desk) : impl_(new Impl{.desk = desk}) {}
DeskPeers::~DeskPeers() = default;

std::unique_ptr<FormPeer> DeskPeers::CreateForm(const FormState& state, FormEvents& events) {
  return std::make_unique<DeskForm>(impl_->desk, impl_->forms, state, events);
}

// --- Looking -------------------------------------------------------------------------------------

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

std::vector<DeskPeers::ControlView> DeskPeers::ControlsOf(Window form) const {
  std::vector<ControlView> views;
  if (const DeskForm* found = impl_->Form(form))
    for (DeskControl* control : found->Controls())
      views.push_back({control->Handle(), &control->State(), &control->Events()});
  return views;
}

std::optional<DeskPeers::ControlView> DeskPeers::FindControl(Window form, std::string_view name,
                                                             int index) const {
  for (const ControlView& view : ControlsOf(form))
    if (view.state->index == index && EqualNoCase(view.state->name, name)) return view;
  return std::nullopt;
}

Window DeskPeers::FocusedControl() const {
  const Window focus = impl_->desk.windows().Focus();
  return impl_->Control(focus) ? focus : Window{};
}

// --- Acting --------------------------------------------------------------------------------------

DeskPeers::Done DeskPeers::Click(Window control) {
  return impl_->Do(control, "", [](DeskControl& c) { c.Events().UserClick(); });
}

DeskPeers::Done DeskPeers::DoubleClick(Window control) {
  const DeskControl* found = impl_->Control(control);
  const bool noRow =
      found && HasRows(found->State().kind) && !HasRow(found->State(), found->State().selected);
  return impl_->Do(control, noRow ? NameOf(found->State()) + " has no current row" : "",
                   [](DeskControl& c) { c.Events().UserDoubleClick(); });
}

DeskPeers::Done DeskPeers::RightClick(Window control) {
  return impl_->Do(control, "", [](DeskControl& c) { c.Events().UserRightClick(); });
}

DeskPeers::Done DeskPeers::Select(Window control, int row, bool keepMarked) {
  const DeskControl* found = impl_->Control(control);
  const bool noRow = found && !HasRow(found->State(), row);
  return impl_->Do(control,
                   noRow ? NameOf(found->State()) + " has no row " + std::to_string(row) : "",
                   [row, keepMarked](DeskControl& c) {
                     if (!HasRow(c.State(), row)) return;
                     c.Events().UserSelect(row, keepMarked && c.State().multiSelect);
                   });
}

DeskPeers::Done DeskPeers::Type(Window control, const std::string& wholeText) {
  const DeskControl* found = impl_->Control(control);
  const bool noText = found && found->State().kind != ControlKind::kTextBox;
  return impl_->Do(control, noText ? NameOf(found->State()) + " is not a text box" : "",
                   [wholeText](DeskControl& c) { c.Events().UserText(wholeText); });
}

DeskPeers::Done DeskPeers::Press(Window control, Key key) {
  return impl_->Do(control, "", [this, control, key](DeskControl& c) {
    if (c.Events().UserKey(key)) return;
    DeskControl* still = impl_->Control(control);
    if (still && still->Form()) SystemKey(*still, key);
  });
}

DeskPeers::Done DeskPeers::Drag(Window control, int dx, int dy) {
  return impl_->Do(control, "", [dx, dy](DeskControl& c) { c.Events().UserDrag(dx, dy); });
}

DeskPeers::Done DeskPeers::Close(Window form) {
  const DeskForm* found = impl_->Form(form);
  const bool fixed = found && !found->State().closable;
  return impl_->DoToForm(form, fixed ? found->State().name + " has no close box" : "",
                         [](DeskForm& f) { f.Events().UserClose(); });
}

DeskPeers::Done DeskPeers::MoveForm(Window form, int left, int top) {
  return impl_->DoToForm(form, "", [this, left, top](DeskForm& f) {
    Rect place = impl_->desk.windows().PlaceOf(f.Handle());
    place.left = left;
    place.top = top;
    impl_->desk.windows().Place(f.Handle(), place);
  });
}

}  // namespace corvel::desk
