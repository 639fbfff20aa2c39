// Every simple list kind, driven from one table: the add request it writes, what it reads back from
// a Ret element, each validation rule, and the refusal of modify requests.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "brenvale/Brenvale.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "lists/ListsTestSupport.hpp"

namespace brenvale::testing {
namespace {

template <class T>
T& As(ListRecord& r) {
  return static_cast<T&>(r);
}

struct KindCase {
  std::string kind;
  std::function<std::unique_ptr<ListRecord>()> make;
  std::function<void(ListRecord&)> fill;   // a valid new record
  std::string add;                         // the add request it writes
  std::string ret;                         // children of a Ret element for it
  std::function<void(ListRecord&)> check;  // what must have been read from `ret`
  std::string label;                       // of errors and traces
  std::string refusal;                     // of modify requests; empty when modifiable
  std::vector<RuleCase> rules;
};

void PrintTo(const KindCase& k, std::ostream* os) { *os << k.kind; }

const std::string kCore =
    "<ListID>80000007-1712345678</ListID><TimeCreated>2024-03-01T10:00:00</TimeCreated>"
    "<TimeModified>2024-03-02T11:30:15</TimeModified><EditSequence>1712345999</EditSequence>";

void CheckCore(ListRecord& r) {
  EXPECT_EQ(r.ListID(), "80000007-1712345678");
  EXPECT_EQ(r.EditSequence(), "1712345999");
  EXPECT_EQ(r.TimeCreated(), Date::FromParts(2024, 3, 1, 10, 0, 0));
  EXPECT_EQ(r.TimeModified(), Date::FromParts(2024, 3, 2, 11, 30, 15));
}

void SetName(ListRecord& r, std::string name) { r.Name(std::move(name)); }

// Job types, vendor types, classes and customer types differ only in their names; the parent
// "Work" is held by the master collection of each, so the filled record is valid.
template <class T>
KindCase Hierarchical(const std::string& kind) {
  KindCase k;
  k.kind = kind;
  k.make = [] { return std::make_unique<T>(); };
  k.fill = [](ListRecord& r) {
    SetName(r, "Install");
    As<T>(r).Parent("Work");
  };
  k.add =
      "<" + kind + "AddRq requestID = \"1\"><" + kind +
      "Add><Name>Install</Name><IsActive>true</IsActive><ParentRef><FullName>Work</FullName></ParentRef></" +
      kind + "Add></" + kind + "AddRq>";
  k.ret = kCore +
          "<Name>Install</Name><FullName>Work:Install</FullName><IsActive>false</IsActive>"
          "<ParentRef><ListID>80000001-1</ListID><FullName>Work</FullName></ParentRef><Sublevel>1</Sublevel>";
  k.check = [](ListRecord& r) {
    auto& t = As<T>(r);
    EXPECT_EQ(t.Name(), "Install");
    EXPECT_EQ(t.FullName(), "Work:Install");
    EXPECT_EQ(t.CollectionKey(), "Work:Install");
    EXPECT_FALSE(t.IsActive());
    EXPECT_EQ(t.ParentRef().ListID(), "80000001-1");
    EXPECT_EQ(t.Parent(), "Work");
    EXPECT_EQ(t.Sublevel(), 1);
    EXPECT_TRUE(t.SupportsChildren());
  };
  k.label = kind;
  k.refusal = "XMLModify not allowed";
  k.rules = NameRuleCases();
  k.rules.push_back({"unknown parent", [](ListRecord& r) { As<T>(r).Parent("Nowhere"); }, 1010, "Parent",
                     "Invalid parent specified"});
  k.rules.push_back({"no parent", [](ListRecord& r) { As<T>(r).Parent(""); }});
  return k;
}

template <class T>
KindCase Flat(const std::string& kind, const std::string& xmlName, const std::string& refusal) {
  KindCase k;
  k.kind = kind;
  k.make = [] { return std::make_unique<T>(); };
  k.fill = [](ListRecord& r) { SetName(r, "Courier & Co"); };
  k.add = "<" + xmlName + "AddRq requestID = \"1\"><" + xmlName +
          "Add><Name>Courier &amp; Co</Name><IsActive>true</IsActive></" + xmlName + "Add></" + xmlName +
          "AddRq>";
  k.ret = kCore + "<Name>Courier &amp; Co</Name><IsActive>true</IsActive>";
  k.check = [](ListRecord& r) {
    EXPECT_EQ(r.Name(), "Courier & Co");
    EXPECT_EQ(r.CollectionKey(), "Courier & Co");
    EXPECT_TRUE(r.IsActive());
    EXPECT_FALSE(r.SupportsChildren());
  };
  k.label = kind;
  k.refusal = refusal;
  k.rules = NameRuleCases();
  return k;
}

std::vector<KindCase> Kinds() {
  std::vector<KindCase> kinds{Hierarchical<JobType>("JobType"),
                              Hierarchical<VendorType>("VendorType"),
                              Hierarchical<Class>("Class"),
                              Hierarchical<CustomerType>("CustomerType"),
                              Flat<ShipMethod>("ShipMethod", "ShipMethod", "Modify not allowed"),
                              Flat<PaymentMethod>("PaymentMethod", "PaymentMethod", "Modify not allowed")};

  KindCase msg = Flat<CustomerMessage>("CustomerMessage", "CustomerMsg", "Modify not allowed");
  msg.rules = {{"empty", [](ListRecord& r) { SetName(r, ""); }, 1012, "Name", "Name cannot be null"},
               {"101 characters", [](ListRecord& r) { SetName(r, std::string(101, 'm')); }},
               {"102 characters", [](ListRecord& r) { SetName(r, std::string(102, 'm')); }, 2400, "Name",
                "Message cannot exceed 101 characters"}};
  kinds.push_back(msg);

  KindCase stc;
  stc.kind = "SalesTaxCode";
  stc.make = [] { return std::make_unique<SalesTaxCode>(); };
  stc.fill = [](ListRecord& r) {
    SetName(r, "Tax");
    As<SalesTaxCode>(r).IsTaxable(true);
    As<SalesTaxCode>(r).Desc("Taxable sales");
  };
  stc.add =
      "<SalesTaxCodeAddRq requestID = \"1\"><SalesTaxCodeAdd><Name>Tax</Name><IsActive>true</IsActive>"
      "<IsTaxable>true</IsTaxable><Desc>Taxable sales</Desc></SalesTaxCodeAdd></SalesTaxCodeAddRq>";
  stc.ret =
      kCore + "<Name>Non</Name><IsActive>true</IsActive><IsTaxable>false</IsTaxable><Desc>Exempt</Desc>";
  stc.check = [](ListRecord& r) {
    EXPECT_EQ(r.Name(), "Non");
    EXPECT_FALSE(As<SalesTaxCode>(r).IsTaxable());
    EXPECT_EQ(As<SalesTaxCode>(r).Desc(), "Exempt");
  };
  stc.label = "SalesTaxCode";
  stc.refusal = "XMLModify not supported";
  stc.rules = {
      {"empty name", [](ListRecord& r) { SetName(r, ""); }, 1012, "Name", "Name cannot be null"},
      {"3 characters", [](ListRecord& r) { SetName(r, "Abc"); }},
      {"4 characters", [](ListRecord& r) { SetName(r, "Abcd"); }, 1400, "Name",
       "Sales tax code name cannot exceed 3 characters"},
      {"31-character description", [](ListRecord& r) { As<SalesTaxCode>(r).Desc(std::string(31, 'd')); }},
      {"32-character description", [](ListRecord& r) { As<SalesTaxCode>(r).Desc(std::string(32, 'd')); },
       1401, "Description", "Sales tax code description cannot exceed 31 characters"}};
  kinds.push_back(stc);

  KindCase tc;
  tc.kind = "TaxCode";
  tc.make = [] { return std::make_unique<TaxCode>(); };
  tc.fill = [](ListRecord& r) {
    SetName(r, "G");
    As<TaxCode>(r).Desc("GST");
  };
  tc.add =
      "<TaxCodeAddRq requestID = \"1\"><TaxCodeAdd><Name>G</Name><IsActive>true</IsActive><Desc>GST</Desc>"
      "</TaxCodeAdd></TaxCodeAddRq>";
  tc.ret =
      kCore +
      "<Name>S</Name><IsActive>true</IsActive><Desc>GST/PST</Desc><IsPiggybackRate>true</IsPiggybackRate>"
      "<Tax1Rate>5.00</Tax1Rate><Tax2Rate>7.5</Tax2Rate><IsTax1Exempt>false</IsTax1Exempt>"
      "<IsTax2Exempt>true</IsTax2Exempt>";
  tc.check = [](ListRecord& r) {
    auto& t = As<TaxCode>(r);
    EXPECT_EQ(t.Name(), "S");
    EXPECT_EQ(t.Desc(), "GST/PST");
    EXPECT_TRUE(t.IsPiggybackRate());
    EXPECT_DOUBLE_EQ(t.Tax1Rate(), 5.0);
    EXPECT_DOUBLE_EQ(t.Tax2Rate(), 7.5);
    EXPECT_FALSE(t.IsTax1Exempt());
    EXPECT_TRUE(t.IsTax2Exempt());
  };
  tc.label = "TaxCode";
  tc.refusal = "XMLModify not supported";
  tc.rules = {{"empty name", [](ListRecord& r) { SetName(r, ""); }, 1012, "Name", "Name cannot be null"},
              {"4 characters", [](ListRecord& r) { SetName(r, "GSTX"); }, 1400, "Name",
               "Sales tax code name cannot exceed 3 characters"},
              {"32-character description", [](ListRecord& r) { As<TaxCode>(r).Desc(std::string(32, 'd')); },
               1401, "Description", "Sales tax code description cannot exceed 31 characters"}};
  kinds.push_back(tc);

  KindCase rep;
  rep.kind = "SalesRep";
  rep.make = [] { return std::make_unique<SalesRep>(); };
  rep.fill = [](ListRecord& r) {
    As<SalesRep>(r).Initial("PL");
    As<SalesRep>(r).SalesRepEntityRef("Pat Lee");
  };
  rep.add =
      "<SalesRepAddRq requestID = \"1\"><SalesRepAdd><Initial>PL</Initial><IsActive>true</IsActive>"
      "<SalesRepEntityRef><FullName>Pat Lee</FullName></SalesRepEntityRef></SalesRepAdd></SalesRepAddRq>";
  rep.ret = kCore +
            "<Initial>JS</Initial><IsActive>true</IsActive><SalesRepEntityRef><ListID>80000002-1</ListID>"
            "<FullName>Jo Smith</FullName></SalesRepEntityRef>";
  rep.check = [](ListRecord& r) {
    auto& s = As<SalesRep>(r);
    EXPECT_EQ(s.Initial(), "JS");
    EXPECT_EQ(s.Name(), "JS");
    EXPECT_EQ(s.CollectionKey(), "JS");
    EXPECT_EQ(s.SalesRepEntityRef().FullName(), "Jo Smith");
    EXPECT_EQ(s.SalesRepEntityRef().ListID(), "80000002-1");
  };
  rep.label = "SalesRep";
  rep.refusal = "XMLModify not supported";
  rep.rules = {
      {"5 initials", [](ListRecord& r) { As<SalesRep>(r).Initial("ABCDE"); }},
      {"6 initials", [](ListRecord& r) { As<SalesRep>(r).Initial("ABCDEF"); }, 2200, "Initial",
       "Initials cannot exceed 5 characters"},
      {"no entity", [](ListRecord& r) { As<SalesRep>(r).SalesRepEntityRef(""); }, 2202, "SalesRepEntity",
       "SalesRep Name or ListID must be provided"},
      {"32-character entity", [](ListRecord& r) { As<SalesRep>(r).SalesRepEntityRef(std::string(32, 'e')); },
       2201, "SalesRepEntity:FullName", "SalesRepEntity FullName cannot exceed 31 characters"}};
  kinds.push_back(rep);

  KindCase todo;
  todo.kind = "ToDo";
  todo.make = [] { return std::make_unique<ToDo>(); };
  todo.fill = [](ListRecord& r) {
    As<ToDo>(r).Notes("Call the bank");
    As<ToDo>(r).IsDone(false);
    As<ToDo>(r).ReminderDate(Date::Serial(2024, 5, 6));
  };
  todo.add =
      "<ToDoAddRq requestID = \"1\"><ToDoAdd><Notes>Call the bank</Notes><IsActive>true</IsActive>"
      "<IsDone>false</IsDone><ReminderDate>2024-05-06</ReminderDate></ToDoAdd></ToDoAddRq>";
  todo.ret = kCore +
             "<Notes>Send the quote</Notes><IsActive>true</IsActive><Type>Task</Type><IsDone>true</IsDone>"
             "<ReminderDate>2024-06-30</ReminderDate>";
  todo.check = [](ListRecord& r) {
    auto& t = As<ToDo>(r);
    EXPECT_EQ(t.Notes(), "Send the quote");
    EXPECT_TRUE(t.IsDone());
    EXPECT_EQ(t.ReminderDate(), Date::Serial(2024, 6, 30));
    EXPECT_EQ(t.CollectionKey(), "80000007-1712345678");
  };
  todo.label = "ToDo";
  todo.rules = {
      {"no notes", [](ListRecord& r) { As<ToDo>(r).Notes(""); }, 2500, "Notes", "Notes cannot be null"},
      {"4095 characters", [](ListRecord& r) { As<ToDo>(r).Notes(std::string(4095, 't')); }},
      {"4096 characters", [](ListRecord& r) { As<ToDo>(r).Notes(std::string(4096, 't')); }, 2501, "Notes",
       "Notes cannot exceed 4095 characters"}};
  kinds.push_back(todo);

  KindCase wage;
  wage.kind = "PayrollItemWage";
  wage.make = [] { return std::make_unique<PayrollItemWage>(); };
  wage.fill = [](ListRecord& r) {
    SetName(r, "Regular Pay");
    As<PayrollItemWage>(r).WageType(qbWageTypeHourlyRegular);
    As<PayrollItemWage>(r).ExpenseAccountRef("Payroll Expenses:Wages");
  };
  wage.add =
      "<PayrollItemWageAddRq requestID = \"1\"><PayrollItemWageAdd><Name>Regular Pay</Name><IsActive>true"
      "</IsActive><WageType>HourlyRegular</WageType><ExpenseAccountRef><FullName>Payroll Expenses:Wages"
      "</FullName></ExpenseAccountRef></PayrollItemWageAdd></PayrollItemWageAddRq>";
  wage.ret = kCore +
             "<Name>Salary</Name><IsActive>true</IsActive><WageType>SalaryRegular</WageType>"
             "<ExpenseAccountRef><ListID>90000000-1</ListID><FullName>Payroll Expenses</FullName>"
             "</ExpenseAccountRef>";
  wage.check = [](ListRecord& r) {
    auto& w = As<PayrollItemWage>(r);
    EXPECT_EQ(w.Name(), "Salary");
    EXPECT_EQ(w.WageType(), qbWageTypeSalaryRegular);
    EXPECT_EQ(w.ExpenseAccountRef().FullName(), "Payroll Expenses");
    EXPECT_EQ(w.ExpenseAccountRef().ListID(), "90000000-1");
  };
  wage.label = "PayrollItemWage";
  wage.refusal = "XMLModify not allowed";
  wage.rules = {{"no expense account", [](ListRecord& r) { As<PayrollItemWage>(r).ExpenseAccountRef(""); },
                 2019, "ExpenseAccount", "Invalid account specified"}};
  kinds.push_back(wage);

  KindCase nonWage;
  nonWage.kind = "PayrollItemNonWage";
  nonWage.make = [] { return std::make_unique<PayrollItemNonWage>(); };
  nonWage.fill = [](ListRecord&) {};
  nonWage.add =
      "<PayrollItemNonWageAddRq requestID = \"1\"><PayrollItemNonWageAdd></PayrollItemNonWageAdd>"
      "</PayrollItemNonWageAddRq>";
  nonWage.ret = kCore +
                "<Name>Health</Name><IsActive>true</IsActive><NonWageType>CompanyContribution</NonWageType>"
                "<ExpenseAccountRef><FullName>Payroll Expenses</FullName></ExpenseAccountRef>"
                "<LiabilityAccountRef><FullName>Payroll Liabilities</FullName></LiabilityAccountRef>";
  nonWage.check = [](ListRecord& r) {
    auto& n = As<PayrollItemNonWage>(r);
    EXPECT_EQ(n.Name(), "Health");
    EXPECT_EQ(n.NonWageType(), qbNonWageTypeCompanyContribution);
    EXPECT_EQ(n.ExpenseAccountRef().FullName(), "Payroll Expenses");
    EXPECT_EQ(n.LiabilityAccountRef().FullName(), "Payroll Liabilities");
  };
  nonWage.label = "PayrollItemWage";
  nonWage.refusal = "XMLModify not allowed";
  kinds.push_back(nonWage);

  KindCase tpl;
  tpl.kind = "Template";
  tpl.make = [] { return std::make_unique<Template>(); };
  tpl.fill = [](ListRecord&) {};
  tpl.add = "<TemplateAddRq requestID = \"1\"><TemplateAdd></TemplateAdd></TemplateAddRq>";
  tpl.ret =
      kCore + "<Name>Service Invoice</Name><IsActive>true</IsActive><TemplateType>Invoice</TemplateType>";
  tpl.check = [](ListRecord& r) {
    EXPECT_EQ(r.Name(), "Service Invoice");
    EXPECT_EQ(As<Template>(r).TemplateType(), "Invoice");
  };
  tpl.label = "Template";
  tpl.refusal = "XMLModify not supported";
  kinds.push_back(tpl);
  return kinds;
}

class SimpleListKinds : public ListsTest, public ::testing::WithParamInterface<KindCase> {
 protected:
  void SetUp() override {
    ListsTest::SetUp();
    // The parent the hierarchical kinds name is held by each master collection.
    MasterCollections& c = TheMasterCollections();
    for (ListCollectionBase* m : std::initializer_list<ListCollectionBase*>{&c.JobTypes(), &c.VendorTypes(),
                                                                            &c.Classes(), &c.CustomerTypes()})
      m->Clear();
    c.JobTypes().Add("Work");
    c.VendorTypes().Add("Work");
    c.Classes().Add("Work");
    c.CustomerTypes().Add("Work");
  }

