#pragma once
// The web service QuickBooks' Web Connector calls: SOAP 1.1 over HTTP (on the loopback address
// only) or HTTPS (with the certificate and key the user gives), its WSDL at "?wsdl", and a page
// that answers HTTP 200 for the application's support address. It runs on threads of its own.
//
// Hosts reach QuickBooks through it with the request processor "BrenvaleWC.RequestProcessor"
// (WebConnectorProcessor.hpp).
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/webconnector/Users.hpp"
#include "brenvale/webconnector/WebConnectorProcessor.hpp"

namespace brenvale::webconnector {

struct ServiceOptions {
  std::string address = "127.0.0.1";  // plain http on a loopback address only
  int port = 0;                        // 0: a free port, see Port()
  std::string certificateFile;         // PEM; with keyFile: HTTPS
  std::string keyFile;
  Users users;
  // How long a call of the Web Connector is held for the host's next request before it is answered;
  // the Web Connector's own timeout must be longer.
  std::chrono::milliseconds hold = std::chrono::seconds(10);
  // A Web Connector session silent for longer is over (a request QuickBooks takes longer to answer
  // is lost); more than twice the hold.
  std::chrono::milliseconds sessionIdle = std::chrono::minutes(10);
  // A host session with no request for longer lets its Web Connector go.
  std::chrono::milliseconds hostIdle = std::chrono::minutes(5);
  std::size_t threads = 32;  // calls served at once, Web Connectors held included
  std::size_t maxMessageBytes = std::size_t(256) << 20;
  std::string minimumClientVersion;  // e.g. "2.1.0.30"; older Web Connectors are asked to upgrade
  std::string version = "Brenvale 0.1.0";
  // One line per call: the operation and what came of it; never a password or a whole ticket.
  std::function<void(std::string_view)> log;
};

class Service {
 public:
  // Checks the options; refuses plain http on an address other than the loopback (error 5).
  explicit Service(ServiceOptions options);
  // Stops the service.
  ~Service();
  Service(const Service&) = delete;
  Service& operator=(const Service&) = delete;

  // Binds the address and serves; a certificate that cannot be read, or an address that cannot be
  // bound, raises error 75 or 5 with the reason.
  void Start();
  // Waits, at most `limit`, until no Web Connector session is open: once the hosts have ended their
  // sessions, this lets the Web Connectors close theirs before the service stops. Whether none is.
  bool WaitUntilNoSession(std::chrono::milliseconds limit);
  // Wakes every held call and every waiting host, then stops serving; a second call does nothing.
  void Stop();

  int Port() const;
  // "http://127.0.0.1:PORT/" or "https://...".
  std::string Url() const;

  // A factory of processors that send their requests through this service; it keeps what they
  // need alive after the service is gone (their calls then fail: the service has stopped).
  RequestProcessorFactory ProcessorFactory(ProcessorOptions options = {}) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// Whether a Web Connector version is older than another ("2.1.0.30" < "2.3.0.215").
bool VersionBefore(std::string_view version, std::string_view other);

}  // namespace brenvale::webconnector
