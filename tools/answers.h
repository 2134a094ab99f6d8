// Answers to dialogs: what the scenario has queued, and what the user does with a dialog that comes
// with nothing queued.
#pragma once

#include "tools/user.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace corvel::tools {

// Nothing is Cancel.
template <class T>
using AnswerQueue = std::deque<std::optional<T>>;

class Answers {
 public:
  Answers(Stage& stage, User& user) : stage_(stage), user_(user) {}

  std::deque<std::string> buttons;  // captions, for message boxes
  struct Input {
    std::optional<std::string> text;  // nothing is Cancel
    bool nobody = false;              // nobody answers it
  };
  std::deque<Input> inputs;
  AnswerQueue<std::string> files, folders;
  AnswerQueue<Color> colors;

  // Answers the dialog that waits in front, if any. True: it did something.
  bool Act();
  // This window is always answered. The folder chooser is played like any other unless an answer is
  // queued.
  static bool IsQuestion(const FormState& form);
  // Told once: why a queued answer could not be given.
  std::string TakeFailure();

  // A dialog that came with nothing queued: where it stands in the journal.
  struct Unexpected {
    std::size_t entry;
    std::string text;
    int line = 0;
  };
  std::vector<Unexpected> unexpected;
  int line = 0;  // of the command under way

 private:
  struct FormAnswer {
    const char* form;
    bool (Answers::*answer)(const FormView& form);
    bool always = true;
  };
  static const FormAnswer kForms[];

  bool AnswerPrompt(desk::Prompt& prompt);
  void AnswerFilePrompt(desk::Prompt& prompt);
  void AnswerColorPrompt(desk::Prompt& prompt);
  void AnswerPlainBox(desk::Prompt& prompt);
  bool AnswerMessage(const FormView& form);
  bool AnswerInput(const FormView& form);
  bool AnswerFolder(const FormView& form);
  void Journal(std::string_view kind, const std::string& text, const std::string& answer,
               bool queued);
  void Fill(const FormView& form, const char* boxName, const std::optional<std::string>& text);
  bool PressFilled(const FormView& form);
  void Press(const FormView& form, const std::string& caption);

  Stage& stage_;
  User& user_;
  std::set<Window> told_;  // message boxes that are in the journal already
  std::set<Window> left_;  // message and input boxes that nobody answers
  std::string failure_;
  Window filled_{};  // has got its text by `typed_`; its button is still to be pressed
  Deed typed_;
  Window pressed_{};  // a pressed dialog goes when its program has seen it: let time pass first
  std::int64_t pressedAt_ = -1;
};

}  // namespace corvel::tools
