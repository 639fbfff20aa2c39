// Connections, sessions, tickets, company files and their locks, host facts.
#include "brenvale/core/ProcessorRegistry.hpp"
#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace hr = brenvale::rqp::hresult;
using brenvale::qbOpenModeMultiUser;
using brenvale::qbOpenModeSingleUser;

template <class F>
std::int32_t ErrorOf(F f) {
  try {
    f();
  } catch (const BrenvaleError& e) {
    EXPECT_FALSE(e.Description().empty());
    return e.Number();
  }
  return 0;
}

using SessionTest = EngineTest;

TEST_F(SessionTest, CallOrderAndTicketsFailAsQuickBooksDoes) {
  CompanyEngine fresh;
  EXPECT_EQ(ErrorOf([&] { fresh.BeginSession(Company() + "2", qbOpenModeSingleUser); }), hr::kCouldNotAccess);
  EXPECT_EQ(ErrorOf([&] { fresh.ProcessRequest("", Message("")); }), hr::kBeginSessionNotCalled);
  EXPECT_EQ(ErrorOf([&] { fresh.ProcessSubscription("<QBXML/>"); }), hr::kCouldNotAccess);

  EXPECT_EQ(ErrorOf([&] { engine_->ProcessRequest(ticket_ + "x", Message("")); }), hr::kInvalidTicket);
  EXPECT_EQ(ErrorOf([&] { engine_->QBXMLVersionsForSession("{not-a-ticket}"); }), hr::kInvalidTicket);
  EXPECT_EQ(ErrorOf([&] { engine_->BeginSession(Company(), qbOpenModeSingleUser); }), hr::kSessionAlreadyBegun);

  std::string old = ticket_;
  engine_->EndSession(ticket_);
  EXPECT_EQ(ErrorOf([&] { engine_->ProcessRequest(old, Message("")); }), hr::kInvalidTicket);
  ticket_ = engine_->BeginSession(Company(), qbOpenModeSingleUser);
  EXPECT_NE(ticket_, old);
  EXPECT_EQ(ticket_.size(), 38u);  // a GUID in braces
  engine_->CloseConnection();
  EXPECT_EQ(ErrorOf([&] { engine_->ProcessRequest(ticket_, Message("")); }), hr::kInvalidTicket);
  engine_->CloseConnection();  // closing twice does no harm
}

TEST_F(SessionTest, SessionReportsFileAndVersions) {
  EXPECT_EQ(engine_->GetCurrentCompanyFileName(ticket_), fs::absolute(Company()).lexically_normal().string());
  auto versions = engine_->QBXMLVersionsForSession(ticket_);
  ASSERT_FALSE(versions.empty());
  EXPECT_EQ(versions.front(), "1.0");
  EXPECT_EQ(versions.back(), "13.0");
  EXPECT_EQ(engine_->MajorVersion(), "34");
}

TEST_F(SessionTest, SingleUserSessionLocksTheFile) {
  CompanyEngine second;
  second.OpenConnection("", "second");
  EXPECT_EQ(ErrorOf([&] { second.BeginSession(Company(), qbOpenModeSingleUser); }), hr::kFileOpenInOtherMode);
  EXPECT_EQ(ErrorOf([&] { second.BeginSession(Company(), qbOpenModeMultiUser); }), hr::kFileOpenInOtherMode);
  engine_->EndSession(ticket_);
  std::string t = second.BeginSession(Company(), qbOpenModeMultiUser);
  CompanyEngine third;
  third.OpenConnection("", "third");
  std::string t3 = third.BeginSession(Company(), qbOpenModeMultiUser);  // multi-user sessions share
  EXPECT_EQ(ErrorOf([&] { engine_->BeginSession(Company(), qbOpenModeSingleUser); }), hr::kFileOpenInOtherMode);
  third.EndSession(t3);
  second.EndSession(t);
  ticket_ = engine_->BeginSession(Company(), qbOpenModeSingleUser);
}

