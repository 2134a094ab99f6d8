// A person's hands: the pointer glides to its place, buttons and keys go down and come up, as the
// system's own input for whatever window is there.
//
// What is asked for is done by Step, one move at a time, so that everything else goes on meanwhile:
// also inside the loops in which the system itself follows the mouse. Nothing is waited for without
// an end, for somebody else may have a hand on the mouse too.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <windows.h>

namespace corvel::tools {

// Keys that are held down while another is struck.
struct Modifiers {
  bool control = false, shift = false;
};

class Hands {
 public:
  // A place on the screen, and the window that must be seen there (none: whatever is).
  struct Spot {
    POINT at{};
    HWND window = nullptr;
    std::string refusal{};  // why it can't be pointed at; it is looked for again for a while
    // A part of a frame: while its button is held the system hears of nothing but the mouse.
    bool inFrame = false;
  };
  using Aim = std::function<Spot()>;
  enum class Button { kLeft, kRight };

  // `onTouch` is told when the pointer has arrived and its button is down.
  explicit Hands(std::function<void()> onTouch) : onTouch_(std::move(onTouch)) {}
  ~Hands() { LetGo(); }
  Hands(const Hands&) = delete;
  Hands& operator=(const Hands&) = delete;

  // --- What to do, one thing after another -----------------------------------------------------
  void Click(Aim aim, Button button = Button::kLeft, int times = 1, bool control = false);
  void PointAt(Aim aim);
  void Drag(Aim aim, int dx, int dy);  // pressed there, and let go so many pixels further
  // At once behind another click: where two of them are no double-click.
  void ClickAgain(Aim aim);
  void Press(int virtualKey, Modifiers held = {});
  void Type(std::string_view text);  // Windows-1252, into whatever has the keyboard
  // When it comes to that. What the work asks for is done next; it fails with a reason.
  void Then(std::function<std::string()> work);
  // Goes on when `holds`; fails with `otherwise` if it doesn't within two seconds (with none it
  // goes on all the same).
  void Await(std::function<bool()> holds, std::string otherwise);
  void BringToFront(HWND root);  // as its button in the task bar would

  // --- Doing it --------------------------------------------------------------------------------
  void Step();  // to be called every few milliseconds
  bool IsBusy() const { return stepping_ || !moves_.empty(); }
  // Told once: why something could not be done. What was to come behind it has been dropped.
  std::string TakeFailure();

 private:
  using Move = std::function<bool()>;  // true: done; false: it is called again
  struct Glide;

  void Add(Move move) { moves_.push_back(std::move(move)); }
  void Pause(std::uint32_t milliseconds);
  bool GoOn(Glide& glide, const Aim& aim);
  void PressButton(Aim aim, Button button, bool touch, bool quick);
  void Down(POINT at, Button button);
  void Up();
  void Fail(const std::string& why) { failure_ = why; }
  void KeyDown(int virtualKey);
  void KeyUp(int virtualKey);
  void TypeCharacter(char character);
  void LetGo();

  const std::function<void()> onTouch_;
  std::deque<Move> moves_;
  bool stepping_ = false;
  std::uint32_t wakeAt_ = 0;
  std::string failure_;
  int strayed_ = 0;  // so often the pointer was found elsewhere than it had been put
  POINT lastPress_{};
  std::uint32_t lastPressAt_ = 0;
  DWORD heldButton_ = 0;  // the event that lets it go
  std::deque<int> heldKeys_;
};

// The window of the screen that this one is, or is inside.
HWND RootOf(HWND window);

}  // namespace corvel::tools
