// A person's hands; see hands.h.
#include "tools/win32/hands.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

namespace corvel::tools {
namespace {

constexpr std::uint32_t kShownMs = 2000,
                        kRaiseAgainMs = 500;  // so long a place may take to come into sight
constexpr std::uint32_t kDownMs = 90, kRestMs = 80, kBetweenMs = 40, kKeyMs = 15;
constexpr int kShortestGlideMs = 150, kLongestGlideMs = 450;
constexpr int kMayStray = 5;

bool IsPast(std::uint32_t time) { return static_cast<std::int32_t>(GetTickCount() - time) >= 0; }

bool IsNear(POINT a, POINT b) { return std::abs(a.x - b.x) <= 2 && std::abs(a.y - b.y) <= 2; }

POINT Pointer() {
  POINT at{};
  GetCursorPos(&at);
  return at;
}

bool IsOnScreen(POINT at) {
  return at.x >= 0 && at.y >= 0 && at.x < GetSystemMetrics(SM_CXSCREEN) &&
         at.y < GetSystemMetrics(SM_CYSCREEN);
}

bool IsSeen(const Hands::Spot& spot) {
  return !spot.window || RootOf(WindowFromPoint(spot.at)) == RootOf(spot.window);
}

std::string CaptionAt(POINT at) {
  char caption[80] = "";
  GetWindowTextA(RootOf(WindowFromPoint(at)), caption, sizeof caption);
  return caption;
}

// The keys of the grey block would else be those of the number pad.
DWORD KeyFlags(int virtualKey) {
  constexpr int kGrey[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_DELETE};
  return std::find(std::begin(kGrey), std::end(kGrey), virtualKey) != std::end(kGrey)
             ? KEYEVENTF_EXTENDEDKEY
             : 0;
}

BYTE ScanCode(int virtualKey) {
  return static_cast<BYTE>(MapVirtualKeyA(static_cast<UINT>(virtualKey), 0));
}

// A character that no key of this keyboard makes.
void StrikeCharacter(char character) {
  constexpr UINT kWindows1252 = 1252;
  wchar_t wide = 0;
  MultiByteToWideChar(kWindows1252, 0, &character, 1, &wide, 1);
  for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = static_cast<WORD>(wide);
    input.ki.dwFlags = 4 /* the character itself */ | up;
    SendInput(1, &input, sizeof input);
  }
}

}  // namespace

HWND RootOf(HWND window) {
  while (window && (GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD) != 0)
    window = GetParent(window);
  return window;
}

// --- Moves ---------------------------------------------------------------------------------------

void Hands::Step() {
  if (stepping_ || moves_.empty() || !IsPast(wakeAt_)) return;
  stepping_ = true;
  const Move move = std::move(moves_.front());
  moves_.pop_front();
  std::deque<Move> later;
  later.swap(moves_);  // what the move asks for comes first
  if (!move()) moves_.push_front(move);
  moves_.insert(moves_.end(), later.begin(), later.end());
  if (!failure_.empty()) {
    moves_.clear();
    LetGo();
  }
  stepping_ = false;
}

std::string Hands::TakeFailure() { return std::exchange(failure_, {}); }

void Hands::Pause(std::uint32_t milliseconds) {
  Add([this, milliseconds] {
    wakeAt_ = GetTickCount() + milliseconds;
    return true;
  });
}

void Hands::Then(std::function<std::string()> work) {
  Add([this, work = std::move(work)] {
    Fail(work());
    return true;
  });
}

void Hands::Await(std::function<bool()> holds, std::string otherwise) {
  const auto until = std::make_shared<std::uint32_t>(0);
  Add([this, holds = std::move(holds), otherwise = std::move(otherwise), until] {
    if (holds()) return true;
    if (*until == 0) *until = GetTickCount() + kShownMs;
    if (!IsPast(*until)) return false;
    Fail(otherwise);
    return true;
  });
}

void Hands::BringToFront(HWND root) {
  Add([root] {
    if (GetForegroundWindow() != root) SetForegroundWindow(root);
    return true;
  });
  Await([root] { return GetForegroundWindow() == root; }, "its window does not come to the front");
}

// --- The mouse -----------------------------------------------------------------------------------

struct Hands::Glide {
  bool begun = false;
  std::uint32_t lookUntil = GetTickCount() + kShownMs, beganAt = 0, raiseAt = GetTickCount();
  POINT from{};
  std::vector<POINT> trail{};  // the system may tell of where it was put some moments late
  int lasts = 0;

  bool Strayed() const {
    const POINT at = Pointer();
    return begun &&
           std::none_of(trail.begin(), trail.end(), [at](POINT put) { return IsNear(put, at); });
  }
};

void Hands::PointAt(Aim aim) {
  const auto glide = std::make_shared<std::unique_ptr<Glide>>();
  Add([this, aim = std::move(aim), glide] {
    if (!*glide) *glide = std::make_unique<Glide>();
    return GoOn(**glide, aim);
  });
}

