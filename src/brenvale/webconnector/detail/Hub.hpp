#pragma once
// Where the host's requests meet the Web Connector's sessions. Each company the users file names
// is a channel: the host sessions open on it, the queue of their requests, and at most one Web
// Connector session serving it. A Web Connector's ticket leads to its own company's channel only,
// so the requests of two companies can never cross.
//
// The host's threads block in BeginHost, Facts and Process; the service's threads block in
// SendRequestXML and ReceiveResponseXML while they hold a call for the host's next request. All
// state is guarded by one mutex, and every wait has a time limit.
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/webconnector/Users.hpp"
#include "brenvale/webconnector/detail/HostFacts.hpp"

namespace brenvale::webconnector::detail {

using Clock = std::chrono::steady_clock;

struct HubTimes {
  // How long a call of the Web Connector waits for the host's next request before it answers.
  Clock::duration hold = std::chrono::seconds(10);
  // A Web Connector session silent for longer is over.
  Clock::duration sessionIdle = std::chrono::minutes(10);
  // With no host request for longer, the Web Connector is let go even while a host session is open.
  Clock::duration hostIdle = std::chrono::minutes(5);
};

struct SendArguments {
  std::string ticket, hcpResponse, companyFile, country;
  int majorVersion = 0, minorVersion = 0;
};

class Hub {
 public:
  Hub(Users users, HubTimes times);
  ~Hub();
  Hub(const Hub&) = delete;
  Hub& operator=(const Hub&) = delete;

  // The Web Connector's calls. Each sets `note` to what the service's log says about the call;
  // notes never hold a password or a whole ticket.
  std::vector<std::string> Authenticate(std::string_view user, std::string_view password, std::string& note);
  std::string SendRequestXML(const SendArguments& args, std::string& note);
  int ReceiveResponseXML(const std::string& ticket, const std::string& response, const std::string& hresult,
                         const std::string& message, std::string& note);
  std::string ConnectionError(const std::string& ticket, const std::string& hresult, const std::string& message,
                              std::string& note);
  std::string GetLastError(const std::string& ticket, std::string& note);
  std::string CloseConnection(const std::string& ticket, std::string& note);

  // The host's calls. Failures raise BrenvaleError with QuickBooks' request-processor numbers.
  // Opens a host session on a company (its name, or its company file) once a Web Connector of that
  // company has logged in; returns the host's ticket.
  std::string BeginHost(const std::string& company, Clock::duration wait);
  // What the Web Connector said about QuickBooks, once it has asked for its first request.
  CompanyFacts Facts(const std::string& hostTicket, Clock::duration wait);
  // Sends a request through the Web Connector and returns QuickBooks' response.
  std::string Process(const std::string& hostTicket, const std::string& request, Clock::duration wait);
  void EndHost(const std::string& hostTicket);

  // Waits until no Web Connector session is open, at most `wait`; whether none is.
  bool WaitUntilNoSession(Clock::duration wait);

  // Wakes every wait; from now on the host's calls fail and the Web Connector's sessions end.
  void Stop();

 private:
  struct Request;
  struct Channel;
  struct Session;
  struct Host;
  using Lock = std::unique_lock<std::mutex>;

  Channel& Resolve(const std::string& company);
  std::shared_ptr<Session> FindSession(const std::string& ticket);
  Session* Active(Channel& c);
  Host& FindHost(const std::string& ticket);
  void Close(Session& s, const std::string& error, const std::string& lostBecause);
  void FailChannel(Channel& c, std::int32_t hresult, const std::string& text);
  void Sweep(Clock::time_point now);
  bool NothingMore(const Channel& c, Clock::time_point now) const;
  void Deliver(Request& r, const std::string& response, const std::string& hresult, const std::string& message,
               std::string& note);

  const Users users_;
  const HubTimes times_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool stopping_ = false;
  std::map<std::string, Channel, std::less<>> channels_;
  std::map<std::string, std::shared_ptr<Session>, std::less<>> sessions_;
  std::map<std::string, Host, std::less<>> hosts_;
};

}  // namespace brenvale::webconnector::detail
