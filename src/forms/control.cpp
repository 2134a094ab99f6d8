#include "forms/control.h"

#include "base/text.h"
#include "forms/form.h"
#include "platform/form_keyboard.h"

#include <algorithm>

namespace corvel::forms {
namespace {

// The second text is the first one with a stretch taken out.
bool IsShortened(const std::string& before, const std::string& text) {
  const auto [at, rest] = std::mismatch(before.begin(), before.end(), text.begin(), text.end());
  return text.size() < before.size() && before.ends_with(std::string(rest, text.end()));
}

}  // namespace

Control::Control(Form& form, ControlKind kind, std::string name, int index)
    : form_(form), id_(form.NextId()) {
  state_.kind = kind;
  state_.name = std::move(name);
  state_.index = index;
  state_.tabOrder = static_cast<int>(form.controls_.size());
  form.controls_.push_back(this);
}

Control::~Control() {
  // From the end, since members are destroyed newest first.
  auto& all = form_.controls_;
  const auto mine = std::find(all.rbegin(), all.rend(), this);
  if (mine != all.rend()) all.erase(std::next(mine).base());
}

void Control::Show(Aspect aspect, int row) {
  if (peer_) peer_->Changed(aspect, row);
}

void Control::Raise(const std::function<void()>& procedure, const char* event) {
  if (!procedure || !form_.IsLoaded()) return;
  const auto copy = procedure;  // it may be replaced while it runs
  form_.Collection().Run(form_, state_.name, event, copy);
}

bool Control::TakesInput() const { return peer_ && IsUsable(state_) && form_.State().enabled; }

void Control::SetEnabled(bool enabled) {
  if (state_.enabled == enabled) return;
  state_.enabled = enabled;
  Show(Aspect::kEnabled);
}

void Control::SetVisible(bool visible) {
  ownVisible_ = visible;
  ApplyVisible();
}

void Control::ApplyVisible() {
  const bool visible = ownVisible_ && (!holder_ || holder_->Visible());
  if (visible == state_.visible) return;
  state_.visible = visible;
  Show(Aspect::kVisible);
  for (Control* control : form_.Controls())
    if (control->holder_ == this) control->ApplyVisible();
}

void Control::HideWith(Control& holder) {
  holder_ = &holder;
  ApplyVisible();
}

void Control::SetToolTip(std::string text) {
  if (state_.toolTip == text) return;
  state_.toolTip = std::move(text);
  Show(Aspect::kToolTip);
}

void Control::SetPlace(const Rect& place) {
  if (state_.place == place) return;
  state_.place = place;
  Show(Aspect::kPlace);
}

void Control::SetFont(const FontStyle& font) {
  if (state_.font == font) return;
  state_.font = font;
  Show(Aspect::kLook);
}

void Control::TakeFocus() {
  if (peer_) peer_->TakeFocus();
}

Window Control::Handle() const { return peer_ ? peer_->Handle() : Window{}; }

void Control::UserClick() {
  if (TakesInput()) Raise(onClick, "Click");
}

void Control::UserDoubleClick() {
  if (TakesInput()) Raise(onDblClick, "DblClick");
}

void Control::UserRightClick() {
  if (TakesInput()) Raise(onRightClick, "RightClick");
}

void Control::UserSelect(int, bool) {}
void Control::UserText(const std::string&) {}

bool Control::UserKey(Key key) {
  if (!TakesInput()) return false;
  const Forms::EventScope scope(form_.Collection());
  bool used = false;
  if (const auto copy = onKey) Raise([&copy, &used, key] { used = copy(key); }, "KeyDown");
  return used || !TakesInput() || UseKey(key);
}

bool Control::UseKey(Key key) {
  if (key != Key::kEnter && key != Key::kEscape) return false;
  if (key == Key::kEnter && state_.multiLine) return false;
  for (Control* control : form_.Controls()) {
    const bool meant = key == Key::kEnter ? control->state_.isDefault : control->state_.isCancel;
    if (!meant || !control->TakesInput() || HungWith(control->state_) != HungWith(state_)) continue;
    control->UserClick();
    return true;
  }
  return false;
}

std::string PlainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

Captioned::Captioned(Form& form, ControlKind kind, std::string name, std::string_view caption,
                     int index)
    : Control(form, kind, std::move(name), index) {
  state_.text = caption;
}

void Captioned::SetCaption(std::string_view caption) {
  if (state_.text == caption) return;
  state_.text = caption;
  Show(Aspect::kText);
}

Label::Label(Form& form, std::string name, std::string_view caption, int index)
    : Captioned(form, ControlKind::kLabel, std::move(name), caption, index) {}

void Label::SetMnemonic(bool mnemonic) {
  state_.mnemonic = mnemonic;
  Show(Aspect::kLook);
}

Button::Button(Form& form, std::string name, std::string_view caption, int index)
    : Button(form, ControlKind::kButton, std::move(name), caption, index) {}

Button::Button(Form& form, ControlKind kind, std::string name, std::string_view caption, int index)
    : Captioned(form, kind, std::move(name), caption, index) {}

void Button::SetDefault(bool isDefault) {
  for (Control* control : Owner().Controls())
    if (auto* other = dynamic_cast<Button*>(control); other && other->state_.isDefault) {
      other->state_.isDefault = false;
      other->Show(Aspect::kLook);
    }
  state_.isDefault = isDefault;
  Show(Aspect::kLook);
}

void Button::SetCancel(bool isCancel) {
  for (Control* control : Owner().Controls())
    if (auto* other = dynamic_cast<Button*>(control)) other->state_.isCancel = false;
  state_.isCancel = isCancel;
}

bool Button::UseKey(Key key) {
  if (key != Key::kSpace && key != Key::kEnter) return Control::UseKey(key);
  UserClick();
  return true;
}

FlatButton::FlatButton(Form& form, std::string name, std::string_view caption, int index)
    : Button(form, ControlKind::kFlatButton, std::move(name), caption, index) {}

void FlatButton::SetLook(const ButtonLook& look) {
  state_.look = look;
  Show(Aspect::kLook);
}

Frame::Frame(Form& form, std::string name, std::string_view caption, int index)
    : Captioned(form, ControlKind::kFrame, std::move(name), caption, index) {}

void Frame::Hold(Control& control) { control.HideWith(*this); }

TextBox::TextBox(Form& form, std::string name, int index)
    : Control(form, ControlKind::kTextBox, std::move(name), index) {}

void TextBox::SetText(std::string_view text) {
  if (state_.text == text) return;
  state_.text = text;
  Show(Aspect::kText);
}

void TextBox::SetMaxLength(int characters) {
  state_.maxLength = std::max(characters, 0);
  Show(Aspect::kLook);
}

// As the system's edit box does it: what is too long already can still be shortened.
std::string TextBox::HeldToLimit(const std::string& text) const {
  const auto limit = static_cast<std::size_t>(state_.maxLength);
  const std::string& before = state_.text;
  if (limit == 0 || text.size() <= limit || IsShortened(before, text)) return text;
  return text.substr(0, text.starts_with(before) ? std::max(limit, before.size()) : limit);
}

void TextBox::UserText(const std::string& text) {
  if (!TakesInput() || state_.text == text) return;
  const std::string held = HeldToLimit(text);
  const bool changes = held != state_.text;
  state_.text = held;
  Show(Aspect::kText);
  if (changes) Raise(onChange, "Change");
}

CheckBox::CheckBox(Form& form, std::string name, std::string_view caption, int index)
    : Captioned(form, ControlKind::kCheckBox, std::move(name), caption, index) {}

void CheckBox::SetValue(int value) {
  const int next = value != 0 ? 1 : 0;
  if (state_.value == next) return;
  state_.value = next;
  Show(Aspect::kValue);
  Raise(onClick, "Click");
}

void CheckBox::UserClick() {
  if (TakesInput()) SetValue(1 - state_.value);
}

bool CheckBox::UseKey(Key key) {
  if (key != Key::kSpace) return Control::UseKey(key);
  UserClick();
  return true;
}

OptionButton::OptionButton(Form& form, std::string name, std::string_view caption, int group)
    : Captioned(form, ControlKind::kOptionButton, std::move(name), caption, -1), group_(group) {}

void OptionButton::SetValue(bool value) {
  if (Value() == value) return;
  if (value) {
    for (Control* control : Owner().Controls())
      if (auto* other = dynamic_cast<OptionButton*>(control); other && other->group_ == group_)
        other->SetValue(false);
  }
  state_.value = value ? 1 : 0;
  Show(Aspect::kValue);
}

void OptionButton::UserClick() {
  if (!TakesInput()) return;
  SetValue(true);
  Raise(onClick, "Click");
}

bool OptionButton::UseKey(Key key) {
  if (key != Key::kSpace) return Control::UseKey(key);
  UserClick();
  return true;
}

ProgressBar::ProgressBar(Form& form, std::string name)
    : Control(form, ControlKind::kProgressBar, std::move(name)) {}

void ProgressBar::SetMaximum(int maximum) {
  state_.maximum = std::max(maximum, 1);
  state_.value = std::min(state_.value, state_.maximum);
  Show(Aspect::kLook);
}

void ProgressBar::SetValue(int value) {
  const int next = std::clamp(value, 0, state_.maximum);
  if (state_.value == next) return;
  state_.value = next;
  Show(Aspect::kValue);
}

PictureBox::PictureBox(Form& form, std::string name)
    : Control(form, ControlKind::kPicture, std::move(name)) {}

void PictureBox::SetPicture(Picture picture) {
  state_.picture = picture;
  Show(Aspect::kPicture);
}

void PictureBox::SetRuns(std::vector<TextRun> runs) {
  state_.runs = std::move(runs);
  SetPicture(Picture::kTextRuns);
}

}  // namespace corvel::forms
