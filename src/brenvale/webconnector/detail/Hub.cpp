#include "brenvale/webconnector/detail/Hub.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <deque>
#include <optional>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ProcessorHresult.hpp"
#include "brenvale/webconnector/detail/Crypto.hpp"
#include "brenvale/webconnector/detail/Soap.hpp"

namespace brenvale::webconnector::detail {

struct Hub::Request {
  enum class State { Queued, Sent, Answered, Failed, Abandoned };
  std::string text;
  State state = State::Queued;
  bool closing = false;  // the service's own last request: its answer goes to no host
  std::string response;
  std::int32_t hresult = 0;
  std::string failure;
  std::string ticket;  // the Web Connector session that took it
};

struct Hub::Channel {
  std::string company, companyFile;
  int hosts = 0;  // host sessions open
  std::deque<std::shared_ptr<Request>> queue;
  std::string active;  // the ticket of the Web Connector session serving the company
  std::uint64_t logins = 0;  // Web Connector sessions begun so far
  Clock::time_point lastHostActivity;
  std::optional<CompanyFacts> facts;
  std::uint64_t failures = 0;  // connection errors reported so far; the last one follows
  std::int32_t failureHresult = 0;
  std::string failureText;
};

struct Hub::Session {
  enum class Stage { Open, Finishing, Closed };
  std::string ticket, user, company;
  Stage stage = Stage::Open;
  bool started = false;  // its first sendRequestXML came
  std::string companyFile;
  int majorVersion = 0, minorVersion = 0;
  std::shared_ptr<Request> outstanding;
  bool answered = false;
  std::string lastResponse;  // the last response taken, to know it when it comes again
  int lastAnswer = 0;
  std::string lastError;
  int exchanged = 0;
  Clock::time_point lastCall;
};

struct Hub::Host {
  std::string company;
  std::uint64_t failuresSeen = 0;
};

namespace {

constexpr std::string_view kSource = "BrenvaleWC.RequestProcessor";
constexpr std::string_view kCouldNotAccessText = "Could not access QuickBooks. ";
constexpr std::string_view kMayHaveApplied = "; QuickBooks may or may not have applied it.";
const std::string kUnknownSession =
    "This session is not known to the service: it has ended, or it was never begun. Update the application "
    "again to start a new one.";

[[noreturn]] void Fail(std::int32_t hresult, std::string text) {
  throw BrenvaleError(hresult, std::string(kSource), std::move(text));
}

// "30 seconds", "1.5 seconds".
std::string Seconds(Clock::duration d) {
  const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(d).count();
  std::string text = std::to_string(ms / 1000);
  if (ms % 1000 != 0) {
    std::string fraction = std::to_string(1000 + ms % 1000).substr(1);
    while (fraction.back() == '0') fraction.pop_back();
    text += "." + fraction;
  }
  return text + (ms == 1000 ? " second" : " seconds");
}

// A name from the network, fit for a log line: quoted, control characters shown as '?'.
std::string Quoted(std::string_view text) {
  std::string out = "'";
  for (char c : text.substr(0, 100)) out += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
  return out + (text.size() > 100 ? "...'" : "'");
}

// "1 request", "3 requests".
std::string Requests(int n) { return std::to_string(n) + (n == 1 ? " request" : " requests"); }

// Enough of a ticket to follow a session in the log, not enough to use it.
std::string TicketTag(std::string_view ticket) { return "session " + Quoted(ticket.substr(0, 8)); }

// "0x80040400" or "-2147220480"; QuickBooks' unexpected error for anything else.
std::int32_t ParseHresult(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
  const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  if (hex) {
    std::uint32_t value = 0;
    auto [end, error] = std::from_chars(text.data() + 2, text.data() + text.size(), value, 16);
    if (error == std::errc() && end == text.data() + text.size()) return static_cast<std::int32_t>(value);
  } else {
    std::int64_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size() && value >= INT32_MIN && value <= UINT32_MAX)
      return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
  }
  return hresult::kUnexpected;
}

// Company file paths as Windows compares them: case and the kind of slash do not matter.
bool SameFile(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    char x = static_cast<char>(std::tolower(static_cast<unsigned char>(a[i])));
    char y = static_cast<char>(std::tolower(static_cast<unsigned char>(b[i])));
    if (x == '/') x = '\\';
    if (y == '/') y = '\\';
    if (x != y) return false;
  }
  return true;
}

}  // namespace

