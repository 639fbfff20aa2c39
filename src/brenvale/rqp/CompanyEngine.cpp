#include "brenvale/rqp/CompanyEngine.hpp"

#include <cstdio>
#include <random>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/rqp/detail/Company.hpp"
#include "brenvale/rqp/detail/Subscriptions.hpp"

namespace brenvale::rqp {
namespace {

const std::string kSource(kProgIdCompanyEngine);

[[noreturn]] void Fail(std::int32_t number, const std::string& text) { throw BrenvaleError(number, kSource, text); }

std::string NewTicket() {
  std::random_device device;
  std::uint32_t w[4];
  for (auto& x : w) x = device();
  char buf[48];
  std::snprintf(buf, sizeof buf, "{%08x-%04x-%04x-%04x-%04x%08x}", w[0], w[1] >> 16, (w[1] & 0x0FFF) | 0x4000,
                ((w[2] >> 16) & 0x3FFF) | 0x8000, w[2] & 0xFFFF, w[3]);
  return buf;
}

}  // namespace

CompanyEngine::CompanyEngine(HostFacts facts) : facts_(std::move(facts)) {}

CompanyEngine::~CompanyEngine() = default;

void CompanyEngine::OpenConnection(const std::string& /*appID*/, const std::string& appName) {
  connected_ = true;
  appName_ = appName;
}

void CompanyEngine::OpenConnection2(const std::string& appID, const std::string& appName,
                                    qbConnectionType /*connectionType*/) {
  OpenConnection(appID, appName);
}

std::string CompanyEngine::BeginSession(const std::string& qbFileName, qbEnumFileOpenMode openMode) {
  if (!connected_) Fail(hresult::kCouldNotAccess, "Could not access QuickBooks. OpenConnection has not been called.");
  if (company_)
    Fail(hresult::kSessionAlreadyBegun,
         "A session has already begun on this connection. Call EndSession before beginning another.");
  try {
    company_ = std::make_unique<detail::Company>(qbFileName, openMode, facts_);
  } catch (const detail::ProcessError& e) {
    Fail(e.hresult, e.text);
  }
  ticket_ = NewTicket();
  return ticket_;
}

void CompanyEngine::CheckTicket(const std::string& ticket) const {
  if (!company_ && ticket.empty())
    Fail(hresult::kBeginSessionNotCalled, "The BeginSession method has not been called or it did not succeed.");
  if (!company_ || ticket != ticket_) Fail(hresult::kInvalidTicket, "The ticket parameter is invalid.");
}

std::vector<std::string> CompanyEngine::QBXMLVersionsForSession(const std::string& ticket) {
  CheckTicket(ticket);
  return facts_.SupportedVersions;
}

std::string CompanyEngine::GetCurrentCompanyFileName(const std::string& ticket) {
  CheckTicket(ticket);
  return company_->Path();
}

std::string CompanyEngine::ProcessRequest(const std::string& ticket, const std::string& request) {
  CheckTicket(ticket);
  try {
    return company_->Process(request);
  } catch (const detail::ProcessError& e) {
    Fail(e.hresult, e.text);
  } catch (const std::exception& e) {
    Fail(hresult::kUnexpected, std::string("Unexpected error. ") + e.what());
  }
}

std::string CompanyEngine::ProcessSubscription(const std::string& request) {
  if (!connected_) Fail(hresult::kCouldNotAccess, "Could not access QuickBooks. OpenConnection has not been called.");
  try {
    return detail::ProcessSubscriptions(request, facts_);
  } catch (const detail::ProcessError& e) {
    Fail(e.hresult, e.text);
  } catch (const std::exception& e) {
    Fail(hresult::kUnexpected, std::string("Unexpected error. ") + e.what());
  }
}

void CompanyEngine::EndSession(const std::string& ticket) {
  CheckTicket(ticket);
  company_.reset();
  ticket_.clear();
}

void CompanyEngine::CloseConnection() {
  company_.reset();
  ticket_.clear();
  connected_ = false;
}

std::string CompanyEngine::MajorVersion() const { return std::to_string(facts_.MajorVersion); }
std::string CompanyEngine::MinorVersion() const { return std::to_string(facts_.MinorVersion); }

void RegisterCompanyEngine(HostFacts facts) {
  RegisterRequestProcessor(kProgIdCompanyEngine,
                           [facts] { return std::make_shared<CompanyEngine>(facts); });
}

}  // namespace brenvale::rqp
