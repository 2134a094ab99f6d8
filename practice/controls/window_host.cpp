#include "practice/controls/window_host.h"

namespace corvel::practice {

WindowHost::Entry::~Entry() {
  if (--host_.depth_ != 0) return;
  const auto free = std::move(host_.buried_);
  host_.buried_.clear();
}

Window WindowHost::Make(const NewWindow& plan, const std::shared_ptr<HostedWindow>& procedure) {
  const Window made = platform_.ownWindows.Create(plan, *procedure);
  return procedure->Alive() ? made : Window{};
}

Window WindowHost::AddIcon(Window parent, std::string caption, bool enabled) {
  const Window icon = AddControl<Icon>(parent, "_AOL_ICON", std::move(caption));
  if (!enabled) windows().Enable(icon, false);
  return icon;
}

Window WindowHost::AddStatic(Window parent, std::string caption) {
  return AddControl<PlainWindow>(parent, "_AOL_STATIC", std::move(caption));
}

void WindowHost::Put(Window window, const Rect& place) {
  if (window) windows().Place(window, place);
}

int WindowHost::LineHeight() { return platform_.display.TextExtent("Mg", {}).height; }

HostedWindow* WindowHost::Find(Window window) const {
  const auto at = living_.find(window.value);
  return at == living_.end() ? nullptr : at->second.get();
}

void WindowHost::Adopt(std::shared_ptr<HostedWindow> window) {
  const std::uint32_t handle = window->window().value;
  living_[handle] = std::move(window);
}

void WindowHost::Bury(Window window) {
  const auto at = living_.find(window.value);
  if (at == living_.end()) return;
  buried_.push_back(std::move(at->second));
  living_.erase(at);
}

}  // namespace corvel::practice
