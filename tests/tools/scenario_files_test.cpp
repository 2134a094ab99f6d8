// Every scenario of tests/scenarios holds, and every window that is seen in one looks orderly.
#include "base/cp1252.h"
#include "tools/desk/desk_stage.h"
#include "tools/scenario_player.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace corvel::tools {
namespace {

std::vector<std::string> ScenarioFiles() {
  std::vector<std::string> files;
  const std::filesystem::path folder = std::filesystem::path(CORVEL_SOURCE_DIR) / "tests/scenarios";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
    if (entry.path().extension() == ".scn")
      files.push_back(std::filesystem::relative(entry.path(), folder).string());
  std::sort(files.begin(), files.end());
  return files;
}

bool Overlap(const Rect& a, const Rect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

// A frame lies behind what it holds.
bool Holds(const ControlState& frame, const Rect& inside) {
  const Rect& place = frame.place;
  return frame.kind == ControlKind::kFrame && inside.left >= place.left &&
         inside.top >= place.top && inside.left + inside.width <= place.left + place.width &&
         inside.top + inside.height <= place.top + place.height;
}

// The letter behind the "&" in what a control reads, in lower case; 0 for none.
char AccessKey(const ControlState& control) {
  const bool canHave = control.kind != ControlKind::kTextBox &&
                       control.kind != ControlKind::kLabel && control.kind != ControlKind::kPicture;
  const auto mark = control.text.find('&');
  return canHave && mark != std::string::npos && mark + 1 < control.text.size()
             ? LowerChar(control.text[mark + 1])
             : '\0';
}

// What is wrong with how a window looks: it has to fit the smallest screen, nothing may overlap or
// stick out, every control can be named to a blind user, and no two have one access key.
std::set<std::string> FaultsOf(const FormState& form, const std::vector<ControlView>& controls) {
  std::set<std::string> faults;
  if (form.place.width > 640 || form.place.height > 480) faults.insert(form.name + " is too large");
  std::set<char> keys;
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const ControlState& one = *controls[i].state;
    if (!one.visible) continue;
    const std::string name = form.name + "." + one.name;
    if (one.place.left < 0 || one.place.top < 0 ||
        one.place.left + one.place.width > form.place.width ||
        one.place.top + one.place.height > form.place.height)
      faults.insert(name + " sticks out");
    const bool needsName = one.kind != ControlKind::kLabel && one.kind != ControlKind::kFrame;
    if (needsName && one.text.empty() && one.accessibleName.empty())
      faults.insert(name + " has no name");
    if (const char key = AccessKey(one); key != '\0' && !keys.insert(key).second)
      faults.insert(name + " has another one's access key");
    for (std::size_t j = 0; j < i; ++j) {
      const ControlState& other = *controls[j].state;
      if (other.visible && Overlap(one.place, other.place) && !Holds(one, other.place) &&
          !Holds(other, one.place))
        faults.insert(name + " overlaps " + other.name);
    }
  }
  return faults;
}

class ScenarioFileTest : public testing::TestWithParam<std::string> {};

TEST_P(ScenarioFileTest, Holds) {
  std::set<std::string> faults;
  ScenarioOptions options;
  DeskStage stage(1);
  options.onCommand = [&](const Words&) {
    for (const FormView& form : stage.Forms())
      if (form.state->visible) faults.merge(FaultsOf(*form.state, stage.ControlsOf(form.window)));
  };
  const std::string path = std::string(CORVEL_SOURCE_DIR) + "/tests/scenarios/" + GetParam();
  const ScenarioVerdict verdict = PlayScenarioFile(stage, path, options);
  EXPECT_EQ(verdict.exitCode, kHeld);
  for (const std::string& message : verdict.messages) ADD_FAILURE() << message;
  for (const std::string& fault : faults) ADD_FAILURE() << fault;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioFileTest, testing::ValuesIn(ScenarioFiles()),
                         [](const auto& file) {
                           std::string name = file.param;
                           std::replace_if(
                               name.begin(), name.end(), [](char c) { return !std::isalnum(c); },
                               '_');
                           return name;
                         });

}  // namespace
}  // namespace corvel::tools
