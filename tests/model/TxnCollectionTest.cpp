// The transaction side of the machinery, through the invoice and the bill declared for the tests:
// a commit writes lines in the owner's form and reads the answer back; the queries write their
// filters as the query request takes them; delete and void. Every request goes through the scripted
// processor, which checks it against the qbXML schema.
#include "model/ModelTestSupport.hpp"
#include "model/TestKinds.hpp"

namespace brenvale::testing {
namespace {

class Transactions : public ModelTest {};

const std::string kInvoiceRet =
    "<InvoiceRet><TxnID>1001-1699760604</TxnID><TimeCreated>2023-11-11T22:43:24-05:00</TimeCreated>"
    "<TimeModified>2023-12-27T04:28:44-05:00</TimeModified><EditSequence>1703669324</EditSequence>"
    "<TxnNumber>1</TxnNumber><CustomerRef><ListID>80000002-1</ListID><FullName>H&#233;ctor</FullName></CustomerRef>"
    "<ARAccountRef><FullName>Accounts Receivable</FullName></ARAccountRef><TxnDate>2023-11-12</TxnDate>"
    "<RefNumber>10000</RefNumber><BillAddress><Addr1>H&#233;ctor</Addr1><City>Denver</City></BillAddress>"
    "<DueDate>2023-12-12</DueDate><Subtotal>179.30</Subtotal><SalesTaxPercentage>5.00</SalesTaxPercentage>"
    "<BalanceRemaining>0.00</BalanceRemaining><IsPaid>true</IsPaid>"
    "<InvoiceLineRet><TxnLineID>1002-1</TxnLineID><ItemRef><FullName>Shipping</FullName></ItemRef>"
    "<Desc>Shipping &amp; handling</Desc><Quantity>2</Quantity><Rate>46.67</Rate><Amount>93.34</Amount></InvoiceLineRet>"
    "<InvoiceLineRet><TxnLineID>1003-1</TxnLineID><ItemRef><FullName>Hardware:Cable 10ft</FullName></ItemRef>"
    "<Quantity>7</Quantity><Rate>12.28</Rate><Amount>85.96</Amount></InvoiceLineRet></InvoiceRet>";

TEST_F(Transactions, ACommitWritesLinesInTheOwnersFormAndReadsTheAnswerBack) {
  std::string sent;
  auto p = Install([&](const std::string& rq) {
    sent = rq;
    return Responses(Rs("InvoiceAddRs", "1", 0, kInvoiceRet));
  });
  TestInvoices invoices(true);
  TestInvoice& invoice = invoices.Add();
  invoice.Customer("H\xC3\xA9" "ctor");
  invoice.TxnDate(Date::Serial(2023, 11, 12));
  invoice.BillTo().Line1("H\xC3\xA9" "ctor");
  TestItemLine& line = invoice.ItemLines().Add();
  line.Item("Shipping");
  line.Quantity(2);
  line.Rate(46.67);
  TestInvoice& empty = invoices.Add();  // no lines: not sent
  empty.Customer("Ann");
  CurrentSession().commitRaises = false;
  EXPECT_EQ(invoices.Commit(), 1);
  EXPECT_NE(sent.find("<InvoiceAddRq requestID = \"1\"><InvoiceAdd><CustomerRef><FullName>H&#233;ctor</FullName>"
                      "</CustomerRef><TxnDate>2023-11-12</TxnDate><BillAddress><Addr1>H&#233;ctor</Addr1></BillAddress>"
                      "<InvoiceLineAdd><ItemRef><FullName>Shipping</FullName></ItemRef><Quantity>2.00000</Quantity>"
                      "<Rate>0000046.67000</Rate></InvoiceLineAdd></InvoiceAdd></InvoiceAddRq>"),
            std::string::npos)
      << sent;
  EXPECT_EQ(invoices.Errors()[1].Number(), ErrorNumber(1011));
  EXPECT_EQ(empty.Errors()[1].Number(), ErrorNumber(2022));

  // The answer fills the invoice: its ID, its lines as QuickBooks holds them, its totals.
  EXPECT_EQ(invoice.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(invoice.TxnId(), "1001-1699760604");
  EXPECT_EQ(invoice.TxnNumber(), 1);
  EXPECT_EQ(invoice.RefNumber(), "10000");
  EXPECT_EQ(invoice.Subtotal(), *Currency::Parse("179.30"));
  ASSERT_EQ(invoice.ItemLines().Count(), 2);
  EXPECT_EQ(invoice.ItemLines().Item(1).TxnLineId(), "1002-1");
  EXPECT_EQ(invoice.ItemLines().Item(2).Item(), "Hardware:Cable 10ft");
  EXPECT_EQ(invoice.ItemLines().Item(2).Amount(), *Currency::Parse("85.96"));
  EXPECT_EQ(invoice.BillTo().City(), "Denver");
  EXPECT_EQ(&invoices.Item("1001-1699760604"), &invoice);  // filed under its TxnID now

  // A change goes as a modify request with the lines QuickBooks holds.
  invoice.ItemLines().Item(2).Desc("10 ft cable");
  EXPECT_EQ(invoice.ObjectState(), zqObjectStateDirty);
  invoices.Commit(&invoice);
  EXPECT_NE(sent.find("<InvoiceModRq requestID = \"1\"><InvoiceMod><TxnID>1001-1699760604</TxnID><EditSequence>"
                      "1703669324</EditSequence>"),
            std::string::npos)
      << sent;
  EXPECT_NE(sent.find("<InvoiceLineMod><TxnLineID>1003-1</TxnLineID><ItemRef><FullName>Hardware:Cable 10ft"
                      "</FullName></ItemRef><Desc>10 ft cable</Desc>"),
            std::string::npos)
      << sent;
}

TEST_F(Transactions, QueriesWriteTheirFiltersAsTheQueryRequestTakesThem) {
  auto p = Install([](const std::string&) { return Responses(Rs("InvoiceQueryRs", "1", 0, kInvoiceRet)); });
  TestInvoices invoices;
  struct Case {
    std::function<void()> query;
    std::string expected;  // the request's children
  };
  const std::vector<Case> cases = {
      {[&] { invoices.GetAll(true, 50, qbPaidStatusNotPaidOnly); },
       "<MaxReturned>50</MaxReturned><PaidStatus>NotPaidOnly</PaidStatus><IncludeLineItems>true</IncludeLineItems>"},
      {[&] { invoices.GetByDateSpan(Date::Serial(2024, 1, 1), Date::Serial(2024, 1, 31)); },
       "<TxnDateRangeFilter><FromTxnDate>2024-01-01</FromTxnDate><ToTxnDate>2024-01-31</ToTxnDate></TxnDateRangeFilter>"},
      {[&] { invoices.GetByDateSpan(Date::Serial(2024, 1, 1), Date(), true, false, 0, qbPaidStatusAll, {}, "Ann", true); },
       "<ModifiedDateRangeFilter><FromModifiedDate>2024-01-01T00:00:00</FromModifiedDate></ModifiedDateRangeFilter>"
       "<EntityFilter><FullNameWithChildren>Ann</FullNameWithChildren></EntityFilter>"},
      {[&] { invoices.GetByDateMacro(qbDateMacroThisMonth); },
       "<TxnDateRangeFilter><DateMacro>ThisMonth</DateMacro></TxnDateRangeFilter>"},
      {[&] { invoices.GetByEntity({"Ann", "Bob"}); },
       "<EntityFilter><FullName>Ann</FullName><FullName>Bob</FullName></EntityFilter>"},
      {[&] { invoices.GetBySingleAccount("Accounts Receivable", true); },
       "<AccountFilter><FullNameWithChildren>Accounts Receivable</FullNameWithChildren></AccountFilter>"},
      {[&] { invoices.GetByRefNumber("100", "200", false, 5); },
       "<MaxReturned>5</MaxReturned><RefNumberRangeFilter><FromRefNumber>100</FromRefNumber><ToRefNumber>200"
       "</ToRefNumber></RefNumberRangeFilter>"},
      {[&] { invoices.GetByRefNumberMatch("10", qbMatchStartsWith); },
       "<RefNumberFilter><MatchCriterion>StartsWith</MatchCriterion><RefNumber>10</RefNumber></RefNumberFilter>"},
      {[&] { invoices.GetMultiple({"1-1", "2-2"}, true); },
       "<TxnID>1-1</TxnID><TxnID>2-2</TxnID><IncludeLineItems>true</IncludeLineItems>"},
      {[&] {
         invoices.IncludeLinkedTxns(true);
         invoices.GetByTxnID("1001-1699760604");
         invoices.IncludeLinkedTxns(false);
       },
       "<TxnID>1001-1699760604</TxnID><IncludeLinkedTxns>true</IncludeLinkedTxns>"},
  };
  for (const Case& c : cases) {
    c.query();
    const std::string& rq = p->requests.back();
    const std::string open = "<InvoiceQueryRq requestID = \"1\">";
    const std::size_t from = rq.find(open);
    ASSERT_NE(from, std::string::npos) << rq;
    const std::size_t body = from + open.size();
    EXPECT_EQ(rq.substr(body, rq.find("</InvoiceQueryRq>") - body), c.expected);
    EXPECT_EQ(invoices.Count(), 1);
  }
  EXPECT_EQ(invoices.Item(std::size_t{1}).ItemLines().Count(), 2);
}

TEST_F(Transactions, NameListsAreCheckedBeforeAnythingIsSent) {
  auto p = Install([](const std::string&) { return Responses(""); });
  TestInvoices invoices;
  BrenvaleError empty = RaisedBy([&] { invoices.GetByEntity({}); });
  EXPECT_EQ(empty.Number(), ErrorNumber(1019));
  EXPECT_EQ(empty.Source(), "GetByEntity");
  EXPECT_EQ(empty.Description(), "Empty array passed to GetBy... call");
  BrenvaleError two = RaisedBy([&] { invoices.GetByAccount({"A", "B"}, true); });
  EXPECT_EQ(two.Number(), ErrorNumber(1600));
  EXPECT_EQ(two.Description(), "If WithChildren is specified only one name is allowed");
  EXPECT_TRUE(p->requests.empty());
}

TEST_F(Transactions, DeleteAndVoidNameTheKindAndReportRefusals) {
  std::string status = "0";
  auto p = Install([&](const std::string& rq) {
    const std::string rs = rq.find("TxnVoidRq") != std::string::npos ? "TxnVoidRs" : "TxnDelRs";
    return Responses(Rs(rs, "1", std::stoi(status), {}, "The transaction is in a closed period."));
  });
  TestBills bills(true);
  bills.Add().ReadFrom(Parse("<BillRet><TxnID>9-1</TxnID><EditSequence>1</EditSequence></BillRet>").DocumentElement());
  EXPECT_EQ(bills.Void("9-1", false), 0);
  EXPECT_NE(p->requests.back().find("<TxnVoidRq requestID = \"1\"><TxnVoidType>Bill</TxnVoidType><TxnID>9-1</TxnID>"
                                    "</TxnVoidRq>"),
            std::string::npos);
  EXPECT_EQ(bills.Count(), 1);
  EXPECT_EQ(bills.Delete("9-1"), 0);
  EXPECT_NE(p->requests.back().find("<TxnDelRq requestID = \"1\"><TxnDelType>Bill</TxnDelType><TxnID>9-1</TxnID>"),
            std::string::npos);
  EXPECT_EQ(bills.Count(), 0);
  status = "3170";
  BrenvaleError refused = RaisedBy([&] { bills.Delete("9-2"); });
  EXPECT_EQ(refused.Number(), ErrorNumber(1026));
  EXPECT_EQ(refused.Source(), "Bill");
  EXPECT_EQ(refused.Description(), "The transaction is in a closed period.");
}

}  // namespace
}  // namespace brenvale::testing