Hub::Hub(Users users, HubTimes times) : users_(std::move(users)), times_(times) {
  const auto now = Clock::now();
  for (const std::string& company : users_.Companies()) {
    Channel& c = channels_[company];
    c.company = company;
    c.companyFile = users_.CompanyFile(company);
    c.lastHostActivity = now;
  }
}

Hub::~Hub() = default;

// --- helpers (the mutex is held) -----------------------------------------------------------------

Hub::Channel& Hub::Resolve(const std::string& company) {
  std::string known;
  for (const auto& [name, c] : channels_) known += (known.empty() ? "" : ", ") + Quoted(name);
  if (company.empty()) {
    if (channels_.size() == 1) return channels_.begin()->second;
    Fail(hresult::kCouldNotOpenFile,
         "Could not open the specified QuickBooks company data file. The Web Connector service serves " +
             (channels_.empty() ? std::string("no company: its users file lists no user.")
                                : "the companies " + known + "; name one."));
  }
  if (auto it = channels_.find(company); it != channels_.end()) return it->second;
  for (auto& [name, c] : channels_)
    if (!c.companyFile.empty() && SameFile(c.companyFile, company)) return c;
  Fail(hresult::kCouldNotOpenFile, "Could not open the specified QuickBooks company data file. No user of the "
                                   "Web Connector service serves the company " + Quoted(company) +
                                       "; the companies served are " + (known.empty() ? "none" : known) + ".");
}

std::shared_ptr<Hub::Session> Hub::FindSession(const std::string& ticket) {
  auto it = sessions_.find(ticket);
  return it == sessions_.end() ? nullptr : it->second;
}

Hub::Session* Hub::Active(Channel& c) {
  auto it = sessions_.find(c.active);
  return it != sessions_.end() && it->second->stage == Session::Stage::Open ? it->second.get() : nullptr;
}

Hub::Host& Hub::FindHost(const std::string& ticket) {
  auto it = hosts_.find(ticket);
  if (it == hosts_.end()) {
    if (ticket.empty())
      Fail(hresult::kBeginSessionNotCalled, "The BeginSession method has not been called or it did not succeed.");
    Fail(hresult::kInvalidTicket, "The ticket parameter is invalid.");
  }
  return it->second;
}

// Ends a Web Connector session. A request it took and never answered fails for its host: the Web
// Connector `lostBecause` (went silent, closed its session ...) before returning the response.
void Hub::Close(Session& s, const std::string& error, const std::string& lostBecause) {
  if (s.outstanding && !s.outstanding->closing && s.outstanding->state == Request::State::Sent) {
    s.outstanding->state = Request::State::Failed;
    s.outstanding->hresult = hresult::kCouldNotAccess;
    s.outstanding->failure = std::string(kCouldNotAccessText) + "The Web Connector " + lostBecause +
                             " before it returned the response to this request" + std::string(kMayHaveApplied);
  }
  s.outstanding.reset();
  s.stage = Session::Stage::Closed;
  if (!error.empty()) s.lastError = error;
  Channel& c = channels_.at(s.company);
  if (c.active == s.ticket) c.active.clear();
  changed_.notify_all();
}

// The company's Web Connector cannot serve it: hosts waiting for it, and the requests waiting to be
// sent (never sent: safe to fail), learn why at once.
void Hub::FailChannel(Channel& c, std::int32_t hresultNumber, const std::string& text) {
  ++c.failures;
  c.failureHresult = hresultNumber;
  c.failureText = text;
  for (const std::shared_ptr<Request>& r : c.queue) {
    r->state = Request::State::Failed;
    r->hresult = hresultNumber;
    r->failure = text;
  }
  c.queue.clear();
  changed_.notify_all();
}

