#include "brenvale/webconnector/Service.hpp"

#include <httplib.h>
#include <openssl/ssl.h>

#include <atomic>
#include <charconv>
#include <map>
#include <thread>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/webconnector/detail/Hub.hpp"
#include "brenvale/webconnector/detail/Soap.hpp"
#include "brenvale/webconnector/detail/Url.hpp"

namespace brenvale::webconnector {
namespace {

constexpr std::string_view kSource = "BrenvaleWC";
constexpr const char* kXmlType = "text/xml; charset=utf-8";

[[noreturn]] void Refuse(const std::string& why) { platform::Raise(platform::kInvalidProcedureCall, kSource, why); }

using Handler = std::function<detail::Result(detail::Hub&, const ServiceOptions&, const detail::Call&, std::string&)>;

// What each operation does, by name.
const std::map<std::string_view, Handler>& Handlers() {
  static const std::map<std::string_view, Handler> handlers = {
      {"serverVersion", [](detail::Hub&, const ServiceOptions& o, const detail::Call&, std::string&) {
         return detail::Result(o.version);
       }},
      {"clientVersion", [](detail::Hub&, const ServiceOptions& o, const detail::Call& c, std::string& note) {
         const std::string& v = c.Argument("strVersion");
         note = "version '" + v.substr(0, 40) + "'";
         if (!o.minimumClientVersion.empty() && VersionBefore(v, o.minimumClientVersion)) {
           note += ": older than " + o.minimumClientVersion;
           return detail::Result("O:" + o.minimumClientVersion);
         }
         return detail::Result(std::string());
       }},
      {"authenticate", [](detail::Hub& hub, const ServiceOptions&, const detail::Call& c, std::string& note) {
         return detail::Result(hub.Authenticate(c.Argument("strUserName"), c.Argument("strPassword"), note));
       }},
      {"sendRequestXML", [](detail::Hub& hub, const ServiceOptions&, const detail::Call& c, std::string& note) {
         detail::SendArguments a{c.Argument("ticket"), c.Argument("strHCPResponse"), c.Argument("strCompanyFileName"),
                                 c.Argument("qbXMLCountry"), c.IntArgument("qbXMLMajorVers"),
                                 c.IntArgument("qbXMLMinorVers")};
         return detail::Result(hub.SendRequestXML(a, note));
       }},
      {"receiveResponseXML", [](detail::Hub& hub, const ServiceOptions&, const detail::Call& c, std::string& note) {
         return detail::Result(hub.ReceiveResponseXML(c.Argument("ticket"), c.Argument("response"),
                                                      c.Argument("hresult"), c.Argument("message"), note));
       }},
      {"connectionError", [](detail::Hub& hub, const ServiceOptions&, const detail::Call& c, std::string& note) {
         return detail::Result(hub.ConnectionError(c.Argument("ticket"), c.Argument("hresult"), c.Argument("message"), note));
       }},
      {"getLastError", [](detail::Hub& hub, const ServiceOptions&, const detail::Call& c, std::string& note) {
         return detail::Result(hub.GetLastError(c.Argument("ticket"), note));
       }},
      {"closeConnection", [](detail::Hub& hub, const ServiceOptions&, const detail::Call& c, std::string& note) {
         return detail::Result(hub.CloseConnection(c.Argument("ticket"), note));
       }},
      // The interactive calls: the service never asks for interactive mode, and answers them plainly.
      {"getInteractiveURL", [](detail::Hub&, const ServiceOptions&, const detail::Call&, std::string& note) {
         note = "interactive mode is not offered";
         return detail::Result(std::string());
       }},
      {"interactiveDone", [](detail::Hub&, const ServiceOptions&, const detail::Call&, std::string&) {
         return detail::Result(std::string("Done"));
       }},
      {"interactiveRejected", [](detail::Hub&, const ServiceOptions&, const detail::Call&, std::string&) {
         return detail::Result(std::string());
       }},
  };
  return handlers;
}

constexpr std::string_view kSupportPage =
    "<!DOCTYPE html>\n<html><head><title>Brenvale Web Connector service</title></head><body>\n"
    "<h1>Brenvale Web Connector service</h1>\n"
    "<p>This service exchanges QuickBooks data with QuickBooks' Web Connector. Add the application to the "
    "Web Connector with the .QWC file you were given, enter your password there, and update.</p>\n"
    "<p>The service's description is at <a href=\"?wsdl\">?wsdl</a>.</p>\n</body></html>\n";

}  // namespace

bool VersionBefore(std::string_view version, std::string_view other) {
  auto parts = [](std::string_view v) {
    std::vector<long> out;
    while (!v.empty()) {
      long n = 0;
      auto [end, error] = std::from_chars(v.data(), v.data() + v.size(), n);
      out.push_back(error == std::errc() ? n : 0);
      const std::size_t dot = v.find('.');
      if (dot == std::string_view::npos) break;
      v.remove_prefix(dot + 1);
    }
    return out;
  };
  std::vector<long> a = parts(version), b = parts(other);
  a.resize(std::max(a.size(), b.size()));
  b.resize(a.size());
  return a < b;
}

struct Service::Impl {
  ServiceOptions options;
  std::shared_ptr<detail::Hub> hub;
  std::unique_ptr<httplib::Server> server;
  std::thread thread;
  int port = 0;
  bool stopped = false;

