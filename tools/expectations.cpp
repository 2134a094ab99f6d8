// Expectations of a scenario; see expectations.h.
#include "tools/expectations.h"

#include "base/text.h"
#include "core/settings_store.h"
#include "tools/answers.h"

#include <algorithm>

namespace corvel::tools {
namespace {

constexpr std::size_t kAny = 1000;

std::string Spoken(const std::vector<std::string>& words, bool firstIsBare) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += ' ';
    text += i == 0 && firstIsBare ? words[i] : Quoted(words[i]);
  }
  return text;
}

std::string ListOf(const std::vector<std::string>& items) {
  return items.empty() ? "nothing" : Spoken(items, false);
}

// The journal gives a message with the answer that it got; only its text is compared.
std::vector<std::string> Compared(const desk::JournalEntry& entry) {
  const bool withAnswer = entry.kind == "message" || entry.kind == "input-box";
  return withAnswer && entry.words.size() > 1 ? std::vector{entry.words[0]} : entry.words;
}

std::string SettingOf(Stage& stage, const Words& words, bool& there) {
  const SettingsStore store(stage.registry());
  const auto names = store.Names(words[2]);
  there = names && std::any_of(names->begin(), names->end(), [&](const std::string& name) {
            return EqualNoCase(name, words[3]);
          });
  return there ? store.ReadKey(words[2], words[3]) : "";
}

}  // namespace

using E = Expectations;

std::span<const E::Form> E::Table() {
  static const Form kTable[] = {
      {"line", "line \"TEXT\"", 1, 1, &E::InOrder},
      {"line-like", "line-like \"TEXT\"", 1, 1, &E::LikeInOrder},
      {"no-line", "no-line", 0, 0, &E::NoMore},
      {"line-seen", "line-seen PERSON \"TEXT\"", 2, 2, &E::LineSeen},
      {"message", "message \"TEXT\"", 1, 1, &E::Message},
      {"message-like", "message-like \"TEXT\"", 1, 1, &E::Message},
      {"no-message", "no-message", 0, 0, &E::NoMore},
      {"sound", "sound \"PATH\"", 1, 1, &E::PathInOrder},
      {"no-sound", "no-sound", 0, 0, &E::NoMore},
      {"sound-stopped", "sound-stopped", 0, 0, &E::InOrder},
      {"keyword", "keyword \"TARGET\"", 1, 1, &E::InOrder},
      {"no-keyword", "no-keyword", 0, 0, &E::NoMore},
      {"im-sent", "im-sent PERSON \"TEXT\"", 2, 2, &E::InOrder},
      {"mail", "mail to|subject|body|attached|body-has \"TEXT\"", 2, 2, &E::Mail},
      {"opened", "opened \"TARGET\"", 1, 1, &E::InOrder},
      {"opened-like", "opened-like \"TEXT\"", 1, 1, &E::LikeInOrder},
      {"help", "help \"FILE\" \"TOPIC\"", 2, 2, &E::PathInOrder},
      {"setting", "setting \"SECTION\" \"NAME\" \"VALUE\"", 3, 3, &E::Setting},
      {"no-setting", "no-setting \"SECTION\" \"NAME\"", 2, 2, &E::NoSetting},
      {"file", "file PATH \"CONTENT\"", 2, 2, &E::FileIs},
      {"file-has", "file-has PATH \"TEXT\"", 2, 2, &E::FileHas},
      {"no-file", "no-file PATH", 1, 1, &E::NoFile},
      {"recycled", "recycled PATH", 1, 1, &E::Recycled},
      {"shown", "shown FORM", 1, 1, &E::Shown},
      {"hidden", "hidden FORM", 1, 1, &E::Shown},
      {"value", "value FORM.CONTROL \"TEXT\"", 2, 2, &E::Value},
      {"items", "items FORM.CONTROL \"ITEM\"...", 1, kAny, &E::Items},
      {"enabled", "enabled FORM.CONTROL", 1, 1, &E::Enabled},
      {"disabled", "disabled FORM.CONTROL", 1, 1, &E::Enabled},
      {"tip", "tip FORM.CONTROL \"TEXT\"", 2, 2, &E::Tip},
      {"popup", "popup \"ROW\"...", 0, kAny, &E::Popup},
      {"greyed", "greyed \"ROW\"", 1, 1, &E::Greyed},
      {"input", "input \"TEXT\"", 1, 1, &E::Input},
      {"im", "im PERSON has \"TEXT\" | open | closed", 2, 3, &E::Im},
      {"client-menu", "client-menu \"CAPTION\"", 1, 1, &E::ClientMenu},
      {"no-client-menu", "no-client-menu \"CAPTION\"", 1, 1, &E::ClientMenu},
      {"window", "window \"CAPTION\" [shown | hidden | closed | has \"TEXT\"]", 1, 3, &E::Window},
      {"no-window", "no-window \"CAPTION\"", 1, 1, &E::NoWindow},
      {"place", "place \"CAPTION\" LEFT TOP WIDTH HEIGHT", 5, 5, &E::Place},
      {"hooked", "hooked N", 1, 1, &E::Hooked},
      {"tray-icon", "tray-icon", 0, 0, &E::Tray},
      {"no-tray-icon", "no-tray-icon", 0, 0, &E::Tray},
      {"running", "running", 0, 0, &E::Running},
      {"ended", "ended", 0, 0, &E::Running},
      {"client-running", "client-running", 0, 0, &E::ClientRunning},
      {"client-ended", "client-ended", 0, 0, &E::ClientRunning},
      {"client-enabled", "client-enabled", 0, 0, &E::ClientEnabled},
      {"client-disabled", "client-disabled", 0, 0, &E::ClientEnabled},
  };
  return kTable;
}