void Hub::Sweep(Clock::time_point now) {
  for (auto it = sessions_.begin(); it != sessions_.end();) {
    Session& s = *it->second;
    if (now - s.lastCall <= times_.sessionIdle) {
      ++it;
      continue;
    }
    if (s.stage != Session::Stage::Closed)
      Close(s, "The session was silent for longer than " + Seconds(times_.sessionIdle) + " and has ended.",
            "went silent");
    it = sessions_.erase(it);
  }
}

bool Hub::NothingMore(const Channel& c, Clock::time_point now) const {
  return c.queue.empty() && (c.hosts == 0 || now - c.lastHostActivity > times_.hostIdle);
}

void Hub::Deliver(Request& r, const std::string& response, const std::string& hresultText,
                  const std::string& message, std::string& note) {
  if (r.state != Request::State::Sent) {
    note += "; the host had stopped waiting: the response is dropped";
    return;
  }
  if (!hresultText.empty() || response.empty()) {
    r.state = Request::State::Failed;
    r.hresult = hresultText.empty() ? hresult::kUnexpected : ParseHresult(hresultText);
    r.failure = !message.empty()        ? message
                : hresultText.empty() ? "Unexpected error. The Web Connector returned neither a response nor an error."
                                      : "QuickBooks refused the request with the error " + hresultText + ".";
    note += "; QuickBooks refused the request (" + Quoted(hresultText) + ")";
  } else {
    r.state = Request::State::Answered;
    r.response = response;
  }
  changed_.notify_all();
}

// --- the Web Connector's side ----------------------------------------------------------------------

std::vector<std::string> Hub::Authenticate(std::string_view user, std::string_view password, std::string& note) {
  const User* u = users_.Authenticate(user, password);  // slow on purpose: outside the lock
  const std::string ticket = NewTicket();
  note = "user " + Quoted(user);
  if (!u) {
    note += ": not a valid user name and password";
    return {ticket, "nvu"};
  }
  Lock lock(mutex_);
  const auto now = Clock::now();
  Sweep(now);
  Channel& c = channels_.at(u->company);
  if (stopping_ || NothingMore(c, now)) {
    note += ": nothing to do for company " + Quoted(c.company);
    return {ticket, "none"};
  }
  if (Session* other = Active(c)) {
    if (other->user != u->name) {
      note += ": company " + Quoted(c.company) + " is served by user " + Quoted(other->user) + " now (busy)";
      return {ticket, "busy"};
    }
    // The same Web Connector starting over: its earlier session is gone.
    Close(*other, "The Web Connector started a new session.", "started a new session");
  }
  auto s = std::make_shared<Session>();
  s->ticket = ticket;
  s->user = u->name;
  s->company = c.company;
  s->lastCall = now;
  sessions_[ticket] = s;
  c.active = ticket;
  ++c.logins;
  changed_.notify_all();
  note += ": " + TicketTag(ticket) + " for company " + Quoted(c.company);
  return {ticket, c.companyFile};
}

