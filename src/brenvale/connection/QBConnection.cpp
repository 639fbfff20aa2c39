#include "brenvale/connection/QBConnection.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/ResponseView.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

constexpr std::string_view kSource = "QBConnection";
// The processor used for the online edition when the caller names none.
constexpr std::string_view kProgIdOnline = "QBXMLRPQBOE.RequestProcessor";

void RequireProcessor() {
  if (!CurrentSession().processor) Raise(1000, kSource);
}

}  // namespace

QBConnection::QBConnection() = default;

QBConnection::~QBConnection() {
  try {
    CloseConnection();
  } catch (...) {
    // Closing on destruction is best effort.
  }
}

std::shared_ptr<IRequestProcessor> QBConnection::CreateProcessor(bool online) const {
  if (progId_.empty()) {
    if (online) return CreateRequestProcessor(kProgIdOnline);
    return CreateRequestProcessor(useRp1_ ? kProgIdQBXMLRP : kProgIdQBXMLRP2);
  }
  try {
    return CreateRequestProcessor(progId_);
  } catch (const BrenvaleError& first) {
    // The caller's processor could not be created: fall back to the older processor.
    try {
      return CreateRequestProcessor(kProgIdQBXMLRP);
    } catch (const BrenvaleError& fallback) {
      throw BrenvaleError(first.Number(), first.Source(),
                          first.Description() + "; the fallback failed too: " + fallback.Description());
    }
  }
}

Long QBConnection::Open(const std::string& appID, const std::string& appName, qbEnumFileOpenMode mode,
                        const std::string& companyPath, qbConnectionType type, OpenKind kind) {
  CloseConnection();
  Session& s = CurrentSession();
  std::shared_ptr<IRequestProcessor> rp = CreateProcessor(kind == OpenKind::Online);
  bool connectionOpened = false;
  std::string ticket;
  try {
    if (useRp1_ && kind != OpenKind::Online) {
      rp->OpenConnection(appID, appName);
    } else {
      if (auth_.Enabled) {
        ProcessorAuthPreferences& p = rp->AuthPreferences();
        p.IsReadOnly = auth_.IsReadOnly;
        p.AuthFlags = auth_.AuthFlags;
        p.UnattendedModePref = auth_.UnattendedMode;
        p.PersonalDataPref = auth_.PersonalDataPref;
      }
      rp->OpenConnection2(appID, appName, type);
    }
    connectionOpened = true;
    s.processor = rp;
    if (kind == OpenKind::SubscriptionsOnly) {
      s.connectionOpen = true;
      ConnectionOpened.Raise();
      return 0;
    }

    ticket = rp->BeginSession(companyPath, mode);
    s.ticket = ticket;
    if (kind == OpenKind::Online) {
      s.isOnline = true;
      s.qbxmlVersion = rp->MajorVersion() + "." + rp->MinorVersion();
    } else {
      supportedVersions_ = rp->QBXMLVersionsForSession(ticket);
      s.qbxmlVersion = supportedVersions_.empty() ? std::string() : supportedVersions_.back();
    }
    s.qbXMLVersionNumber = VersionNumberOf(s.qbxmlVersion);

    RunHostQuery();
    if (!s.isOnline && majorVersion_ < 10) Raise(1004, "Brenvale");

    companyPath_ = rp->GetCurrentCompanyFileName(ticket);
    s.connectionOpen = true;
  } catch (...) {
    // Leave nothing half open: end what was begun, forget the session, pass the error on.
    try {
      if (!ticket.empty()) rp->EndSession(ticket);
    } catch (...) {
    }
    try {
      if (connectionOpened) rp->CloseConnection();
    } catch (...) {
    }
    std::string tracePath = s.tracePath;
    bool commitRaises = s.commitRaises;
    std::string eventGuid = s.eventSubscriberID, dataExtGuid = s.dataExtOwnerID;
    s = Session();
    s.tracePath = tracePath;
    s.commitRaises = commitRaises;
    s.eventSubscriberID = eventGuid;
    s.dataExtOwnerID = dataExtGuid;
    ResetHostFacts();
    throw;
  }
  ConnectionOpened.Raise();
  return 0;
}

void QBConnection::RunHostQuery() {
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("HostQueryRq", "requestID", "1");
  b.EndAggregate("HostQueryRq");
  DomDocument doc = b.NewSendRequest();
  const DomNode ret = ResponseView(doc).First().FirstRet();
  bool versionsListed = false;
  for (DomNode c : ret.Children()) {
    if (!c.IsElement()) continue;
    std::string_view name = c.BaseName();
    if (name == "ProductName") {
      productName_ = c.Text();
    } else if (name == "MajorVersion") {
      majorVersion_ = TextToInteger(c.Text());
    } else if (name == "MinorVersion") {
      minorVersion_ = TextToInteger(c.Text());
    } else if (name == "SupportedQBXMLVersion") {
      if (!versionsListed) supportedVersions_.clear();
      versionsListed = true;
      supportedVersions_.push_back(c.Text());
    } else if (name == "Country") {
      country_ = c.Text();
      CurrentSession().country = country_;
    } else if (name == "IsAutomaticLogin") {
      isAutomaticLogin_ = TextToBool(c.Text());
    } else if (name == "QBFileMode") {
      fileMode_ = c.Text();
    } else {
      detail::TraceUnknownField("HostQueryRS", name);
    }
  }
}

void QBConnection::ResetHostFacts() {
  productName_.clear();
  majorVersion_ = minorVersion_ = 0;
  country_.clear();
  isAutomaticLogin_ = false;
  fileMode_.clear();
  supportedVersions_.clear();
  companyPath_.clear();
}

