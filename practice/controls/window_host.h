// What the client's windows stand on: the system's services, and who keeps their objects.
#pragma once

#include "platform/platform.h"
#include "practice/controls/hosted_window.h"
#include "practice/controls/own_memory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvel::practice {

class WindowHost {
 public:
  WindowHost(const WindowHost&) = delete;
  WindowHost& operator=(const WindowHost&) = delete;

  // Held by every way into the client. The objects of windows that have died are freed when the
  // outermost one ends.
  class Entry {
   public:
    explicit Entry(WindowHost& host) : host_(host) { ++host_.depth_; }
    ~Entry();
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

   private:
    WindowHost& host_;
  };

  Platform& platform() { return platform_; }
  WindowSystem& windows() const { return platform_.windows; }
  OwnMemory& memory() { return memory_; }

  // Makes the window, and keeps the object. 0 if it could not be made, or was destroyed while it
  // was being made.
  Window Make(const NewWindow& plan, const std::shared_ptr<HostedWindow>& procedure);
  // Makes a control at the end of its parent's children.
  template <class T, class... Arguments>
  Window AddControl(Window parent, std::string className, std::string caption,
                    Arguments&&... arguments);
  Window AddIcon(Window parent, std::string caption = "", bool enabled = true);
  Window AddStatic(Window parent, std::string caption);
  // Gives a control its place; nothing for window 0.
  void Put(Window window, const Rect& place);
  int LineHeight();  // pixels that a line of text takes
  // The object of a living window of the client; nullptr for any other window.
  HostedWindow* Find(Window window) const;
  template <class T>
  T* FindAs(Window window) const {
    return dynamic_cast<T*>(Find(window));
  }
  void Adopt(std::shared_ptr<HostedWindow> window);  // by HostedWindow itself
  void Bury(Window window);

 protected:
  WindowHost(Platform& platform, OwnMemory& memory) : platform_(platform), memory_(memory) {}
  ~WindowHost() = default;

 private:
  Platform& platform_;
  OwnMemory& memory_;
  int depth_ = 0;
  std::unordered_map<std::uint32_t, std::shared_ptr<HostedWindow>> living_;
  std::vector<std::shared_ptr<HostedWindow>> buried_;
};

template <class T, class... Arguments>
Window WindowHost::AddControl(Window parent, std::string className, std::string caption,
                              Arguments&&... arguments) {
  NewWindow plan;
  plan.className = std::move(className);
  plan.caption = std::move(caption);
  plan.parent = parent;
  return Make(plan, std::make_shared<T>(*this, std::forward<Arguments>(arguments)...));
}

}  // namespace corvel::practice