std::string Hub::SendRequestXML(const SendArguments& a, std::string& note) {
  Lock lock(mutex_);
  const auto now = Clock::now();
  Sweep(now);
  std::shared_ptr<Session> s = FindSession(a.ticket);
  if (!s) {
    note = "unknown ticket";
    return {};
  }
  note = TicketTag(s->ticket);
  s->lastCall = now;
  if (s->stage != Session::Stage::Open) {
    if (s->lastError.empty()) s->lastError = "This session is over.";
    note += ": the session is over";
    return {};
  }
  Channel& c = channels_.at(s->company);
  if (!a.companyFile.empty()) {
    std::string refusal;
    if (!c.companyFile.empty() && !SameFile(c.companyFile, a.companyFile))
      refusal = "The user " + Quoted(s->user) + " exchanges data with the company file " + Quoted(c.companyFile) +
                " only, but QuickBooks has " + Quoted(a.companyFile) + " open. Open that company file and update again.";
    else if (!s->companyFile.empty() && !SameFile(s->companyFile, a.companyFile))
      refusal = "The company file changed during the session, from " + Quoted(s->companyFile) + " to " +
                Quoted(a.companyFile) + ".";
    if (!refusal.empty()) {
      note += ": refused, QuickBooks has the company file " + Quoted(a.companyFile) + " open";
      FailChannel(c, hresult::kCouldNotOpenFile, "Could not open the specified QuickBooks company data file. " + refusal);
      Close(*s, refusal, "changed company files");
      return {};
    }
    s->companyFile = a.companyFile;
  }
  if (!s->started) {
    s->started = true;
    s->majorVersion = a.majorVersion;
    s->minorVersion = a.minorVersion;
    CompanyFacts facts{a.majorVersion, a.minorVersion, a.country, a.companyFile, a.hcpResponse};
    if (facts.hcpResponse.empty() && c.facts) facts.hcpResponse = c.facts->hcpResponse;
    c.facts = std::move(facts);
    changed_.notify_all();
  }

  const auto deadline = now + times_.hold;
  for (;;) {
    if (stopping_) {
      Close(*s, "The Web Connector service is stopping.", "was stopped");
      note += ": the service is stopping";
      return {};
    }
    if (s->stage != Session::Stage::Open) {
      note += ": the session ended";
      return {};
    }
    if (s->outstanding) {
      note += ": the request taken before, again";
      return s->outstanding->text;
    }
    if (!c.queue.empty()) {
      std::shared_ptr<Request> r = c.queue.front();
      c.queue.pop_front();
      r->state = Request::State::Sent;
      r->ticket = s->ticket;
      s->outstanding = r;
      note += ": a request of " + std::to_string(r->text.size()) + " bytes";
      return r->text;
    }
    if (NothingMore(c, Clock::now())) {
      // Nothing more to send. A request is the only way on to the clean end (100 in
      // receiveResponseXML): ask QuickBooks the cheapest question there is.
      auto r = std::make_shared<Request>();
      r->closing = true;
      r->state = Request::State::Sent;
      r->ticket = s->ticket;
      const std::string version = s->majorVersion > 0
                                      ? std::to_string(s->majorVersion) + "." + std::to_string(s->minorVersion)
                                      : std::string("1.0");
      r->text = "<?xml version=\"1.0\" encoding=\"utf-8\"?><?qbxml version=\"" + version +
                "\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\"><HostQueryRq requestID=\"1\"/></QBXMLMsgsRq></QBXML>";
      s->outstanding = r;
      note += ": no more requests, the closing host query";
      return r->text;
    }
    if (Clock::now() >= deadline) {
      s->lastError = "NoOp";
      note += ": no request yet (NoOp)";
      return {};
    }
    changed_.wait_until(lock, deadline);
  }
}

int Hub::ReceiveResponseXML(const std::string& ticket, const std::string& response, const std::string& hresultText,
                            const std::string& message, std::string& note) {
  Lock lock(mutex_);
  const auto now = Clock::now();
  Sweep(now);
  std::shared_ptr<Session> s = FindSession(ticket);
  if (!s) {
    note = "unknown ticket";
    return -1;
  }
  note = TicketTag(s->ticket);
  s->lastCall = now;
  if (s->stage == Session::Stage::Closed) {
    note += ": the session is over";
    return -1;
  }
  std::string key = hresultText;
  key += '\x1f';
  key += message;
  key += '\x1f';
  key += response;
  if (s->outstanding) {
    std::shared_ptr<Request> r = std::move(s->outstanding);
    s->outstanding.reset();
    s->answered = true;
    s->lastResponse = std::move(key);
    if (r->closing) {
      s->stage = Session::Stage::Finishing;
      s->lastAnswer = 100;
      note += ": the closing host query answered; done";
      return 100;
    }
    note += ": a response of " + std::to_string(response.size()) + " bytes";
    Deliver(*r, response, hresultText, message, note);
    ++s->exchanged;
  } else if (s->answered && key == s->lastResponse) {
    note += ": the same response again, not delivered twice";
    if (s->stage != Session::Stage::Open) return s->lastAnswer;
  } else {
    s->lastError = "The service received a response, but no request of this session was waiting for one.";
    note += ": a response with no request waiting";
    return -1;
  }

  Channel& c = channels_.at(s->company);
  const auto deadline = now + times_.hold;
  for (;;) {
    if (stopping_ || s->stage != Session::Stage::Open || NothingMore(c, Clock::now())) {
      if (s->stage == Session::Stage::Closed) return -1;
      s->stage = Session::Stage::Finishing;
      s->lastAnswer = 100;
      note += "; done";
      return 100;
    }
    if (!c.queue.empty() || Clock::now() >= deadline) {
      const int done = s->exchanged, left = static_cast<int>(c.queue.size());
      s->lastAnswer = std::clamp(100 * done / (done + left + 1), 1, 99);
      note += "; " + std::to_string(s->lastAnswer) + "%";
      return s->lastAnswer;
    }
    changed_.wait_until(lock, deadline);
  }
}

