#pragma once
// The company engine: Brenvale's own request processor, an in-process stand-in for QuickBooks
// Desktop that keeps a company file in SQLite and answers qbXML the way QuickBooks does.
//
//   brenvale::rqp::RegisterCompanyEngine();            // ProgID "BrenvaleRqP.RequestProcessor"
//   auto rp = brenvale::CreateRequestProcessor(brenvale::kProgIdCompanyEngine);
//   rp->OpenConnection("", "My App");
//   auto ticket = rp->BeginSession("/data/acme.qbw", brenvale::qbOpenModeSingleUser);
//   std::string response = rp->ProcessRequest(ticket, request);
//
// A company path that does not exist yet becomes a new company with QuickBooks' standard accounts
// and lists. Failures of the processor itself (call order, ticket, file, a document that cannot be
// parsed) are thrown as BrenvaleError with QuickBooks' HRESULT numbers; everything about a single
// request is that request's status in the response.
#include <memory>
#include <string>
#include <vector>

#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/rqp/HostFacts.hpp"

namespace brenvale::rqp {

namespace detail {
class Company;
}

class CompanyEngine : public IRequestProcessor {
 public:
  explicit CompanyEngine(HostFacts facts = {});
  ~CompanyEngine() override;
  CompanyEngine(const CompanyEngine&) = delete;
  CompanyEngine& operator=(const CompanyEngine&) = delete;

  void OpenConnection(const std::string& appID, const std::string& appName) override;
  void OpenConnection2(const std::string& appID, const std::string& appName,
                       qbConnectionType connectionType) override;
  std::string BeginSession(const std::string& qbFileName, qbEnumFileOpenMode openMode) override;
  std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) override;
  std::string GetCurrentCompanyFileName(const std::string& ticket) override;
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override;
  std::string ProcessSubscription(const std::string& request) override;
  void EndSession(const std::string& ticket) override;
  void CloseConnection() override;
  ProcessorAuthPreferences& AuthPreferences() override { return auth_; }
  std::string MajorVersion() const override;
  std::string MinorVersion() const override;

  const HostFacts& Facts() const { return facts_; }

 private:
  void CheckTicket(const std::string& ticket) const;

  HostFacts facts_;
  ProcessorAuthPreferences auth_;
  bool connected_ = false;
  std::string appName_;
  std::string ticket_;
  std::unique_ptr<detail::Company> company_;
};

// Registers the engine with the processor registry under "BrenvaleRqP.RequestProcessor"; every
// processor created by that ProgID gets these facts.
void RegisterCompanyEngine(HostFacts facts = {});

}  // namespace brenvale::rqp
