#include "practice/win32/channel_server.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>

namespace corvel::practice {
namespace {

constexpr MessageId kRunNext = wm::kUser + 1;
constexpr std::uintptr_t kHangTimer = 1;
constexpr int kLongestHang = 60'000;
// What nobody comes for is forgotten in the end.
constexpr std::size_t kMostEntries = 10000, kMostReplies = 100;

Words WordsOf(const Reply& reply) {
  Words words = {reply.error};
  words.insert(words.end(), reply.answers.begin(), reply.answers.end());
  return words;
}

}  // namespace

struct ChannelServer::VerbRow {
  std::string_view verb;
  Words (ChannelServer::*answer)(const Words&);
};

const ChannelServer::VerbRow ChannelServer::kVerbs[] = {
    {"ask", &ChannelServer::Ask},           {"do", &ChannelServer::Begin},
    {"reply", &ChannelServer::TellReply},   {"witness", &ChannelServer::TellWitness},
    {"target", &ChannelServer::TakeTarget}, {"version", &ChannelServer::TellVersion},
    {"online", &ChannelServer::TellOnline}, {"names", &ChannelServer::TellNames},
    {"hang", &ChannelServer::HangLater},
};

ChannelServer::ChannelServer(Platform& platform, PracticeClient& client)
    : platform_(platform), client_(client) {
  NewWindow plan;
  plan.className = kChannelClass;
  plan.visible = false;
  window_ = platform_.ownWindows.Create(plan, *this);
}

ChannelServer::~ChannelServer() { platform_.ownWindows.Destroy(window_); }

void ChannelServer::Note(std::string_view kind, const Words& words) {
  Words entry = {std::string(kind)};
  entry.insert(entry.end(), words.begin(), words.end());
  witness_.push_back(Packed(entry));
  if (witness_.size() > kMostEntries) witness_.pop_front();
}

void ChannelServer::GoLater(const std::string& target) { Queue({0, {target}}); }

MessageResult ChannelServer::OnMessage(Window window, const Message& message) {
  if (message.id == WM_COPYDATA && message.lParam != 0)
    return OnRequest(*reinterpret_cast<const COPYDATASTRUCT*>(message.lParam)) ? 1 : 0;
  if (message.id == kRunNext) {
    RunNext();
    return 0;
  }
  if (message.id == wm::kTimer && message.wParam == kHangTimer) {
    HangNow();
    return 0;
  }
  return platform_.ownWindows.Default(window, message);
}

bool ChannelServer::OnRequest(const COPYDATASTRUCT& data) {
  if (data.dwData != kRequest || data.lpData == nullptr) return false;
  auto words = Unpacked({static_cast<const char*>(data.lpData), data.cbData});
  if (!words || words->size() < 2) return false;
  Section section = Section::Open(words->front());
  if (!section) return false;
  const std::string verb = (*words)[1];
  words->erase(words->begin(), words->begin() + 2);
  for (const VerbRow& row : kVerbs)
    if (row.verb == verb) return section.Write((this->*row.answer)(*words));
  return section.Write({"there is no verb " + verb});
}

// --- Verbs ---------------------------------------------------------------------------------------

Words ChannelServer::Ask(const Words& words) { return WordsOf(client_.Ask(words)); }

Words ChannelServer::Begin(const Words& words) {
  Queue({++lastTicket_, words});
  return {std::to_string(lastTicket_)};
}

Words ChannelServer::TellReply(const Words& words) {
  const auto found = replies_.find(words.empty() ? 0 : IntVal(words[0]));
  if (found == replies_.end()) return {"pending"};
  Words told = WordsOf(found->second);
  told.insert(told.begin(), "done");
  replies_.erase(found);
  return told;
}

Words ChannelServer::TellWitness(const Words&) {
  // As many as a section takes; the others come next time.
  Words entries;
  std::size_t bytes = 0;
  while (!witness_.empty() && bytes + witness_.front().size() + 8 < kSectionBytes) {
    bytes += witness_.front().size() + 4;
    entries.push_back(std::move(witness_.front()));
    witness_.pop_front();
  }
  return entries;
}

Words ChannelServer::TakeTarget(const Words& words) {
  if (!words.empty()) GoLater(words[0]);
  return {};
}

Words ChannelServer::TellVersion(const Words&) { return {client_.LibraryVersion()}; }
Words ChannelServer::TellOnline(const Words&) { return {client_.LibraryIsOnline() ? "1" : "0"}; }
Words ChannelServer::TellNames(const Words&) { return client_.LibraryScreenNames(); }

// --- Hanging -------------------------------------------------------------------------------------

Words ChannelServer::HangLater(const Words& words) {
  if (words.size() != 3) return {};
  hang_ = words;
  platform_.events.StartTimer(window_, kHangTimer, static_cast<std::uint32_t>(IntVal(words[1])));
  return {};
}

void ChannelServer::HangNow() {
  platform_.events.StopTimer(window_, kHangTimer);
  const int milliseconds = std::clamp(IntVal(hang_[0]), 0, kLongestHang);
  const HANDLE end = CreateEventA(nullptr, TRUE, FALSE, kHangEvent);
  WaitForSingleObject(end, static_cast<DWORD>(milliseconds));
  if (hang_[2] == "crash") TerminateProcess(GetCurrentProcess(), 1);
  CloseHandle(end);
}

// --- Tasks ---------------------------------------------------------------------------------------

void ChannelServer::Queue(Task task) {
  tasks_.push_back(std::move(task));
  platform_.windows.Post(window_, kRunNext, 0, 0);
}

void ChannelServer::RunNext() {
  if (tasks_.empty()) return;
  const Task task = std::move(tasks_.front());
  tasks_.pop_front();
  if (task.ticket == 0) return client_.TakeCommandLine(task.words[0]);
  Reply reply = client_.Do(task.words);
  replies_[task.ticket] = std::move(reply);
  if (replies_.size() > kMostReplies) replies_.erase(replies_.begin());
}

}  // namespace corvel::practice