std::string Hub::ConnectionError(const std::string& ticket, const std::string& hresultText,
                                 const std::string& message, std::string& note) {
  Lock lock(mutex_);
  Sweep(Clock::now());
  std::shared_ptr<Session> s = FindSession(ticket);
  if (!s) {
    note = "unknown ticket";
    return "done";
  }
  s->lastCall = Clock::now();
  Channel& c = channels_.at(s->company);
  FailChannel(c, hresultText.empty() ? hresult::kCouldNotAccess : ParseHresult(hresultText),
              message.empty() ? std::string(kCouldNotAccessText) +
                                    "The Web Connector could not open QuickBooks or the company file."
                              : message);
  note = TicketTag(s->ticket) + ": QuickBooks could not be opened (" + Quoted(hresultText) + " " +
         Quoted(message) + ")";
  Close(*s, "QuickBooks could not be opened: " + c.failureText, "could not open QuickBooks");
  return "done";
}

std::string Hub::GetLastError(const std::string& ticket, std::string& note) {
  Lock lock(mutex_);
  std::shared_ptr<Session> s = FindSession(ticket);
  if (!s) {
    note = "unknown ticket";
    return kUnknownSession;
  }
  s->lastCall = Clock::now();
  note = TicketTag(s->ticket) + ": " + Quoted(s->lastError);
  return s->lastError.empty() ? "The service has no error to report for this session." : s->lastError;
}

std::string Hub::CloseConnection(const std::string& ticket, std::string& note) {
  Lock lock(mutex_);
  std::shared_ptr<Session> s = FindSession(ticket);
  if (!s) {
    note = "unknown ticket";
    return "OK";
  }
  note = TicketTag(s->ticket) + ": closed after " + Requests(s->exchanged);
  if (s->stage != Session::Stage::Closed) Close(*s, {}, "closed its session");
  sessions_.erase(ticket);
  return "OK: " + Requests(s->exchanged) + " exchanged with company " + s->company + ".";
}

// --- the host's side --------------------------------------------------------------------------------

std::string Hub::BeginHost(const std::string& company, Clock::duration wait) {
  Lock lock(mutex_);
  if (stopping_) Fail(hresult::kCouldNotAccess, std::string(kCouldNotAccessText) + "The Web Connector service has stopped.");
  Channel& c = Resolve(company);
  ++c.hosts;
  c.lastHostActivity = Clock::now();
  const std::string ticket = NewTicket();
  hosts_[ticket] = Host{c.company, c.failures};
  changed_.notify_all();
  // A login counts even when its session has ended again by the time this thread wakes (QuickBooks
  // could not be opened, say): the host then learns why from the session's facts.
  const std::uint64_t logins = c.logins;
  const bool came = changed_.wait_until(lock, Clock::now() + wait,
                                        [&] { return stopping_ || Active(c) != nullptr || c.logins > logins; });
  if (came && !stopping_) return ticket;
  hosts_.erase(ticket);
  --c.hosts;
  changed_.notify_all();
  Fail(hresult::kCouldNotAccess,
       std::string(kCouldNotAccessText) +
           (stopping_ ? std::string("The Web Connector service has stopped.")
                      : "No Web Connector of the company " + Quoted(c.company) + " logged in within " + Seconds(wait) +
                            ". Run the Web Connector (Update Selected) or shorten its schedule."));
}

