// A window of the client that knows the client, and not only the host that controls stand on.
#pragma once

#include "practice/client/client.h"

namespace corvel::practice {

class ClientWindow : public HostedWindow {
 public:
  explicit ClientWindow(Client& client) : HostedWindow(client), client_(client) {}

 protected:
  Client& client() { return client_; }
  const Client& client() const { return client_; }

 private:
  Client& client_;
};

}  // namespace corvel::practice