const E::Form* E::Find(std::string_view word) {
  for (const Form& form : Table())
    if (word == form.word) return &form;
  return nullptr;
}

std::string E::Check(const Words& words) {
  const auto usedBefore = used_;
  std::string failure = (this->*Find(words[1])->check)(words);
  if (!failure.empty()) used_ = usedBefore;
  return failure;
}

E::Verdict E::AtEnd() {
  for (const auto& dialog : answers_.unexpected)
    if (std::find(named_.begin(), named_.end(), dialog.entry) == named_.end())
      return {"expected no dialog, got " + Quoted(dialog.text), dialog.line};
  const auto left = stage_.LeftOpen();
  if (!left.empty()) return {"expected nothing left open, got " + left.front(), 0};
  return {};
}

// --- What happens in order -----------------------------------------------------------------------

// The next unused entry of one of these kinds, which share one count under the first's name.
const desk::JournalEntry* E::NextOf(std::initializer_list<std::string_view> kinds) {
  const auto& entries = stage_.journal().Entries();
  std::size_t& next = used_.try_emplace(std::string(*kinds.begin())).first->second;
  for (; next < entries.size(); ++next)
    if (std::find(kinds.begin(), kinds.end(), entries[next].kind) != kinds.end())
      return &entries[next++];
  return nullptr;
}

std::string E::Happened(const Words& words, const std::string& kind, const SameText& same) {
  const Entry* const entry = NextOf({kind});
  if (!entry) return Failed(words, "no " + kind);
  const auto got = Compared(*entry), wanted = words.From(2);
  const bool holds = std::equal(got.begin(), got.end(), wanted.begin(), wanted.end(), same);
  return holds ? "" : Failed(words, kind + " " + ListOf(got));
}

std::string E::InOrder(const Words& words) {
  return Happened(words, words[1], std::equal_to<std::string>());
}

std::string E::PathInOrder(const Words& words) {
  return Happened(words, words[1], [](const auto& a, const auto& b) { return EqualNoCase(a, b); });
}

std::string E::LikeInOrder(const Words& words) {
  constexpr std::string_view kLike = "-like";
  return Happened(
      words, words[1].substr(0, words[1].size() - kLike.size()),
      [](const auto& got, const auto& part) { return got.find(part) != std::string::npos; });
}

// An input box's text may be named like a message, but is passed over if it isn't.
std::string E::Message(const Words& words) {
  const bool whole = words[1] == "message";
  while (const Entry* const entry = NextOf({"message", "input-box"})) {
    const std::string& got = entry->words[0];
    const bool holds = whole ? got == words[2] : got.find(words[2]) != std::string::npos;
    if (!holds && entry->kind == "input-box") continue;
    if (!holds) return Failed(words, "message " + Quoted(got));
    named_.push_back(static_cast<std::size_t>(entry - stage_.journal().Entries().data()));
    return {};
  }
  return Failed(words, "no message");
}

std::string E::NoMore(const Words& words) {
  const std::string kind = words[1].substr(3);
  const Entry* const entry = NextOf({kind});
  return entry ? Failed(words, kind + " " + ListOf(Compared(*entry))) : "";
}