  void Log(const httplib::Request& rq, std::string_view what, const std::string& note) const {
    if (!options.log) return;
    std::string line = rq.remote_addr + " " + std::string(what);
    if (!note.empty()) line += ": " + note;
    for (char& c : line)
      if (static_cast<unsigned char>(c) < 0x20) c = '?';  // one line per call, whatever came in
    options.log(line);
  }

  void Post(const httplib::Request& rq, httplib::Response& rs) const {
    std::string note;
    std::variant<detail::Call, detail::Fault> read = detail::ReadCall(rq.body);
    if (const auto* fault = std::get_if<detail::Fault>(&read)) {
      rs.status = 500;
      rs.set_content(detail::FaultEnvelope(*fault), kXmlType);
      Log(rq, "fault", fault->text);
      return;
    }
    const detail::Call& call = std::get<detail::Call>(read);
    const detail::Result result = Handlers().at(call.operation->name)(*hub, options, call, note);
    rs.set_content(detail::ResultEnvelope(*call.operation, result), kXmlType);
    Log(rq, call.operation->name, note);
  }

  void Get(const httplib::Request& rq, httplib::Response& rs) const {
    if (rq.has_param("wsdl") || rq.has_param("WSDL")) {
      const std::string host = rq.has_header("Host") ? rq.get_header_value("Host")
                                                      : options.address + ":" + std::to_string(port);
      const std::string scheme = options.certificateFile.empty() ? "http" : "https";
      rs.set_content(detail::Wsdl(scheme + "://" + host + rq.path), kXmlType);
      Log(rq, "wsdl", {});
      return;
    }
    rs.set_content(std::string(kSupportPage), "text/html; charset=utf-8");
  }
};

Service::Service(ServiceOptions options) : impl_(std::make_unique<Impl>()) {
  const bool https = !options.certificateFile.empty() || !options.keyFile.empty();
  if (https && (options.certificateFile.empty() || options.keyFile.empty()))
    Refuse("HTTPS needs both a certificate file and its key file.");
  if (!https && !detail::IsLoopback(options.address))
    Refuse("Plain http is served on the loopback address only (127.0.0.1, ::1 or localhost), as the Web "
           "Connector takes http for localhost alone; give a certificate and its key to serve '" +
           options.address + "' over HTTPS.");
  if (options.port < 0 || options.port > 65535) Refuse("The port " + std::to_string(options.port) + " is not 0 to 65535.");
  if (options.hold.count() < 0 || options.sessionIdle <= 2 * options.hold || options.hostIdle.count() <= 0)
    Refuse("The session time limit must exceed twice the hold, and the host's idle limit must be positive.");
  if (options.threads < 2) Refuse("The service needs 2 threads at least.");
  impl_->hub = std::make_shared<detail::Hub>(options.users, detail::HubTimes{options.hold, options.sessionIdle,
                                                                             options.hostIdle});
  impl_->options = std::move(options);
}

Service::~Service() { Stop(); }

void Service::Start() {
  Impl& m = *impl_;
  if (m.server) Refuse("The service has been started already.");
  if (m.stopped) Refuse("A stopped service does not start again; make a new one.");
  if (!m.options.certificateFile.empty()) {
    auto tls = std::make_unique<httplib::SSLServer>(m.options.certificateFile.c_str(), m.options.keyFile.c_str());
    if (!tls->is_valid())
      platform::Raise(platform::kFileError, kSource,
                      "The certificate '" + m.options.certificateFile + "' or the key '" + m.options.keyFile +
                          "' cannot be read, or they do not belong together.");
    SSL_CTX_set_min_proto_version(tls->ssl_context(), TLS1_2_VERSION);
    m.server = std::move(tls);
  } else {
    m.server = std::make_unique<httplib::Server>();
  }
  httplib::Server& s = *m.server;
  const std::size_t threads = m.options.threads;
  s.new_task_queue = [threads] { return new httplib::ThreadPool(threads); };
  s.set_tcp_nodelay(true);  // a call and its answer are one message each: send them at once
  s.set_keep_alive_max_count(100000);
  s.set_keep_alive_timeout(2);
  s.set_read_timeout(60);
  s.set_write_timeout(60);
  s.set_payload_max_length(m.options.maxMessageBytes);
  // Reuse an address in TIME_WAIT, but never share a port with another listener.
  s.set_socket_options([](socket_t sock) {
    int yes = 1;
    setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  });
  s.Post(".*", [&m](const httplib::Request& rq, httplib::Response& rs) { m.Post(rq, rs); });
  s.Get(".*", [&m](const httplib::Request& rq, httplib::Response& rs) { m.Get(rq, rs); });
  s.set_exception_handler([&m](const httplib::Request& rq, httplib::Response& rs, std::exception_ptr e) {
    // The Web Connector shows a fault's text; the details go to the log only.
    std::string what = "unknown failure";
    try {
      std::rethrow_exception(e);
    } catch (const std::exception& x) {
      what = x.what();
    } catch (...) {
    }
    rs.status = 500;
    rs.set_content(detail::FaultEnvelope({"soap:Server", "The service could not answer this call."}), kXmlType);
    m.Log(rq, "failure", what);
  });

  const std::string& address = m.options.address;
  m.port = m.options.port == 0 ? s.bind_to_any_port(address) : (s.bind_to_port(address, m.options.port) ? m.options.port : -1);
  if (m.port <= 0) {
    m.server.reset();
    Refuse("The service cannot listen on " + address + ":" + std::to_string(m.options.port) +
           ": the address is not this machine's, or the port is in use.");
  }
  m.thread = std::thread([&s] { s.listen_after_bind(); });
  // Stopping is possible once the server runs: wait for that, a few seconds at most.
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!s.is_running() && std::chrono::steady_clock::now() < limit)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  if (!s.is_running()) {
    Stop();
    Refuse("The service did not start serving.");
  }
}

bool Service::WaitUntilNoSession(std::chrono::milliseconds limit) { return impl_->hub->WaitUntilNoSession(limit); }

void Service::Stop() {
  Impl& m = *impl_;
  m.stopped = true;
  m.hub->Stop();
  if (m.server) m.server->stop();
  if (m.thread.joinable()) m.thread.join();
}

int Service::Port() const { return impl_->port; }

std::string Service::Url() const {
  const Impl& m = *impl_;
  const bool v6 = m.options.address.find(':') != std::string::npos;
  return std::string(m.options.certificateFile.empty() ? "http" : "https") + "://" +
         (v6 ? "[" + m.options.address + "]" : m.options.address) + ":" + std::to_string(m.port) + "/";
}

RequestProcessorFactory Service::ProcessorFactory(ProcessorOptions options) const {
  return [hub = impl_->hub, options]() -> std::shared_ptr<IRequestProcessor> {
    return std::make_shared<WebConnectorProcessor>(hub, options);
  };
}

}  // namespace brenvale::webconnector
