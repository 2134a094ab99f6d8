#include "practice/client/client.h"

#include <utility>

namespace corvel::practice {
namespace {

constexpr std::uint32_t kShortestTimer = 10;

}  // namespace

Client::Client(Platform& platform, OwnMemory& memory, const Setup& setup, Witness witness)
    : platform_(platform),
      memory_(memory),
      setup_(setup),
      facts_(FactsFor(setup)),
      witness_(std::move(witness)) {
  session_.lastName = setup.signedOnAs;
}

Client::~Client() {
  // A client that is taken down from outside leaves no window whose procedure has gone.
  ++depth_;
  if (windows().Exists(frame_)) platform_.ownWindows.Destroy(frame_);
}

Client::Entry::~Entry() {
  if (--client_.depth_ != 0) return;
  const auto free = std::move(client_.buried_);
  client_.buried_.clear();
}

void Client::Note(std::string_view kind, std::vector<std::string> words) {
  if (witness_) witness_(kind, std::move(words));
}

Window Client::Make(const NewWindow& plan, const std::shared_ptr<ClientWindow>& procedure) {
  const Window made = platform_.ownWindows.Create(plan, *procedure);
  return procedure->Alive() ? made : Window{};
}

Window Client::AddIcon(Window parent, std::string caption, bool enabled) {
  const Window icon = AddControl<Icon>(parent, "_AOL_ICON", std::move(caption));
  if (!enabled) windows().Enable(icon, false);
  return icon;
}

Window Client::AddStatic(Window parent, std::string caption) {
  return AddControl<PlainWindow>(parent, "_AOL_STATIC", std::move(caption));
}

void Client::Put(Window window, const Rect& place) {
  if (window) windows().Place(window, place);
}

int Client::LineHeight() { return platform_.display.TextExtent("Mg", {}).height; }

ClientWindow* Client::Find(Window window) const {
  const auto at = living_.find(window.value);
  return at == living_.end() ? nullptr : at->second.get();
}

void Client::Adopt(std::shared_ptr<ClientWindow> window) {
  const std::uint32_t handle = window->window().value;
  living_[handle] = std::move(window);
}

void Client::Bury(Window window) {
  const auto at = living_.find(window.value);
  if (at == living_.end()) return;
  buried_.push_back(std::move(at->second));
  living_.erase(at);
}

void Client::FrameGone() {
  finished_ = true;
  frame_ = mdi_ = {};
  session_.signedOnAs.clear();
  ForgetPending();
}

void Client::Open(const std::shared_ptr<Document>& document) {
  documents_.push_back(document);
  // The two halves add up to the delay exactly, and no half is shorter than a timer can be.
  const std::uint32_t delay = setup_.delayMs;
  const std::uint32_t half = delay < 2 * kShortestTimer ? 0 : delay / 2;
  After(half, [this, document, rest = delay - half] {
    document->Create();
    After(rest, [document] { document->Stand(); });
  });
}

void Client::ShowMessage(std::string text) {
  AfterDelay([this, text = std::move(text)] {
    platform_.ownWindows.ShowDialog(frame_, facts_.title, text);
  });
}

void Client::After(std::uint32_t milliseconds, std::function<void()> act) {
  if (finished_) return;
  if (milliseconds == 0) return act();
  const std::uintptr_t id = nextTimer_++;
  pending_.emplace(id, std::move(act));
  platform_.events.StartTimer(frame_, id, std::max(milliseconds, kShortestTimer));
}

void Client::OnTimer(std::uintptr_t id) {
  platform_.events.StopTimer(frame_, id);
  auto pending = pending_.extract(id);
  if (pending) pending.mapped()();
}

void Client::ForgetPending() {
  const auto forgotten = std::move(pending_);
  pending_.clear();
  for (const auto& [id, act] : forgotten) platform_.events.StopTimer(frame_, id);
}

}  // namespace corvel::practice