CompanyFacts Hub::Facts(const std::string& hostTicket, Clock::duration wait) {
  Lock lock(mutex_);
  Host& h = FindHost(hostTicket);
  Channel& c = channels_.at(h.company);
  changed_.wait_until(lock, Clock::now() + wait,
                      [&] { return stopping_ || c.facts || c.failures > h.failuresSeen; });
  if (c.facts) return *c.facts;
  if (c.failures > h.failuresSeen) Fail(c.failureHresult, c.failureText);
  Fail(hresult::kCouldNotAccess,
       std::string(kCouldNotAccessText) +
           (stopping_ ? std::string("The Web Connector service has stopped.")
                      : "The Web Connector of the company " + Quoted(c.company) +
                            " did not ask for a request within " + Seconds(wait) + "."));
}

std::string Hub::Process(const std::string& hostTicket, const std::string& request, Clock::duration wait) {
  if (std::optional<unsigned> bad = ForbiddenCharacter(request))
    Fail(hresult::kParseError, "QuickBooks found an error when parsing the provided XML text stream. The request "
                               "holds the control character " + std::to_string(*bad) +
                                   ", which no XML document can carry to the Web Connector.");
  Lock lock(mutex_);
  Host& h = FindHost(hostTicket);
  Channel& c = channels_.at(h.company);
  if (stopping_) Fail(hresult::kCouldNotAccess, std::string(kCouldNotAccessText) + "The Web Connector service has stopped.");
  if (c.facts && !c.facts->hcpResponse.empty()) {
    const std::string hcp = c.facts->hcpResponse;
    lock.unlock();
    if (std::optional<std::string> answer = AnswerFromFirstCall(request, hcp)) return *answer;
    lock.lock();
  }
  auto r = std::make_shared<Request>();
  r->text = request;
  c.queue.push_back(r);
  c.lastHostActivity = Clock::now();
  changed_.notify_all();
  changed_.wait_until(lock, Clock::now() + wait, [&] {
    return stopping_ || r->state == Request::State::Answered || r->state == Request::State::Failed;
  });
  c.lastHostActivity = Clock::now();
  switch (r->state) {
    case Request::State::Answered:
      return std::move(r->response);
    case Request::State::Failed:
      Fail(r->hresult, r->failure);
    case Request::State::Queued:
      c.queue.erase(std::find(c.queue.begin(), c.queue.end(), r));
      r->state = Request::State::Abandoned;
      Fail(hresult::kCouldNotAccess,
           std::string(kCouldNotAccessText) +
               (stopping_ ? std::string("The Web Connector service has stopped")
                          : "No Web Connector of the company " + Quoted(c.company) + " took the request within " +
                                Seconds(wait)) +
               "; it was not sent to QuickBooks.");
    case Request::State::Sent:
    case Request::State::Abandoned:
      break;
  }
  r->state = Request::State::Abandoned;
  if (std::shared_ptr<Session> s = FindSession(r->ticket); s && s->outstanding == r)
    Close(*s, "The host stopped waiting for the response to its request; this session has ended.", {});
  Fail(hresult::kCouldNotAccess,
       std::string(kCouldNotAccessText) +
           (stopping_ ? std::string("The Web Connector service stopped before the response to this request came")
                      : "The Web Connector of the company " + Quoted(c.company) +
                            " took the request but did not return its response within " + Seconds(wait)) +
           std::string(kMayHaveApplied));
}

void Hub::EndHost(const std::string& hostTicket) {
  Lock lock(mutex_);
  Host& h = FindHost(hostTicket);
  Channel& c = channels_.at(h.company);
  --c.hosts;
  c.lastHostActivity = Clock::now();
  hosts_.erase(hostTicket);
  changed_.notify_all();
}

bool Hub::WaitUntilNoSession(Clock::duration wait) {
  Lock lock(mutex_);
  return changed_.wait_until(lock, Clock::now() + wait, [&] {
    return std::none_of(sessions_.begin(), sessions_.end(),
                        [](const auto& s) { return s.second->stage != Session::Stage::Closed; });
  });
}

void Hub::Stop() {
  Lock lock(mutex_);
  stopping_ = true;
  changed_.notify_all();
}

}  // namespace brenvale::webconnector::detail
