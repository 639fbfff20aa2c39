#pragma once
// Shared pieces of the Web Connector tests: a service on the loopback address with an ephemeral
// port, a Web Connector driven call by call, our own Web Connector on a thread, company files in a
// temporary folder, and a TLS certificate made for the test.
#include <gtest/gtest.h>
#include <httplib.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"
#include "brenvale/webconnector/Client.hpp"
#include "brenvale/webconnector/Service.hpp"
#include "brenvale/webconnector/Users.hpp"
#include "brenvale/webconnector/detail/Soap.hpp"
#include "support/RaisedBy.hpp"

namespace brenvale::webconnector::testing {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

inline constexpr int kFastHash = kMinimumHashIterations;

// The head and tail of every envelope the Web Connector sends and the service answers.
inline const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope "
    "xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">"
    "<soap:Body>";
inline const std::string kTail = "</soap:Body></soap:Envelope>";

// A call as the Web Connector writes it: `<op xmlns="http://developer.intuit.com/">body</op>`.
inline std::string Recorded(const std::string& op, const std::string& body) {
  return kHead + "<" + op + " xmlns=\"http://developer.intuit.com/\">" + body + "</" + op + ">" + kTail;
}
// The service's answer: `<opResponse ...><opResult>value</opResult></opResponse>`.
inline std::string Answer(const std::string& op, const std::string& value) {
  return kHead + "<" + op + "Response xmlns=\"http://developer.intuit.com/\"><" + op + "Result>" + value + "</" + op +
         "Result></" + op + "Response>" + kTail;
}

// A Web Connector driven by the test, call by call.
class ScriptedWebConnector {
 public:
  explicit ScriptedWebConnector(const std::string& origin) : http_(origin) {
    http_.set_read_timeout(30, 0);
    http_.set_connection_timeout(10, 0);
  }
  // Posts an envelope; the service's answer and its HTTP status.
  std::pair<int, std::string> Post(const std::string& envelope, const std::string& path = "/") {
    httplib::Result r = http_.Post(path.c_str(), envelope, "text/xml; charset=utf-8");
    if (!r) return {0, "no answer: " + httplib::to_string(r.error())};
    return {r->status, r->body};
  }
  detail::Result Call(const std::string& op, const std::vector<std::string>& arguments) {
    const detail::Operation* o = detail::FindOperation(op);
    auto [status, body] = Post(detail::CallEnvelope(*o, arguments));
    detail::Result result;
    if (detail::ReadResult(*o, body, result) || status != 200) {
      ADD_FAILURE() << op << " answered " << status << ": " << body;
      return std::string();
    }
    return result;
  }
  std::string Text(const std::string& op, const std::vector<std::string>& a) { return std::get<std::string>(Call(op, a)); }
  int Number(const std::string& op, const std::vector<std::string>& a) { return std::get<int>(Call(op, a)); }
  std::vector<std::string> Strings(const std::string& op, const std::vector<std::string>& a) {
    return std::get<std::vector<std::string>>(Call(op, a));
  }
  // authenticate, again while the service has no work for the user yet (its host is on its way).
  std::vector<std::string> AuthenticateWhenWorkWaits(const std::string& user, const std::string& password) {
    const auto limit = std::chrono::steady_clock::now() + 20s;
    for (;;) {
      std::vector<std::string> a = Strings("authenticate", {user, password});
      if (a.size() < 2 || a[1] != "none" || std::chrono::steady_clock::now() > limit) return a;
      std::this_thread::sleep_for(5ms);
    }
  }

 private:
  httplib::Client http_;
};

// Our own Web Connector on a thread: a session whenever the service has work, until destroyed.
class WebConnectorLoop {
 public:
  WebConnectorLoop(ClientOptions options, std::function<std::shared_ptr<IRequestProcessor>()> open)
      : client_(std::move(options), std::move(open)), thread_([this] { Run(); }) {}
  ~WebConnectorLoop() { Finish(); }
  // Ends the loop once its session in progress has ended.
  void Finish() {
    {
      std::lock_guard lock(mutex_);
      stop_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) thread_.join();
  }
  std::vector<SessionReport> Reports() {
    std::lock_guard lock(mutex_);
    return reports_;
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    while (!stop_) {
      lock.unlock();
      SessionReport r = client_.RunSession();
      lock.lock();
      if (r.outcome != SessionOutcome::NoWork) reports_.push_back(r);
      if (r.outcome != SessionOutcome::Finished) wake_.wait_for(lock, 5ms, [&] { return stop_; });
    }
  }

