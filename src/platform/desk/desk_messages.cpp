// Messages on their way: sent, posted, to a process that hangs, to one that has ended.
#include "platform/desk/desk_core.h"

namespace corvel::desk {
namespace {

// From then on it counts as hung, and nobody begins to wait for it; and so long one waits.
constexpr std::int64_t kCountsAsHungMs = 5000, kLongestAnswerMs = 7000;

// A text is cut at its NUL, as every call with a C text cuts it.
std::string_view CText(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace

bool DeskWindows::Impl::Answers(const Process& process) {
  const std::int64_t begin = core().clock.NowMs(), givenUpAt = begin + kLongestAnswerMs;
  while (process.hung && process.TakesCalls() && &process != &core().processes.Current()) {
    const bool countsAsHung = begin >= process.hungSince + kCountsAsHungMs;
    if (countsAsHung || core().clock.NowMs() >= givenUpAt) return false;
    core().scheduler->LetWorldGoOn(givenUpAt);
  }
  return process.TakesCalls();
}

MessageResult DeskWindows::Impl::Ask(Window window, const Message& message) {
  WindowNode* node = tree.Find(window);
  if (!node || !Answers(*node->process)) return 0;
  node = tree.Find(window);  // time may have passed
  if (!node) return 0;
  MessageResult result = 0;
  core().processes.Call(*node->process, [&] { result = CallProcedure(window, message); });
  return result;
}

MessageResult DeskWindows::Impl::CallProcedure(Window window, const Message& message) {
  WindowNode* node = tree.Find(window);
  if (!node->hooks.empty()) {
    if (const auto consumed = core().hooks->Run(*node, message)) return *consumed;
    node = tree.Find(window);
    if (!node || !node->process->TakesCalls()) return 0;
  }
  return node->procedure->OnMessage(window, message);
}

Process* DeskWindows::Impl::OwnerOf(Window window) {
  const WindowNode* node = tree.Find(window);
  return node ? node->process : nullptr;
}

MessageResult DeskWindows::Send(Window window, MessageId id, WParam wParam, LParam lParam) {
  const MessageResult result = impl_->Ask(window, {.id = id, .wParam = wParam, .lParam = lParam});
  impl_->core().processes.ThrowIfEnded();
  return result;
}

MessageResult DeskWindows::SendText(Window window, MessageId id, WParam wParam,
                                    std::string_view text) {
  const MessageResult result =
      impl_->Ask(window, {.id = id, .wParam = wParam, .text = CText(text)});
  impl_->core().processes.ThrowIfEnded();
  return result;
}

std::string DeskWindows::SendForText(Window window, MessageId id, WParam wParam, std::size_t room) {
  std::string answer;
  const WParam asked = id == wm::kGetText ? room : wParam;
  impl_->Ask(window, {.id = id, .wParam = asked, .answer = &answer});
  impl_->core().processes.ThrowIfEnded();
  if (room == 0) return {};
  if (answer.size() > room - 1) answer.resize(room - 1);
  return answer;
}

bool DeskWindows::Post(Window window, MessageId id, WParam wParam, LParam lParam) {
  WindowNode* node = impl_->tree.Find(window);
  if (!node || !node->process->TakesCalls()) return false;
  impl_->core().scheduler->Post(*node->process, window, id, wParam, lParam);
  return true;
}

}  // namespace corvel::desk
