// Form: a window of the program, and Forms: the collection of those that are loaded.
//
// Life: Load makes the object, its peers, and runs Form_Load; Show and Hide change what is seen;
// Unload asks Form_QueryUnload, runs Form_Unload, destroys the windows and takes the form out of
// the collection. The object itself lives on until no event procedure of any form is running, so
// that a form may unload itself in its own event. Timers run and hooks hold from before Form_Load
// until after Form_Unload.
//
// A peer may be destroyed inside any call to FormEvents or ControlEvents that it has made.
#pragma once

#include "base/error.h"
#include "forms/control.h"
#include "forms/layout.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvel::forms {

class Chat;
class Forms;
class Menu;
class SubClass;
class Timer;

class Form : public FormEvents, public std::enable_shared_from_this<Form> {
 public:
  Form(Forms& forms, std::string name, std::string_view caption = {});
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Forms& Collection() const { return forms_; }
  const std::string& Name() const { return state_.name; }
  const FormState& State() const { return state_; }
  const std::string& Caption() const { return state_.caption; }
  void SetCaption(std::string_view caption);
  bool Visible() const { return state_.visible; }
  void Show(bool activate = true);  // once more: brings it up again
  void Hide();
  // Does nothing if it isn't loaded or is being unloaded. A RunTimeError of Form_QueryUnload or
  // Form_Unload is reported and doesn't stop the unloading.
  void Unload();
  bool IsLoaded() const { return peer_ != nullptr; }
  Window Handle() const;  // 0 while not loaded

  // Outer place in twips, as settings keep it. What lies beyond the system's 16 bits of pixels is
  // held at their ends. Setting it raises no event.
  int Top() const;
  int Left() const;
  int Width() const;
  int Height() const;
  void SetTop(int twips);
  void SetLeft(int twips);
  void SetSize(int widthTwips, int heightTwips);
  void MoveTo(int leftTwips, int topTwips);
  void Center();  // on the screen
  void SetTopMost(bool topMost = true);
  void SetOwner(Window owner);
  void SetBackColor(Color color);
  void SetEnabled(bool enabled);

  const std::vector<Control*>& Controls() const { return controls_; }
  Control* FindControl(std::string_view name, int index = -1) const;  // case ignored

  // FormEvents
  void UserClose() override;
  void UserMoved(int left, int top) override;
  void UserResized(int width, int height) override;
  void OnMessage(MessageId id, WParam wParam, LParam lParam) override;

 protected:
  virtual void Form_Load() {}
  // False keeps the form. `byUser`: its close box, not Unload from code.
  virtual bool Form_QueryUnload(bool byUser) { return (void)byUser, true; }
  virtual void Form_Unload() {}
  virtual void Form_Resize() {}
  virtual void Form_Move() {}
  // A posted message from kUser up that isn't the toolkit's own.
  virtual void Form_Message(MessageId, WParam, LParam) {}

  // Places the controls by rows and columns and sizes the window to fit; again after each change of
  // captions or visibility that matters. A resizable form keeps the size that it has if that is
  // larger, and is arranged anew whenever its size changes.
  void Arrange(const Box& content);
  void Arrange();  // the same content again
  // These before the form loads.
  void SetBorder(bool border) { state_.border = border; }
  void SetResizable(bool resizable) { state_.resizable = resizable; }
  void SetEtchedEdge(bool etched) { state_.etchedEdge = etched; }
  // The user moves a form without a border by dragging this label as he would a title bar, or by
  // the system's keys for moving a window (Alt+Space). Form_Move comes once, at the end.
  void SetDraggedBy(Label& label);
  void SetClosable(bool closable) { state_.closable = closable; }
  void SetMinimizable(bool minimizable) { state_.minimizable = minimizable; }
  void SetShowsInTaskbar(bool shows) { state_.showsInTaskbar = shows; }
  Platform& platform() const;
  // Shows a menu as a pop-up and runs the row that the user chooses.
  void PopupMenu(Menu& menu);

 private:
  friend class Chat;
  friend class Forms;
  friend class Container;
  friend class Control;
  friend class SubClass;
  friend class Timer;
  void MakePeers();
  void DropPeers() noexcept;
  void AddMissingPeers();
  void AddPeer(Control& control);  // behind that of its container
  void Close(bool byUser);
  void Place(const Rect& place);
  void Changed(Aspect aspect);
  Size LayOut();
  std::uintptr_t NextId() { return ++lastId_; }

  Forms& forms_;
  FormState state_;
  std::vector<Control*> controls_;
  std::vector<Timer*> timers_;
  std::vector<SubClass*> subClasses_;
  std::vector<Chat*> chats_;
  std::uintptr_t lastId_ = 0;  // of controls, timers and subclass controls; never given twice
  Box content_;
  bool unloading_ = false;
  bool mustGo_ = false;  // all forms are being unloaded: Form_QueryUnload can't keep it
  std::unique_ptr<FormPeer> peer_;
};

class Forms {
 public:
  explicit Forms(Platform& platform) : platform_(platform) {}
  ~Forms();  // takes what is left off the screen, without any event
  Forms(const Forms&) = delete;
  Forms& operator=(const Forms&) = delete;
  Platform& platform() const { return platform_; }

  // Told of a RunTimeError that has escaped an event procedure ("frmTabs", "cmdSend_Click"); what
  // it throws goes on. Without it such an error is a fault of ours and becomes a std::logic_error.
  std::function<void(const RunTimeError& error, const char* form, const char* procedure)>
      onUnhandledError;

  // The one form of this type: as it stands, or newly made and loaded. May throw what Form_Load
  // throws; then it isn't loaded. A form that unloads itself in Form_Load gives an object that
  // isn't in the collection any more, so look with Loaded if that can be.
  template <class T, class... Arguments>
  T& Load(Arguments&&... arguments) {
    if (T* form = Loaded<T>()) return *form;
    return *LoadNew<T>(std::forward<Arguments>(arguments)...);
  }
  // A further, fresh one (message boxes).
  template <class T, class... Arguments>
  std::shared_ptr<T> LoadNew(Arguments&&... arguments) {
    auto form = std::make_shared<T>(std::forward<Arguments>(arguments)...);
    Adopt(form);
    return form;
  }
  template <class T>
  T* Loaded() const {
    for (const auto& form : loaded_)
      if (T* found = dynamic_cast<T*>(form.get())) return found;
    return nullptr;
  }
  const std::vector<std::shared_ptr<Form>>& All() const { return loaded_; }
  // Newest first; Form_QueryUnload is asked but can't keep a form. No form loads afterwards: what
  // is made by a procedure that was waiting meanwhile has no window and is in no collection.
  void UnloadAll();

  // An event procedure is running: the process isn't at its end even if no form is left.
  bool InEvent() const { return depth_ > 0; }

  // Stands around every event procedure; forms that were unloaded meanwhile are freed at the end of
  // the outermost one.
  class EventScope {
   public:
    explicit EventScope(Forms& forms) : forms_(forms) { ++forms_.depth_; }
    ~EventScope();
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

   private:
    Forms& forms_;
  };

  // Runs an event procedure, called `owner`_`event`, in an EventScope. Only ProcessExit and errors
  // of ours (std::exception) leave it.
  void Run(const Form& form, const std::string& owner, const char* event,
           const std::function<void()>& procedure);

 private:
  friend class Form;
  void Adopt(std::shared_ptr<Form> form);
  void Release(Form& form);

  Platform& platform_;
  std::vector<std::shared_ptr<Form>> loaded_;
  std::vector<std::shared_ptr<Form>> dying_;
  int depth_ = 0;
  bool over_ = false;
};

}  // namespace corvel::forms
