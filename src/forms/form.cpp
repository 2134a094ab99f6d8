#include "forms/form.h"

#include "base/text.h"
#include "forms/container.h"
#include "forms/menu.h"
#include "forms/subclass.h"
#include "forms/timer.h"

#include <algorithm>
#include <limits>

namespace corvel::forms {
namespace {

int HeldTo16Bits(int pixels) {
  return std::clamp<int>(pixels, std::numeric_limits<std::int16_t>::min(),
                         std::numeric_limits<std::int16_t>::max());
}

template <class T>
T* FindById(const std::vector<T*>& all, WParam id, const WParam T::*member) {
  const auto hit =
      std::find_if(all.begin(), all.end(), [&](const T* one) { return one->*member == id; });
  return hit == all.end() ? nullptr : *hit;
}

}  // namespace

Form::Form(Forms& forms, std::string name, std::string_view caption) : forms_(forms) {
  state_.name = std::move(name);
  state_.caption = caption;
}

Form::~Form() = default;

Platform& Form::platform() const { return forms_.platform(); }

Window Form::Handle() const { return peer_ ? peer_->Handle() : Window{}; }

void Form::Changed(Aspect aspect) {
  if (peer_) peer_->Changed(aspect);
}

// --- Life ----------------------------------------------------------------------------------------

void Form::MakePeers() {
  peer_ = platform().peers.CreateForm(state_, *this);
  Arrange();
  AddMissingPeers();
  for (Timer* timer : timers_)
    if (timer->Enabled()) timer->Apply();
}

void Form::AddMissingPeers() {
  for (Control* control : controls_) AddPeer(*control);
}

void Form::AddPeer(Control& control) {
  if (control.peer_) return;
  if (control.container_) AddPeer(*control.container_);
  control.peer_ = peer_->Add(control.state_, control);
}

void Form::DropPeers() noexcept {
  if (!peer_) return;
  for (Timer* timer : timers_) platform().events.StopTimer(Handle(), timer->id_);
  for (SubClass* subClass : subClasses_) subClass->Unhook();
  for (Chat* chat : chats_) chat->Detach();
  for (auto control = controls_.rbegin(); control != controls_.rend(); ++control)
    (*control)->peer_.reset();
  peer_.reset();
  state_.visible = false;
}

void Form::Show(bool activate) {
  if (!peer_) return;
  state_.visible = true;
  peer_->ApplyVisible(activate);
}

void Form::Hide() {
  if (!peer_ || !state_.visible) return;
  state_.visible = false;
  peer_->ApplyVisible(false);
}

void Form::Unload() { Close(false); }

void Form::Close(bool byUser) {
  if (!IsLoaded() || unloading_) return;
  const Forms::EventScope scope(forms_);
  unloading_ = true;
  bool stays = false;
  forms_.Run(*this, "Form", "QueryUnload",
             [this, byUser, &stays] { stays = !Form_QueryUnload(byUser); });
  if (stays && !mustGo_) {
    unloading_ = false;
    return;
  }
  forms_.Run(*this, "Form", "Unload", [this] { Form_Unload(); });
  forms_.Release(*this);
}

// --- Properties ----------------------------------------------------------------------------------

void Form::SetCaption(std::string_view caption) {
  if (state_.caption == caption) return;
  state_.caption = caption;
  Changed(Aspect::kText);
}

void Form::SetTopMost(bool topMost) {
  state_.topMost = topMost;
  Changed(Aspect::kLook);
}

void Form::SetOwner(Window owner) {
  if (peer_) platform().windows.SetOwner(Handle(), owner);
}

void Form::SetDraggedBy(Label& label) { state_.draggable = label.state_.dragsForm = true; }

void Form::SetBackColor(Color color) {
  state_.backColor = color;
  Changed(Aspect::kLook);
}

void Form::SetEnabled(bool enabled) {
  if (state_.enabled == enabled) return;
  state_.enabled = enabled;
  Changed(Aspect::kEnabled);
}

Control* Form::FindControl(std::string_view name, int index) const {
  const auto hit = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->Index() == index && EqualNoCase(control->Name(), name);
  });
  return hit == controls_.end() ? nullptr : *hit;
}

