// Accounts, both kinds of terms and price levels of both forms, driven from one table: the add
// request each writes (checked against the qbXML schema by the scripted processor), what it reads
// back from QuickBooks' answer, the modify request or its refusal, and each validation rule. Then
// what is each kind's own: the sub-account sum, the due and discount dates, the two pricing forms.
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "brenvale/Brenvale.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/model/RefCache.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "lists/ListsTestSupport.hpp"

namespace brenvale::testing {
namespace {

template <class T>
T& As(ListRecord& r) {
  return static_cast<T&>(r);
}

const std::string kIdentity =
    "<ListID>80000031-1712345678</ListID><TimeCreated>2024-03-01T10:00:00</TimeCreated>"
    "<TimeModified>2024-03-02T11:30:15</TimeModified><EditSequence>1712345999</EditSequence>";
const std::string kModLead = "<ListID>80000031-1712345678</ListID><EditSequence>1712345999</EditSequence>";

struct KindCase {
  std::string kind;                                            // the qbXML name
  std::function<std::unique_ptr<ListCollectionBase>()> master;  // a master collection of the kind
  std::function<ListRecord&(ListCollectionBase&)> add;          // a valid new record, in the master
  std::string addRq;                                           // the add request it writes
  std::string ret;                                             // QuickBooks' answer: the stored record
  std::function<void(ListRecord&)> check;                      // what must have been read from `ret`
  std::function<void(ListRecord&)> change;                     // a change of the stored record
  std::string modRq;                                           // the modify request it writes
  std::string refusal;                                         // or the refusal of modify requests
  std::vector<RuleCase> rules;
};

void PrintTo(const KindCase& k, std::ostream* os) { *os << k.kind; }

template <class C>
std::function<std::unique_ptr<ListCollectionBase>()> Master() {
  return [] { return std::make_unique<C>(true); };
}

KindCase AccountCase() {
  KindCase k;
  k.kind = "Account";
  k.master = Master<Accounts>();
  k.add = [](ListCollectionBase& c) -> ListRecord& {
    Account& a = static_cast<Accounts&>(c).Add("Petty Cash", true, "Cash", qbBank, "1010", "123-456",
                                                "Cash in the drawer", Currency(250), Date::Serial(2024, 1, 1));
    a.TaxCodeRef("S");  // outside the US only: not written here
    a.CurrencyRef("US Dollar");
    return a;
  };
  k.addRq =
      "<AccountAddRq requestID = \"1\"><AccountAdd><Name>Petty Cash</Name><IsActive>true</IsActive>"
      "<ParentRef><FullName>Cash</FullName></ParentRef><AccountType>Bank</AccountType>"
      "<AccountNumber>1010</AccountNumber><BankNumber>123-456</BankNumber><Desc>Cash in the drawer</Desc>"
      "<OpenBalance>250.00</OpenBalance><OpenBalanceDate>2024-01-01</OpenBalanceDate>"
      "<CurrencyRef><FullName>US Dollar</FullName></CurrencyRef></AccountAdd></AccountAddRq>";
  k.ret = "<AccountRet>" + kIdentity +
          "<Name>Petty Cash</Name><FullName>Cash:Petty Cash</FullName><IsActive>true</IsActive>"
          "<ParentRef><ListID>80000030-1</ListID><FullName>Cash</FullName></ParentRef><Sublevel>1</Sublevel>"
          "<AccountType>Bank</AccountType><SpecialAccountType>PettyCash</SpecialAccountType>"
          "<AccountNumber>1010</AccountNumber><BankNumber>123-456</BankNumber><Desc>Cash in the drawer</Desc>"
          "<Balance>250.00</Balance><TotalBalance>310.50</TotalBalance>"
          "<TaxLineInfoRet><TaxLineID>12</TaxLineID><TaxLineName>B/S-Assets: Cash</TaxLineName></TaxLineInfoRet>"
          "<CashFlowClassification>NotApplicable</CashFlowClassification>"
          "<CurrencyRef><ListID>C1</ListID><FullName>US Dollar</FullName></CurrencyRef></AccountRet>";
  k.check = [](ListRecord& r) {
    auto& a = As<Account>(r);
    EXPECT_EQ(a.FullName(), "Cash:Petty Cash");
    EXPECT_EQ(a.CollectionKey(), "Cash:Petty Cash");
    EXPECT_EQ(a.Sublevel(), 1);
    EXPECT_EQ(a.AccountType(), qbBank);
    EXPECT_EQ(a.SpecialAccountType(), qbSpecialAccountPettyCash);
    EXPECT_EQ(a.AccountNumber(), "1010");
    EXPECT_EQ(a.BankNumber(), "123-456");
    EXPECT_EQ(a.Desc(), "Cash in the drawer");
    EXPECT_EQ(a.Balance(), Currency(250));
    EXPECT_EQ(a.TotalBalance(), Currency::FromUnits(3105000));
    EXPECT_EQ(a.TaxLineID(), 12);
    EXPECT_EQ(a.TaxLineName(), "B/S-Assets: Cash");
    EXPECT_EQ(a.CashFlowClassification(), qbCashFlowNotApplicable);
    EXPECT_EQ(a.CurrencyRef().ListID(), "C1");
  };
  k.change = [](ListRecord& r) {
    auto& a = As<Account>(r);
    a.Name("Till");
    a.Desc("");  // emptied: written empty, so QuickBooks clears it
    a.AccountNumber("1011");
    EXPECT_EQ(RaisedBy([&] { a.OpenBalance(Currency(5)); }).Number(), ErrorNumber(1002));
    EXPECT_EQ(RaisedBy([&] { a.CurrencyRef("Euro"); }).Number(), ErrorNumber(1002));
  };
  k.modRq = "<AccountModRq requestID = \"1\"><AccountMod>" + kModLead +
            "<Name>Till</Name><IsActive>true</IsActive><ParentRef><FullName>Cash</FullName></ParentRef>"
            "<AccountType>Bank</AccountType><AccountNumber>1011</AccountNumber><BankNumber>123-456</BankNumber>"
            "<Desc></Desc></AccountMod></AccountModRq>";
  k.rules = NameRuleCases();
  auto set = [](auto setter) { return [setter](ListRecord& r) { setter(As<Account>(r)); }; };
  k.rules.insert(
      k.rules.end(),
      {{"an unknown parent", set([](Account& a) { a.Parent("Nowhere"); }), 1010, "Parent", "Invalid parent specified"},
       {"a parent of another type", set([](Account& a) { a.AccountType(qbExpense); }), 1303, "Parent",
        "Parent account type must be the same as childs"},
       {"7-character number", set([](Account& a) { a.AccountNumber("1234567"); })},
       {"8-character number", set([](Account& a) { a.AccountNumber("12345678"); }), 1300, "Number",
        "Account number cannot exceed 7 characters"},
       {"25-character bank number", set([](Account& a) { a.BankNumber(std::string(25, '9')); })},
       {"26-character bank number", set([](Account& a) { a.BankNumber(std::string(26, '9')); }), 1301,
        "BankNumber", "Bank number cannot exceed 25 characters"},
       {"29-character description", set([](Account& a) { a.Desc(std::string(29, 'd')); })},
       {"30-character description", set([](Account& a) { a.Desc(std::string(30, 'd')); }), 1302, "Description",
        "Account description cannot exceed 29 characters"}});
  return k;
}

KindCase StandardTermsCase() {
  KindCase k;
  k.kind = "StandardTerms";
  k.master = Master<Terms>();
  k.add = [](ListCollectionBase& c) -> ListRecord& {
    StandardTerm& t = static_cast<Terms&>(c).Add<StandardTerm>("2% 10 Net 30");
    t.StdDueDays(30);
    t.StdDiscountDays(10);
    t.DiscountPct(Currency(2));
    return t;
  };
  k.addRq =
      "<StandardTermsAddRq requestID = \"1\"><StandardTermsAdd><Name>2% 10 Net 30</Name><IsActive>true</IsActive>"
      "<StdDueDays>30</StdDueDays><StdDiscountDays>10</StdDiscountDays><DiscountPct>0000002.00000</DiscountPct>"
      "</StandardTermsAdd></StandardTermsAddRq>";
  k.ret = "<StandardTermsRet>" + kIdentity +
          "<Name>2% 10 Net 30</Name><IsActive>true</IsActive><StdDueDays>30</StdDueDays>"
          "<StdDiscountDays>10</StdDiscountDays><DiscountPct>2.5</DiscountPct></StandardTermsRet>";
  k.check = [](ListRecord& r) {
    auto& t = As<StandardTerm>(r);
    EXPECT_FALSE(t.IsDateDriven());
    EXPECT_EQ(t.StdDueDays(), 30);
    EXPECT_EQ(t.StdDiscountDays(), 10);
    EXPECT_EQ(t.DiscountPercent(), Currency::FromUnits(25000));
  };
  k.change = [](ListRecord& r) {
    EXPECT_EQ(RaisedBy([&] { As<StandardTerm>(r).StdDueDays(45); }).Number(), ErrorNumber(1002));
    r.Name("Net 45");
  };
  k.refusal = "XMLModify not supported";
  k.rules = NameRuleCases();
  return k;
}

KindCase DateDrivenTermsCase() {
  KindCase k;
  k.kind = "DateDrivenTerms";
  k.master = Master<Terms>();
  k.add = [](ListCollectionBase& c) -> ListRecord& {
    auto& t = static_cast<DateDrivenTerm&>(static_cast<Terms&>(c).Add(zqObjectTypeDateDrivenTerms, "10th Prox"));
    t.DayOfMonthDue(10);
    t.DueNextMonthDays(5);
    t.DiscountDayOfMonth(1);
    t.DiscountPct(Currency::FromUnits(15000));
    return t;
  };
  k.addRq =
      "<DateDrivenTermsAddRq requestID = \"1\"><DateDrivenTermsAdd><Name>10th Prox</Name><IsActive>true</IsActive>"
      "<DayOfMonthDue>10</DayOfMonthDue><DueNextMonthDays>5</DueNextMonthDays>"
      "<DiscountDayOfMonth>1</DiscountDayOfMonth><DiscountPct>0000001.50000</DiscountPct>"
      "</DateDrivenTermsAdd></DateDrivenTermsAddRq>";
  k.ret = "<DateDrivenTermsRet>" + kIdentity +
          "<Name>10th Prox</Name><IsActive>false</IsActive><DayOfMonthDue>10</DayOfMonthDue>"
          "<DueNextMonthDays>5</DueNextMonthDays><DiscountDayOfMonth>1</DiscountDayOfMonth>"
          "<DiscountPct>1.50</DiscountPct></DateDrivenTermsRet>";
  k.check = [](ListRecord& r) {
    auto& t = As<DateDrivenTerm>(r);
    EXPECT_TRUE(t.IsDateDriven());
    EXPECT_FALSE(t.IsActive());
    EXPECT_EQ(t.DayOfMonthDue(), 10);
    EXPECT_EQ(t.DueNextMonthDays(), 5);
    EXPECT_EQ(t.DiscountDayOfMonth(), 1);
    EXPECT_EQ(t.DiscountPct(), Currency::FromUnits(15000));
  };
  k.change = [](ListRecord& r) { r.IsActive(true); };
  k.refusal = "XMLModify not supported";
  k.rules = NameRuleCases();
  auto set = [](auto setter) { return [setter](ListRecord& r) { setter(As<DateDrivenTerm>(r)); }; };
  k.rules.insert(k.rules.end(),
                 {{"due on the 31st", set([](DateDrivenTerm& t) { t.DayOfMonthDue(31); })},
                  {"due on day 0", set([](DateDrivenTerm& t) { t.DayOfMonthDue(0); }), 1900, "DayOfMonthDue",
                   "DayOfMonthDue must be a day of the month from 1 to 31"},
                  {"due on day 32", set([](DateDrivenTerm& t) { t.DayOfMonthDue(32); }), 1900, "DayOfMonthDue",
                   "DayOfMonthDue must be a day of the month from 1 to 31"},
                  {"a discount on day 32", set([](DateDrivenTerm& t) { t.DiscountDayOfMonth(32); }), 1900,
                   "DiscountDayOfMonth", "DiscountDayOfMonth must be a day of the month from 1 to 31"}});
  return k;
}

KindCase PriceLevelCase() {
  KindCase k;
  k.kind = "PriceLevel";
  k.master = Master<PriceLevels>();
  k.add = [](ListCollectionBase& c) -> ListRecord& {
    PriceLevel& level = static_cast<PriceLevels&>(c).Add("Wholesale");
    level.PriceLevelsPerItem().Add("Hardware:Bolts", 1.25f);
    level.PriceLevelsPerItem().Add("Nuts", -10.0f, true);
    return level;
  };
  k.addRq =
      "<PriceLevelAddRq requestID = \"1\"><PriceLevelAdd><Name>Wholesale</Name><IsActive>true</IsActive>"
      "<PriceLevelPerItem><ItemRef><FullName>Hardware:Bolts</FullName></ItemRef>"
      "<CustomPrice>0000001.25000</CustomPrice></PriceLevelPerItem>"
      "<PriceLevelPerItem><ItemRef><FullName>Nuts</FullName></ItemRef>"
      "<CustomPricePercent>-0000010.00000</CustomPricePercent></PriceLevelPerItem></PriceLevelAdd></PriceLevelAddRq>";
  k.ret = "<PriceLevelRet>" + kIdentity +
          "<Name>Wholesale</Name><IsActive>true</IsActive><PriceLevelType>PerItem</PriceLevelType>"
          "<PriceLevelPerItemRet><ItemRef><ListID>I1</ListID><FullName>Hardware:Bolts</FullName></ItemRef>"
          "<CustomPrice>1.25</CustomPrice></PriceLevelPerItemRet>"
          "<PriceLevelPerItemRet><ItemRef><ListID>I2</ListID><FullName>Nuts</FullName></ItemRef>"
          "<CustomPricePercent>-10.0</CustomPricePercent></PriceLevelPerItemRet></PriceLevelRet>";
  k.check = [](ListRecord& r) {
    auto& level = As<PriceLevel>(r);
    EXPECT_EQ(level.PriceLevelType(), "PerItem");
    EXPECT_FALSE(level.IsFixedPercentage());
    levelsPerItem prices = level.PriceLevelsPerItem();
    ASSERT_EQ(prices.Count(), 2);
    EXPECT_EQ(prices[1].Item(), "Hardware:Bolts");
    EXPECT_EQ(prices[1].ItemRef().ListID(), "I1");
    EXPECT_FLOAT_EQ(prices[1].CustomPrice(), 1.25f);
    EXPECT_FALSE(prices[1].CustomPriceIsPercent());
    EXPECT_FLOAT_EQ(prices[2].CustomPrice(), -10.0f);
    EXPECT_TRUE(prices[2].CustomPriceIsPercent());
  };
  k.change = [](ListRecord& r) {
    auto& level = As<PriceLevel>(r);
    level.IsActive(false);
    level.PriceLevelsPerItem()[2].CustomPriceIsPercent(false);  // the same value, now a price
    level.PriceLevelsPerItem().Remove(1);
  };
  k.modRq = "<PriceLevelModRq requestID = \"1\"><PriceLevelMod>" + kModLead +
            "<Name>Wholesale</Name><IsActive>false</IsActive><PriceLevelPerItem><ItemRef><FullName>Nuts</FullName>"
            "</ItemRef><CustomPrice>-0000010.00000</CustomPrice></PriceLevelPerItem></PriceLevelMod></PriceLevelModRq>";
  k.rules = NameRuleCases();
  k.rules.push_back({"a price without an item",
                     [](ListRecord& r) { As<PriceLevel>(r).PriceLevelsPerItem().Add("", 3.0f); }, 2001, "Item 3",
                     "Invalid item specified"});
  return k;
}

std::vector<KindCase> Cases() { return {AccountCase(), StandardTermsCase(), DateDrivenTermsCase(), PriceLevelCase()}; }

class AccountTermsPriceLevelKinds : public ListsTest, public ::testing::WithParamInterface<KindCase> {
 protected:
  void TearDown() override {
    TheRefCache().Clear();
    ListsTest::TearDown();
  }
};

// Adds a record, reads QuickBooks' answer into it, changes it and sends the change: each request
// compared with the expected one (and checked against the schema by the processor).
TEST_P(AccountTermsPriceLevelKinds, WritesItsAddReadsTheAnswerAndWritesItsModify) {
  const KindCase& k = GetParam();
  // The parent account and the items are QuickBooks' already: asked for once, before the add.
  auto p = InstallProcessor();
  p->answer = [&](const std::string& rq) -> std::string {
    if (rq.find("<AccountQueryRq") != std::string::npos)
      return StatusResponse("AccountQueryRs", 0,
                            "<AccountRet><ListID>80000030-1</ListID><Name>Cash</Name><FullName>Cash</FullName>"
                            "<AccountType>Bank</AccountType></AccountRet>");
    if (rq.find("<ItemQueryRq") != std::string::npos)
      return StatusResponse("ItemQueryRs", 0,
                            "<ItemServiceRet><ListID>I1</ListID><FullName>Hardware:Bolts</FullName></ItemServiceRet>"
                            "<ItemServiceRet><ListID>I2</ListID><FullName>Nuts</FullName></ItemServiceRet>");
    const bool add = rq.find("AddRq") != std::string::npos;
    return StatusResponse(k.kind + (add ? "AddRs" : "ModRs"), 0, k.ret);
  };
  auto master = k.master();
  ListRecord& r = k.add(*master);
  ASSERT_EQ(master->Commit(), 1) << (r.Errors().Count() ? r.Errors()[1].Description() : "");
  EXPECT_NE(p->requests.back().find(k.addRq), std::string::npos) << p->requests.back();
  EXPECT_EQ(r.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(r.ListID(), "80000031-1712345678");
  EXPECT_EQ(r.EditSequence(), "1712345999");
  k.check(r);

  const std::size_t sent = p->requests.size();
  k.change(r);
  EXPECT_EQ(r.ObjectState(), zqObjectStateDirty);
  if (!k.refusal.empty()) {
    BrenvaleError refused = RaisedBy([&] { master->Commit(); });
    EXPECT_EQ(refused.Number(), ErrorNumber(1003));
    EXPECT_EQ(refused.Description(), k.refusal);
    EXPECT_EQ(refused.Source(), "Brenvale: " + k.kind);
    EXPECT_EQ(p->requests.size(), sent);
    return;
  }
  ASSERT_EQ(master->Commit(), 1);
  EXPECT_NE(p->requests.back().find(k.modRq), std::string::npos) << p->requests.back();
}

TEST_P(AccountTermsPriceLevelKinds, ValidatesEachRule) {
  for (const RuleCase& rule : GetParam().rules) {
    auto master = GetParam().master();
    // Without a connection, a parent must be held to be found.
    if (GetParam().kind == "Account") static_cast<Accounts&>(*master).Add("Cash", true, {}, qbBank);
    ListRecord& r = GetParam().add(*master);
    ASSERT_TRUE(r.Validate()) << r.Errors()[1].Description();
    ExpectRule(r, rule);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, AccountTermsPriceLevelKinds, ::testing::ValuesIn(Cases()),
                         [](const auto& param) { return param.param.kind; });

// --- accounts ---------------------------------------------------------------------------------------

std::string AccountRet(const std::string& name, const std::string& parent, const std::string& balance) {
  const std::string full = parent.empty() ? name : parent + ":" + name;
  return "<AccountRet><ListID>" + full + "</ListID><EditSequence>1</EditSequence><Name>" + name +
         "</Name><FullName>" + full + "</FullName>" +
         (parent.empty() ? "" : "<ParentRef><FullName>" + parent + "</FullName></ParentRef>") +
         "<AccountType>Expense</AccountType><Balance>" + balance + "</Balance></AccountRet>";
}

// The own balance plus every sub-account's beneath, to any depth, added exactly; from the record
// (in the master collection) or from any collection that holds the tree.
TEST_F(ListsTest, TheSubAccountSumAddsEveryLevelBeneath) {
  const std::string office = AccountRet("Office", "", "100.01");
  const std::string all = office + AccountRet("Rent", "Office", "10.00") +
                          AccountRet("Deposit", "Office:Rent", "5.00") +
                          AccountRet("Keys", "Office:Rent:Deposit", "0.03") + AccountRet("Phone", "Office", "-2.50") +
                          AccountRet("Travel", "", "40.00") + AccountRet("Taxi", "Travel", "7.00");
  auto p = InstallProcessor();
  p->answer = [&](const std::string& rq) {
    return StatusResponse("AccountQueryRs", 0, rq.find("<FullName>") != std::string::npos ? office : all);
  };
  Accounts& master = TheMasterCollections().Accounts();
  master.Clear();
  ASSERT_EQ(master.GetAll(), 7);
  EXPECT_EQ(master.Item("Office").SumSubAccountBalances(), Currency::FromUnits(1125400));
  EXPECT_EQ(master.Item("Office:Rent").SumSubAccountBalances(), Currency::FromUnits(150300));
  // No children: its own balance.
  EXPECT_EQ(master.Item("Office:Rent:Deposit:Keys").SumSubAccountBalances(), Currency::FromUnits(300));
  EXPECT_EQ(master.Item("Travel").SumSubAccountBalances(), Currency(47));

  Accounts query;  // not the master: it sums what it holds
  query.GetAll();
  EXPECT_EQ(query.SumSubAccountBalances(query.Item("Office")), Currency::FromUnits(1125400));
  // What the collection does not hold is not counted: the rent alone, read by its name.
  Accounts rent;
  rent.GetByFullName("Office");
  EXPECT_EQ(rent.SumSubAccountBalances(rent.Item("Office")), Currency::FromUnits(1000100));
  master.Clear();
}

// QuickBooks needs a type for every account: one without cannot be sent.
TEST_F(ListsTest, AnAccountWithoutATypeIsNotSent) {
  auto p = InstallProcessor();
  Accounts accounts(true);
  Account& untyped = accounts.Add("Misc");
  CurrentSession().commitRaises = false;
  EXPECT_EQ(accounts.Commit(), 0);
  EXPECT_TRUE(p->requests.empty());
  ASSERT_EQ(untyped.Errors().Count(), 1);
  EXPECT_EQ(untyped.Errors()[1].Number(), ErrorNumber(1007));
  EXPECT_EQ(untyped.Errors()[1].Field(), "AccountType");
}

// An edition outside the US takes the account's tax code; a US one never sees it.
TEST_F(ListsTest, AnAccountsTaxCodeIsWrittenOutsideTheUSOnly) {
  Account a;
  a.Name("Sales");
  a.AccountType(qbIncome);
  a.TaxCodeRef("G");
  auto body = [&](const std::string& country) {
    WriteContext context = WriteContext::OfSession(Form::Add);
    context.country = country;
    xmlBldr b;
    a.WriteBody(b, context);
    return b.GetXML();
  };
  EXPECT_EQ(body("US").find("SalesTaxCodeRef"), std::string::npos);
  EXPECT_NE(body("CA").find("<SalesTaxCodeRef><FullName>G</FullName></SalesTaxCodeRef>"), std::string::npos);
}

// --- terms ------------------------------------------------------------------------------------------

TEST(TermDates, StandardTermsCountDaysFromThePostDate) {
  StandardTerm net30;
  net30.StdDueDays(30);
  EXPECT_EQ(net30.CalculateDueDate(Date::Serial(2024, 1, 15)), Date::Serial(2024, 2, 14));
  EXPECT_EQ(net30.CalculateDueDate(Date::Serial(2023, 12, 15)), Date::Serial(2024, 1, 14));  // over a year's end
  EXPECT_TRUE(net30.CalculateDiscountDate(Date::Serial(2024, 1, 15)).IsNull());  // no discount days
  net30.StdDiscountDays(10);
  EXPECT_EQ(net30.CalculateDiscountDate(Date::Serial(2024, 1, 15)), Date::Serial(2024, 1, 25));
  EXPECT_TRUE(net30.CalculateDueDate(Date()).IsNull());
  // A post date with a time of day: whole days on.
  EXPECT_EQ(net30.CalculateDueDate(Date::FromParts(2024, 1, 15, 13, 30)).DateOnly(), Date::Serial(2024, 2, 14));
}

TEST(TermDates, DateDrivenTermsFallDueOnTheirDayOfTheMonth) {
  auto terms = [](int day, int nextMonthDays) {
    auto t = std::make_unique<DateDrivenTerm>();
    t->DayOfMonthDue(static_cast<Integer>(day));
    t->DueNextMonthDays(static_cast<Integer>(nextMonthDays));
    return t;
  };
  const std::vector<std::tuple<int, int, Date, Date>> cases = {
      {10, 5, Date::Serial(2024, 1, 8), Date::Serial(2024, 2, 10)},   // within five days: next month
      {10, 5, Date::Serial(2024, 1, 25), Date::Serial(2024, 2, 10)},  // past the day: next month
      {10, 5, Date::Serial(2024, 1, 3), Date::Serial(2024, 1, 10)},   // in time: this month
      {3, 5, Date::Serial(2024, 1, 31), Date::Serial(2024, 3, 3)},    // the second test moves it again
      {10, 5, Date::Serial(2024, 12, 28), Date::Serial(2025, 1, 10)},  // month 13 is January
      {31, 0, Date::Serial(2023, 2, 10), Date::Serial(2023, 3, 3)},    // 31 February rolls into March
      {10, 0, Date::Serial(2024, 1, 10), Date::Serial(2024, 1, 10)},   // due the day it is posted
  };
  for (const auto& [day, next, post, due] : cases) {
    SCOPED_TRACE(std::to_string(day) + "/" + std::to_string(next) + " posted " + std::to_string(post.Day()) + "." +
                 std::to_string(post.Month()));
    EXPECT_EQ(terms(day, next)->CalculateDueDate(post), due);
  }
  // The discount day by the same rule; none without a discount day.
  auto t = terms(10, 5);
  EXPECT_TRUE(t->CalculateDiscountDate(Date::Serial(2024, 1, 8)).IsNull());
  t->DiscountDayOfMonth(1);
  EXPECT_EQ(t->CalculateDiscountDate(Date::Serial(2024, 1, 8)), Date::Serial(2024, 2, 1));
  EXPECT_EQ(t->CalculateDiscountDate(Date::Serial(2023, 12, 20)), Date::Serial(2024, 1, 1));
  EXPECT_TRUE(t->CalculateDueDate(Date()).IsNull());
}

// Both kinds come from one terms query; an answer of another kind is left out and said.
TEST_F(ListsTest, TermsReadBothKindsFromOneQueryAndQueryOneKindByType) {
  auto p = InstallProcessor();
  p->answer = [](const std::string& rq) {
    if (rq.find("<StandardTermsQueryRq") != std::string::npos)
      return StatusResponse("StandardTermsQueryRs", 0,
                            "<StandardTermsRet><ListID>S1</ListID><Name>Net 30</Name><StdDueDays>30</StdDueDays>"
                            "</StandardTermsRet>");
    return StatusResponse(
        "TermsQueryRs", 0,
        "<StandardTermsRet><ListID>S1</ListID><Name>Net 30</Name><StdDueDays>30</StdDueDays></StandardTermsRet>"
        "<DateDrivenTermsRet><ListID>D1</ListID><Name>10th</Name><DayOfMonthDue>10</DayOfMonthDue>"
        "</DateDrivenTermsRet><LeasedTermsRet><ListID>X1</ListID><Name>Odd</Name></LeasedTermsRet>");
  };
  Terms terms;
  TraceCollector trace;
  EXPECT_EQ(terms.GetAll(), 2);
  EXPECT_NE(p->requests.back().find("<TermsQueryRq requestID = \"1\"></TermsQueryRq>"), std::string::npos);
  ASSERT_EQ(terms.Count(), 2);
  zkTerm& net30 = terms.Item("Net 30");
  EXPECT_FALSE(net30.IsDateDriven());
  EXPECT_EQ(net30.CalculateDueDate(Date::Serial(2024, 1, 15)), Date::Serial(2024, 2, 14));
  EXPECT_TRUE(terms["10th"].IsDateDriven());
  EXPECT_EQ(dynamic_cast<DateDrivenTerm&>(terms["10th"]).DayOfMonthDue(), 10);
  EXPECT_EQ(trace.seen, (std::vector<std::pair<std::string, std::string>>{{"Terms", "Unknown Term"}}));

  EXPECT_EQ(terms.GetByType(zqObjectTypeStandardTerms, 5), 1);
  EXPECT_NE(p->requests.back().find("<StandardTermsQueryRq requestID = \"1\"><MaxReturned>5</MaxReturned>"),
            std::string::npos);
  const std::size_t sent = p->requests.size();
  BrenvaleError bad = RaisedBy([&] { terms.GetByType(zqObjectTypeCustomer); });
  EXPECT_EQ(bad.Number(), ErrorNumber(1900));
  EXPECT_EQ(bad.Description(), "Bad type in GetByType");
  EXPECT_EQ(bad.Source(), "Terms");
  EXPECT_EQ(p->requests.size(), sent);
}

TEST_F(ListsTest, TermsAreAddedOfEitherKindOnly) {
  Terms master(true);
  EXPECT_FALSE(master.Add(zqObjectTypeStandardTerms, "Net 15").IsDateDriven());
  EXPECT_TRUE(master.Add(zqObjectTypeDateDrivenTerms, "15th").IsDateDriven());
  BrenvaleError bad = RaisedBy([&] { master.Add(zqObjectTypeTerms, "Either"); });
  EXPECT_EQ(bad.Number(), ErrorNumber(1900));
  EXPECT_EQ(bad.Description(), "Invalid terms type specified");
  EXPECT_EQ(master.Count(), 2);
  Terms query;
  EXPECT_EQ(RaisedBy([&] { query.Add<StandardTerm>("Net 60"); }).Number(), ErrorNumber(1021));
}

// --- price levels -----------------------------------------------------------------------------------

// A fixed percentage is the whole pricing part: per-item prices the level holds are not written.
TEST_F(ListsTest, AFixedPercentageLevelNeverWritesPerItemPrices) {
  PriceLevel level;
  level.Name("Retail plus");
  level.PriceLevelsPerItem().Add("Bolts", 2.0f);
  level.PriceLevelFixedPercentage(5.5);
  EXPECT_TRUE(level.IsFixedPercentage());
  const std::string fixed =
      "<Name>Retail plus</Name><IsActive>true</IsActive>"
      "<PriceLevelFixedPercentage>0000005.50000</PriceLevelFixedPercentage>";
  xmlBldr b;
  level.XMLInsert(b);
  EXPECT_EQ(b.GetXML(), fixed);
  // Named per item, the level writes its items and not the percentage.
  level.PriceLevelType("PerItem");
  xmlBldr perItem;
  level.XMLInsert(perItem);
  EXPECT_EQ(perItem.GetXML(),
            "<Name>Retail plus</Name><IsActive>true</IsActive><PriceLevelPerItem><ItemRef><FullName>Bolts"
            "</FullName></ItemRef><CustomPrice>0000002.00000</CustomPrice></PriceLevelPerItem>");
  level.PriceLevelType("FixedPercentage");
  xmlBldr named;
  level.XMLInsert(named);
  EXPECT_EQ(named.GetXML(), fixed);

  // Read: the fixed form from QuickBooks' answer.
  DomDocument doc = DomDocument::Load(
      "<PriceLevelRet><ListID>P1</ListID><Name>Staff</Name><PriceLevelType>FixedPercentage</PriceLevelType>"
      "<PriceLevelFixedPercentage>-15.0</PriceLevelFixedPercentage><CurrencyRef><FullName>US Dollar</FullName>"
      "</CurrencyRef></PriceLevelRet>");
  PriceLevel read;
  TraceCollector trace;
  read.FromDom(doc.DocumentElement());
  EXPECT_TRUE(read.IsFixedPercentage());
  EXPECT_DOUBLE_EQ(read.PriceLevelFixedPercentage(), -15.0);
  EXPECT_EQ(read.PriceLevelsPerItem().Count(), 0);
  EXPECT_EQ(trace.seen,
            (std::vector<std::pair<std::string, std::string>>{{"PriceLevel", "Unknown Field: CurrencyRef"}}));
}

// Percent or price: one element of the two, whichever was set last, keeping the value.
TEST(PerItemPrices, APercentageWritesCustomPricePercentAndNoCustomPrice) {
  PriceLevel level;
  levelPerItem& entry = level.PriceLevelsPerItem().Add();
  entry.Item("Nuts");
  entry.CustomPriceIsPercent(true);  // before the value: the value becomes a percentage
  entry.CustomPrice(12.5f);
  xmlBldr b;
  entry.WriteBody(b, WriteContext::OfSession(Form::Add));
  EXPECT_EQ(b.GetXML(), "<ItemRef><FullName>Nuts</FullName></ItemRef><CustomPricePercent>0000012.50000</CustomPricePercent>");
  entry.CustomPriceIsPercent(false);
  xmlBldr price;
  entry.WriteBody(price, WriteContext::OfSession(Form::Add));
  EXPECT_EQ(price.GetXML(), "<ItemRef><FullName>Nuts</FullName></ItemRef><CustomPrice>0000012.50000</CustomPrice>");
  EXPECT_FLOAT_EQ(entry.CustomPrice(), 12.5f);
}

// Items a level names are looked up with the batch, in one query: one QuickBooks does not have is
// refused before anything is sent.
TEST_F(ListsTest, APriceForAnUnknownItemIsRefusedBeforeTheLevelIsSent) {
  auto p = InstallProcessor();
  p->answer = [](const std::string& rq) {
    if (rq.find("<ItemQueryRq") != std::string::npos)
      return StatusResponse("ItemQueryRs", 500,
                            "<ItemServiceRet><ListID>I1</ListID><FullName>Bolts</FullName></ItemServiceRet>",
                            "A query request did not find a matching object in QuickBooks");
    return StatusResponse("PriceLevelAddRs", 0, "<PriceLevelRet><ListID>P1</ListID><Name>Trade</Name></PriceLevelRet>");
  };
  PriceLevels levels(true);
  PriceLevel& trade = levels.Add("Trade", true, "PerItem");
  trade.PriceLevelsPerItem().Add("Bolts", 1.0f);
  trade.PriceLevelsPerItem().Add("Sprockets", 2.0f);
  CurrentSession().commitRaises = false;
  EXPECT_EQ(levels.Commit(), 0);
  ASSERT_EQ(p->requests.size(), 1u);
  EXPECT_NE(p->requests[0].find("<FullName>Bolts</FullName><FullName>Sprockets</FullName>"), std::string::npos);
  ASSERT_EQ(trade.Errors().Count(), 1);
  EXPECT_EQ(trade.Errors()[1].Number(), ErrorNumber(2001));
  EXPECT_EQ(trade.Errors()[1].Field(), "Item 2");
  EXPECT_EQ(trade.ObjectState(), zqObjectStateNew);
  TheRefCache().Clear();
}

}  // namespace
}  // namespace brenvale::testing