std::string E::Recycled(const Words& words) {
  for (const Entry& entry : stage_.journal().Entries())
    if (entry.kind == "recycled" && EqualNoCase(entry.words[0], words[2])) return {};
  return Failed(words, "it was not recycled");
}

// --- What stands now -----------------------------------------------------------------------------

std::string E::Failed(const Words& words, const std::string& got) {
  return "expected " + Spoken(words.From(1), true) + ", got " + got;
}

std::string E::Same(const Words& words, const std::string& got, const std::string& wanted) {
  return got == wanted ? "" : Failed(words, Quoted(got));
}

std::string E::Flag(const Words& words, bool holds, const std::string& otherwise) {
  return holds ? "" : Failed(words, otherwise);
}

std::string E::Setting(const Words& words) {
  bool there = false;
  const std::string got = SettingOf(stage_, words, there);
  if (!there) return Failed(words, "no such setting");
  // The tree can't hold an empty value: a blank stands for it.
  return got == " " && words[4].empty() ? "" : Same(words, got, words[4]);
}

std::string E::NoSetting(const Words& words) {
  bool there = false;
  const std::string got = SettingOf(stage_, words, there);
  return Flag(words, !there, Quoted(got));
}

std::string E::FileIs(const Words& words) {
  const auto bytes = stage_.Peek(words[2]);
  return bytes ? Same(words, *bytes, words[3]) : Failed(words, "no such file");
}

std::string E::FileHas(const Words& words) {
  const auto bytes = stage_.Peek(words[2]);
  if (!bytes) return Failed(words, "no such file");
  return Flag(words, bytes->find(words[3]) != std::string::npos, Quoted(*bytes));
}

std::string E::NoFile(const Words& words) {
  return Flag(words, !stage_.Peek(words[2]), "the file is there");
}

std::string E::Shown(const Words& words) {
  const auto form = user_.FindForm(words[2]);
  const bool shown = form && form->state->visible;
  return Flag(words, shown == (words[1] == "shown"),
              shown  ? "it is shown"
              : form ? "it is loaded, but hidden"
                     : "it is not loaded");
}

std::string E::OfControl(const Words& words,
                         std::string (*judge)(const ControlState&, const Words&)) {
  std::string why;
  const auto control = user_.FindControl(words[2], why);
  return control ? judge(*control->state, words) : Failed(words, why);
}

std::string E::Value(const Words& words) {
  if (words[2].find('.') == std::string::npos) {  // a window's own caption
    const auto form = user_.FindForm(words[2]);
    return form ? Same(words, form->state->caption, words[3]) : Failed(words, "it is not loaded");
  }
  return OfControl(words, [](const ControlState& state, const Words& asked) {
    const std::string got = ValueOf(state);
    return got == asked[3] ? "" : Failed(asked, Quoted(got));
  });
}

std::string E::Items(const Words& words) {
  return OfControl(words, [](const ControlState& state, const Words& asked) {
    return state.items == asked.From(3) ? "" : Failed(asked, ListOf(state.items));
  });
}

std::string E::Enabled(const Words& words) {
  return OfControl(words, [](const ControlState& state, const Words& asked) {
    const bool same = state.enabled == (asked[1] == "enabled");
    return same ? "" : Failed(asked, state.enabled ? "it is enabled" : "it is disabled");
  });
}

std::string E::Tip(const Words& words) {
  return OfControl(words, [](const ControlState& state, const Words& asked) {
    return state.toolTip == asked[3] ? "" : Failed(asked, Quoted(state.toolTip));
  });
}

std::string E::Popup(const Words& words) {
  const auto rows = user_.PopupRows();
  return Flag(words, rows == words.From(2), ListOf(rows));
}

std::string E::Greyed(const Words& words) {
  const auto greyed = user_.IsGreyed(words[2]);
  return Flag(words, greyed.value_or(false), greyed ? "it can be chosen" : "no such row");
}

// --- The two processes ---------------------------------------------------------------------------

std::string E::Hooked(const Words& words) {
  return Same(words, std::to_string(stage_.HookCount()), words[2]);
}

std::string E::Tray(const Words& words) {
  const bool there = stage_.HasTrayIcon();
  return Flag(words, there == (words[1] == "tray-icon"), there ? "a tray icon" : "no tray icon");
}

std::string E::Running(const Words& words) {
  const bool runs = stage_.ProgramRuns();
  return Flag(words, runs == (words[1] == "running"), runs ? "it is running" : "it has ended");
}

}  // namespace corvel::tools