  std::unique_ptr<ListRecord> Filled() {
    auto r = GetParam().make();
    GetParam().fill(*r);
    return r;
  }
};

TEST_P(SimpleListKinds, WritesItsAddRequest) {
  auto r = Filled();
  xmlBldr b;
  b.InsertAddRq(*r, 1);
  EXPECT_EQ(b.GetXML(), GetParam().add);
  EXPECT_EQ(r->ObjectState(), zqObjectStateNew);
}

TEST_P(SimpleListKinds, ReadsItsRetElementAndReportsUnknownOnes) {
  const KindCase& k = GetParam();
  auto r = k.make();
  DomDocument doc =
      DomDocument::Load("<" + k.kind + "Ret>" + k.ret + "<Frobnicate>7</Frobnicate></" + k.kind + "Ret>");
  ASSERT_FALSE(doc.Empty());
  TraceCollector trace;
  r->FromDom(doc.DocumentElement());
  EXPECT_EQ(r->ObjectState(), zqObjectStateClean);
  CheckCore(*r);
  k.check(*r);
  std::vector<std::pair<std::string, std::string>> unknown{{k.label, "Unknown Field: Frobnicate"}};
  // To-dos carry elements of later qbXML versions that are not kept.
  if (k.kind == "ToDo") unknown.insert(unknown.begin(), {k.label, "Unknown Field: Type"});
  EXPECT_EQ(trace.seen, unknown);

  // A change makes the record Dirty; reading it again makes it Clean.
  r->IsActive(!r->IsActive());
  EXPECT_EQ(r->ObjectState(), zqObjectStateDirty);
  r->FromDom(doc.DocumentElement());
  EXPECT_EQ(r->ObjectState(), zqObjectStateClean);
}

TEST_P(SimpleListKinds, ValidatesEachRule) {
  auto valid = Filled();
  EXPECT_TRUE(valid->Validate()) << (valid->Errors().Count() ? valid->Errors()[1].Description() : "");
  for (const RuleCase& rule : GetParam().rules) ExpectRule(*Filled(), rule);
}

TEST_P(SimpleListKinds, RefusesModifyRequestsOrWritesThem) {
  const KindCase& k = GetParam();
  auto r = k.make();
  DomDocument doc = DomDocument::Load("<Ret>" + k.ret + "</Ret>");
  r->FromDom(doc.DocumentElement());
  r->IsActive(false);
  xmlBldr b;
  if (k.refusal.empty()) {
    b.InsertModRq(*r, 4);
    EXPECT_NE(b.GetXML().find("<ListID>80000007-1712345678</ListID><EditSequence>1712345999</EditSequence>"),
              std::string::npos);
    return;
  }
  BrenvaleError e = RaisedBy([&] { r->XMLModify(b); });
  EXPECT_EQ(e.Number(), ErrorNumber(1003));
  EXPECT_EQ(e.Description(), k.refusal);
  EXPECT_EQ(e.Source(), "Brenvale: " + k.label);
}

INSTANTIATE_TEST_SUITE_P(Lists, SimpleListKinds, ::testing::ValuesIn(Kinds()),
                         [](const auto& p) { return p.param.kind; });

// --- what only some kinds do ---------------------------------------------------------------------

using SimpleListRules = ListsTest;

TEST_F(SimpleListRules, ToDoModifyWritesTheModBodyInOrder) {
  ToDo t;
  DomDocument doc =
      DomDocument::Load("<ToDoRet>" + kCore + "<Notes>Old</Notes><IsActive>true</IsActive></ToDoRet>");
  t.FromDom(doc.DocumentElement());
  t.Notes("Call back & confirm");
  t.ReminderDate(Date::Serial(2024, 7, 1));
  EXPECT_EQ(t.ObjectState(), zqObjectStateDirty);
  xmlBldr b;
  b.InsertModRq(t, 2);
  EXPECT_EQ(
      b.GetXML(),
      "<ToDoModRq requestID = \"2\"><ToDoMod><ListID>80000007-1712345678</ListID>"
      "<EditSequence>1712345999</EditSequence><Notes>Call back &amp; confirm</Notes><IsActive>true</IsActive>"
      "<ReminderDate>2024-07-01</ReminderDate></ToDoMod></ToDoModRq>");
}

TEST_F(SimpleListRules, WageTypeRefusesUnknownCodes) {
  PayrollItemWage w;
  BrenvaleError e = RaisedBy([&] { w.WageType(static_cast<qbEnumWageType>(99)); });
  EXPECT_EQ(e.Number(), ErrorNumber(1007));
  EXPECT_EQ(w.WageType(), qbEnumWageType{});
}

// A wage type is read as QuickBooks writes it and with blanks; it is written as QuickBooks takes it.
TEST_F(SimpleListRules, WageTypeIsReadWithOrWithoutBlanksAndWrittenWithout) {
  for (const char* text : {"SalaryRegular", "Salary Regular"}) {
    PayrollItemWage w;
    w.FromDom(DomDocument::Load(std::string("<PayrollItemWageRet><Name>S</Name><WageType>") + text +
                                "</WageType></PayrollItemWageRet>")
                  .DocumentElement());
    EXPECT_EQ(w.WageType(), qbWageTypeSalaryRegular) << text;
    w.Name("T");
    w.ExpenseAccountRef("Wages");
    xmlBldr b;
    w.XMLInsert(b);
    EXPECT_NE(b.GetXML().find("<WageType>SalaryRegular</WageType>"), std::string::npos) << b.GetXML();
  }
}

TEST_F(SimpleListRules, CustomerMessageCollectionSpeaksAsCustomerMsg) {
  CustomerMessages notMaster(false);
  BrenvaleError e = RaisedBy([&] { notMaster.Add("Thanks"); });
  EXPECT_EQ(e.Number(), ErrorNumber(1021));
  EXPECT_EQ(e.Source(), "CustomerMsg");
  SalesReps reps(false);
  EXPECT_EQ(RaisedBy([&] { reps.GetActive(); }).Source(), "SalesRep");
}

// The entity of a sales rep is looked up in QuickBooks when a connection is open: an employee,
// vendor or other name is valid, anything else is not, and nothing found is reported as such.
TEST_F(SimpleListRules, SalesRepEntityIsLookedUpWhenConnected) {
  struct Case {
    int status;
    std::string ret;
    int code;
  };
  const std::vector<Case> cases{{0, "<VendorRet><ListID>1</ListID></VendorRet>", 0},
                                {0, "<EmployeeRet><ListID>1</ListID></EmployeeRet>", 0},
                                {0, "<OtherNameRet><ListID>1</ListID></OtherNameRet>", 0},
                                {0, "<CustomerRet><ListID>1</ListID></CustomerRet>", 2203},
                                {500, "", 2204}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.ret);
    auto p = InstallProcessor(StatusResponse("EntityQueryRs", c.status, c.ret));
    SalesRep rep;
    rep.Initial("PL");
    rep.SalesRepEntityRef("Pat & Lee");
    EXPECT_EQ(rep.Validate(), c.code == 0);
    ASSERT_EQ(p->requests.size(), 1u);
    EXPECT_NE(p->requests[0].find(
                  "<EntityQueryRq requestID = \"1\"><FullName>Pat &amp; Lee</FullName></EntityQueryRq>"),
              std::string::npos)
        << p->requests[0];
    if (c.code) {
      ASSERT_EQ(rep.Errors().Count(), 1);
      EXPECT_EQ(rep.Errors()[1].Number(), ErrorNumber(c.code));
      EXPECT_EQ(rep.Errors()[1].Field(), "SalesRepEntity");
    }
  }
  // An entity that already failed a rule is not looked up.
  auto p = InstallProcessor();
  SalesRep rep;
  rep.SalesRepEntityRef(std::string(40, 'x'));
  EXPECT_FALSE(rep.Validate());
  EXPECT_TRUE(p->requests.empty());
}

TEST_F(SimpleListRules, WageExpenseAccountIsLookedUpWhenConnected) {
  auto p =
      InstallProcessor(StatusResponse("AccountQueryRs", 0, "<AccountRet><ListID>1</ListID></AccountRet>"));
  PayrollItemWage w;
  w.Name("Overtime");
  w.ExpenseAccountRef("Payroll Expenses");
  EXPECT_TRUE(w.Validate());
  ASSERT_EQ(p->requests.size(), 1u);
  EXPECT_NE(p->requests[0].find("<AccountQueryRq requestID = \"1\"><FullName>Payroll Expenses</FullName>"),
            std::string::npos);
  p = InstallProcessor(StatusResponse("AccountQueryRs", 500, "", "none"));
  EXPECT_FALSE(w.Validate());
  ASSERT_EQ(w.Errors().Count(), 1);
  EXPECT_EQ(w.Errors()[1].Number(), ErrorNumber(2019));
}

}  // namespace
}  // namespace brenvale::testing
