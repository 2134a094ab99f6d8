// Real windows as a home of the conformance suite.
#pragma once

#include "platform/own_windows.h"
#include "platform/win32/owned.h"
#include "platform/win32/win32_platform.h"
#include "tests/platform/home.h"
#include "tests/platform/win32/channel.h"
#include "tests/platform/win32/web_server.h"
#include "tests/platform/win32/wine_drives.h"
#include "tests/platform/win32/wine_printer.h"
#include "tools/win32/message_touch.h"

#include <memory>

namespace corvel::test {

// other.exe, which lies beside the test program, running.
class OtherProgram {
 public:
  OtherProgram();
  ~OtherProgram();
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  void End();
  ProcessId id() const { return process_.dwProcessId; }
  HWND channel() const { return channel_; }

 private:
  HWND WaitForChannel() const;
  PROCESS_INFORMATION process_{};
  HWND channel_ = nullptr;
};

class Win32Other : public OtherProcess, public WindowProcedure {
 public:
  explicit Win32Other(OwnWindows& own);
  ~Win32Other() override;
  Window Make(const std::string& name, const NewWindow& window) override;
  void Destroy(Window window) override;
  Window ShowDialog(Window owner, const std::string& caption, const std::string& text) override;
  void MakeMenu(Window window, const std::vector<std::string>& rows) override;
  void AnswerWith(MessageId id, MessageResult result) override;
  void Record(std::vector<MessageId> ids) override;
  std::vector<std::string> TakeLog() override { return Request({"log"}); }
  std::uint32_t Allocate(const std::string& bytes) override;
  void SendText(Window window, MessageId id, const std::string& text) override;
  bool StartSound(const std::string& path) override;
  ProcessId Id() override { return program_.id(); }
  void Crash() override {
    program_.End();
    crashed_ = true;
  }
  void Settle() {
    if (!crashed_) Request({"settle"});
  }

  MessageResult OnMessage(Window window, const Message& message) override;

 private:
  Words Request(const Words& words);
  std::uint32_t RequestNumber(const Words& words);

  OwnWindows& own_;
  OtherProgram program_;
  Window channel_{};
  Words reply_;
  bool crashed_ = false;
};

// Its answers come from a timer, which the loops of dialogs and menus run too.
class Win32User : public UserWithHand {
 public:
  using UserWithHand::UserWithHand;
  ~Win32User() override { Forget(); }
  void WillAnswer(Answer answer) override;

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
  static void Forget();
  static inline Answer answer_;
  static inline UINT_PTR timer_ = 0;
};

class Win32Home : public Home {
 public:
  Platform& platform() override { return system_.platform(); }
  OtherProcess& other() override { return other_; }
  User& user() override { return user_; }
  std::string Folder() override;
  void Run(const std::function<void()>& code) override { code(); }
  void RunFor(std::int64_t ms) override;
  void HoldOpen(const std::string& path) override;
  std::string ShortLivedProgram() override;
  std::string CommandLine() override;
  bool IsSeenByAnotherInstance() override;
  bool HasTaskbar() override;
  void SetDrive(char letter, DriveKind kind, bool hasDisk) override;
  std::string Serve(const std::string& path, const std::string& text) override;
  std::string SilentAddress() override;
  std::string DeadAddress() override { return WebServer::DeadAddress(); }
  void SetPrinter(bool isThere) override;
  Log Printed() override;

 private:
  WebServer& Server();

  win32::Win32Platform system_;
  win32::OwnedHandle held_;
  std::optional<WinePrinter> printer_;
  std::optional<WineDrives> drives_;
  std::optional<WebServer> server_;
  Win32User user_{std::make_unique<tools::MessageTouch>(system_), *this};
  Win32Other other_{system_.platform().ownWindows};
};

}  // namespace corvel::test