TEST_F(SessionTest, FilesThatAreNotCompaniesAreRefused) {
  CompanyEngine other;
  other.OpenConnection("", "other");
  EXPECT_EQ(ErrorOf([&] { other.BeginSession((dir_ / "missing" / "x.qbw").string(), qbOpenModeSingleUser); }),
            hr::kCouldNotOpenFile);
  EXPECT_EQ(ErrorOf([&] { other.BeginSession("", qbOpenModeSingleUser); }), hr::kCouldNotOpenFile);
  std::string junk = (dir_ / "junk.qbw").string();
  { std::FILE* f = std::fopen(junk.c_str(), "w"); std::fputs("not a company file at all, not even SQLite", f); std::fclose(f); }
  EXPECT_EQ(ErrorOf([&] { other.BeginSession(junk, qbOpenModeSingleUser); }), hr::kCouldNotOpenFile);
}

TEST_F(SessionTest, NewCompanyHasWhatQuickBooksCreates) {
  for (const char* account : {"Accounts Receivable", "Accounts Payable", "Undeposited Funds", "Opening Balance Equity",
                              "Retained Earnings"}) {
    Status s = One(std::string("<AccountQueryRq><FullName>") + account + "</FullName></AccountQueryRq>");
    EXPECT_EQ(s.code, 0) << account;
    EXPECT_EQ(Text(s.node, "AccountRet/Name"), account);
  }
  Status ar = One("<AccountQueryRq><FullName>accounts receivable</FullName></AccountQueryRq>");
  EXPECT_EQ(Text(ar.node, "AccountRet/SpecialAccountType"), "AccountsReceivable");
  EXPECT_EQ(Text(ar.node, "AccountRet/AccountType"), "AccountsReceivable");
  EXPECT_EQ(One("<TermsQueryRq><FullName>Net 30</FullName></TermsQueryRq>").code, 0);
  EXPECT_EQ(One("<SalesTaxCodeQueryRq><FullName>Non</FullName></SalesTaxCodeQueryRq>").code, 0);
  Status prefs = One("<PreferencesQueryRq/>");
  EXPECT_EQ(Text(prefs.node, "PreferencesRet/MultiCurrencyPreferences/HomeCurrencyRef/FullName"), "US Dollar");
  Status company = One("<CompanyQueryRq/>");
  EXPECT_EQ(Text(company.node, "CompanyRet/CompanyName"), "company");
}

TEST_F(SessionTest, DataSurvivesSessions) {
  Add("Class", "<Name>Kept</Name>");
  engine_->EndSession(ticket_);
  engine_.reset();
  Open();
  EXPECT_EQ(One("<ClassQueryRq><FullName>Kept</FullName></ClassQueryRq>").code, 0);
}

TEST_F(SessionTest, HostFactsAnswerTheHostQuery) {
  brenvale::rqp::HostFacts facts;
  facts.ProductName = "QuickBooks Premier Edition 2019";
  facts.MajorVersion = 29;
  facts.MinorVersion = 1;
  facts.Country = "CA";
  facts.SupportedVersions = {"1.0", "2.0", "13.0"};
  engine_->CloseConnection();
  Open(facts);
  Status s = One("<HostQueryRq requestID=\"7\"/>");
  EXPECT_EQ(s.node.attribute("requestID").as_int(), 7);
  EXPECT_EQ(Text(s.node, "HostRet/ProductName"), "QuickBooks Premier Edition 2019");
  EXPECT_EQ(Text(s.node, "HostRet/MajorVersion"), "29");
  EXPECT_EQ(Text(s.node, "HostRet/Country"), "CA");
  EXPECT_EQ(Text(s.node, "HostRet/QBFileMode"), "SingleUser");
  EXPECT_EQ(s.node.child("HostRet").select_nodes("SupportedQBXMLVersion").size(), 3u);
  EXPECT_EQ(engine_->QBXMLVersionsForSession(ticket_).back(), "13.0");
  // A document asking for a version the host does not know is refused whole.
  std::string text = "<?xml version=\"1.0\"?><?qbxml version=\"12.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
                     "<HostQueryRq/></QBXMLMsgsRq></QBXML>";
  EXPECT_EQ(Failure(text).Number(), hr::kParseError);
}

