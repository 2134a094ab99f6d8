// The rest of the desk's system: registry, files, clipboard, sound, shell, dialogs, printer,
// chance. Each is the seam's interface plus what sets the stage and looks at the result.
#pragma once

#include "platform/desk/desk.h"
#include "platform/desk/web_table.h"

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

class DeskRegistry : public Registry {
 public:
  explicit DeskRegistry(Desk& desk);
  ~DeskRegistry() override;
  std::optional<RegistryValue> Read(std::string_view key, std::string_view name,
                                    std::size_t room) override;
  bool Write(std::string_view key, std::string_view name, const RegistryValue& value) override;
  bool DeleteValue(std::string_view key, std::string_view name) override;
  bool DeleteKey(std::string_view key) override;
  bool KeyExists(std::string_view key) override;
  std::optional<std::vector<std::string>> ValueNames(std::string_view key) override;
  std::optional<std::vector<std::string>> SubKeyNames(std::string_view key) override;

  void FailWrites(bool fail);  // a registry that can be read only

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// A drive in memory. Folders C:\ with WINDOWS and WINDOWS\SYSTEM stand from the start.
class DeskFiles : public Files {
 public:
  explicit DeskFiles(Desk& desk);
  ~DeskFiles() override;
  std::vector<FoundFile> Search(std::string_view pattern) override;
  bool Exists(std::string_view pattern) override;
  bool IsFolder(std::string_view path) override;
  std::string Read(std::string_view path) override;
  void Write(std::string_view path, std::string_view bytes) override;
  void Append(std::string_view path, std::string_view bytes) override;
  void MakeFolder(std::string_view path) override;
  void Delete(std::string_view path) override;
  void Copy(std::string_view from, std::string_view to) override;
  void Rename(std::string_view from, std::string_view to) override;
  void SetAttributes(std::string_view path, std::uint32_t attributes) override;
  std::string ShortPath(std::string_view path) override;
  DriveKind DriveKindOf(std::string_view path) override;
  int DriveState(std::string_view path) override;
  std::vector<std::string> Drives() override;
  std::string ReadProfile(std::string_view path, std::string_view section,
                          std::string_view key) override;
  bool WriteProfile(std::string_view path, std::string_view section, std::string_view key,
                    std::optional<std::string_view> value) override;

  // Setting the stage: makes the folders too, fails never, is not journalled, and no fault hits it.
  void Put(std::string_view path, std::string_view bytes, std::uint32_t attributes = 0);
  void PutFolder(std::string_view path);
  void Remove(std::string_view path);  // a file, or a folder with all in it
  // Takes a file away as the recycle bin does, read-only or not. False: none there, a folder, or
  // locked.
  bool TakeAway(std::string_view path);
  // The bytes of a file, past all faults and locks; nothing if there is none.
  std::optional<std::string> Peek(std::string_view path) const;
  // The bytes as another program reads them: past faults, but not past locks.
  std::optional<std::string> ReadByOther(std::string_view path) const;
  std::vector<std::string> AllPaths() const;  // every file, sorted
  void SetFreeSpace(std::int64_t bytes);
  // The machine has this drive, with all that was put on it. A (an empty diskette drive) and C are
  // there from the start.
  void SetDrive(char letter, DriveKind kind, bool hasDisk = true);
  void Lock(std::string_view path, bool locked);    // held open by another process: 70
  // The n-th of the following calls (1: the next) that can throw, on a path that holds `part`,
  // throws `errorNumber` and does nothing else. WriteProfile counts too, and answers false.
  void FailCall(int n, int errorNumber, std::string part = "");
  std::size_t FaultsPending() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

class DeskClipboard : public Clipboard {
 public:
  explicit DeskClipboard(Desk& desk);
  ~DeskClipboard() override;
  bool Open(Window owner) override;
  void Close() override;
  void Empty() override;
  bool Set(std::uint32_t format, std::string_view text) override;
  std::optional<std::string> Get(std::uint32_t format) override;
  std::uint32_t RegisterFormat(std::string_view name) override;

  void HoldOpenByStranger(bool held);  // another process has it open
  // Reads and sets past ownership, to look and to set the stage.
  std::optional<std::string> Peek(std::string_view formatName) const;  // "" is plain text
  void Put(std::string_view formatName, std::string_view text);
  bool IsOpen() const;
  ProcessId Holder() const;  // who has it open, 0 if none of the desk's processes
  void ProcessEnded(ProcessId process);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// Sound, shell, printer, dialogs, display, clock's chance, machine and client library.
class DeskServices {
 public:
  explicit DeskServices(Desk& desk);
  ~DeskServices();

  Sound& sound();
  Shell& shell();
  Printer& printer();
  CommonDialogs& dialogs();
  Display& display();
  Random& random();
  SystemInfo& system();
  ClientLibrary& clientLibrary();  // asks the hooks set below
  MediaControl& media();
  Web& web();

  void SetWindowsPlatform(int platform);
  void SetDisplay(int bitsPerPixel, int width, int height);
  void SetTaskbar(bool present);
  void SetSeed(std::uint64_t seed);
  void NextDraws(std::vector<double> draws);  // before the seeded ones
  void SetPrinter(bool present, bool hasCourierNew);
  // How long a wave file plays: read from its header, 0 for none.
  bool IsPlaying() const;
  std::string Playing() const;
  // Their tips. An icon whose window has died stands until the pointer passes over the tray, as in
  // the two questions below, or its process ends.
  std::vector<std::string> TrayIcons() const;
  std::vector<std::string> TrayIconsOf(ProcessId process) const;
  ProcessId TrayOwner() const;
  std::optional<TrayPicture> ShownInTray() const;  // of the first icon
  bool TrayMouse(LParam mouseMessage);  // the user at the first tray icon; false: none
  std::vector<std::string> MediaOpenBy(ProcessId process) const;  // the aliases of its devices
  WebTable& webTable();
  void ProcessEnded(ProcessId process);

  // The practice client answers for launch32.dll.
  struct ClientAnswers {
    std::function<std::string(std::string_view folder)> version;
    std::function<int()> isOnline;
    std::function<std::vector<std::string>(std::string_view folder)> screenNames;
    std::function<void()> stopSound;  // what the proxy's stop entry reaches
  };
  ClientAnswers answers;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvel::desk
