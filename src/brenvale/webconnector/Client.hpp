#pragma once
// A Web Connector of our own: it speaks the Web Connector's protocol to a service, call for call
// as QuickBooks' Web Connector does, and runs the requests it is given on a request processor of
// this machine — the company engine — so that the bridge can be used and tested end to end
// without Windows.
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "brenvale/core/RequestProcessor.hpp"

namespace brenvale::webconnector {

struct ClientOptions {
  std::string url;            // the service; http only for a loopback address
  std::string userName;
  std::string password;
  std::string caFile;         // PEM certificates trusted for an https service; empty: the system's
  std::string companyFile;    // the company file the processor opens
  std::string version = "0.1.0";  // what clientVersion reports
  std::chrono::milliseconds noOpPause = std::chrono::seconds(5);  // after a NoOp, as the Web Connector waits
  std::chrono::seconds callTimeout = std::chrono::seconds(300);   // one call's limit
  int connectionRetries = 2;  // company files the service may name after connectionError
  std::function<void(std::string_view)> log;  // one line per step; never the password
};

enum class SessionOutcome {
  Finished,      // the service said 100 and the session closed
  NoWork,        // authenticate answered "none"
  Busy,          // authenticate answered "busy"
  NotValidUser,  // authenticate answered "nvu"
  Refused,       // clientVersion answered "E:" or "O:", or the service named a company we cannot open
  Failed,        // a call failed, the service reported an error, or QuickBooks could not be opened
};

struct SessionReport {
  SessionOutcome outcome = SessionOutcome::Failed;
  std::string text;   // what the service or the failure said
  int requests = 0;   // requests run and answered
};

class Client {
 public:
  // `open` makes a fresh request processor for a session (the company engine, for instance).
  Client(ClientOptions options, std::function<std::shared_ptr<IRequestProcessor>()> open);
  ~Client();
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  // One session, from serverVersion to closeConnection; never raises.
  SessionReport RunSession();

 private:
  struct Transport;
  SessionReport Session();

  ClientOptions options_;
  std::function<std::shared_ptr<IRequestProcessor>()> open_;
  std::unique_ptr<Transport> transport_;
};

// The text of an outcome: "finished", "no work", ...
std::string_view OutcomeText(SessionOutcome outcome);

}  // namespace brenvale::webconnector