  Client client_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool stop_ = false;
  std::vector<SessionReport> reports_;
  std::thread thread_;
};

// Writes a self-signed certificate for localhost and 127.0.0.1 and its key.
inline void MakeCertificate(const fs::path& certificate, const fs::path& key) {
  EVP_PKEY* pkey = EVP_EC_gen("P-256");
  X509* x = X509_new();
  X509_set_version(x, 2);
  ASN1_INTEGER_set(X509_get_serialNumber(x), 1);
  X509_gmtime_adj(X509_getm_notBefore(x), -60);
  X509_gmtime_adj(X509_getm_notAfter(x), 3600);
  X509_set_pubkey(x, pkey);
  X509_NAME* name = X509_get_subject_name(x);
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("localhost"), -1, -1, 0);
  X509_set_issuer_name(x, name);
  X509V3_CTX ctx;
  X509V3_set_ctx_nodb(&ctx);
  X509V3_set_ctx(&ctx, x, x, nullptr, nullptr, 0);
  for (auto [nid, value] : {std::pair{NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1"},
                            std::pair{NID_basic_constraints, "critical,CA:TRUE"},
                            std::pair{NID_key_usage, "critical,digitalSignature,keyCertSign"}}) {
    X509_EXTENSION* ext = X509V3_EXT_conf_nid(nullptr, &ctx, nid, value);
    X509_add_ext(x, ext, -1);
    X509_EXTENSION_free(ext);
  }
  X509_sign(x, pkey, EVP_sha256());
  FILE* c = std::fopen(certificate.c_str(), "w");
  FILE* k = std::fopen(key.c_str(), "w");
  ASSERT_TRUE(c && k);
  PEM_write_X509(c, x);
  PEM_write_PrivateKey(k, pkey, nullptr, nullptr, 0, nullptr, nullptr);
  std::fclose(c);
  std::fclose(k);
  X509_free(x);
  EVP_PKEY_free(pkey);
}

// A fresh folder, two users of two companies, and a service over them.
class BridgeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("brenvale-wc-" + std::to_string(::getpid()) + "-" +
            std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    fs::create_directories(dir_);
    users_.Set({"acme", "acme", Users::HashPassword("acme-secret", kFastHash), {}});
    users_.Set({"bolt", "bolt", Users::HashPassword("bolt-secret", kFastHash), {}});
  }
  void TearDown() override {
    service_.reset();
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }

  ServiceOptions Options() {
    ServiceOptions o;
    o.users = users_;
    o.hold = 2s;
    o.log = [this](std::string_view line) {
      std::lock_guard lock(logMutex_);
      log_.emplace_back(line);
    };
    return o;
  }
  Service& Start(ServiceOptions options) {
    service_ = std::make_unique<Service>(std::move(options));
    service_->Start();
    return *service_;
  }
  Service& Start() { return Start(Options()); }
  std::string Origin() const { return "http://127.0.0.1:" + std::to_string(service_->Port()); }

  std::shared_ptr<IRequestProcessor> Host(std::chrono::milliseconds wait = 20s) {
    auto p = service_->ProcessorFactory({.sessionWait = wait, .requestWait = wait})();
    p->OpenConnection("", "Bridge tests");
    return p;
  }
  // A host on a thread: begins a session on the company, runs `body` with its ticket, ends the session.
  static std::thread HostDoing(std::shared_ptr<IRequestProcessor> host, std::function<void(const std::string&)> body,
                               std::string company = "acme") {
    return std::thread([host, body = std::move(body), company = std::move(company)] {
      const std::string ticket = host->BeginSession(company, qbOpenModeDontCare);
      body(ticket);
      host->EndSession(ticket);
    });
  }
  ClientOptions OurWebConnector(const std::string& user, const std::string& password, const std::string& company) {
    ClientOptions o;
    o.url = service_->Url();
    o.userName = user;
    o.password = password;
    o.companyFile = (dir_ / company).string();
    o.noOpPause = 10ms;
    return o;
  }
  static std::shared_ptr<IRequestProcessor> Engine() { return std::make_shared<rqp::CompanyEngine>(); }

  std::vector<std::string> Log() {
    std::lock_guard lock(logMutex_);
    return log_;
  }

  fs::path dir_;
  Users users_;
  std::unique_ptr<Service> service_;
  std::mutex logMutex_;
  std::vector<std::string> log_;
};

using brenvale::testing::RaisedBy;

// A qbXML request document and a response to it.
inline std::string Rq(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq "
         "onError=\"stopOnError\">" + body + "</QBXMLMsgsRq></QBXML>";
}
inline std::string Rs(const std::string& body) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>" + body + "</QBXMLMsgsRs></QBXML>";
}

// The Web Connector's own host, company and preferences responses.
inline const std::string kFirstCallResponse = Rs(
    "<HostQueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\"><HostRet>"
    "<ProductName>QuickBooks Enterprise</ProductName><MajorVersion>34</MajorVersion>"
    "<SupportedQBXMLVersion>2.0</SupportedQBXMLVersion><SupportedQBXMLVersion>12.0</SupportedQBXMLVersion>"
    "<SupportedQBXMLVersion>13.0</SupportedQBXMLVersion><SupportedQBXMLVersion>16.0</SupportedQBXMLVersion>"
    "</HostRet></HostQueryRs>"
    "<CompanyQueryRs requestID=\"2\" statusCode=\"0\"><CompanyRet><CompanyName>Acme</CompanyName></CompanyRet></CompanyQueryRs>");


inline const std::string kAcmeFile = "C:\\Company Files\\Acme.qbw";

// The arguments of sendRequestXML: the session's first call carries the first-call response.
inline std::vector<std::string> FirstSend(const std::string& ticket, const std::string& file = kAcmeFile) {
  return {ticket, kFirstCallResponse, file, "US", "13", "0"};
}
inline std::vector<std::string> NextSend(const std::string& ticket, const std::string& file = kAcmeFile) {
  return {ticket, "", file, "US", "13", "0"};
}

}  // namespace brenvale::webconnector::testing
