// The library reading whatever a request processor answers: the connection's host query while it
// connects, and a collection filling itself from a query response. A response it cannot use is the
// library's error; nothing may crash, hang or leak.
#include <cstdint>
#include <memory>
#include <string>

#include "brenvale/Brenvale.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace {

using namespace brenvale;

// A request processor that answers every request with the input being tried.
class Answering : public IRequestProcessor {
 public:
  static std::string answer;

  void OpenConnection(const std::string&, const std::string&) override {}
  void OpenConnection2(const std::string&, const std::string&, qbConnectionType) override {}
  std::string BeginSession(const std::string&, qbEnumFileOpenMode) override { return "{ticket}"; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"12.0", "13.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return "fuzz.qbw"; }
  std::string ProcessRequest(const std::string&, const std::string&) override { return answer; }
  std::string ProcessSubscription(const std::string&) override { return answer; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  ProcessorAuthPreferences& AuthPreferences() override { return auth_; }

 private:
  ProcessorAuthPreferences auth_;
};

std::string Answering::answer;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool registered = [] {
    RegisterRequestProcessor("Fuzz.Answering", [] { return std::make_shared<Answering>(); });
    return true;
  }();
  (void)registered;
  Answering::answer.assign(reinterpret_cast<const char*>(data), size);

  // The connection reads the host query's answer.
  try {
    QBConnection connection;
    connection.RequestProcessorProgId("Fuzz.Answering");
    connection.Connect("", "fuzz", qbOpenModeDontCare, "fuzz.qbw");
    connection.CloseConnection();
  } catch (const BrenvaleError&) {
  }

  // A collection fills itself from a query's answer.
  Session& session = CurrentSession();
  session = Session{};
  session.qbxmlVersion = "13.0";
  session.qbXMLVersionNumber = VersionNumberOf("13.0");
  session.processor = std::make_shared<Answering>();
  session.ticket = "{ticket}";
  try {
    JobTypes types;
    types.GetAll();
    for (JobType& t : types) (void)t.FullName();
  } catch (const BrenvaleError&) {
  }
  session = Session{};
  return 0;
}
