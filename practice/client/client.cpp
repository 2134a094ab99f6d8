#include "practice/client/client.h"

#include "practice/client/document.h"

#include <algorithm>
#include <utility>

namespace corvel::practice {
namespace {

constexpr std::uint32_t kShortestTimer = 10;

}  // namespace

Client::Client(Platform& platform, OwnMemory& memory, const Setup& setup, Witness witness)
    : WindowHost(platform, memory),
      setup_(setup),
      facts_(FactsFor(setup)),
      witness_(std::move(witness)) {
  session_.lastName = setup.signedOnAs;
}

Client::~Client() {
  // A client that is taken down from outside leaves no window whose procedure has gone.
  const Entry entry(*this);
  if (windows().Exists(frame_)) platform().ownWindows.Destroy(frame_);
}

void Client::Note(std::string_view kind, std::vector<std::string> words) {
  if (witness_) witness_(kind, std::move(words));
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
    platform().ownWindows.ShowDialog(frame_, facts_.title, text);
  });
}

void Client::After(std::uint32_t milliseconds, std::function<void()> act) {
  if (finished_) return;
  if (milliseconds == 0) return act();
  const std::uintptr_t id = nextTimer_++;
  pending_.emplace(id, std::move(act));
  platform().events.StartTimer(frame_, id, std::max(milliseconds, kShortestTimer));
}

void Client::OnTimer(std::uintptr_t id) {
  platform().events.StopTimer(frame_, id);
  auto pending = pending_.extract(id);
  if (pending) pending.mapped()();
}

void Client::ForgetPending() {
  const auto forgotten = std::move(pending_);
  pending_.clear();
  for (const auto& [id, act] : forgotten) platform().events.StopTimer(frame_, id);
}

}  // namespace corvel::practice
