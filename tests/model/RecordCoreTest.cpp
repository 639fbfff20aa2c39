// The record core, through the kinds declared for the tests: state, reading, the bodies of each
// form, nested aggregates, choices, gates, validation, lines and their guards.
#include <memory>
#include <type_traits>
#include <vector>

#include "brenvale/company/RecordKinds.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/lists/TaxCode.hpp"
#include "model/ModelTestSupport.hpp"
#include "model/TestKinds.hpp"

namespace brenvale::testing {
namespace {

const std::string kCustomerRet =
    "<CustomerRet><ListID>80000001-1623712659</ListID><TimeCreated>2021-06-14T19:17:39-04:00</TimeCreated>"
    "<TimeModified>2021-12-31T06:56:09-05:00</TimeModified><EditSequence>1640951769</EditSequence>"
    "<Name>Jos&#233; &amp; Co</Name><FullName>Jos&#233; &amp; Co</FullName><IsActive>true</IsActive>"
    "<Sublevel>0</Sublevel><CompanyName>Jos&#233;&apos;s</CompanyName><FirstName>Jos&#233;</FirstName>"
    "<BillAddress><Addr1>2530 Hill St</Addr1><City>Boston</City><State>MA</State><PostalCode>02108</PostalCode>"
    "<Note>back door</Note></BillAddress><Phone>(677) 361-2583</Phone><Balance>10743.18</Balance>"
    "<TermsRef><ListID>20000-1</ListID><FullName>Net 30</FullName></TermsRef><JobStatus>InProgress</JobStatus>"
    "<JobStartDate>2024-02-29</JobStartDate><Gadget>x</Gadget><DeliveryMethod>Sideways</DeliveryMethod>"
    "<IsStatementWithParent>false</IsStatementWithParent></CustomerRet>";

class Records : public ModelTest {};

TEST_F(Records, ReadEveryKindOfValueAndTraceWhatTheyDoNotKnow) {
  std::vector<std::string> traced;
  TraceObserver old = SetTraceObserver(
      [&](std::string_view source, std::string_view text) { traced.push_back(std::string(source) + "|" + std::string(text)); });
  TestCustomer c;
  c.ReadFrom(Parse(kCustomerRet).DocumentElement());
  SetTraceObserver(old);
  EXPECT_EQ(c.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(c.ListID(), "80000001-1623712659");
  EXPECT_EQ(c.Name(), "Jos\xC3\xA9 & Co");
  EXPECT_EQ(c.CollectionKey(), "Jos\xC3\xA9 & Co");
  EXPECT_EQ(c.Text("CompanyName"), "Jos\xC3\xA9's");
  EXPECT_EQ(c.TimeCreated(), Date::FromParts(2021, 6, 14, 19, 17, 39));  // the offset is dropped
  EXPECT_EQ(c.Text("Balance"), "10743.18");
  EXPECT_EQ(c.Text("TermsRef"), "Net 30");
  EXPECT_EQ(std::get<zkListObjectRef>(c.Value(TestCustomer::Id("TermsRef"))).ListID(), "20000-1");
  EXPECT_EQ(c.Text("JobStatus"), "InProgress");
  EXPECT_EQ(c.Text("JobStartDate"), "2024-02-29");
  EXPECT_EQ(c.Text("IsStatementWithParent"), "false");
  EXPECT_EQ(c.BillAddress().City(), "Boston");
  EXPECT_EQ(c.BillAddress().Note(), "back door");
  EXPECT_EQ(c.BillAddress().ObjectState(), zqObjectStateClean);
  // An unknown element and a value that does not convert are skipped, each traced once.
  EXPECT_EQ(traced, (std::vector<std::string>{"Customer|Unknown Field: Gadget", "Customer|Unknown Field: DeliveryMethod"}));
  EXPECT_FALSE(c.Has(TestCustomer::Id("DeliveryMethod")));
}

// A record reading a nested record of a kind not read before keeps reading its own elements after
// it, however many kinds the thread has read: its own table of elements stays while it is in use.
TEST_F(Records, ANestedReadLeavesItsOwnersElementsReadable) {
  TestCustomer first;
  first.ReadFrom(Parse("<CustomerRet><Name>A</Name></CustomerRet>").DocumentElement());
  // Records of seven other kinds between the two reads (what a small cache of tables would have
  // made room for by dropping the customer's when the address came).
  std::vector<std::unique_ptr<RecordCore>> others;
#define BRENVALE_READ_KIND(Collection, Record) \
  if constexpr (std::is_default_constructible_v<Record>) \
    if (others.size() < 7) others.push_back(std::make_unique<Record>());
  BRENVALE_RECORD_KINDS(BRENVALE_READ_KIND)
#undef BRENVALE_READ_KIND
  for (auto& r : others) r->ReadFrom(Parse("<Ret><Name>B</Name></Ret>").DocumentElement());
  TestCustomer c;
  c.ReadFrom(Parse(kCustomerRet).DocumentElement());
  EXPECT_EQ(c.BillAddress().City(), "Boston");
  EXPECT_EQ(c.Text("Phone"), "(677) 361-2583");
  EXPECT_EQ(c.Text("IsStatementWithParent"), "false");
}

TEST_F(Records, StateFollowsSettersReadsAndNestedChanges) {
  TestCustomer c;
  EXPECT_EQ(c.ObjectState(), zqObjectStateNew);
  c.Name("A");
  c.Text("OpenBalance", "12.5");  // fixed once added, free while new
  c.BillAddress().City("Quincy");
  EXPECT_EQ(c.ObjectState(), zqObjectStateNew);
  EXPECT_EQ(c.BillAddress().ObjectState(), zqObjectStateNew);

  c.ReadFrom(Parse(kCustomerRet).DocumentElement());
  EXPECT_EQ(c.ObjectState(), zqObjectStateClean);
  BrenvaleError fixed = RaisedBy([&] { c.Text("OpenBalance", "99"); });
  EXPECT_EQ(fixed.Number(), ErrorNumber(1002));
  EXPECT_EQ(fixed.Source(), "Customer");
  EXPECT_EQ(c.Text("OpenBalance"), "12.50");
  EXPECT_EQ(c.ObjectState(), zqObjectStateClean);

  // A change to a part of the record is a change of the record: its modify request carries it.
  c.ShipAddress().Line1("1 Pier Rd");
  EXPECT_EQ(c.ShipAddress().ObjectState(), zqObjectStateDirty);
  EXPECT_EQ(c.ObjectState(), zqObjectStateDirty);
  c.ReadFrom(Parse(kCustomerRet).DocumentElement());
  EXPECT_EQ(c.ObjectState(), zqObjectStateClean);
  c.IsActive(false);
  EXPECT_EQ(c.ObjectState(), zqObjectStateDirty);
}

TEST_F(Records, BodiesFollowTheDeclaredOrdersVersionsAndEditions) {
  TestCustomer c;
  c.Name("Ann & Co");
  c.Parent("Top");
  c.Text("Email", "ann@example.com");
  c.Text("CompanyName", "Ann's");
  c.Text("ClassRef", "East");
  c.Text("SalesTaxCodeRef", "Tax");
  c.Text("OpenBalance", "100");
  c.Text("JobStatus", "In Progress");  // the words are read as the tag
  c.Text("Suffix", "Jr");              // the online edition's: never written to a desktop
  c.BillAddress().Line1("1 Main St");
  c.BillAddress().State("MA");
  const std::string add = Body(c, Form::Add);
  EXPECT_EQ(add,
            "<Name>Ann &amp; Co</Name><IsActive>true</IsActive><ClassRef><FullName>East</FullName></ClassRef>"
            "<ParentRef><FullName>Top</FullName></ParentRef><CompanyName>Ann&apos;s</CompanyName>"
            "<BillAddress><Addr1>1 Main St</Addr1><State>MA</State></BillAddress><Email>ann&#64;example.com</Email>"
            "<OpenBalance>100.00</OpenBalance><SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef>"
            "<JobStatus>InProgress</JobStatus>");

  // ClassRef came with qbXML 12.0; the sales tax code is a US edition's.
  CurrentSession().qbXMLVersionNumber = VersionNumberOf("11.0");
  CurrentSession().country = "CA";
  const std::string older = Body(c, Form::Add);
  EXPECT_EQ(older.find("ClassRef"), std::string::npos);
  EXPECT_EQ(older.find("SalesTaxCodeRef"), std::string::npos);
  EXPECT_NE(older.find("<JobStatus>"), std::string::npos);
  Reset();

  // A modify request: no add-only field; a field the caller emptied is written empty.
  TestCustomer m;
  m.ReadFrom(Parse(kCustomerRet).DocumentElement());
  m.Text("Phone", "");
  m.Parent("Elsewhere");
  m.Text("TermsRef", "");
  xmlBldr b;
  m.XMLModify(b);
  EXPECT_EQ(b.GetXML(),
            "<ListID>80000001-1623712659</ListID><EditSequence>1640951769</EditSequence><Name>Jos&#233; &amp; Co</Name>"
            "<IsActive>true</IsActive><CompanyName>Jos&#233;&apos;s</CompanyName><FirstName>Jos&#233;</FirstName>"
            "<BillAddress><Addr1>2530 Hill St</Addr1><City>Boston</City><State>MA</State><PostalCode>02108</PostalCode>"
            "</BillAddress><Phone></Phone><TermsRef><FullName></FullName></TermsRef><JobStatus>InProgress</JobStatus>"
            "<JobStartDate>2024-02-29</JobStartDate>");
}

TEST_F(Records, AnAggregateTakesItsModifyTagAndAChoiceHoldsOneValue) {
  TestItem item;
  item.Name("Design");
  TestPriceBlock& block = item.SalesOrPurchase();
  block.Desc("Design work");
  block.Price(75.5);
  block.PricePercent(12.34567);  // the other half of the choice goes
  EXPECT_FALSE(block.HasPrice());
  EXPECT_TRUE(block.HasPricePercent());
  block.Account("Income");
  EXPECT_EQ(Body(item, Form::Add),
            "<Name>Design</Name><IsActive>true</IsActive><SalesOrPurchase><Desc>Design work</Desc>"
            "<PricePercent>0000012.34567</PricePercent><AccountRef><FullName>Income</FullName></AccountRef>"
            "</SalesOrPurchase>");
  item.ReadFrom(Parse("<ItemServiceRet><ListID>8-1</ListID><EditSequence>5</EditSequence><Name>Design</Name>"
                      "<SalesOrPurchase><Desc>Design work</Desc><Price>80.12345</Price><AccountRef><FullName>Income"
                      "</FullName></AccountRef></SalesOrPurchase></ItemServiceRet>")
                    .DocumentElement());
  EXPECT_DOUBLE_EQ(item.SalesOrPurchase().Price(), 80.12345);
  item.SalesOrPurchase().Price(81);
  EXPECT_EQ(item.ObjectState(), zqObjectStateDirty);
  xmlBldr b;
  item.XMLModify(b);
  // The modify form of the block: its own tag, and no account.
  EXPECT_EQ(b.GetXML(),
            "<ListID>8-1</ListID><EditSequence>5</EditSequence><Name>Design</Name>"
            "<SalesOrPurchaseMod><Desc>Design work</Desc><Price>0000081.00000</Price></SalesOrPurchaseMod>");
}

// Prices and quantities keep the decimals QuickBooks sent: a read-modify cycle changes nothing.
TEST_F(Records, PricesAndQuantitiesKeepEveryDecimal) {
  TaxCode code;
  code.ReadFrom(Parse("<TaxCodeRet><Name>G</Name><Tax1Rate>12.34567</Tax1Rate><Tax2Rate>7.5%</Tax2Rate></TaxCodeRet>")
                    .DocumentElement());
  EXPECT_DOUBLE_EQ(code.Tax1Rate(), 12.34567);
  EXPECT_DOUBLE_EQ(code.Tax2Rate(), 7.5);
  EXPECT_EQ(code.ValueText(code.Decl().FindTag("Tax1Rate")), "0000012.34567");

  TestInvoice invoice;
  invoice.ReadFrom(Parse("<InvoiceRet><TxnID>7-1</TxnID><EditSequence>9</EditSequence><InvoiceLineRet>"
                         "<TxnLineID>8-1</TxnLineID><Quantity>2.12345</Quantity><Rate>0.33333</Rate>"
                         "<Amount>0.71</Amount></InvoiceLineRet></InvoiceRet>")
                       .DocumentElement());
  invoice.Memo("again");
  xmlBldr b;
  invoice.XMLModify(b);
  EXPECT_NE(b.GetXML().find("<InvoiceLineMod><TxnLineID>8-1</TxnLineID><Quantity>2.12345</Quantity>"
                            "<Rate>0000000.33333</Rate><Amount>0.71</Amount></InvoiceLineMod>"),
            std::string::npos)
      << b.GetXML();
}

TEST_F(Records, ValidationRunsTheRulesInOrderOneEntryPerField) {
  struct Case {
    std::string what;
    std::function<void(TestCustomer&)> change;
    std::vector<std::pair<int, std::string>> expected;  // code and field of each entry
  };
  const std::vector<Case> cases = {
      {"valid", [](TestCustomer&) {}, {}},
      {"empty name", [](TestCustomer& c) { c.Name(""); }, {{1012, "Name"}}},
      {"41 characters", [](TestCustomer& c) { c.Name(std::string(41, 'n')); }, {}},
      {"42 characters", [](TestCustomer& c) { c.Name(std::string(42, 'n')); }, {{1500, "Name"}}},
      {"characters, not bytes", [](TestCustomer& c) { c.Name(std::string(20, 'n') + "\xC3\xA9" + std::string(20, 'n')); }, {}},
      {"several fields", [](TestCustomer& c) {
         c.Text("FirstName", std::string(26, 'f'));
         c.Text("Email", std::string(100, 'e'));
       },
       {{1502, "First Name"}, {1505, "Email"}}},
      {"unknown parent", [](TestCustomer& c) { c.Parent("Nobody"); }, {{1010, "Parent"}}},
  };
  for (const Case& k : cases) {
    SCOPED_TRACE(k.what);
    TestCustomer c;
    c.Name("Ann");
    k.change(c);
    c.Validate();
    EXPECT_EQ(c.Validate(), k.expected.empty());  // a second run replaces the first run's entries
    ASSERT_EQ(c.Errors().Count(), static_cast<std::int32_t>(k.expected.size()));
    for (std::size_t i = 0; i < k.expected.size(); ++i) {
      EXPECT_EQ(c.Errors()[i + 1].Number(), ErrorNumber(k.expected[i].first));
      EXPECT_EQ(c.Errors()[i + 1].Field(), k.expected[i].second);
    }
  }
  // The addresses' limits: a setter refuses at once; what was read is caught by the record's own check.
  TestCustomer c;
  BrenvaleError refused = RaisedBy([&] { c.BillAddress().City(std::string(32, 'c')); });
  EXPECT_EQ(refused.Number(), ErrorNumber(1202));
  EXPECT_EQ(refused.Description(), "Address city cannot exceed 31 characters.");
  c.ReadFrom(Parse("<CustomerRet><Name>B</Name><ShipAddress><Addr2>" + std::string(42, 'a') +
                   "</Addr2></ShipAddress></CustomerRet>")
                 .DocumentElement());
  EXPECT_TRUE(c.Validate());  // Clean: valid without a test
  c.IsActive(false);
  EXPECT_FALSE(c.Validate());
  ASSERT_EQ(c.Errors().Count(), 1);
  EXPECT_EQ(c.Errors()[1].Number(), ErrorNumber(1202));
  EXPECT_EQ(c.Errors()[1].Field(), "Ship To");
  EXPECT_EQ(c.Errors()[1].Description(), "Address lines cannot exceed 41 characters.");
}

TEST_F(Records, OneLineClassWritesEachOwnersFormAndGuardsItsFields) {
  TestInvoice invoice;
  invoice.Customer("Ann");
  TestItemLine& first = invoice.ItemLines().Add();
  first.Item("Design");
  first.Quantity(2);
  first.Rate(40);
  first.Amount(Currency(80));
  TestItemLine& top = invoice.ItemLines().Add(1);  // ahead of the first
  top.Desc("Heading");
  EXPECT_EQ(invoice.ItemLines().Count(), 2);
  EXPECT_EQ(&invoice.ItemLines().Item(1), &top);
  EXPECT_EQ(top.OwnerKind(), zqTableNameInvoice);
  EXPECT_EQ(RaisedBy([&] { invoice.ItemLines().Item(3); }).Number(), platform::kSubscriptOutOfRange);
  // A sales line has no cost; a purchase line has no rate.
  BrenvaleError notHere = RaisedBy([&] { first.Cost(1); });
  EXPECT_EQ(notHere.Number(), ErrorNumber(2008));
  EXPECT_EQ(notHere.Description(), "This property is not valid for current transaction type");
  EXPECT_EQ(Body(invoice, Form::Add),
            "<CustomerRef><FullName>Ann</FullName></CustomerRef><InvoiceLineAdd><Desc>Heading</Desc></InvoiceLineAdd>"
            "<InvoiceLineAdd><ItemRef><FullName>Design</FullName></ItemRef><Quantity>2.00000</Quantity>"
            "<Rate>0000040.00000</Rate><Amount>80.00</Amount></InvoiceLineAdd>");

  TestBill bill;
  bill.Vendor("Supplies Inc");
  TestItemLine& bought = bill.ItemLines().Add();
  bought.Item("Paper");
  bought.Cost(2.5);
  bought.Customer("Ann");
  EXPECT_EQ(RaisedBy([&] { bought.Rate(1); }).Number(), ErrorNumber(2008));
  EXPECT_EQ(bought.OwnerKind(), zqTableNameBill);
  EXPECT_EQ(Body(bill, Form::Add),
            "<VendorRef><FullName>Supplies Inc</FullName></VendorRef><ItemLineAdd><ItemRef><FullName>Paper</FullName>"
            "</ItemRef><Cost>0000002.50000</Cost><CustomerRef><FullName>Ann</FullName></CustomerRef></ItemLineAdd>");

  // A member line of a group cannot change at all.
  TestItemLine member(TestItemLine::GroupMemberForm());
  EXPECT_EQ(member.OwnerKind(), zqTableNameItemGroup);
  BrenvaleError frozen = RaisedBy([&] { member.Desc("x"); });
  EXPECT_EQ(frozen.Number(), ErrorNumber(2000));
  EXPECT_EQ(frozen.Description(), "Line items within item groups cannot be changed");
}

TEST_F(Records, LinesAddedToATransactionQuickBooksHoldsAreNewInItsModifyRequest) {
  TestInvoice invoice;
  invoice.ReadFrom(Parse("<InvoiceRet><TxnID>7-1</TxnID><EditSequence>9</EditSequence><CustomerRef><FullName>Ann"
                         "</FullName></CustomerRef><LinkedTxn><TxnID>12-1</TxnID><TxnType>ReceivePayment</TxnType>"
                         "<TxnDate>2024-03-01</TxnDate><LinkType>AMTTYPE</LinkType><Amount>-80.00</Amount></LinkedTxn>"
                         "<InvoiceLineRet><TxnLineID>8-1</TxnLineID><Desc>Old</Desc></InvoiceLineRet></InvoiceRet>")
                       .DocumentElement());
  ASSERT_EQ(invoice.LinkedTxns().Count(), 1);
  EXPECT_EQ(invoice.LinkedTxns().Item(1).TxnId(), "12-1");
  EXPECT_EQ(invoice.LinkedTxns().Item(1).TxnType(), zqObjectTypeReceivePayment);
  EXPECT_EQ(invoice.LinkedTxns().Item(1).Amount(), Currency(-80));
  EXPECT_EQ(invoice.ObjectState(), zqObjectStateClean);
  invoice.ItemLines().Add().Desc("New");
  EXPECT_EQ(invoice.ObjectState(), zqObjectStateDirty);
  xmlBldr b;
  invoice.XMLModify(b);
  EXPECT_EQ(b.GetXML(),
            "<TxnID>7-1</TxnID><EditSequence>9</EditSequence><CustomerRef><FullName>Ann</FullName></CustomerRef>"
            "<InvoiceLineMod><TxnLineID>8-1</TxnLineID><Desc>Old</Desc></InvoiceLineMod>"
            "<InvoiceLineMod><TxnLineID>-1</TxnLineID><Desc>New</Desc></InvoiceLineMod>");
  // Reading the transaction again replaces its lines.
  invoice.ReadFrom(Parse("<InvoiceRet><TxnID>7-1</TxnID><InvoiceLineRet><TxnLineID>8-1</TxnLineID></InvoiceLineRet>"
                         "</InvoiceRet>")
                       .DocumentElement());
  EXPECT_EQ(invoice.ItemLines().Count(), 1);
}

TEST_F(Records, ValuesGoInAndOutAsQbxmlText) {
  TestCustomer c;
  const std::vector<std::pair<std::string, std::string>> values = {
      {"CompanyName", "A & B"}, {"IsStatementWithParent", "true"}, {"CreditLimit", "1234.5"},
      {"JobStartDate", "2024-02-29"}, {"JobStatus", "NotAwarded"}, {"TermsRef", "Net 15"}};
  for (const auto& [tag, text] : values) c.Text(tag, text);
  EXPECT_EQ(c.Text("CompanyName"), "A & B");
  EXPECT_EQ(c.Text("IsStatementWithParent"), "true");
  EXPECT_EQ(c.Text("CreditLimit"), "1234.50");
  EXPECT_EQ(c.Text("JobStartDate"), "2024-02-29");
  EXPECT_EQ(c.Text("JobStatus"), "NotAwarded");
  EXPECT_EQ(c.Text("TermsRef"), "Net 15");
  EXPECT_EQ(RaisedBy([&] { c.Text("JobStatus", "Sideways"); }).Number(), ErrorNumber(1008));
  EXPECT_EQ(c.Text("JobStatus"), "NotAwarded");
}

}  // namespace
}  // namespace brenvale::testing
