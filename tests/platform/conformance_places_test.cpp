// Where windows stand: client areas, iconic and zoomed windows, placing with and without the order.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

// The procedure of windows of our own that tells what they are told of their place.
class Placed : public WindowProcedure {
 public:
  explicit Placed(OwnWindows& own) : own_(own) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    if (message.id == wm::kChildActivate) log.push_back("activate");
    const std::string numbers = std::to_string(static_cast<std::int16_t>(message.lParam & 0xFFFF)) +
                                "," +
                                std::to_string(static_cast<std::int16_t>(message.lParam >> 16));
    if (message.id == wm::kMove) log.push_back("move " + numbers);
    if (message.id == wm::kSize)
      log.push_back("size " + numbers +
                    (message.wParam == 0   ? ""
                     : message.wParam == 1 ? " iconic"
                                           : " zoomed"));
    return own_.Default(window, message);
  }
  Log Take() { return std::exchange(log, {}); }
  Log log;

 private:
  OwnWindows& own_;
};

class Places : public testing::Test {
 protected:
  Window Make(const NewWindow& window) {
    Window made{};
    home->Run([&] { made = own.Create(window, placed); });
    return made;
  }
  Window Frame() {
    return frame = Make({.className = "Places Frame",
                         .caption = "frame",
                         .place = {10, 20, 600, 400},
                         .systemClass = {}});
  }
  Window Child(Window parent, const Rect& place, bool mdi = false) {
    return Make({.className = "Places Child",
                 .caption = "child",
                 .parent = parent,
                 .place = place,
                 .mdiChild = mdi,
                 .systemClass = {}});
  }
  void Show(Window window, int command) {
    home->Run([&] { windows.Show(window, command); });
  }
  void TearDown() override {
    home->Run([&] { own.Destroy(frame); });
  }

  std::unique_ptr<Home> home = MakeHome();
  WindowSystem& windows = home->platform().windows;
  OwnWindows& own = home->platform().ownWindows;
  Placed placed{own};
  Window frame{};
};

TEST_F(Places, AClientAreaLiesInsideOfFrameTitleAndMenu) {
  const Window plain = Child(Frame(), {0, 0, 500, 300});
  const Window document = Child(plain, {30, 40, 200, 100}, true);
  EXPECT_EQ(windows.ClientSizeOf(frame), (Size{592, 373}));
  EXPECT_EQ(windows.ClientSizeOf(plain), (Size{500, 300}));
  EXPECT_EQ(windows.ClientSizeOf(document), (Size{192, 73}));
  EXPECT_EQ(windows.PlaceOf(plain), (Rect{14, 43, 500, 300}));
  EXPECT_EQ(windows.PlaceOf(document), (Rect{44, 83, 200, 100}));
  EXPECT_EQ(windows.PlaceInParent(document), (Rect{30, 40, 200, 100}));
  EXPECT_EQ(windows.PlaceInParent(frame), (Rect{10, 20, 600, 400}));
  home->Run([&] {
    const MenuHandle bar = own.CreateMenuBar();
    home->platform().menus.Insert(bar, -1, menu_flag::kByPosition, 7, {}, "Help");
    own.SetMenuBar(frame, bar);
  });
  EXPECT_EQ(windows.ClientSizeOf(frame), (Size{592, 354}));
  EXPECT_EQ(windows.PlaceOf(plain), (Rect{14, 62, 500, 300}));
  EXPECT_EQ(windows.PlaceInParent(plain), (Rect{0, 0, 500, 300}));
}

TEST_F(Places, ANewWindowIsToldOfItsClientArea) {
  const Window plain = Child(Frame(), {5, 6, 500, 300});
  EXPECT_EQ(placed.Take(), (Log{"size 592,373", "move 14,43", "size 500,300", "move 5,6"}));
  Child(plain, {30, 40, 200, 100}, true);
  EXPECT_EQ(placed.Take(), (Log{"size 192,73", "move 34,63"}));
}

TEST_F(Places, ZoomedAndIconicWindowsComeBackToTheirPlace) {
  const Window space = Child(Frame(), {0, 0, 500, 300});
  const Window child = Child(space, {30, 40, 200, 100}, true);
  placed.Take();
  const struct {
    int command;
    bool iconic, zoomed;
    Rect place;
    Size client;
    Log told;
  } kTable[] = {
      {show::kMaximized,
       false,
       true,
       {-4, -4, 508, 308},
       {500, 281},
       {"activate", "move 0,19", "size 500,281 zoomed"}},
      {show::kMaximized, false, true, {-4, -4, 508, 308}, {500, 281}, {}},
      {show::kRestore,
       false,
       false,
       {30, 40, 200, 100},
       {192, 73},
       {"activate", "move 34,63", "size 192,73"}},
      {show::kMinimize, true, false, {0, 276, 160, 24}, {0, 0}, {"move 0,276", "size 0,0 iconic"}},
      {show::kShow, true, false, {0, 276, 160, 24}, {0, 0}, {}},
      {show::kRestore,
       false,
       false,
       {30, 40, 200, 100},
       {192, 73},
       {"activate", "move 34,63", "size 192,73"}},
      {show::kMaximized,
       false,
       true,
       {-4, -4, 508, 308},
       {500, 281},
       {"activate", "move 0,19", "size 500,281 zoomed"}},
      {show::kMinimize, true, false, {0, 276, 160, 24}, {0, 0}, {"move 0,276", "size 0,0 iconic"}},
      {show::kRestore,
       false,
       true,
       {-4, -4, 508, 308},
       {500, 281},
       {"activate", "move 0,19", "size 500,281 zoomed"}},
      {show::kNoActivate,
       false,
       false,
       {30, 40, 200, 100},
       {192, 73},
       {"move 34,63", "size 192,73"}},
  };
  for (const auto& row : kTable) {
    const auto number = &row - kTable;
    Show(child, row.command);
    EXPECT_EQ(windows.IsIconic(child), row.iconic) << number;
    EXPECT_EQ(windows.IsZoomed(child), row.zoomed) << number;
    EXPECT_EQ(windows.PlaceInParent(child), row.place) << number;
    EXPECT_EQ(windows.ClientSizeOf(child), row.client) << number;
    EXPECT_EQ(placed.Take(), row.told) << number;
  }
}

