// Answers to dialogs; see answers.h.
#include "tools/answers.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvel::tools {
namespace {

using desk::Prompt;

bool IsButton(const ControlView& control) {
  return control.state->visible && (control.state->kind == ControlKind::kButton ||
                                    control.state->kind == ControlKind::kFlatButton);
}

// The button that reads so or, with nothing, the one that Enter presses.
const ControlView* FindButton(const std::vector<ControlView>& controls,
                              const std::optional<std::string>& caption) {
  const ControlView* first = nullptr;
  for (const ControlView& control : controls) {
    if (!IsButton(control)) continue;
    if (caption ? EqualNoCase(PlainCaption(control.state->text), *caption)
                : control.state->isDefault)
      return &control;
    if (!first) first = &control;
  }
  return caption ? nullptr : first;
}

// The mark-up of a dialog's picture, else what its labels say.
std::string TextOf(const std::vector<ControlView>& controls) {
  std::string labels;
  for (const ControlView& control : controls) {
    if (control.state->kind == ControlKind::kPicture && !control.state->text.empty())
      return control.state->text;
    if (control.state->kind != ControlKind::kLabel || control.state->text.empty()) continue;
    if (!labels.empty()) labels += ' ';
    labels += control.state->text;
  }
  return labels;
}

// The system's plain box: its buttons by the low part of the style.
struct PlainButton {
  const char* caption;
  int result;
};
constexpr PlainButton kOk{"OK", 1}, kCancel{"Cancel", 2}, kAbort{"Abort", 3}, kRetry{"Retry", 4},
    kIgnore{"Ignore", 5}, kYes{"Yes", 6}, kNo{"No", 7}, kNone{nullptr, 0};
constexpr PlainButton kPlainSets[][3] = {{kOk, kNone, kNone},       {kOk, kCancel, kNone},
                                         {kAbort, kRetry, kIgnore}, {kYes, kNo, kCancel},
                                         {kYes, kNo, kNone},        {kRetry, kCancel, kNone}};

const PlainButton* PlainButtons(int style) {
  const auto set = static_cast<std::size_t>(style & 0xF);
  return kPlainSets[set < std::size(kPlainSets) ? set : 0];
}

const PlainButton& DefaultPlainButton(int style) {
  const PlainButton& chosen = PlainButtons(style)[std::min(style >> 8 & 3, 2)];
  return chosen.caption ? chosen : PlainButtons(style)[0];
}

template <class Answer>
std::optional<Answer> Take(std::deque<Answer>& queue) {
  if (queue.empty()) return std::nullopt;
  auto taken = std::move(queue.front());
  queue.pop_front();
  return taken;
}

}  // namespace

const Answers::FormAnswer Answers::kForms[] = {{"frmMsg", &Answers::AnswerMessage},
                                               {"frmReport", &Answers::AnswerMessage},
                                               {"frmInpBox", &Answers::AnswerInput},
                                               {"frmCMDialog", &Answers::AnswerFolder, false}};

bool Answers::IsQuestion(const FormState& form) {
  return std::any_of(std::begin(kForms), std::end(kForms), [&](const FormAnswer& one) {
    return one.always && EqualNoCase(form.name, one.form);
  });
}

bool Answers::Act() {
  if (stage_.HandIsBusy() || !stage_.ProgramWaitsForUser()) return false;
  auto& prompts = stage_.Prompts();
  if (!prompts.empty() && AnswerPrompt(*prompts.back())) return true;
  const auto forms = stage_.Forms();
  for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
    if (!form->state->visible) continue;
    if (form->window == filled_) return PressFilled(*form);
    if (left_.contains(form->window)) return false;
    if (form->window == pressed_ && stage_.NowMs() == pressedAt_) return false;
    for (const FormAnswer& kind : kForms)
      if (EqualNoCase(form->state->name, kind.form)) return (this->*kind.answer)(*form);
  }
  return false;
}

bool Answers::PressFilled(const FormView& form) {
  if (typed_.over && !typed_.over()) return false;
  filled_ = {};
  Press(form, "OK");
  return true;
}

std::string Answers::TakeFailure() { return std::exchange(failure_, {}); }

void Answers::Journal(std::string_view kind, const std::string& text, const std::string& answer,
                      bool queued) {
  stage_.Note(kind, {text, answer});
  if (!queued) unexpected.push_back({stage_.journal().Entries().size() - 1, text, line});
}