// --- Place ---------------------------------------------------------------------------------------

int Form::Top() const { return state_.place.top * platform().display.TwipsPerPixel(); }
int Form::Left() const { return state_.place.left * platform().display.TwipsPerPixel(); }
int Form::Width() const { return state_.place.width * platform().display.TwipsPerPixel(); }
int Form::Height() const { return state_.place.height * platform().display.TwipsPerPixel(); }

void Form::SetTop(int twips) { MoveTo(Left(), twips); }
void Form::SetLeft(int twips) { MoveTo(twips, Top()); }

void Form::MoveTo(int leftTwips, int topTwips) {
  const int twips = platform().display.TwipsPerPixel();
  Place({leftTwips / twips, topTwips / twips, state_.place.width, state_.place.height});
}

void Form::SetSize(int widthTwips, int heightTwips) {
  const int twips = platform().display.TwipsPerPixel();
  Place({state_.place.left, state_.place.top, std::max(widthTwips, 0) / twips,
         std::max(heightTwips, 0) / twips});
  if (state_.resizable) LayOut();
}

void Form::Center() {
  const Size screen = platform().display.ScreenSize();
  const Rect& now = state_.place;
  Place({(screen.width - now.width) / 2, (screen.height - now.height) / 2, now.width, now.height});
}

void Form::Place(const Rect& place) {
  const Rect held{HeldTo16Bits(place.left), HeldTo16Bits(place.top), HeldTo16Bits(place.width),
                  HeldTo16Bits(place.height)};
  if (state_.place == held) return;
  state_.place = held;
  Changed(Aspect::kPlace);
}

void Form::Arrange(const Box& content) {
  content_ = content;
  Arrange();
}

void Form::Arrange() {
  if (!peer_ || content_.kind == Box::Kind::kSpace) return;
  const Size client = LayOut(), frame = peer_->FrameSize();
  Place({state_.place.left, state_.place.top, client.width + frame.width,
         client.height + frame.height});
  AddMissingPeers();
}

Size Form::LayOut() {
  if (!peer_ || content_.kind == Box::Kind::kSpace) return {};
  Size room;
  if (state_.resizable) {
    const Size frame = peer_->FrameSize();
    room = {state_.place.width - frame.width, state_.place.height - frame.height};
  }
  return PlaceControls(content_, platform().display, room);
}

// --- Events --------------------------------------------------------------------------------------

void Form::UserClose() {
  if (state_.enabled && state_.closable) Close(true);
}

void Form::UserMoved(int left, int top) {
  if (!peer_ || (state_.place.left == left && state_.place.top == top)) return;
  state_.place.left = left;
  state_.place.top = top;
  forms_.Run(*this, "Form", "Move", [this] { Form_Move(); });
}

void Form::UserResized(int width, int height) {
  if (!peer_ || (state_.place.width == width && state_.place.height == height)) return;
  state_.place.width = width;
  state_.place.height = height;
  if (state_.resizable) LayOut();
  forms_.Run(*this, "Form", "Resize", [this] { Form_Resize(); });
}

void Form::OnMessage(MessageId id, WParam wParam, LParam lParam) {
  if (!peer_) return;
  if (id == wm::kTimer) {
    if (Timer* timer = FindById(timers_, wParam, &Timer::id_)) timer->Tick();
  } else if (id == kDeferredMessage) {
    if (SubClass* subClass = FindById(subClasses_, wParam, &SubClass::id_))
      subClass->OnDeferred(lParam);
  } else if (id == kContainerLost) {
    if (auto* container = dynamic_cast<Container*>(FindById(controls_, wParam, &Control::id_)))
      container->MakeAnew();
  } else if (id >= wm::kUser) {
    forms_.Run(*this, "Form", "Message", [&] { Form_Message(id, wParam, lParam); });
  }
}

void Form::PopupMenu(Menu& menu) {
  if (!peer_) return;
  forms_.Run(*this, menu.Name(), "Click", [&] { menu.Popup(platform().menus, Handle()); });
}

}  // namespace corvel::forms