TEST_F(Places, AZoomedOrIconicFrameLiesWhereTheScreenHasItAndComesBack) {
  const Size screen = home->platform().display.ScreenSize();
  Show(Frame(), show::kMaximized);
  EXPECT_EQ(windows.PlaceOf(frame), (Rect{-4, -4, screen.width + 8, screen.height + 8}));
  Show(frame, show::kMinimize);
  EXPECT_EQ(windows.PlaceOf(frame), (Rect{-32000, -32000, 160, 24}));
  Show(frame, show::kRestore);
  Show(frame, show::kRestore);
  EXPECT_EQ(windows.PlaceOf(frame), (Rect{10, 20, 600, 400}));
  EXPECT_FALSE(windows.IsZoomed(frame));
}

TEST_F(Places, PlacingKeepsTheOrderAndPlacingOnTopActivates) {
  Frame();
  const Window a = Child(frame, {0, 0, 50, 50}), b = Child(frame, {0, 0, 50, 50});
  placed.Take();
  const auto run = [&](const std::function<void()>& order) {
    home->Run(order);
    return placed.Take();
  };
  EXPECT_EQ(run([&] { windows.Place(b, {1, 2, 60, 70}); }), (Log{"move 1,2", "size 60,70"}));
  EXPECT_EQ(run([&] { windows.Resize(b, {80, 90}); }), (Log{"size 80,90"}));
  EXPECT_EQ(windows.PlaceInParent(b), (Rect{1, 2, 80, 90}));
  EXPECT_EQ(windows.TopChild(frame), a);
  EXPECT_EQ(run([&] {
              windows.PlaceOnTop(b, {-8, -27, 60, 90});
            }),
            (Log{"activate", "move -8,-27", "size 60,90"}));
  EXPECT_EQ(windows.TopChild(frame), b);
  EXPECT_EQ(run([&] { windows.PlaceOnTop(b, {-8, -27, 60, 90}); }), (Log{"activate"}));
  EXPECT_EQ(run([&] { windows.Resize(a, {-1, 5}); }), (Log{"size 0,5"}));
}

TEST_F(Places, AFrameThatIsPlacedOnTopIsActive) {
  const Window first = Frame(), second = Make({.className = "Places Frame",
                                               .caption = "second",
                                               .place = {0, 0, 300, 200},
                                               .systemClass = {}});
  EXPECT_EQ(windows.Focus(), second);
  placed.Take();
  home->Run([&] { windows.PlaceOnTop(first, {30, 40, 500, 300}); });
  EXPECT_EQ(windows.Focus(), first);
  EXPECT_EQ(windows.TopChild({}), first);
  EXPECT_EQ(placed.Take(), (Log{"move 34,63", "size 492,273"}));
  home->Run([&] { own.Destroy(second); });
}

TEST_F(Places, AnIconIsMovedButKeepsItsSize) {
  const Window space = Child(Frame(), {0, 0, 500, 300});
  const Window child = Child(space, {30, 40, 200, 100}, true);
  Show(child, show::kMinimize);
  home->Run([&] { windows.Place(child, {1, 2, 90, 80}); });
  EXPECT_EQ(windows.PlaceInParent(child), (Rect{1, 2, 160, 24}));
  Show(child, show::kRestore);
  EXPECT_EQ(windows.PlaceInParent(child), (Rect{30, 40, 200, 100}));
}

TEST_F(Places, OneWindowOfAllCanBeLocked) {
  OtherProcess& other = home->other();
  const Window theirs =
      other.Make("theirs", {.className = "Theirs", .caption = "theirs", .systemClass = {}});
  home->Run([&] {
    auto lock = windows.LockUpdates(theirs);
    EXPECT_TRUE(lock);
    EXPECT_FALSE(windows.LockUpdates(theirs));
    EXPECT_FALSE(windows.LockUpdates(Window{}));
    lock.reset();
    lock = windows.LockUpdates(theirs);
    EXPECT_TRUE(lock);
    other.Destroy(theirs);
    lock.reset();
    EXPECT_FALSE(windows.LockUpdates(theirs)) << "it is dead";
    frame = own.Create({.className = "Places Frame", .caption = "f", .systemClass = {}}, placed);
    EXPECT_TRUE(windows.LockUpdates(frame));
    EXPECT_TRUE(windows.LockUpdates(frame)) << "the last lock has gone";
  });
}

TEST_F(Places, OfADeadWindowAreNone) {
  const Window dead = Frame();
  home->Run([&] {
    own.Destroy(dead);
    windows.PlaceOnTop(dead, {1, 1, 1, 1});
    windows.Resize(dead, {1, 1});
  });
  EXPECT_EQ(windows.PlaceInParent(dead), Rect{});
  EXPECT_EQ(windows.ClientSizeOf(dead), Size{});
  EXPECT_FALSE(windows.IsZoomed(dead));
}

}  // namespace
}  // namespace corvel::test