TEST_F(SessionTest, RegistryCreatesEnginesByProgId) {
  brenvale::rqp::HostFacts facts;
  facts.ProductName = "Registered";
  brenvale::rqp::RegisterCompanyEngine(facts);
  auto processor = brenvale::CreateRequestProcessor("brenvalerqp.requestprocessor");
  ASSERT_TRUE(processor);
  processor->OpenConnection2("", "registry", brenvale::localQBD);
  engine_->EndSession(ticket_);
  std::string t = processor->BeginSession(Company(), qbOpenModeSingleUser);
  std::string r = processor->ProcessRequest(t, Message("<HostQueryRq/>"));
  EXPECT_NE(r.find("<ProductName>Registered</ProductName>"), std::string::npos);
  processor->CloseConnection();
  ticket_ = engine_->BeginSession(Company(), qbOpenModeSingleUser);
}

TEST_F(SessionTest, SubscriptionsAreStoredWithoutASession) {
  brenvale::rqp::HostFacts facts;
  facts.SubscriptionStore = (dir_ / "subscriptions.db").string();
  CompanyEngine sub(facts);
  sub.OpenConnection("", "subscriber");
  auto send = [&](const std::string& rq) {
    std::string r = sub.ProcessSubscription("<?xml version=\"1.0\"?><?qbxml version=\"13.0\"?><QBXML>"
                                            "<QBXMLSubscriptionMsgsRq>" + rq + "</QBXMLSubscriptionMsgsRq></QBXML>");
    EXPECT_EQ(SchemaErrors(r), "") << r;
    return r;
  };
  const std::string id = "{11111111-2222-3333-4444-555555555555}";
  std::string add =
      "<DataEventSubscriptionAddRq requestID=\"1\"><DataEventSubscriptionAdd><SubscriberID>" + id +
      "</SubscriberID><COMCallbackInfo><AppName>App</AppName><ProgID>App.Handler</ProgID></COMCallbackInfo>"
      "<DeliveryPolicy>DeliverAlways</DeliveryPolicy><ListEventSubscription><ListEventType>Customer</ListEventType>"
      "<ListEventOperation>Add</ListEventOperation></ListEventSubscription></DataEventSubscriptionAdd>"
      "</DataEventSubscriptionAddRq>";
  EXPECT_NE(send(add).find("statusCode=\"0\""), std::string::npos);
  EXPECT_NE(send(add).find("statusCode=\"3100\""), std::string::npos);
  CompanyEngine again(facts);  // a second engine sees the stored subscription
  again.OpenConnection("", "again");
  std::string query = again.ProcessSubscription(
      "<QBXML><QBXMLSubscriptionMsgsRq><DataEventSubscriptionQueryRq><SubscriberID>" + id +
      "</SubscriberID></DataEventSubscriptionQueryRq></QBXMLSubscriptionMsgsRq></QBXML>");
  EXPECT_NE(query.find("<TrackLostEvents>None</TrackLostEvents>"), std::string::npos) << query;
  std::string del = "<SubscriptionDelRq><SubscriberID>" + id + "</SubscriberID><SubscriptionType>Data</SubscriptionType></SubscriptionDelRq>";
  EXPECT_NE(send(del).find("statusCode=\"0\""), std::string::npos);
  EXPECT_NE(send(del).find("statusCode=\"3120\""), std::string::npos);
  // Subscriptions came with qbXML 3.0.
  try {
    sub.ProcessSubscription("<?xml version=\"1.0\"?><?qbxml version=\"2.0\"?><QBXML><QBXMLSubscriptionMsgsRq>" + del +
                            "</QBXMLSubscriptionMsgsRq></QBXML>");
    ADD_FAILURE() << "a 2.0 document with a subscription request was taken";
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), hr::kParseError);
  }
}

}  // namespace rqptest