// True: the pointer is there, or won't be.
bool Hands::GoOn(Glide& glide, const Aim& aim) {
  const Spot spot = aim();
  std::string refusal = spot.refusal;
  if (refusal.empty() && !IsOnScreen(spot.at)) refusal = "it is off the screen";
  if (refusal.empty() && !IsSeen(spot)) {
    refusal = "the window \"" + CaptionAt(spot.at) + "\" covers it";
    if (IsPast(glide.raiseAt)) {
      glide.raiseAt = GetTickCount() + kRaiseAgainMs;
      SetForegroundWindow(RootOf(spot.window));
    }
  }
  if (!refusal.empty()) {
    if (IsPast(glide.lookUntil)) Fail(refusal);
    return !failure_.empty();
  }
  const bool strayed = glide.Strayed();
  if (strayed && ++strayed_ > kMayStray) return Fail("somebody else moves the mouse"), true;
  if (!std::exchange(glide.begun, true) || strayed) {
    glide.from = Pointer();
    glide.beganAt = GetTickCount();
    const double way = std::hypot(spot.at.x - glide.from.x, spot.at.y - glide.from.y);
    glide.lasts =
        way < 1 ? 1 : std::clamp(static_cast<int>(way), kShortestGlideMs, kLongestGlideMs);
  }
  const double part =
      std::min(1.0, static_cast<double>(GetTickCount() - glide.beganAt) / glide.lasts);
  const double eased = part * part * (3 - 2 * part);
  const POINT put{glide.from.x + std::lround((spot.at.x - glide.from.x) * eased),
                  glide.from.y + std::lround((spot.at.y - glide.from.y) * eased)};
  glide.trail.push_back(put);
  SetCursorPos(put.x, put.y);
  if (part < 1) return false;
  wakeAt_ = GetTickCount() + kRestMs;
  return true;
}

// What is under the pointer may have gone, or the pointer from it, in the last moment.
void Hands::PressButton(Aim aim, Button button, bool touch, bool quick) {
  Add([this, aim, button, touch, quick] {
    const Spot spot = aim();
    const bool tooSoon = !quick && IsNear(lastPress_, Pointer()) &&
                         !IsPast(lastPressAt_ + GetDoubleClickTime() + kBetweenMs);
    if (tooSoon) return false;
    if (!spot.refusal.empty() || !IsNear(spot.at, Pointer()) || !IsSeen(spot)) {
      if (++strayed_ > kMayStray)
        return Fail("it does not stand still, or the mouse doesn't"), true;
      PointAt(aim);
      PressButton(aim, button, touch, quick);
      return true;
    }
    if (spot.inFrame) {
      if (touch) onTouch_();
      Add([this, at = spot.at, button] { return Down(at, button), Up(), true; });
      return true;
    }
    Down(spot.at, button);
    if (touch) onTouch_();
    Pause(touch ? kDownMs : kKeyMs);
    Add([this] { return Up(), true; });
    return true;
  });
}

void Hands::Down(POINT at, Button button) {
  const bool left = button == Button::kLeft;
  lastPress_ = at;
  lastPressAt_ = GetTickCount();
  heldButton_ = left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP;
  mouse_event(left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
}

void Hands::Up() {
  if (!IsNear(Pointer(), lastPress_)) SetCursorPos(lastPress_.x, lastPress_.y);
  mouse_event(std::exchange(heldButton_, 0), 0, 0, 0, 0);
}

void Hands::Click(Aim aim, Button button, int times, bool control) {
  Add([this] { return strayed_ = 0, true; });
  PointAt(aim);
  if (control) Add([this] { return KeyDown(VK_CONTROL), true; });
  for (int time = 1; time <= times; ++time) PressButton(aim, button, time == times, time > 1);
  Pause(kBetweenMs);
  if (control) Add([this] { return KeyUp(VK_CONTROL), true; });
}

// Where the pointer is let go is reckoned from where it was pressed: what is dragged goes along.
void Hands::Drag(Aim aim, int dx, int dy) {
  Add([this] { return strayed_ = 0, true; });
  PointAt(aim);
  Add([this, dx, dy] {
    const POINT from = Pointer(), to{from.x + dx, from.y + dy};
    Down(from, Button::kLeft);
    Pause(kDownMs);
    PointAt([to] { return Spot{to, nullptr, ""}; });
    Add([this, to] { return lastPress_ = to, Up(), true; });
    Pause(kBetweenMs);
    return true;
  });
}

void Hands::ClickAgain(Aim aim) {
  PointAt(aim);
  PressButton(aim, Button::kLeft, false, true);
  Pause(kBetweenMs);
}

// --- The keyboard --------------------------------------------------------------------------------

void Hands::KeyDown(int virtualKey) {
  heldKeys_.push_back(virtualKey);
  keybd_event(static_cast<BYTE>(virtualKey), ScanCode(virtualKey), KeyFlags(virtualKey), 0);
}

void Hands::KeyUp(int virtualKey) {
  std::erase(heldKeys_, virtualKey);
  keybd_event(static_cast<BYTE>(virtualKey), ScanCode(virtualKey),
              KeyFlags(virtualKey) | KEYEVENTF_KEYUP, 0);
}

void Hands::Press(int virtualKey, Modifiers held) {
  Add([this, virtualKey, held] {
    if (held.control) KeyDown(VK_CONTROL);
    if (held.shift) KeyDown(VK_SHIFT);
    KeyDown(virtualKey);
    return true;
  });
  Pause(kKeyMs);
  Add([this, virtualKey, held] {
    KeyUp(virtualKey);
    if (held.shift) KeyUp(VK_SHIFT);
    if (held.control) KeyUp(VK_CONTROL);
    return true;
  });
  Pause(kKeyMs);
}

void Hands::Type(std::string_view text) {
  for (const char character : text)
    if (character != '\n') TypeCharacter(character);
}

void Hands::TypeCharacter(char character) {
  constexpr int kShift = 1;
  const int key = character == '\r' ? VK_RETURN : VkKeyScanA(character);
  const int state = key >> 8;
  if (key != -1 && (state & ~kShift) == 0) return Press(key & 0xFF, {.shift = state == kShift});
  Add([character] { return StrikeCharacter(character), true; });
  Pause(kKeyMs);
}

void Hands::LetGo() {
  if (heldButton_ != 0) mouse_event(std::exchange(heldButton_, 0), 0, 0, 0, 0);
  while (!heldKeys_.empty()) KeyUp(heldKeys_.back());
}

}  // namespace corvel::tools
