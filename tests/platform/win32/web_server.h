// A tiny web server on this machine's own address, for tests: it knows some paths.
#pragma once

#include <map>
#include <string>
#include <vector>
#include <winsock2.h>
// After that.
#include <windows.h>

namespace corvel::test {

class WebServer {
 public:
  WebServer();
  ~WebServer();  // every question still open is cut off
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  std::string Serve(const std::string& path, const std::string& text);  // the address
  std::string SilentAddress() const { return base_ + "/silent"; }
  static std::string DeadAddress();

 private:
  static DWORD WINAPI Run(void* self);
  void Answer(SOCKET asker);

  SOCKET listener_ = INVALID_SOCKET;
  std::string base_;
  HANDLE thread_ = nullptr;
  CRITICAL_SECTION lock_;
  std::map<std::string, std::string> texts_;
  std::vector<SOCKET> silent_;
};

}  // namespace corvel::test
