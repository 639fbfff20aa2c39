#pragma once
// The boundary between the library and a QuickBooks request processor. The library reaches every
// processor through this interface only: QuickBooks' own COM components on Windows, or the
// company engine ("BrenvaleRqP.RequestProcessor") anywhere. A processor reports failures by
// throwing BrenvaleError with its own number, source and text.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brenvale {

enum qbEnumFileOpenMode : std::int32_t {
  qbOpenModeSingleUser = 0,
  qbOpenModeMultiUser = 1,
  qbOpenModeDontCare = 2,
};

enum qbConnectionType : std::int32_t {
  unknown = 0,
  localQBD = 1,
  remoteQBD = 2,
  localQBDLaunchUI = 3,
  remoteQBOE = 4,
};

enum qbAuthFlags : std::int32_t {
  SupportQBSimpleStart = 1,
  SupportQBPro = 2,
  SupportQBPremier = 4,
  SupportQBEnterprise = 8,
  ForceAuthDialog = INT32_MIN,
};

enum qbUnattendedMode : std::int32_t {
  umpRequired = 1,
  umpOptional = 2,
};

enum qbPrivateDataAccess : std::int32_t {
  pdpRequired = 1,
  pdpOptional = 2,
  pdpNotNeeded = 3,
};

// The processor's authorisation preferences, written by the connection before "OpenConnection2".
struct ProcessorAuthPreferences {
  bool IsReadOnly = false;
  qbUnattendedMode UnattendedModePref = umpOptional;
  qbPrivateDataAccess PersonalDataPref = pdpOptional;
  std::int32_t AuthFlags = 0;
};

class IRequestProcessor {
 public:
  virtual ~IRequestProcessor() = default;

  virtual void OpenConnection(const std::string& appID, const std::string& appName) = 0;
  virtual void OpenConnection2(const std::string& appID, const std::string& appName,
                               qbConnectionType connectionType) = 0;
  // Opens a session on the company file; returns the session ticket.
  virtual std::string BeginSession(const std::string& qbFileName, qbEnumFileOpenMode openMode) = 0;
  virtual std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) = 0;
  virtual std::string GetCurrentCompanyFileName(const std::string& ticket) = 0;
  virtual std::string ProcessRequest(const std::string& ticket, const std::string& request) = 0;
  virtual std::string ProcessSubscription(const std::string& request) = 0;
  virtual void EndSession(const std::string& ticket) = 0;
  virtual void CloseConnection() = 0;
  virtual ProcessorAuthPreferences& AuthPreferences() = 0;

  // The product version the processor belongs to (read on the online-edition path).
  virtual std::string MajorVersion() const { return {}; }
  virtual std::string MinorVersion() const { return {}; }
};

}  // namespace brenvale