void Answers::Press(const FormView& form, const std::string& caption) {
  const auto controls = stage_.ControlsOf(form.window);
  const ControlView* const button = FindButton(controls, caption);
  pressed_ = form.window;
  pressedAt_ = stage_.NowMs();
  const std::string refusal =
      button ? stage_.Click(button->window).refusal : "there is no such button";
  if (!refusal.empty())
    failure_ = "expected to answer " + caption + " in " + form.state->name + ", got " + refusal;
}

// The button is pressed when the text has been taken.
void Answers::Fill(const FormView& form, const char* boxName,
                   const std::optional<std::string>& text) {
  if (!text) return Press(form, "Cancel");
  const auto box = user_.FindControl(form.window, boxName, -1);
  if (box) typed_ = stage_.Type(box->window, *text);
  filled_ = form.window;
}

bool Answers::AnswerMessage(const FormView& form) {
  const auto controls = stage_.ControlsOf(form.window);
  const auto queued = Take(buttons);
  if (queued == "nobody") {
    Journal("message", TextOf(controls), *queued, true);
    left_.insert(form.window);
    return true;
  }
  const ControlView* const usual = FindButton(controls, std::nullopt);
  const std::string caption = queued  ? *queued
                              : usual ? PlainCaption(usual->state->text)
                                      : std::string("Enter");
  if (told_.insert(form.window).second)
    Journal("message", TextOf(controls), caption, queued.has_value());
  else
    stage_.Note("answer", {caption});
  Press(form, caption);
  return true;
}

bool Answers::AnswerInput(const FormView& form) {
  const auto queued = Take(inputs);
  const Input answer = queued.value_or(Input{});
  const std::string told = answer.nobody ? "nobody" : answer.text.value_or("Cancel");
  Journal("input-box", TextOf(stage_.ControlsOf(form.window)), told, queued.has_value());
  if (answer.nobody)
    left_.insert(form.window);
  else
    Fill(form, "txtInput", answer.text);
  return true;
}

// The folder chooser is a window like others, so it may also be played by hand: it is left alone
// unless an answer is queued.
bool Answers::AnswerFolder(const FormView& form) {
  const auto queued = Take(folders);
  if (!queued) return false;
  stage_.Note("folder", {queued->value_or("Cancel")});
  Fill(form, "txtPath", *queued);
  return true;
}

bool Answers::AnswerPrompt(Prompt& prompt) {
  if (prompt.answered || prompt.kind == Prompt::Kind::kPopup) return false;
  if (prompt.kind == Prompt::Kind::kPlainMessage)
    AnswerPlainBox(prompt);
  else if (prompt.kind == Prompt::Kind::kColor)
    AnswerColorPrompt(prompt);
  else
    AnswerFilePrompt(prompt);
  prompt.answered = true;
  return true;
}

void Answers::AnswerFilePrompt(Prompt& prompt) {
  auto queued = Take(files);
  const bool save = prompt.kind == Prompt::Kind::kSaveFile;
  if (!queued && save) {  // the save dialog also serves to choose a folder
    queued = Take(folders);
    if (queued && *queued) **queued += "\\path";
  }
  if (queued) prompt.path = *queued;
  Journal(save ? "save-dialog" : "open-dialog", prompt.text, prompt.path.value_or("Cancel"),
          queued.has_value());
}

void Answers::AnswerColorPrompt(Prompt& prompt) {
  const auto queued = Take(colors);
  if (queued) prompt.color = *queued;
  Journal("color-dialog", prompt.text, prompt.color ? std::to_string(*prompt.color) : "Cancel",
          queued.has_value());
}

void Answers::AnswerPlainBox(Prompt& prompt) {
  const auto queued = Take(buttons);
  const PlainButton* chosen = &DefaultPlainButton(prompt.style);
  if (queued) {
    const PlainButton* const set = PlainButtons(prompt.style);
    const PlainButton* const named = std::find_if(set, set + 3, [&](const PlainButton& button) {
      return button.caption && EqualNoCase(button.caption, *queued);
    });
    if (named != set + 3)
      chosen = named;
    else
      failure_ = "expected to answer " + *queued + " in a plain box, got there is no such button";
  }
  prompt.button = chosen->result;
  Journal("message", prompt.text, chosen->caption, queued.has_value());
}

}  // namespace corvel::tools
