#include "practice/win32/channel_client.h"

namespace corvel::practice {
namespace {

constexpr UINT kLongestAnswer = 10000;
constexpr char kNotRunning[] = "the client is not running";

// Each section of this process has a name of its own.
std::string NewName() {
  static unsigned number = 0;
  return "CorvelPractice." + std::to_string(GetCurrentProcessId()) + "." +
         std::to_string(GetCurrentThreadId()) + "." + std::to_string(++number);
}

Reply ReplyOf(const std::optional<Words>& words, std::size_t front) {
  if (!words || words->size() <= front) return {kNotRunning, {}};
  return {(*words)[front], {words->begin() + static_cast<std::ptrdiff_t>(front) + 1, words->end()}};
}

std::optional<std::string> OnlyWord(const std::optional<Words>& words) {
  if (!words || words->size() != 1) return std::nullopt;
  return words->front();
}

}  // namespace

PracticeChannel::PracticeChannel(std::function<void()> whileWaiting)
    : whileWaiting_(std::move(whileWaiting)), name_(NewName()), section_(Section::Make(name_)) {}

bool PracticeChannel::IsThere() { return FindWindowA(kChannelClass, nullptr) != nullptr; }

bool PracticeChannel::WaitUntilThere(std::uint32_t milliseconds) {
  const DWORD begun = GetTickCount();
  while (!IsThere()) {
    if (GetTickCount() - begun > milliseconds) return false;
    Wait();
  }
  return true;
}

// The client may wait for us in turn: when it comes to the front it tells whoever was there.
void PracticeChannel::Wait() {
  constexpr DWORD kNap = 5;
  if (whileWaiting_) return whileWaiting_();
  MsgWaitForMultipleObjects(0, nullptr, FALSE, kNap, QS_SENDMESSAGE);
  MSG message;
  PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);  // takes what has been sent
}

std::optional<Words> PracticeChannel::Request(const Words& words) {
  const HWND window = FindWindowA(kChannelClass, nullptr);
  if (window == nullptr || !section_) return std::nullopt;
  Words all = {name_};
  all.insert(all.end(), words.begin(), words.end());
  std::string bytes = Packed(all);
  COPYDATASTRUCT data{kRequest, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR result = 0;
  const LRESULT sent = SendMessageTimeoutA(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data),
                                           SMTO_NORMAL | SMTO_ABORTIFHUNG, kLongestAnswer, &result);
  return sent != 0 && result == 1 ? section_.Read() : std::nullopt;
}

Reply PracticeChannel::Ask(const Words& words) {
  Words request = {"ask"};
  request.insert(request.end(), words.begin(), words.end());
  return ReplyOf(Request(request), 0);
}

std::optional<std::string> PracticeChannel::Begin(const Words& words) {
  Words request = {"do"};
  request.insert(request.end(), words.begin(), words.end());
  return OnlyWord(Request(request));
}

std::optional<Reply> PracticeChannel::ReplyTo(const std::string& ticket) {
  const auto reply = Request({"reply", ticket});
  // A client that closes on a command takes its answer with it.
  if (!reply || reply->empty()) return IsThere() ? Reply{kNotRunning, {}} : Reply{};
  if (reply->front() == "done") return ReplyOf(reply, 1);
  return std::nullopt;
}

Reply PracticeChannel::Do(const Words& words) {
  const auto ticket = Begin(words);
  if (!ticket) return {kNotRunning, {}};
  for (;;) {
    if (auto reply = ReplyTo(*ticket)) return *std::move(reply);
    Wait();
  }
}

bool PracticeChannel::Hang(std::uint32_t milliseconds, std::uint32_t after,
                           const std::string& end) {
  return Request({"hang", std::to_string(milliseconds), std::to_string(after), end}).has_value();
}

bool PracticeChannel::Hangs() {
  const HANDLE end = OpenEventA(EVENT_MODIFY_STATE, FALSE, kHangEvent);
  if (end) CloseHandle(end);
  return end != nullptr;
}

void PracticeChannel::Release() {
  const HANDLE end = OpenEventA(EVENT_MODIFY_STATE, FALSE, kHangEvent);
  if (!end) return;
  SetEvent(end);
  CloseHandle(end);
}

std::vector<PracticeChannel::Seen> PracticeChannel::TakeWitness() {
  std::vector<Seen> seen;
  const auto entries = Request({"witness"});
  for (const std::string& entry : entries.value_or(Words{})) {
    auto words = Unpacked(entry);
    if (!words || words->empty()) continue;
    std::string kind = std::move(words->front());
    words->erase(words->begin());
    seen.emplace_back(std::move(kind), std::move(*words));
  }
  return seen;
}

void PracticeChannel::GoTo(const std::string& target) { Request({"target", target}); }

std::optional<std::string> PracticeChannel::Version() { return OnlyWord(Request({"version"})); }

std::optional<bool> PracticeChannel::IsOnline() {
  const auto word = OnlyWord(Request({"online"}));
  if (!word) return std::nullopt;
  return *word == "1";
}

std::optional<Words> PracticeChannel::ScreenNames() { return Request({"names"}); }

}  // namespace corvel::practice
