#include "practice/people.h"

#include "base/text.h"
#include "practice/controls/markup.h"

#include <algorithm>

namespace corvel::practice {

struct People::Person {
  std::string name;
  std::vector<std::string> talk;     // said into the room from time to time
  std::vector<std::string> answers;  // to a line with the person's name in it, and to IMs
  bool startsIms = false;
};

namespace {

constexpr std::uint32_t kTick = 250, kShortestQuiet = 6000, kLongestQuiet = 16000;
constexpr std::uint32_t kShortestThought = 1200, kLongestThought = 4000;
constexpr std::uintptr_t kTimer = 1;

bool IsDue(std::uint32_t now, std::uint32_t due) {
  return static_cast<std::int32_t>(now - due) >= 0;
}

}  // namespace

const std::vector<People::Person>& People::Cast() {
  static const std::vector<Person> cast = {
      {"ChattyKathy",
       {"hi everybody!", "what a day it was...", "anyone seen a good movie lately?",
        "<FONT COLOR=#FF0000>l<FONT COLOR=#C00040>o<FONT COLOR=#800080>v<FONT COLOR=#4000C0>e"
        "<FONT COLOR=#0000FF> colors",
        "my cat is on the keyboard agaaaain", "brb", "<B>back!</B>"},
       {"oh really?", "tell me more :)", "LOL", "i was just thinking that"},
       false},
      {"WavWarren",
       {"{S welcome", "{S goodbye", "{S gotmail", "has anybody got the drum wav?"},
       {"{S im", "i have that one, want it?"},
       false},
      {"QuietQuinn", {}, {"shh :)", "i'd rather write to you in here"}, true},
  };
  return cast;
}

People::People(Platform& platform, PracticeClient& client) : platform_(platform), client_(client) {
  NewWindow plan;
  plan.className = "CorvelPracticePeople";
  plan.visible = false;
  window_ = platform_.ownWindows.Create(plan, *this);
  platform_.events.StartTimer(window_, kTimer, kTick);
}

People::~People() { platform_.ownWindows.Destroy(window_); }

MessageResult People::OnMessage(Window window, const Message& message) {
  if (message.id != wm::kTimer) return platform_.ownWindows.Default(window, message);
  Tick();
  return 0;
}

void People::Hear(std::string_view kind, const std::vector<std::string>& words) {
  const bool said = kind == "line" && !words.empty();
  const bool written = kind == "im-sent" && words.size() > 1;
  for (const Person& person : Cast()) {
    const std::uint32_t thought = Between(kShortestThought, kLongestThought);
    if (said && HoldsNoCase(Rendered(words[0]), person.name))
      After(thought, {"say", person.name, Pick(person.answers)});
    if (written && NameKey(words[0]) == NameKey(person.name))
      After(thought, {"im", person.name, Pick(person.answers)});
  }
  // Nobody was meant: the first of them has something to say to everything.
  if (said && plans_.empty())
    After(Between(kShortestThought, kLongestThought),
          {"say", Cast()[0].name, Pick(Cast()[0].answers)});
}

bool People::IsSignedOn() {
  const Reply reply = client_.Ask({"signed-on-as"});
  return !reply.answers.empty() && !reply.answers[0].empty();
}

void People::Tick() {
  if (client_.Finished() || !IsSignedOn()) {
    room_.clear();
    plans_.clear();
    return;
  }
  NoticeRoom();
  Chat();
  RunDue();
}

void People::NoticeRoom() {
  const Reply reply = client_.Ask({"room"});
  const std::string room = reply.answers.empty() ? "" : reply.answers[0];
  if (room == room_) return;
  room_ = room;
  if (room_.empty()) return;
  std::uint32_t wait = 0;
  for (const Person& person : Cast()) After(wait += 700, {"enter", person.name});
  // Whoever sees a stranger come in writes to them after a while.
  for (const Person& person : Cast())
    if (person.startsIms) After(Between(8000, 15000), {"im", person.name, "hi, are you new here?"});
  nextTalk_ = platform_.clock.TickCount() + wait + kShortestThought;
}

void People::Chat() {
  const std::uint32_t now = platform_.clock.TickCount();
  if (room_.empty() || !IsDue(now, nextTalk_)) return;
  nextTalk_ = now + Between(kShortestQuiet, kLongestQuiet);
  std::vector<const Person*> talkers;
  for (const Person& person : Cast())
    if (!person.talk.empty()) talkers.push_back(&person);
  const Person& one = *talkers[Between(0, static_cast<std::uint32_t>(talkers.size()) - 1)];
  After(0, {"say", one.name, Pick(one.talk)});
}

void People::RunDue() {
  const std::uint32_t now = platform_.clock.TickCount();
  std::vector<Plan> due;
  for (const Plan& plan : plans_)
    if (IsDue(now, plan.due)) due.push_back(plan);
  std::erase_if(plans_, [&](const Plan& plan) { return IsDue(now, plan.due); });
  // A room that has closed meanwhile refuses, and that is all right.
  for (const Plan& plan : due) client_.Do(plan.command);
}

void People::After(std::uint32_t milliseconds, std::vector<std::string> command) {
  plans_.push_back({platform_.clock.TickCount() + milliseconds, std::move(command)});
}

std::string People::Pick(const std::vector<std::string>& sentences) {
  return sentences[Between(0, static_cast<std::uint32_t>(sentences.size()) - 1)];
}

std::uint32_t People::Between(std::uint32_t least, std::uint32_t most) {
  const double span = static_cast<double>(most - least) + 1;
  return least + static_cast<std::uint32_t>(platform_.random.Draw() * span);
}

}  // namespace corvel::practice