Long QBConnection::Connect(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                           const std::string& CompanyPath) {
  return Open(AppID, AppName, OpenMode, CompanyPath, localQBD, OpenKind::Session);
}

Long QBConnection::Connect2(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                            const std::string& CompanyPath, qbConnectionType ConnectionPreference) {
  OpenKind kind = ConnectionPreference == remoteQBOE ? OpenKind::Online : OpenKind::Session;
  return Open(AppID, AppName, OpenMode, CompanyPath, ConnectionPreference, kind);
}

Long QBConnection::ConnectForWeb(const std::string& AppID, const std::string& AppName,
                                 qbEnumFileOpenMode OpenMode, const std::string& CompanyPath) {
  return Open(AppID, AppName, OpenMode, CompanyPath, localQBD, OpenKind::Session);
}

Long QBConnection::ConnectQBOE(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode OpenMode,
                               const std::string& AppLogin) {
  return Open(AppID, AppName, OpenMode, AppLogin, remoteQBOE, OpenKind::Online);
}

Long QBConnection::ConnectForSubscriptions(const std::string& AppID, const std::string& AppName) {
  return Open(AppID, AppName, qbOpenModeDontCare, {}, localQBD, OpenKind::SubscriptionsOnly);
}

Long QBConnection::ConnectForSubscriptions2(const std::string& AppID, const std::string& AppName,
                                            qbConnectionType ConnectionPreference) {
  return Open(AppID, AppName, qbOpenModeDontCare, {}, ConnectionPreference, OpenKind::SubscriptionsOnly);
}

void QBConnection::CloseConnection() {
  Session& s = CurrentSession();
  if (!s.processor) return;
  std::shared_ptr<IRequestProcessor> rp = s.processor;
  std::string ticket = s.ticket;
  // Forget the session first so that a failing processor cannot leave it half closed.
  s.processor.reset();
  s.ticket.clear();
  s.connectionOpen = false;
  s.isOnline = false;
  s.country.clear();
  s.qbxmlVersion.clear();
  s.qbXMLVersionNumber = Currency();
  ResetHostFacts();
  std::exception_ptr failure;
  try {
    if (!ticket.empty()) rp->EndSession(ticket);
  } catch (...) {
    failure = std::current_exception();
  }
  try {
    rp->CloseConnection();
  } catch (...) {
    if (!failure) failure = std::current_exception();
  }
  ConnectionClosed.Raise();
  if (failure) std::rethrow_exception(failure);
}

void QBConnection::qbxmlVersionOverride(const std::string& vData) { CurrentSession().qbxmlVersion = vData; }

void QBConnection::RegisterEventGUID(const std::string& sGUID) { CurrentSession().eventSubscriberID = sGUID; }

void QBConnection::RegisterDataExtensionsGUID(const std::string& sGUID) {
  CurrentSession().dataExtOwnerID = sGUID;
}

const std::string& QBConnection::EventGUID() const { return CurrentSession().eventSubscriberID; }
const std::string& QBConnection::DataExtensionsGUID() const { return CurrentSession().dataExtOwnerID; }
const std::string& QBConnection::qbxmlVersion() const { return CurrentSession().qbxmlVersion; }
Currency QBConnection::qbXMLVersionNumber() const { return CurrentSession().qbXMLVersionNumber; }
bool QBConnection::IsConnected() const { return CurrentSession().connectionOpen; }
bool QBConnection::IsOnline() const { return CurrentSession().isOnline; }
bool QBConnection::ErrorMode() const { return CurrentSession().commitRaises; }
void QBConnection::ErrorMode(bool v) { CurrentSession().commitRaises = v; }
const std::string& QBConnection::TracePath() const { return CurrentSession().tracePath; }
void QBConnection::TracePath(std::string path) { CurrentSession().tracePath = std::move(path); }

void QBConnection::DisplayQBForm(zqEnumListObjectType FormType, const std::string& ListOrTxnId) {
  constexpr std::string_view kFormSource = "Brenvale:QBConnection:DisplayQBForm";
  RequireProcessor();
  if (FormType == zqObjectTypeNone || FormType == zqObjectTypeEntity || FormType == zqObjectTypeItem ||
      FormType == zqObjectTypeTerms || FormType == zqObjectTypeCompany || FormType == zqObjectTypeDataExtDef ||
      FormType == zqObjectTypeBillPayment || !EnumCatalogue(zqeObjectType).FindByCode(static_cast<Integer>(FormType)))
    Raise(1030, kFormSource);
  bool isList = IsListObjectType(FormType);
  std::string kind = EnumCatalogue(zqeObjectType).ItemByCode(static_cast<Integer>(FormType)).CollectionKey();
  std::string family = isList ? "List" : "Txn";
  std::string verb = ListOrTxnId.empty() ? "Add" : "Mod";
  std::string rq = family + "Display" + verb + "Rq";
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate(rq, "requestID", "1");
  b.CreateElement(family + "Display" + verb + "Type", kind);
  if (!ListOrTxnId.empty()) b.CreateElement(isList ? "ListID" : "TxnID", ListOrTxnId);
  b.EndAggregate(rq);
  b.NewSendRequest();
  if (b.ErrNumber() != 0) {
    if (!ListOrTxnId.empty() && (b.ErrNumber() == 3120 || b.ErrNumber() == 3000 || b.ErrNumber() == 500))
      Raise(1031, kFormSource);
    Raise(1001, kFormSource, "QuickBooks: " + b.ErrMsg());
  }
}

}  // namespace brenvale
