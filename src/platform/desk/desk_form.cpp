// Forms and controls as desk windows; see desk_form.h.
#include "platform/desk/desk_form.h"

#include <algorithm>
#include <utility>

namespace corvel::desk {
namespace {

// Frame and title bar at the system's usual sizes, in pixels.
constexpr Size kFixedFrame{6, 25}, kSizingFrame{8, 27}, kNoFrame{0, 0};

// Window and state in step, for those who look at windows.
void KeepInStep(Desk& desk, Window window, bool visible, bool enabled, const Rect& place) {
  WindowNode* node = desk.windows().impl().tree.Find(window);
  if (!node) return;
  node->visible = visible;
  node->enabled = enabled;
  node->place = place;
}

void DestroyPeer(Desk& desk, Window window) { desk.windows().impl().DestroyTree(window); }

}  // namespace

// --- Controls ------------------------------------------------------------------------------------

DeskControl::DeskControl(DeskForm& form, const ControlState& state, ControlEvents& events)
    : desk_(form.desk()), form_(&form), state_(state), events_(events) {
  const Window parent = form.ParentOf(state);
  if (!parent) return;  // it has gone before us
  WindowNode* node = desk_.windows().impl().AddWindow("CorvelControl", parent, *this);
  if (!node) return;
  window_ = node->handle;
  node->shownText = &state_.text;
  Show(Aspect::kAll);
}

DeskControl::~DeskControl() {
  const Window window = std::exchange(window_, {});  // it isn't lost, but taken away
  if (form_) form_->Forget(*this);
  DestroyPeer(desk_, window);
}

void DeskControl::Changed(Aspect aspect, int) {
  if (window_) Show(aspect);
}

void DeskControl::Show(Aspect aspect) {
  if (aspect == Aspect::kParent && form_)
    desk_.windows().SetParent(window_, form_->ParentOf(state_));
  if (aspect == Aspect::kAll || aspect == Aspect::kVisible || aspect == Aspect::kEnabled ||
      aspect == Aspect::kPlace || aspect == Aspect::kParent)
    KeepInStep(desk_, window_, state_.visible, state_.enabled, state_.place);
  if (!corvel::IsUsable(state_) && desk_.windows().Focus() == window_) LeaveFocus();
}

void DeskControl::LeaveFocus() {
  if (!form_) return;
  DeskControl* next = form_->ControlOf(FocusBehind(form_->States(), state_));
  desk_.windows().SetFocus(next ? next->Handle() : form_->ParentOf(state_));
}

void DeskControl::TakeFocus() {
  if (CanHaveFocus(state_.kind)) desk_.windows().SetFocus(window_);
}

MessageResult DeskControl::OnMessage(Window window, const Message& message) {
  if (message.id == wm::kClose) return 0;
  if (message.id == wm::kNcDestroy && window == window_) {  // with the window that it stood in
    window_ = {};
    if (state_.kind == ControlKind::kContainer) events_.WindowLost();
    return 0;
  }
  const bool placed = message.id == wm::kMove || message.id == wm::kSize;
  if (!placed) return desk_.windows().Default(window, message);
  // Another program has done it: what the toolkit does sends no message.
  const WindowNode* node = desk_.windows().impl().tree.Find(window);
  const bool told = !node || node->place == state_.place;
  if (!told && state_.kind == ControlKind::kContainer) events_.WindowPlaced(node->place);
  return 0;
}

// --- Forms ---------------------------------------------------------------------------------------

DeskForm::DeskForm(Desk& desk, std::vector<DeskForm*>& all, const FormState& state,
                   FormEvents& events)
    : desk_(desk), all_(all), state_(state), events_(events), process_(desk.Current()) {
  all_.push_back(this);
  WindowNode* node = desk_.windows().impl().AddWindow("CorvelForm", {}, *this);
  if (!node) return;
  window_ = node->handle;
  node->shownText = &state_.caption;
  node->frameLeft = FrameSize().width / 2;
  node->frameTop = FrameSize().height - node->frameLeft;
  Changed(Aspect::kAll);
}

DeskForm::~DeskForm() {
  if (desk_.windows().Exists(window_)) NoteShown(false);
  std::erase(all_, this);
  for (DeskControl* control : controls_) control->LoseForm();
  DestroyPeer(desk_, window_);
}

void DeskForm::NoteShown(bool shown) {
  if (shown == shown_) return;
  shown_ = shown;
  desk_.Note(shown ? "shown" : "hidden", {state_.name});
}

void DeskForm::Changed(Aspect) {
  KeepInStep(desk_, window_, shown_, state_.enabled, state_.place);
  WindowNode* node = desk_.windows().impl().tree.Find(window_);
  if (!node || node->topMost == state_.topMost) return;
  node->topMost = state_.topMost;
  desk_.windows().impl().tree.Raise(*node);
}

DeskControl* DeskForm::ControlOf(const ControlState* state) const {
  const auto hit = std::find_if(controls_.begin(), controls_.end(),
                                [state](const auto* one) { return &one->State() == state; });
  return hit == controls_.end() ? nullptr : *hit;
}

ControlStates DeskForm::States() const {
  ControlStates states;
  for (const DeskControl* control : controls_) states.push_back(&control->State());
  return states;
}

Window DeskForm::ParentOf(const ControlState& control) const {
  if (!control.container) return window_;
  DeskControl* container = ControlOf(control.container);
  return container ? container->Handle() : Window{};
}

void DeskForm::ApplyVisible(bool activate) {
  DeskWindows& windows = desk_.windows();
  if (!windows.Exists(window_)) return;
  NoteShown(state_.visible);
  windows.impl().ShowNode(window_, state_.visible);
  if (!state_.visible || !activate) return;
  DeskControl* first = ControlOf(FirstFocus(States()));
  windows.SetFocus(first ? first->Handle() : window_);
}

Size DeskForm::FrameSize() {
  if (!state_.border) return kNoFrame;
  return state_.resizable ? kSizingFrame : kFixedFrame;
}

std::unique_ptr<ControlPeer> DeskForm::Add(const ControlState& state, ControlEvents& events) {
  auto control = std::make_unique<DeskControl>(*this, state, events);
  controls_.push_back(control.get());
  return control;
}

MessageResult DeskForm::OnMessage(Window window, const Message& message) {
  if (message.id == wm::kTimer || message.id >= wm::kUser) {
    events_.OnMessage(message.id, message.wParam, message.lParam);
    return 0;
  }
  if (message.id == wm::kClose) {
    events_.UserClose();
    return 0;
  }
  // Another program has placed it, or the user's hand: what the toolkit does sends no message.
  if (message.id == wm::kMove || message.id == wm::kSize) {
    const Rect place = desk_.windows().PlaceOf(window);
    if (message.id == wm::kMove) events_.UserMoved(place.left, place.top);
    if (message.id == wm::kSize) events_.UserResized(place.width, place.height);
    return 0;
  }
  if (message.id == wm::kDestroy) NoteShown(false);  // it dies with its owner
  return desk_.windows().Default(window, message);
}

}  // namespace corvel::desk
