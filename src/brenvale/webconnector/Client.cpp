#include "brenvale/webconnector/Client.hpp"

#include <httplib.h>
#include <pugixml.hpp>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/webconnector/detail/HostFacts.hpp"
#include "brenvale/webconnector/detail/Soap.hpp"
#include "brenvale/webconnector/detail/Url.hpp"

namespace brenvale::webconnector {
namespace {

constexpr const char* kAppName = "Brenvale Web Connector";

// A call that could not be made, or was answered with a fault: the session ends with its text.
class CallFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::string HexNumber(std::int32_t number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<std::uint32_t>(number));
  return text;
}

bool SameCompanyFile(const std::string& a, const std::string& b) {
  namespace fs = std::filesystem;
  std::error_code ec;
  return a == b || fs::absolute(a, ec).lexically_normal() == fs::absolute(b, ec).lexically_normal();
}

bool StartsWith(std::string_view text, std::string_view prefix) { return text.substr(0, prefix.size()) == prefix; }

// Ends the processor's session and connection when the Web Connector session ends, however it ends.
struct OpenCompany {
  std::shared_ptr<IRequestProcessor> processor;
  std::string ticket;
  OpenCompany& operator=(OpenCompany&& other) noexcept {
    Close();
    processor = std::move(other.processor);
    ticket = std::move(other.ticket);
    return *this;
  }
  ~OpenCompany() { Close(); }
  void Close() noexcept {
    if (!processor) return;
    try {
      if (!ticket.empty()) processor->EndSession(ticket);
    } catch (...) {
    }
    try {
      processor->CloseConnection();
    } catch (...) {
    }
    processor.reset();
    ticket.clear();
  }
};

}  // namespace

struct Client::Transport {
  detail::Url url;
  std::unique_ptr<httplib::Client> http;
  std::string problem;  // why no call can be made

  detail::Result Call(std::string_view name, const std::vector<std::string>& arguments) {
    if (!http) throw CallFailed(problem);
    const detail::Operation& op = *detail::FindOperation(name);
    const httplib::Headers headers = {{"SOAPAction", detail::SoapAction(op)}};
    httplib::Result response =
        http->Post(url.path.c_str(), headers, detail::CallEnvelope(op, arguments), "text/xml; charset=utf-8");
    if (!response) {
      std::string why = httplib::to_string(response.error());
      if (response.error() == httplib::Error::SSLServerVerification)
        why += " (the service's certificate is not trusted; give its issuer's certificate)";
      throw CallFailed(std::string(name) + ": cannot reach the service at " + url.Origin() + url.path + ": " + why);
    }
    detail::Result result;
    if (std::optional<detail::Fault> fault = detail::ReadResult(op, response->body, result))
      throw CallFailed(std::string(name) + ": the service answered with a fault (" + fault->code + "): " + fault->text);
    if (response->status != 200)
      throw CallFailed(std::string(name) + ": the service answered with HTTP status " + std::to_string(response->status));
    return result;
  }
  std::string Text(std::string_view name, const std::vector<std::string>& arguments) {
    return std::get<std::string>(Call(name, arguments));
  }
};

Client::Client(ClientOptions options, std::function<std::shared_ptr<IRequestProcessor>()> open)
    : options_(std::move(options)), open_(std::move(open)), transport_(std::make_unique<Transport>()) {
  Transport& t = *transport_;
  std::optional<detail::Url> url = detail::ParseUrl(options_.url);
  if (!url) {
    t.problem = "'" + options_.url + "' is not an http or https address";
    return;
  }
  if (url->scheme == "http" && !detail::IsLoopback(url->host)) {
    t.problem = "'" + options_.url + "' is plain http to another machine: the password would travel in the clear; "
                "use https";
    return;
  }
  t.url = *url;
  t.http = std::make_unique<httplib::Client>(url->Origin());
  t.http->set_connection_timeout(10);
  t.http->set_read_timeout(options_.callTimeout);
  t.http->set_write_timeout(options_.callTimeout);
  t.http->set_keep_alive(true);
  t.http->set_tcp_nodelay(true);
  if (url->scheme == "https") {
    t.http->enable_server_certificate_verification(true);
    if (!options_.caFile.empty()) t.http->set_ca_cert_path(options_.caFile);
  }
}

Client::~Client() = default;

SessionReport Client::RunSession() {
  SessionReport failed;
  try {
    return Session();
  } catch (const CallFailed& e) {
    failed.text = e.what();
  } catch (const BrenvaleError& e) {
    failed.text = "QuickBooks: " + e.Description() + " (" + HexNumber(e.Number()) + ")";
  } catch (const std::exception& e) {
    failed.text = e.what();
  }
  if (options_.log) options_.log("failed: " + failed.text);
  return failed;
}

