#include "tests/platform/win32/web_server.h"

namespace corvel::test {
namespace {

struct Lock {
  explicit Lock(CRITICAL_SECTION& held) : section(held) { EnterCriticalSection(&section); }
  ~Lock() { LeaveCriticalSection(&section); }
  CRITICAL_SECTION& section;
};

// A port of this machine's own; nobody listens yet.
SOCKET OpenPort(std::string& base) {
  WSADATA data;
  WSAStartup(MAKEWORD(1, 1), &data);
  const SOCKET opened = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(opened, reinterpret_cast<sockaddr*>(&at), sizeof at);
  int size = sizeof at;
  getsockname(opened, reinterpret_cast<sockaddr*>(&at), &size);
  base = "http://127.0.0.1:" + std::to_string(ntohs(at.sin_port));
  return opened;
}

void SendAll(SOCKET asker, const std::string& bytes) {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const int part = send(asker, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
    if (part <= 0) return;
    sent += static_cast<std::size_t>(part);
  }
}

// "GET /path HTTP/1.1" and what follows it.
std::string AskedPath(SOCKET asker) {
  std::string question;
  char part[1024];
  while (question.find("\r\n\r\n") == std::string::npos) {
    const int size = recv(asker, part, sizeof part, 0);
    if (size <= 0) return {};
    question.append(part, static_cast<std::size_t>(size));
  }
  const std::size_t begin = question.find(' ') + 1;
  return question.substr(begin, question.find(' ', begin) - begin);
}

}  // namespace

WebServer::WebServer() {
  InitializeCriticalSection(&lock_);
  listener_ = OpenPort(base_);
  listen(listener_, 5);
  DWORD id = 0;
  thread_ = CreateThread(nullptr, 0, Run, this, 0, &id);
}

WebServer::~WebServer() {
  closesocket(listener_);
  WaitForSingleObject(thread_, INFINITE);
  CloseHandle(thread_);
  for (const SOCKET asker : silent_) closesocket(asker);
  DeleteCriticalSection(&lock_);
}

std::string WebServer::Serve(const std::string& path, const std::string& text) {
  const Lock lock(lock_);
  texts_[path] = text;
  return base_ + path;
}

std::string WebServer::DeadAddress() {
  std::string base;
  closesocket(OpenPort(base));
  return base + "/dead";
}

DWORD WINAPI WebServer::Run(void* self) {
  auto& server = *static_cast<WebServer*>(self);
  for (;;) {
    const SOCKET asker = accept(server.listener_, nullptr, nullptr);
    if (asker == INVALID_SOCKET) return 0;
    server.Answer(asker);
  }
}

void WebServer::Answer(SOCKET asker) {
  const std::string path = AskedPath(asker);
  if (path == "/silent") return silent_.push_back(asker);
  const Lock lock(lock_);
  const auto text = texts_.find(path);
  SendAll(asker, text == texts_.end()
                     ? "HTTP/1.0 404 Not Found\r\n\r\nnot here"
                     : "HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\n" + text->second);
  closesocket(asker);
}

}  // namespace corvel::test
