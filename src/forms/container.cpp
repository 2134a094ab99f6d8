#include "forms/container.h"

#include "forms/form.h"

namespace corvel::forms {

Container::Container(Form& form, std::string name)
    : Control(form, ControlKind::kContainer, std::move(name)) {}

// --- What stands in it ---------------------------------------------------------------------------

void Container::SetContent(const Box& inside) {
  content_ = inside;
  TakeIn(inside);
}

// All but what an inner container has taken already. What a frame holds hides with that.
void Container::TakeIn(const Box& box) {
  if (box.control && !box.control->container_) {
    box.control->container_ = this;
    box.control->state_.container = &state_;
    box.control->Show(Aspect::kParent);
    if (!box.control->holder_) box.control->HideWith(*this);
  }
  for (const Box& inside : box.inside) TakeIn(inside);
}

bool Container::Holds(const Control& control) const {
  const Control* at = control.container_;
  while (at && at != this) at = at->container_;
  return at != nullptr;
}

void Container::LayOut() {
  if (content_.kind == Box::Kind::kSpace) return;
  FitControls(content_, Owner().platform().display, {state_.place.width, state_.place.height});
}

// --- Its place -----------------------------------------------------------------------------------

void Container::SetPlace(const Rect& place) {
  Control::SetPlace(place);
  LayOut();
}

void Container::PlaceAtHome(const Rect& place) {
  home_ = place;
  if (!state_.host) SetPlace(place);
}

bool Container::HangInto(Window host, const Rect& place) {
  WindowSystem& windows = Owner().platform().windows;
  if (!host || !windows.Exists(Handle())) return false;
  windows.SetParent(Handle(), host);
  if (windows.Parent(Handle()) != host) return false;
  if (!state_.host) home_ = state_.place;
  state_.host = host;
  Show(Aspect::kEnabled);
  SetPlace(place);
  return true;
}

void Container::ComeHome() {
  if (!state_.host) return;
  const Window home = container_ ? container_->Handle() : Owner().Handle();
  Owner().platform().windows.SetParent(Handle(), home);
  state_.host = {};
  Show(Aspect::kEnabled);
  SetPlace(home_);
}

void Container::WindowPlaced(const Rect& place) {
  const Size before{state_.place.width, state_.place.height};
  state_.place = place;
  if (before == Size{place.width, place.height}) return;
  LayOut();
  Raise(onResize, "Resize");
}

// --- Its death -----------------------------------------------------------------------------------

// At home it goes with its form.
void Container::WindowLost() {
  if (state_.host) Owner().platform().windows.Post(Owner().Handle(), kContainerLost, id_, 0);
}

void Container::MakeAnew() {
  if (!state_.host || Owner().platform().windows.Exists(Handle())) return;
  state_.host = {};
  state_.place = home_;
  const auto& controls = Owner().Controls();
  for (auto control = controls.rbegin(); control != controls.rend(); ++control)
    if (Holds(**control)) (*control)->peer_.reset();
  peer_.reset();
  Owner().AddMissingPeers();
  LayOut();
  Raise(onLost, "Lost");
}

}  // namespace corvel::forms
