#pragma once
// The one object through which the library talks to QuickBooks: it creates the request processor,
// opens a connection and a session on a company file, negotiates the qbXML version, reads the host
// facts, and keeps the ticket every later request uses.
#include <memory>
#include <string>
#include <vector>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/Event.hpp"
#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/core/Types.hpp"

namespace brenvale {

// What the connection writes into the processor's authorisation preferences before
// "OpenConnection2"; `Enabled` false leaves the processor's own preferences alone.
struct ConnectionAuthPreferences {
  bool Enabled = true;
  bool IsReadOnly = false;
  std::int32_t AuthFlags = SupportQBSimpleStart | SupportQBPro | SupportQBPremier | SupportQBEnterprise;
  qbUnattendedMode UnattendedMode = umpOptional;
  qbPrivateDataAccess PersonalDataPref = pdpOptional;
};

class QBConnection {
 public:
  QBConnection();
  ~QBConnection();
  QBConnection(const QBConnection&) = delete;
  QBConnection& operator=(const QBConnection&) = delete;

  // --- connect operations (each returns 0 on success; failures are raised) -------------------
  Long Connect(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
               const std::string& CompanyPath = {});
  Long Connect2(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                const std::string& CompanyPath, qbConnectionType ConnectionPreference);
  Long ConnectForWeb(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                     const std::string& CompanyPath = {});
  Long ConnectQBOE(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                   const std::string& AppLogin);
  Long ConnectForSubscriptions(const std::string& AppID, const std::string& AppName);
  Long ConnectForSubscriptions2(const std::string& AppID, const std::string& AppName,
                                qbConnectionType ConnectionPreference);
  void CloseConnection();

  // Replaces the library-wide qbXML version text at once; the version number of the element gate
  // stays as negotiated.
  void qbxmlVersionOverride(const std::string& vData);
  void RegisterEventGUID(const std::string& sGUID);
  void RegisterDataExtensionsGUID(const std::string& sGUID);
  // Asks QuickBooks to show the form of a record (a new one when no id is given).
  void DisplayQBForm(zqEnumListObjectType FormType, const std::string& ListOrTxnId = {});

  // --- session and host facts ----------------------------------------------------------------
  const std::string& qbxmlVersion() const;
  Currency qbXMLVersionNumber() const;
  bool IsConnected() const;
  const std::string& ProductName() const { return productName_; }
  Integer QBMajorVersion() const { return majorVersion_; }
  Integer QBMinorVersion() const { return minorVersion_; }
  const std::string& Country() const { return country_; }
  bool IsAutomaticLogin() const { return isAutomaticLogin_; }
  const std::string& QBFileMode() const { return fileMode_; }
  const std::vector<std::string>& SupportedQBXMLVersions() const { return supportedVersions_; }
  bool IsOnline() const;
  bool IsQBOnline() const { return IsOnline(); }
  const std::string& CompanyPath() const { return companyPath_; }
  const std::string& LastOpenCompanyFile() const { return companyPath_; }
  const std::string& EventGUID() const;
  const std::string& DataExtensionsGUID() const;

  // --- caller settings -----------------------------------------------------------------------
  const std::string& RequestProcessorProgId() const { return progId_; }
  void RequestProcessorProgId(std::string v) { progId_ = std::move(v); }
  bool UseRequestProcessor1() const { return useRp1_; }
  void UseRequestProcessor1(bool v) { useRp1_ = v; }
  // True (the default): a collection commit with failures raises 1023 after the batch.
  bool ErrorMode() const;
  void ErrorMode(bool v);
  ConnectionAuthPreferences& AuthPreferences() { return auth_; }
  // The session's trace file (empty = none); takes precedence over each builder's own.
  const std::string& TracePath() const;
  void TracePath(std::string path);

  // --- enumeration catalogues ----------------------------------------------------------------
  const ZKEnum& MatchTypes() const { return EnumCatalogue(zqeMatchType); }
  const ZKEnum& Operators() const { return EnumCatalogue(zqeOperator); }
  const ZKEnum& FieldNames() const { return EnumCatalogue(zqeFieldNames); }
  const ZKEnum& ItemTypes() const { return EnumCatalogue(zqeItemType); }
  const ZKEnum& AccountTypes() const { return EnumCatalogue(zqeAccountType); }
  const ZKEnum& Months() const { return EnumCatalogue(zqeMonth); }
  const ZKEnum& ListTypes() const { return EnumCatalogue(zqeListType); }
  const ZKEnum& TxnTypes() const { return EnumCatalogue(zqeTxnType); }
  const ZKEnum& DateMacros() const { return EnumCatalogue(zqeDateMacro); }
  const ZKEnum& AvailableFields() const { return EnumCatalogue(zqeReportField); }
  const ZKEnum& AvailableReports() const { return EnumCatalogue(zqeReport); }
  const ZKEnum& ReportGroups() const { return EnumCatalogue(zqeReportGroup); }
  const ZKEnum& ReportDateMacros() const { return EnumCatalogue(zqeReportDateMacro); }
  const ZKEnum& ReportColumnSortFields() const { return EnumCatalogue(zqeReportColSortFields); }
  const ZKEnum& EmployeeTypes() const { return EnumCatalogue(zqeEmployeeType); }
  const ZKEnum& GenderTypes() const { return EnumCatalogue(zqeGenderType); }
  const ZKEnum& EntityTypes() const { return EnumCatalogue(zqeEntityType); }
  const ZKEnum& DataExtensionDataTypes() const { return EnumCatalogue(zqeDataExtDataTypes); }
  const ZKEnum& ObjectTypes() const { return EnumCatalogue(zqeObjectType); }
  const ZKEnum& ReportAccountFilters() const { return EnumCatalogue(zqeReportAccountFilters); }

  // --- events --------------------------------------------------------------------------------
  Event<> ConnectionOpened;
  Event<> ConnectionClosed;
  Event<Long, Long, bool> RecordProcessed;
  Event<Long, Long, bool&> RecordProcessed2;

 private:
  enum class OpenKind { Session, Online, SubscriptionsOnly };
  Long Open(const std::string& appID, const std::string& appName, qbEnumFileOpenMode mode,
            const std::string& companyPath, qbConnectionType type, OpenKind kind);
  std::shared_ptr<IRequestProcessor> CreateProcessor(bool online) const;
  void RunHostQuery();
  void ResetHostFacts();

  std::string progId_;
  bool useRp1_ = false;
  ConnectionAuthPreferences auth_;
  std::string productName_;
  Integer majorVersion_ = 0;
  Integer minorVersion_ = 0;
  std::string country_;
  bool isAutomaticLogin_ = false;
  std::string fileMode_;
  std::vector<std::string> supportedVersions_;
  std::string companyPath_;
};

}  // namespace brenvale