SessionReport Client::Session() {
  Transport& t = *transport_;
  auto log = [&](const std::string& line) {
    if (options_.log) options_.log(line);
  };
  SessionReport report;
  auto finish = [&](SessionOutcome outcome, std::string text) {
    report.outcome = outcome;
    report.text = std::move(text);
    log(std::string(OutcomeText(outcome)) + (report.text.empty() ? "" : ": " + report.text));
    return report;
  };

  log("service version: " + t.Text("serverVersion", {}));
  const std::string verdict = t.Text("clientVersion", {options_.version});
  if (StartsWith(verdict, "E:")) return finish(SessionOutcome::Refused, verdict.substr(2));
  if (StartsWith(verdict, "O:"))
    return finish(SessionOutcome::Refused, "the service needs Web Connector version " + verdict.substr(2) + " or later");
  if (StartsWith(verdict, "W:")) log("the service warns: " + verdict.substr(2));

  const auto answer = std::get<std::vector<std::string>>(t.Call("authenticate", {options_.userName, options_.password}));
  if (answer.size() < 2)
    return finish(SessionOutcome::Failed,
                  "the service's authenticate answer has " + std::to_string(answer.size()) + " items, not 2");
  const std::string& ticket = answer[0];
  const std::string& status = answer[1];
  if (status == "nvu") return finish(SessionOutcome::NotValidUser, "the service does not accept this user name and password");
  if (status == "none") return finish(SessionOutcome::NoWork, "the service has nothing to do now");
  if (status == "busy") return finish(SessionOutcome::Busy, "the service is busy with another Web Connector of this company");

  // Open the company the service names (empty: ours), telling the service when that fails.
  OpenCompany company;
  std::string asked = status;
  for (int attempt = 0;; ++attempt) {
    std::string hresult, message;
    if (!asked.empty() && !SameCompanyFile(asked, options_.companyFile)) {
      hresult = "0x80040403";
      message = "Could not open the specified QuickBooks company data file. This Web Connector serves '" +
                options_.companyFile + "' only, not '" + asked + "'.";
    } else {
      try {
        company.processor = open_();
        company.processor->OpenConnection2("", kAppName, localQBD);
        company.ticket = company.processor->BeginSession(options_.companyFile, qbOpenModeDontCare);
        break;
      } catch (const BrenvaleError& e) {
        hresult = HexNumber(e.Number());
        message = e.Description();
        company = {};
      }
    }
    log("cannot open the company: " + message);
    const std::string next = t.Text("connectionError", {ticket, hresult, message});
    if (next == "done" || attempt >= options_.connectionRetries) return finish(SessionOutcome::Failed, message);
    asked = next;
  }

  IRequestProcessor& rp = *company.processor;
  const std::vector<std::string> versions = rp.QBXMLVersionsForSession(company.ticket);
  const std::string version = versions.empty() ? std::string("1.0") : versions.back();
  int major = 0, minor = 0;
  const std::size_t dot = version.find('.');
  std::from_chars(version.data(), version.data() + version.size(), major);
  if (dot != std::string::npos) std::from_chars(version.data() + dot + 1, version.data() + version.size(), minor);
  const std::string companyFile = rp.GetCurrentCompanyFileName(company.ticket);
  std::string hcp, country = "US";
  try {
    hcp = rp.ProcessRequest(company.ticket, detail::FirstCallRequest(version));
    pugi::xml_document doc;
    if (doc.load_string(hcp.c_str())) {
      const char* c = doc.child("QBXML").child("QBXMLMsgsRs").child("HostQueryRs").child("HostRet").child_value("Country");
      if (*c) country = c;
    }
  } catch (const BrenvaleError& e) {
    log("the host, company and preferences queries failed: " + e.Description());
  }

  for (bool first = true;; first = false) {
    const std::string request = t.Text("sendRequestXML", {ticket, first ? hcp : std::string(), companyFile, country,
                                                           std::to_string(major), std::to_string(minor)});
    if (request.empty()) {
      const std::string error = t.Text("getLastError", {ticket});
      if (error == "NoOp") {
        std::this_thread::sleep_for(options_.noOpPause);
        continue;
      }
      const std::string closing = t.Text("closeConnection", {ticket});
      log("closed: " + closing);
      return finish(SessionOutcome::Failed,
                    error == "Interactive mode" ? "the service asks for interactive mode, which this Web Connector "
                                                  "does not offer"
                                                : error);
    }
    std::string response, hresult, message;
    try {
      response = rp.ProcessRequest(company.ticket, request);
    } catch (const BrenvaleError& e) {
      hresult = HexNumber(e.Number());
      message = e.Description();
    }
    const int done = std::get<int>(t.Call("receiveResponseXML", {ticket, response, hresult, message}));
    ++report.requests;
    if (done < 0) {
      const std::string error = t.Text("getLastError", {ticket});
      log("closed: " + t.Text("closeConnection", {ticket}));
      return finish(SessionOutcome::Failed, error);
    }
    if (done >= 100) return finish(SessionOutcome::Finished, t.Text("closeConnection", {ticket}));
  }
}

std::string_view OutcomeText(SessionOutcome outcome) {
  switch (outcome) {
    case SessionOutcome::Finished: return "finished";
    case SessionOutcome::NoWork: return "no work";
    case SessionOutcome::Busy: return "busy";
    case SessionOutcome::NotValidUser: return "not a valid user";
    case SessionOutcome::Refused: return "refused";
    case SessionOutcome::Failed: return "failed";
  }
  return "failed";
}

}  // namespace brenvale::webconnector
