// The name lists (customers, vendors, employees, other names) driven from one table: the add request
// each writes with every field set, checked against the schema and against what a US company's
// desktop QuickBooks 13.0 takes; what each reads back from a Ret element; the modify request after a
// change; and each validation rule in its order. Then what differs by edition and version.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "brenvale/Brenvale.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "lists/ListsTestSupport.hpp"
#include "support/QbxmlSchema.hpp"

namespace brenvale::testing {
namespace {

template <class T>
T& As(Entity& r) {
  return static_cast<T&>(r);
}

// One broken field and what Validate must say about it (code 0: the record must still pass).
struct RuleCase {
  std::string what;
  std::function<void(Entity&)> change;
  int code = 0;
  std::string field;
  std::string message;
};

struct NameKindCase {
  std::string kind;
  std::function<std::unique_ptr<Entity>()> make;
  std::function<void(Entity&)> fill;    // every field a US desktop takes, and some it does not
  std::string add;                      // the body of the add request
  std::string ret;                      // the children of a Ret element
  std::function<void(Entity&)> check;   // what must have been read from `ret`
  std::function<void(Entity&)> change;  // a change to the record read
  std::string mod;                      // the body of the modify request after it
  std::vector<std::string> skipped;     // the elements of `ret` the kind does not read
  std::vector<RuleCase> rules;          // in the order Validate reports them
};

void PrintTo(const NameKindCase& k, std::ostream* os) { *os << k.kind; }

const std::string kCore =
    "<ListID>80000011-1712345678</ListID><TimeCreated>2024-03-01T10:00:00</TimeCreated>"
    "<TimeModified>2024-03-02T11:30:15</TimeModified><EditSequence>1712345999</EditSequence>";
const std::string kModLead = "<ListID>80000011-1712345678</ListID><EditSequence>1712345999</EditSequence>";

std::string Ref(const std::string& tag, const std::string& name) {
  return "<" + tag + "><FullName>" + name + "</FullName></" + tag + ">";
}
std::string RetRef(const std::string& tag, const std::string& id, const std::string& name) {
  return "<" + tag + "><ListID>" + id + "</ListID><FullName>" + name + "</FullName></" + tag + ">";
}

// The rules the name lists share on names and ways of reaching them.
RuleCase Over(std::string what, std::function<void(Entity&, std::string)> set, std::size_t limit, int code,
              std::string field) {
  return {what + " over " + std::to_string(limit), [set, limit](Entity& r) { set(r, std::string(limit + 1, 'x')); },
          code, field};
}
// An address part over its limit, as a response could bring it (the setters refuse one).
void Overfill(Address& a, std::string_view tag, std::size_t length) {
  a.SetFromText(a.Decl().FindTag(tag), std::string(length, '9'));
}

RuleCase AtLimit(std::string what, std::function<void(Entity&, std::string)> set, std::size_t limit) {
  return {what + " at " + std::to_string(limit), [set, limit](Entity& r) { set(r, std::string(limit, 'x')); }};
}

// --- customers --------------------------------------------------------------------------------------

NameKindCase Customers() {
  NameKindCase k;
  k.kind = "Customer";
  k.make = [] { return std::make_unique<Customer>(); };
  k.fill = [](Entity& r) {
    auto& c = As<Customer>(r);
    c.Name("Acme Supply");
    c.CompanyName("Acme Supply Co");
    c.Salutation("Ms.");
    c.FirstName("Ann");
    c.MiddleName("B");
    c.LastName("Lee");
    c.Suffix("Jr.");  // the online edition's
    c.BillAddress().Line1("1 Main St");
    c.BillAddress().City("Boston");
    c.BillAddress().State("MA");
    c.BillAddress().PostalCode("02108");
    c.BillAddress().Country("USA");
    c.ShipAddress().Line1("9 Dock Rd");
    c.ShipAddress().Line5("Gate 4");
    c.Phone("555-0100");
    c.Mobile("555-0101");  // the online edition's
    c.Pager("555-0109");   // the online edition's
    c.AltPhone("555-0102");
    c.Email("ann@acme.example");
    c.Contact("Ann Lee");
    c.AltContact("Bo Lee");
    c.CustomerTypeRef("Retail");
    c.TermsRef("Net 30");
    c.SalesRepRef("AL");
    c.OpenBalance(Currency::FromUnits(12505000));
    c.OpenBalanceDate(Date::Serial(2024, 1, 31));
    c.TaxCodeRef("S");  // editions outside the US
    c.SalesTaxCodeRef("Tax");
    c.ItemSalesTaxRef("State Tax");
    c.ResaleNumber("R-1");
    c.AccountNumber("A-9");
    c.CreditLimit(Currency(5000));
    c.PreferredPaymentMethodRef("Check");
    c.CreditCardInfo().CreditCardNumber("4111111111111111");
    c.CreditCardInfo().ExpirationMonth(12);
    c.CreditCardInfo().ExpirationYear(2027);
    c.CreditCardInfo().NameOnCard("Ann Lee");
    c.JobStatus(qbJobStatusPending);
    c.JobStartDate(Date::Serial(2024, 2, 1));
    c.JobProjectedEndDate(Date::Serial(2024, 3, 1));
    c.JobEndDate(Date::Serial(2024, 3, 15));
    c.JobDesc("Roof");
    c.JobTypeRef("Repair");
    c.Notes("Call first");
    c.IsStatementWithParent(true);             // the online edition's
    c.DeliveryMethod(qbDeliveryMethodEmail);   // the online edition's
    c.IsUsingCustomerTaxCode(true);            // editions outside the US
    c.PriceLevelRef("Wholesale");
    c.CurrencyRef("US Dollar");
  };
  k.add =
      "<Name>Acme Supply</Name><IsActive>true</IsActive><CompanyName>Acme Supply Co</CompanyName>"
      "<Salutation>Ms.</Salutation><FirstName>Ann</FirstName><MiddleName>B</MiddleName><LastName>Lee</LastName>"
      "<BillAddress><Addr1>1 Main St</Addr1><City>Boston</City><State>MA</State><PostalCode>02108</PostalCode>"
      "<Country>USA</Country></BillAddress><ShipAddress><Addr1>9 Dock Rd</Addr1><Addr5>Gate 4</Addr5></ShipAddress>"
      "<Phone>555-0100</Phone><AltPhone>555-0102</AltPhone><Email>ann&#64;acme.example</Email><Contact>Ann Lee</Contact>"
      "<AltContact>Bo Lee</AltContact>" +
      Ref("CustomerTypeRef", "Retail") + Ref("TermsRef", "Net 30") + Ref("SalesRepRef", "AL") +
      "<OpenBalance>1250.50</OpenBalance><OpenBalanceDate>2024-01-31</OpenBalanceDate>" +
      Ref("SalesTaxCodeRef", "Tax") + Ref("ItemSalesTaxRef", "State Tax") +
      "<ResaleNumber>R-1</ResaleNumber><AccountNumber>A-9</AccountNumber><CreditLimit>5000.00</CreditLimit>" +
      Ref("PreferredPaymentMethodRef", "Check") +
      "<CreditCardInfo><CreditCardNumber>4111111111111111</CreditCardNumber><ExpirationMonth>12</ExpirationMonth>"
      "<ExpirationYear>2027</ExpirationYear><NameOnCard>Ann Lee</NameOnCard></CreditCardInfo>"
      "<JobStatus>Pending</JobStatus><JobStartDate>2024-02-01</JobStartDate>"
      "<JobProjectedEndDate>2024-03-01</JobProjectedEndDate><JobEndDate>2024-03-15</JobEndDate><JobDesc>Roof</JobDesc>" +
      Ref("JobTypeRef", "Repair") + "<Notes>Call first</Notes>" + Ref("PriceLevelRef", "Wholesale") +
      Ref("CurrencyRef", "US Dollar");
  k.ret = kCore +
          "<Name>Roofs</Name><FullName>Acme Supply:Roofs</FullName><IsActive>true</IsActive>" +
          RetRef("ParentRef", "80000010-1", "Acme Supply") +
          "<Sublevel>1</Sublevel><CompanyName>Acme Supply Co</CompanyName><FirstName>Ann</FirstName>"
          "<LastName>Lee</LastName><JobTitle>Owner</JobTitle>"
          "<BillAddress><Addr1>1 Main St</Addr1><City>Boston</City><State>MA</State><Note>Side door</Note></BillAddress>"
          "<BillAddressBlock><Addr1>1 Main St</Addr1><Addr2>Boston MA</Addr2></BillAddressBlock>"
          "<ShipAddress><Addr1>9 Dock Rd</Addr1></ShipAddress><PrintAs>A. Lee</PrintAs><Phone>555-0100</Phone>"
          "<Fax>555-0199</Fax><Email>ann@acme.example</Email>" +
          RetRef("TermsRef", "20000-1", "Net 30") +
          "<Balance>120.00</Balance><TotalBalance>320.50</TotalBalance>" + RetRef("SalesTaxCodeRef", "1-1", "Tax") +
          "<CreditLimit>5000.00</CreditLimit><CreditCardInfo><CreditCardNumber>xxxx1111</CreditCardNumber>"
          "<ExpirationMonth>12</ExpirationMonth></CreditCardInfo><JobStatus>InProgress</JobStatus>"
          "<JobStartDate>2024-02-01</JobStartDate><JobDesc>Roof</JobDesc><Notes>Call first</Notes>" +
          RetRef("CurrencyRef", "30-1", "US Dollar");
  k.skipped = {"JobTitle", "Fax"};
  k.check = [](Entity& r) {
    auto& c = As<Customer>(r);
    EXPECT_EQ(c.FullName(), "Acme Supply:Roofs");
    EXPECT_EQ(c.CollectionKey(), "Acme Supply:Roofs");
    EXPECT_EQ(c.Parent(), "Acme Supply");
    EXPECT_EQ(c.ParentRef().ListID(), "80000010-1");
    EXPECT_EQ(c.Sublevel(), 1);
    EXPECT_EQ(c.CompanyName(), "Acme Supply Co");
    EXPECT_EQ(c.BillAddress().City(), "Boston");
    EXPECT_EQ(c.BillAddress().Note(), "Side door");
    EXPECT_EQ(c.BillAddressBlock().Line2(), "Boston MA");
    EXPECT_EQ(c.ShipAddress().Line1(), "9 Dock Rd");
    EXPECT_EQ(c.PrintAs(), "A. Lee");
    EXPECT_EQ(c.TermsRef().ListID(), "20000-1");
    EXPECT_EQ(c.Balance(), Currency(120));
    EXPECT_EQ(c.TotalBalance(), Currency::FromUnits(3205000));
    EXPECT_EQ(c.SalesTaxCodeRef().FullName(), "Tax");
    EXPECT_EQ(c.CreditCardInfo().CreditCardNumber(), "xxxx1111");
    EXPECT_EQ(c.CreditCardInfo().ExpirationMonth(), 12);
    EXPECT_EQ(c.JobStatus(), qbJobStatusInProgress);
    EXPECT_EQ(c.JobStartDate(), Date::Serial(2024, 2, 1));
    EXPECT_EQ(c.CurrencyRef().FullName(), "US Dollar");
  };
  // A job's modify request never carries its parent; read-only fields never go back.
  k.change = [](Entity& r) {
    auto& c = As<Customer>(r);
    c.Parent("Other Customer");
    c.Email("ann@roofs.example");
    c.ShipAddress().City("Quincy");
  };
  k.mod = kModLead +
          "<Name>Roofs</Name><IsActive>true</IsActive><CompanyName>Acme Supply Co</CompanyName>"
          "<FirstName>Ann</FirstName><LastName>Lee</LastName><BillAddress><Addr1>1 Main St</Addr1><City>Boston</City>"
          "<State>MA</State></BillAddress><ShipAddress><Addr1>9 Dock Rd</Addr1><City>Quincy</City></ShipAddress>"
          "<Phone>555-0100</Phone><Email>ann&#64;roofs.example</Email>" +
          Ref("TermsRef", "Net 30") + Ref("SalesTaxCodeRef", "Tax") +
          "<CreditLimit>5000.00</CreditLimit><CreditCardInfo><CreditCardNumber>xxxx1111</CreditCardNumber>"
          "<ExpirationMonth>12</ExpirationMonth></CreditCardInfo><JobStatus>InProgress</JobStatus>"
          "<JobStartDate>2024-02-01</JobStartDate><JobDesc>Roof</JobDesc><Notes>Call first</Notes>";
  auto name = [](Entity& r, std::string v) { r.Name(v); };
  auto company = [](Entity& r, std::string v) { As<Customer>(r).CompanyName(v); };
  auto contact = [](Entity& r, std::string v) { As<Customer>(r).Contact(v); };
  k.rules = {
      {"empty name", [](Entity& r) { r.Name(""); }, 1012, "Name", "Name cannot be null"},
      AtLimit("name", name, 41),
      {"name over 41", [](Entity& r) { r.Name(std::string(42, 'n')); }, 1500, "Name",
       "Customer/Company name cannot exceed 41 characters"},
      Over("company name", company, 41, 1500, "Company Name"),
      Over("salutation", [](Entity& r, std::string v) { r.Salutation(v); }, 15, 1501, "Salutation"),
      Over("first name", [](Entity& r, std::string v) { r.FirstName(v); }, 25, 1502, "First Name"),
      Over("middle name", [](Entity& r, std::string v) { r.MiddleName(v); }, 5, 1503, "Middle Name"),
      Over("last name", [](Entity& r, std::string v) { r.LastName(v); }, 25, 1502, "Last Name"),
      Over("phone", [](Entity& r, std::string v) { r.Phone(v); }, 21, 1504, "Phone"),
      {"bill-to city at 31", [](Entity& r) { As<Customer>(r).BillAddress().City(std::string(31, 'c')); }},
      {"bill-to city over 31", [](Entity& r) { Overfill(As<Customer>(r).BillAddress(), "City", 32); }, 1202,
       "Bill To", "Address city cannot exceed 31 characters."},
      {"ship-to line over 41", [](Entity& r) { Overfill(As<Customer>(r).ShipAddress(), "Addr5", 42); }, 1202,
       "Ship To", "Address lines cannot exceed 41 characters."},
      Over("alt phone", [](Entity& r, std::string v) { r.AltPhone(v); }, 21, 1504, "Alt Phone"),
      Over("email", [](Entity& r, std::string v) { r.Email(v); }, 99, 1505, "Email"),
      Over("contact", contact, 41, 1500, "Contact"),
      Over("alt contact", [](Entity& r, std::string v) { As<Customer>(r).AltContact(v); }, 41, 1500, "Alt Contact"),
      Over("resale number", [](Entity& r, std::string v) { As<Customer>(r).ResaleNumber(v); }, 15, 1506,
           "Resale Number"),
      Over("account number", [](Entity& r, std::string v) { r.AccountNumber(v); }, 99, 1507, "Account Number"),
      // The job description's entry carries the account number's label.
      {"job description over 99", [](Entity& r) { As<Customer>(r).JobDesc(std::string(100, 'j')); }, 1508,
       "Account Number", "Job description cannot exceed 99 characters"},
      Over("notes", [](Entity& r, std::string v) { As<Customer>(r).Notes(v); }, 4095, 1703, "Notes"),
  };
  return k;
}

// --- vendors ----------------------------------------------------------------------------------------

NameKindCase Vendors() {
  NameKindCase k;
  k.kind = "Vendor";
  k.make = [] { return std::make_unique<Vendor>(); };
  k.fill = [](Entity& r) {
    auto& v = As<Vendor>(r);
    v.Name("Paper Mill");
    v.IsActive(false);
    v.CompanyName("Paper Mill Inc");
    v.Salutation("Mr.");
    v.FirstName("Ed");
    v.MiddleName("K");
    v.LastName("Fox");
    v.VendorAddress().Line1("4 Mill Rd");
    v.VendorAddress().City("Lowell");
    v.Phone("555-0200");
    v.AltPhone("555-0201");
    v.Email("ed@mill.example");
    v.Contact("Ed Fox");
    v.AltContact("Al Fox");
    v.NameOnCheck("Paper Mill Incorporated");
    v.AccountNumber("V-100");
    v.Notes("Net 15 in practice");
    v.CreditLimit(Currency(2500));
    v.VendorTaxIdent("12-3456789");
    v.IsVendorEligibleFor1099(true);
    v.OpenBalance(Currency(300));
    v.OpenBalanceDate(Date::Serial(2024, 1, 1));
    v.CurrencyRef("US Dollar");
  };
  k.add =
      "<Name>Paper Mill</Name><IsActive>false</IsActive><CompanyName>Paper Mill Inc</CompanyName>"
      "<Salutation>Mr.</Salutation><FirstName>Ed</FirstName><MiddleName>K</MiddleName><LastName>Fox</LastName>"
      "<VendorAddress><Addr1>4 Mill Rd</Addr1><City>Lowell</City></VendorAddress><Phone>555-0200</Phone>"
      "<AltPhone>555-0201</AltPhone><Email>ed&#64;mill.example</Email><Contact>Ed Fox</Contact><AltContact>Al Fox</AltContact>"
      "<NameOnCheck>Paper Mill Incorporated</NameOnCheck><AccountNumber>V-100</AccountNumber>"
      "<Notes>Net 15 in practice</Notes><CreditLimit>2500.00</CreditLimit><VendorTaxIdent>12-3456789</VendorTaxIdent>"
      "<IsVendorEligibleFor1099>true</IsVendorEligibleFor1099><OpenBalance>300.00</OpenBalance>"
      "<OpenBalanceDate>2024-01-01</OpenBalanceDate>" +
      Ref("CurrencyRef", "US Dollar");
  k.ret = kCore +
          "<Name>Paper Mill</Name><IsActive>true</IsActive><CompanyName>Paper Mill Inc</CompanyName>"
          "<FirstName>Ed</FirstName><Suffix>Sr.</Suffix><VendorAddress><Addr1>4 Mill Rd</Addr1></VendorAddress>"
          "<VendorAddressBlock><Addr1>4 Mill Rd</Addr1></VendorAddressBlock><Phone>555-0200</Phone>"
          "<Mobile>555-0203</Mobile><NameOnCheck>Paper Mill Incorporated</NameOnCheck>" +
          RetRef("VendorTypeRef", "40-1", "Supplies") + RetRef("TermsRef", "20-1", "Net 30") +
          "<CreditLimit>2500.00</CreditLimit><VendorTaxIdent>12-3456789</VendorTaxIdent>"
          "<IsVendorEligibleFor1099>true</IsVendorEligibleFor1099><Balance>75.25</Balance>";
  k.skipped = {"VendorAddressBlock"};
  k.check = [](Entity& r) {
    auto& v = As<Vendor>(r);
    EXPECT_EQ(v.FullName(), "Paper Mill");
    EXPECT_EQ(v.CollectionKey(), "Paper Mill");
    EXPECT_EQ(v.Suffix(), "Sr.");
    EXPECT_EQ(v.Mobile(), "555-0203");
    EXPECT_EQ(v.VendorAddress().Line1(), "4 Mill Rd");
    EXPECT_EQ(v.VendorTypeRef().FullName(), "Supplies");
    EXPECT_EQ(v.TermsRef().ListID(), "20-1");
    EXPECT_TRUE(v.IsVendorEligibleFor1099());
    EXPECT_EQ(v.Balance(), Currency::FromUnits(752500));
  };
  k.change = [](Entity& r) { As<Vendor>(r).NameOnCheck("P. Mill"); };
  // No opening balance, no currency, no type, terms or balance: the add body up to the 1099 flag.
  k.mod = kModLead +
          "<Name>Paper Mill</Name><IsActive>true</IsActive><CompanyName>Paper Mill Inc</CompanyName>"
          "<FirstName>Ed</FirstName><VendorAddress><Addr1>4 Mill Rd</Addr1></VendorAddress><Phone>555-0200</Phone>"
          "<NameOnCheck>P. Mill</NameOnCheck><CreditLimit>2500.00</CreditLimit><VendorTaxIdent>12-3456789</VendorTaxIdent>"
          "<IsVendorEligibleFor1099>true</IsVendorEligibleFor1099>";
  auto name = [](Entity& r, std::string v) { r.Name(v); };
  k.rules = {
      {"empty name", [](Entity& r) { r.Name(""); }, 1012, "Name", "Name cannot be null"},
      AtLimit("name", name, 31),
      {"name over 31", [](Entity& r) { r.Name(std::string(32, 'n')); }, 1013, "Name",
       "Name cannot exceed 31 characters"},
      {"company over 41", [](Entity& r) { As<Vendor>(r).CompanyName(std::string(42, 'c')); }, 1700, "Company Name",
       "Vendor/Company name cannot exceed 41 characters"},
      Over("salutation", [](Entity& r, std::string v) { r.Salutation(v); }, 15, 1501, "Salutation"),
      Over("first name", [](Entity& r, std::string v) { r.FirstName(v); }, 25, 1502, "First Name"),
      Over("middle name", [](Entity& r, std::string v) { r.MiddleName(v); }, 5, 1503, "Middle Name"),
      Over("last name", [](Entity& r, std::string v) { r.LastName(v); }, 25, 1502, "Last Name"),
      {"address state over 21", [](Entity& r) { Overfill(As<Vendor>(r).VendorAddress(), "State", 22); }, 1202,
       "Address", "Address state cannot exceed 21 characters."},
      Over("phone", [](Entity& r, std::string v) { r.Phone(v); }, 21, 1504, "Phone"),
      Over("alt phone", [](Entity& r, std::string v) { r.AltPhone(v); }, 21, 1504, "Alt Phone"),
      Over("email", [](Entity& r, std::string v) { r.Email(v); }, 99, 1505, "Email"),
      {"contact over 41", [](Entity& r) { As<Vendor>(r).Contact(std::string(42, 'c')); }, 1701, "Contact",
       "Contact names cannot exceed 41 characters"},
      Over("alt contact", [](Entity& r, std::string v) { As<Vendor>(r).AltContact(v); }, 41, 1701, "Alt Contact"),
      {"name on check over 41", [](Entity& r) { As<Vendor>(r).NameOnCheck(std::string(42, 'c')); }, 1702,
       "Name On Check", "Names on Checks cannot exceed 41 characters"},
      Over("account number", [](Entity& r, std::string v) { r.AccountNumber(v); }, 99, 1507, "Account Number"),
      {"tax id over 15", [](Entity& r) { As<Vendor>(r).VendorTaxIdent(std::string(16, '1')); }, 1706, "Tax ID",
       "Vendor TaxID cannot exceed 15 characters"},
      Over("notes", [](Entity& r, std::string v) { As<Vendor>(r).Notes(v); }, 4095, 1703, "Notes"),
      {"1099 without a tax id", [](Entity& r) { As<Vendor>(r).VendorTaxIdent(""); }, 1707, "Eligible For 1099",
       "If EligibleFor1099 is True, Vendor Address and TaxID is required"},
  };
  return k;
}

// --- employees --------------------------------------------------------------------------------------

NameKindCase Employees() {
  NameKindCase k;
  k.kind = "Employee";
  k.make = [] { return std::make_unique<Employee>(); };
  k.fill = [](Entity& r) {
    auto& e = As<Employee>(r);
    e.Name("Kim Park");  // the online edition's: a desktop makes it of the names
    e.Salutation("Dr.");
    e.FirstName("Kim");
    e.MiddleName("J");
    e.LastName("Park");
    e.Suffix("III");  // the online edition's
    e.EmployeeAddress().Line1("7 Elm St");
    e.EmployeeAddress().Line3("Flat 2");  // not a desktop's
    e.EmployeeAddress().City("Salem");
    e.EmployeeAddress().State("OR");
    e.EmployeeAddress().PostalCode("97301");
    e.EmployeeAddress().Country("USA");  // not a desktop's
    e.PrintAs("K. Park");
    e.Phone("555-0300");
    e.Mobile("555-0301");
    e.Pager("555-0302");
    e.PagerPIN("1234");
    e.AltPhone("555-0303");
    e.SSN("123-45-6789");
    e.Email("kim@example.com");
    e.EmployeeType(qbEmployeeTypeRegular);
    e.Gender(qbGenderFemale);
    e.HiredDate(Date::Serial(2020, 5, 4));
    e.BirthDate(Date::Serial(1990, 7, 8));
    e.AccountNumber("E-7");
    e.Notes("Prefers email");
    e.EmployeePayrollInfo().PayPeriod(qbPayFrequencyBiweekly);
    e.EmployeePayrollInfo().IsUsingTimeDataToCreatePaychecks(true);
    e.EmployeePayrollInfo().SickHours().HoursAvailable("PT40H0M");
    e.EmployeePayrollInfo().SickHours().AccrualPeriod(qbAccrualPeriodEveryPaycheck);
    e.EmployeePayrollInfo().VacationHours().MaximumHours("PT80H0M");
    e.EmployeePayrollInfo().VacationHours().IsResettingHoursEachNewYear(false);
  };
  k.add =
      "<IsActive>true</IsActive><Salutation>Dr.</Salutation><FirstName>Kim</FirstName><MiddleName>J</MiddleName>"
      "<LastName>Park</LastName><EmployeeAddress><Addr1>7 Elm St</Addr1><City>Salem</City><State>OR</State>"
      "<PostalCode>97301</PostalCode></EmployeeAddress><PrintAs>K. Park</PrintAs><Phone>555-0300</Phone>"
      "<Mobile>555-0301</Mobile><Pager>555-0302</Pager><PagerPIN>1234</PagerPIN><AltPhone>555-0303</AltPhone>"
      "<SSN>123-45-6789</SSN><Email>kim&#64;example.com</Email><EmployeeType>Regular</EmployeeType><Gender>Female</Gender>"
      "<HiredDate>2020-05-04</HiredDate><BirthDate>1990-07-08</BirthDate><AccountNumber>E-7</AccountNumber>"
      "<Notes>Prefers email</Notes><EmployeePayrollInfo><PayPeriod>Biweekly</PayPeriod>"
      "<UseTimeDataToCreatePaychecks>UseTimeData</UseTimeDataToCreatePaychecks><SickHours>"
      "<HoursAvailable>PT40H0M</HoursAvailable><AccrualPeriod>EveryPaycheck</AccrualPeriod></SickHours>"
      "<VacationHours><MaximumHours>PT80H0M</MaximumHours><IsResettingHoursEachNewYear>false"
      "</IsResettingHoursEachNewYear></VacationHours></EmployeePayrollInfo>";
  k.ret = kCore +
          "<Name>Kim J Park</Name><IsActive>true</IsActive><FirstName>Kim</FirstName><MiddleName>J</MiddleName>"
          "<LastName>Park</LastName><EmployeeAddress><Addr1>7 Elm St</Addr1><City>Salem</City></EmployeeAddress>"
          "<Phone>555-0300</Phone><SSN>xxx-xx-6789</SSN><EmployeeType>Officer</EmployeeType><Gender>Female</Gender>"
          "<HiredDate>2020-05-04</HiredDate><BirthDate>1990-07-08</BirthDate><EmployeePayrollInfo>"
          "<PayPeriod>Weekly</PayPeriod>" +
          RetRef("ClassRef", "50-1", "East") +
          "<Earnings>" + RetRef("PayrollItemWageRef", "60-1", "Hourly") +
          "<Rate>22.50</Rate></Earnings><Earnings>" + RetRef("PayrollItemWageRef", "60-2", "Bonus") +
          "<RatePercent>5.0</RatePercent></Earnings><UseTimeDataToCreatePaychecks>DoNotUseTimeData"
          "</UseTimeDataToCreatePaychecks><SickHours><HoursAvailable>PT12H30M</HoursAvailable></SickHours>"
          "</EmployeePayrollInfo>";
  k.skipped = {"SSN"};
  k.check = [](Entity& r) {
    auto& e = As<Employee>(r);
    EXPECT_EQ(e.Name(), "Kim J Park");
    EXPECT_EQ(e.CollectionKey(), "Kim J Park");
    EXPECT_EQ(e.EmployeeAddress().City(), "Salem");
    EXPECT_EQ(e.SSN(), "");  // QuickBooks hides it: not read
    EXPECT_EQ(e.EmployeeType(), qbEmployeeTypeOfficer);
    EXPECT_EQ(e.Gender(), qbGenderFemale);
    EXPECT_EQ(e.HiredDate(), Date::Serial(2020, 5, 4));
    empPayrollInfo& pay = e.EmployeePayrollInfo();
    EXPECT_EQ(pay.PayPeriod(), qbPayFrequencyWeekly);
    EXPECT_EQ(pay.ClassRef().FullName(), "East");
    ASSERT_EQ(pay.Earnings().Count(), 2);
    EXPECT_EQ(pay.Earnings()[1].PayrollItemWageRef().FullName(), "Hourly");
    EXPECT_DOUBLE_EQ(pay.Earnings()[1].Rate(), 22.5);
    EXPECT_TRUE(pay.Earnings()[2].RateIsPercent());
    EXPECT_EQ(pay.UseTimeDataToCreatePaychecks(), "DoNotUseTimeData");
    EXPECT_FALSE(pay.IsUsingTimeDataToCreatePaychecks());
    EXPECT_EQ(pay.SickHours().HoursAvailable(), "PT12H30M");
    EXPECT_EQ(pay.ObjectState(), zqObjectStateClean);
  };
  // Payroll settings go as "EmployeePayrollInfoMod"; neither the name, type, gender nor the hire date.
  k.change = [](Entity& r) {
    auto& e = As<Employee>(r);
    e.Phone("555-0399");
    e.EmployeePayrollInfo().UseTimeDataToCreatePaychecks("NotSet");
  };
  k.mod = kModLead +
          "<IsActive>true</IsActive><FirstName>Kim</FirstName><MiddleName>J</MiddleName><LastName>Park</LastName>"
          "<EmployeeAddress><Addr1>7 Elm St</Addr1><City>Salem</City></EmployeeAddress><Phone>555-0399</Phone>"
          "<BirthDate>1990-07-08</BirthDate><EmployeePayrollInfoMod><PayPeriod>Weekly</PayPeriod>"
          "<UseTimeDataToCreatePaychecks>NotSet</UseTimeDataToCreatePaychecks><SickHours><HoursAvailable>PT12H30M"
          "</HoursAvailable></SickHours></EmployeePayrollInfoMod>";
  k.rules = {
      {"no name and no first or last name",
       [](Entity& r) {
         r.Name("");
         r.FirstName("");
         r.LastName("");
       },
       1012, "Name", "Name cannot be null"},
      {"a desktop's name of first and last names", [](Entity& r) { r.Name(""); }},
      {"name over 31", [](Entity& r) { r.Name(std::string(32, 'n')); }, 1013, "Name"},
      Over("salutation", [](Entity& r, std::string v) { r.Salutation(v); }, 15, 1501, "Salutation"),
      Over("first name", [](Entity& r, std::string v) { r.FirstName(v); }, 25, 1502, "First Name"),
      Over("middle name", [](Entity& r, std::string v) { r.MiddleName(v); }, 5, 1503, "Middle Name"),
      {"last name as the first", [](Entity& r) { r.LastName("KIM"); }, 1509, "Last Name",
       "Last Name cannot be the same as First Name"},
      {"city over 31", [](Entity& r) { Overfill(As<Employee>(r).EmployeeAddress(), "City", 32); }, 1201,
       "Employee Address", "Address error"},
      {"print as over 41", [](Entity& r) { As<Employee>(r).PrintAs(std::string(42, 'p')); }, 2100, "Print As",
       "Print As value cannot exceed 41 characters"},
      Over("phone", [](Entity& r, std::string v) { r.Phone(v); }, 21, 1504, "Phone"),
      Over("alt phone", [](Entity& r, std::string v) { r.AltPhone(v); }, 21, 1504, "Alt Phone"),
      {"number over 15", [](Entity& r) { As<Employee>(r).SSN(std::string(16, '1')); }, 2101, "SSN",
       "Social Security Number (SSN) cannot exceed 15 characters"},
      Over("email", [](Entity& r, std::string v) { r.Email(v); }, 99, 1505, "Email"),
      Over("account number", [](Entity& r, std::string v) { r.AccountNumber(v); }, 99, 1507, "Account Number"),
  };
  return k;
}

// --- other names ------------------------------------------------------------------------------------

NameKindCase OtherNames() {
  NameKindCase k;
  k.kind = "OtherName";
  k.make = [] { return std::make_unique<OtherName>(); };
  k.fill = [](Entity& r) {
    auto& o = As<OtherName>(r);
    o.Name("Owner Draws");
    o.CompanyName("Self");
    o.Salutation("Mx.");
    o.FirstName("Sam");
    o.MiddleName("Q");
    o.LastName("Ray");
    o.OtherNameAddress().Line1("2 Oak Ln");
    o.OtherNameAddress().PostalCode("10001");
    o.Phone("555-0400");
    o.AltPhone("555-0401");
    o.Email("sam@example.com");
    o.Contact("Sam Ray");
    o.AltContact("Jo Ray");
    o.AccountNumber("O-1");
  };
  k.add =
      "<Name>Owner Draws</Name><IsActive>true</IsActive><CompanyName>Self</CompanyName><Salutation>Mx.</Salutation>"
      "<FirstName>Sam</FirstName><MiddleName>Q</MiddleName><LastName>Ray</LastName><OtherNameAddress>"
      "<Addr1>2 Oak Ln</Addr1><PostalCode>10001</PostalCode></OtherNameAddress><Phone>555-0400</Phone>"
      "<AltPhone>555-0401</AltPhone><Email>sam&#64;example.com</Email><Contact>Sam Ray</Contact><AltContact>Jo Ray"
      "</AltContact><AccountNumber>O-1</AccountNumber>";
  k.ret = kCore +
          "<Name>Owner Draws</Name><IsActive>false</IsActive><FirstName>Sam</FirstName><Suffix>Jr.</Suffix>"
          "<OtherNameAddress><Addr1>2 Oak Ln</Addr1></OtherNameAddress><OtherNameAddressBlock><Addr1>2 Oak Ln</Addr1>"
          "</OtherNameAddressBlock><Phone>555-0400</Phone><Pager>555-0402</Pager><Notes>Quarterly</Notes>";
  k.skipped = {"OtherNameAddressBlock", "Notes"};
  k.check = [](Entity& r) {
    auto& o = As<OtherName>(r);
    EXPECT_EQ(o.Name(), "Owner Draws");
    EXPECT_FALSE(o.IsActive());
    EXPECT_EQ(o.Suffix(), "Jr.");
    EXPECT_EQ(o.Pager(), "555-0402");
    EXPECT_EQ(o.OtherNameAddress().Line1(), "2 Oak Ln");
  };
  // A modify request carries no active flag.
  k.change = [](Entity& r) {
    r.IsActive(true);
    r.LastName("Roy");
  };
  k.mod = kModLead +
          "<Name>Owner Draws</Name><FirstName>Sam</FirstName><LastName>Roy</LastName><OtherNameAddress>"
          "<Addr1>2 Oak Ln</Addr1></OtherNameAddress><Phone>555-0400</Phone>";
  k.rules = {
      {"empty name", [](Entity& r) { r.Name(""); }, 1012, "Name"},
      {"name over 31", [](Entity& r) { r.Name(std::string(32, 'n')); }, 1013, "Name"},
      {"company over 41", [](Entity& r) { As<OtherName>(r).CompanyName(std::string(42, 'c')); }, 1700,
       "Company Name"},
      Over("salutation", [](Entity& r, std::string v) { r.Salutation(v); }, 15, 1501, "Salutation"),
      Over("first name", [](Entity& r, std::string v) { r.FirstName(v); }, 25, 1502, "First Name"),
      Over("middle name", [](Entity& r, std::string v) { r.MiddleName(v); }, 5, 1503, "Middle Name"),
      {"last name as the first", [](Entity& r) { r.LastName("Sam"); }, 1509, "Last Name"},
      {"postal code over 13", [](Entity& r) { Overfill(As<OtherName>(r).OtherNameAddress(), "PostalCode", 14); },
       1201, "OtherName Address", "Address error"},
      Over("phone", [](Entity& r, std::string v) { r.Phone(v); }, 21, 1504, "Phone"),
      Over("alt phone", [](Entity& r, std::string v) { r.AltPhone(v); }, 21, 1504, "Alt Phone"),
      Over("email", [](Entity& r, std::string v) { r.Email(v); }, 99, 1505, "Email"),
      Over("contact", [](Entity& r, std::string v) { As<OtherName>(r).Contact(v); }, 41, 1701, "Contact"),
      Over("alt contact", [](Entity& r, std::string v) { As<OtherName>(r).AltContact(v); }, 41, 1701,
           "Alt Contact"),
      Over("account number", [](Entity& r, std::string v) { r.AccountNumber(v); }, 99, 1507, "Account Number"),
  };
  return k;
}

std::vector<NameKindCase> Kinds() { return {Customers(), Vendors(), Employees(), OtherNames()}; }

// The body of the request element `body` ("CustomerAdd") in a request document.
std::string BodyOf(const std::string& request, const std::string& body) {
  const std::string open = "<" + body + ">", close = "</" + body + ">";
  const std::size_t from = request.find(open);
  const std::size_t to = request.find(close);
  if (from == std::string::npos || to == std::string::npos) return "(no " + body + " in " + request + ")";
  return request.substr(from + open.size(), to - from - open.size());
}

class NameListKinds : public ListsTest, public ::testing::WithParamInterface<NameKindCase> {
 protected:
  // Sends the record's add or modify request as a host's commit would, answered with `ret`; returns
  // the request.
  std::string Send(Entity& r, bool add) {
    const std::string name(r.Decl().xmlName);
    auto p = InstallProcessor(StatusResponse(name + (add ? "AddRs" : "ModRs"), 0,
                                             "<" + name + "Ret>" + GetParam().ret + "</" + name + "Ret>"));
    xmlBldr b;
    b.NewClear();
    if (add)
      b.InsertAddRq(r, 1);
    else
      b.InsertModRq(r, 1);
    b.NewSendRequest();
    EXPECT_EQ(p->requests.size(), 1u);
    const std::string request = p->requests.empty() ? std::string() : p->requests.back();
    if (SchemaOrSkip("the name lists' requests")) {
      EXPECT_EQ(DesktopProblems(request), "") << request;
    }
    return request;
  }
  static std::unique_ptr<Entity> Read(const NameKindCase& k) {
    std::unique_ptr<Entity> r = k.make();
    const std::string name(r->Decl().xmlName);
    DomDocument doc = DomDocument::Load("<" + name + "Ret>" + k.ret + "</" + name + "Ret>");
    r->FromDom(doc.DocumentElement());
    return r;
  }
};

TEST_P(NameListKinds, WritesItsAddRequestAsAUSDesktopTakesIt) {
  const NameKindCase& k = GetParam();
  std::unique_ptr<Entity> r = k.make();
  k.fill(*r);
  ASSERT_TRUE(r->Validate()) << r->Errors()[1].Field() << ": " << r->Errors()[1].Description();
  EXPECT_EQ(BodyOf(Send(*r, true), k.kind + "Add"), k.add);
}

TEST_P(NameListKinds, ReadsItsRetElementAndTracesWhatItDoesNotRead) {
  const NameKindCase& k = GetParam();
  TraceCollector trace;
  std::unique_ptr<Entity> r = Read(k);
  EXPECT_EQ(r->ObjectState(), zqObjectStateClean);
  EXPECT_EQ(r->ListID(), "80000011-1712345678");
  EXPECT_EQ(r->EditSequence(), "1712345999");
  EXPECT_EQ(r->TimeModified(), Date::FromParts(2024, 3, 2, 11, 30, 15));
  k.check(*r);
  std::vector<std::string> traced;
  for (const auto& [source, text] : trace.seen) {
    EXPECT_EQ(source, k.kind) << text;
    traced.push_back(text);
  }
  std::vector<std::string> expected;
  for (const std::string& name : k.skipped) expected.push_back("Unknown Field: " + name);
  EXPECT_EQ(traced, expected);
}

TEST_P(NameListKinds, WritesItsModifyRequestAfterAChange) {
  const NameKindCase& k = GetParam();
  std::unique_ptr<Entity> r = Read(k);
  k.change(*r);
  EXPECT_EQ(r->ObjectState(), zqObjectStateDirty);
  EXPECT_EQ(BodyOf(Send(*r, false), k.kind + "Mod"), k.mod);
}

TEST_P(NameListKinds, ValidatesEachRuleInOrder) {
  const NameKindCase& k = GetParam();
  for (const RuleCase& rule : k.rules) {
    SCOPED_TRACE(rule.what);
    std::unique_ptr<Entity> r = k.make();
    k.fill(*r);
    rule.change(*r);
    const bool valid = r->Validate();
    if (rule.code == 0) {
      EXPECT_TRUE(valid) << (r->Errors().Empty() ? "" : r->Errors()[1].Description());
      continue;
    }
    ASSERT_EQ(r->Errors().Count(), 1);
    EXPECT_EQ(r->Errors()[1].Number(), ErrorNumber(rule.code));
    EXPECT_EQ(r->Errors()[1].Field(), rule.field);
    if (!rule.message.empty()) {
      EXPECT_EQ(r->Errors()[1].Description(), rule.message);
    }
  }
  // Every rule broken at once: one entry each, in the table's order.
  std::unique_ptr<Entity> all = k.make();
  k.fill(*all);
  std::vector<std::pair<int, std::string>> expected;
  for (const RuleCase& rule : k.rules) {
    if (rule.code == 0 || rule.code == 1012 || rule.code == 1707 || rule.code == 1509) continue;
    rule.change(*all);
    expected.emplace_back(rule.code, rule.field);
  }
  EXPECT_FALSE(all->Validate());
  std::vector<std::pair<int, std::string>> reported;
  for (const zkError& e : all->Errors()) reported.emplace_back(e.Number() - ErrorNumber(0), e.Field());
  EXPECT_EQ(reported, expected);
}

INSTANTIATE_TEST_SUITE_P(Lists, NameListKinds, ::testing::ValuesIn(Kinds()),
                         [](const ::testing::TestParamInfo<NameKindCase>& kind) { return kind.param.kind; });

}  // namespace
}  // namespace brenvale::testing

namespace brenvale::testing {
namespace {

// --- what differs by edition and version ------------------------------------------------------------

// A context of another edition or version, as its session would give it.
WriteContext Context(Form form, const std::string& version, const std::string& country, bool online = false) {
  WriteContext c;
  c.form = form;
  c.versionText = version;
  c.versionNumber = VersionNumberOf(version);
  c.country = country;
  c.online = online;
  return c;
}

std::string Written(const RecordCore& r, const WriteContext& c) {
  xmlBldr b;
  WriteRequestBody(r, b, c);
  return b.GetXML();
}

bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class NameListEditions : public ListsTest {};

// The elements a US desktop refuses are written where QuickBooks takes them; the annotated sample
// says which a desktop refuses, and the check finds them in an online request.
TEST_F(NameListEditions, OnlineElementsGoToTheOnlineEditionOnly) {
  Customer c;
  c.Name("Ann");
  c.Suffix("Jr.");
  c.Mobile("1");
  c.Pager("2");
  c.IsStatementWithParent(true);
  c.DeliveryMethod(qbDeliveryMethodFax);
  c.ItemSalesTaxRef("State");
  const std::string online = Written(c, Context(Form::Add, "13.0", "US", true));
  for (const char* tag : {"<Suffix>Jr.</Suffix>", "<Mobile>1</Mobile>", "<Pager>2</Pager>",
                          "<IsStatementWithParent>true</IsStatementWithParent>", "<DeliveryMethod>Fax</DeliveryMethod>"})
    EXPECT_TRUE(Holds(online, tag)) << tag << " in " << online;
  EXPECT_FALSE(Holds(online, "ItemSalesTaxRef")) << online;
  const std::string desktop = Written(c, Context(Form::Add, "13.0", "US"));
  EXPECT_EQ(desktop, "<Name>Ann</Name><IsActive>true</IsActive>" + Ref("ItemSalesTaxRef", "State"));

  if (!SchemaOrSkip("the annotations")) return;
  const std::string request = "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\"><CustomerAddRq>"
                              "<CustomerAdd>" + online + "</CustomerAdd></CustomerAddRq></QBXMLMsgsRq></QBXML>";
  EXPECT_EQ(SchemaProblems(request), "");
  const std::string problems = DesktopProblems(request);
  for (const char* tag : {"/Suffix: not in QBD", "/Mobile: not in QBD", "/DeliveryMethod: not in QBD"})
    EXPECT_TRUE(Holds(problems, tag)) << tag << " in " << problems;
  // And elements newer than the session.
  c.CurrencyRef("Euro");
  const std::string current = "<?xml version=\"1.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\"><CustomerAddRq>"
                              "<CustomerAdd>" + Written(c, Context(Form::Add, "13.0", "US")) +
                              "</CustomerAdd></CustomerAddRq></QBXMLMsgsRq></QBXML>";
  EXPECT_EQ(DesktopProblems(current), "");
  EXPECT_EQ(DesktopProblems(current, "7.0"), "/CustomerAddRq/CustomerAdd/CurrencyRef: only from qbXML 8.0; ");
}

// A Canadian company on its own version: tax codes instead of the item sales tax, the province for
// the state, nothing newer than 3.0.
TEST_F(NameListEditions, CanadianVersionsTakeTaxCodesAndProvinces) {
  Customer c;
  c.Name("Lise");
  c.BillAddress().State("QC");
  c.TaxCodeRef("G");
  c.ItemSalesTaxRef("GST");
  c.IsUsingCustomerTaxCode(true);
  c.PriceLevelRef("Retail");  // from 4.0
  c.CurrencyRef("Canadian Dollar");  // from 8.0
  EXPECT_EQ(Written(c, Context(Form::Add, "CA3.0", "CA")),
            "<Name>Lise</Name><IsActive>true</IsActive><BillAddress><Province>QC</Province></BillAddress>" +
                Ref("TaxCodeRef", "G") + "<IsUsingCustomerTaxCode>true</IsUsingCustomerTaxCode>");
  // The versions every edition shares call it the state, and have no tax code for a customer.
  EXPECT_EQ(Written(c, Context(Form::Add, "13.0", "US")),
            "<Name>Lise</Name><IsActive>true</IsActive><BillAddress><State>QC</State></BillAddress>" +
                Ref("ItemSalesTaxRef", "GST") + Ref("PriceLevelRef", "Retail") + Ref("CurrencyRef", "Canadian Dollar"));
  // A province or a county read back is the state.
  Address a;
  a.ReadFrom(DomDocument::Load("<BillAddress><Addr1>1 Rue</Addr1><Province>QC</Province></BillAddress>").DocumentElement());
  EXPECT_EQ(a.State(), "QC");
}

// A British version names the social security number "NiNumber"; before qbXML 3.0 the time data
// setting is a flag; mobile and pager came with 2.1.
TEST_F(NameListEditions, EmployeesFollowTheirVersions) {
  Employee e;
  e.FirstName("Ian");
  e.LastName("Hart");
  e.Mobile("07700");
  e.SSN("AB123456C");
  e.EmployeePayrollInfo().IsUsingTimeDataToCreatePaychecks(true);
  EXPECT_EQ(Written(e, Context(Form::Add, "UK2.0", "UK")),
            "<IsActive>true</IsActive><FirstName>Ian</FirstName><LastName>Hart</LastName><NiNumber>AB123456C</NiNumber>"
            "<EmployeePayrollInfo><IsUsingTimeDataToCreatePaychecks>true</IsUsingTimeDataToCreatePaychecks>"
            "</EmployeePayrollInfo>");
  EXPECT_EQ(Written(e, Context(Form::Add, "13.0", "US")),
            "<IsActive>true</IsActive><FirstName>Ian</FirstName><LastName>Hart</LastName><Mobile>07700</Mobile>"
            "<SSN>AB123456C</SSN><EmployeePayrollInfo><UseTimeDataToCreatePaychecks>UseTimeData"
            "</UseTimeDataToCreatePaychecks></EmployeePayrollInfo>");
  // The online edition takes the name as given.
  e.Name("Ian Hart");
  EXPECT_TRUE(Holds(Written(e, Context(Form::Add, "13.0", "US", true)), "<Name>Ian Hart</Name>"));
  EXPECT_EQ(RaisedBy([&] { e.EmployeePayrollInfo().UseTimeDataToCreatePaychecks("Sometimes"); }).Number(),
            ErrorNumber(1008));
  EXPECT_EQ(e.EmployeePayrollInfo().UseTimeDataToCreatePaychecks(), "UseTimeData");
}

// --- rules of their own -----------------------------------------------------------------------------

class NameListRules : public ListsTest {};

TEST_F(NameListRules, FieldsSetWhenAddedAreFixedAfterwards) {
  struct Case {
    std::string what;
    std::function<std::unique_ptr<Entity>()> read;
    std::function<void(Entity&)> set;
    std::string label;
  };
  auto read = [](auto make, const std::string& ret) {
    return [make, ret] {
      std::unique_ptr<Entity> r = make();
      r->FromDom(DomDocument::Load(ret).DocumentElement());
      return r;
    };
  };
  auto customer = read([] { return std::make_unique<Customer>(); }, "<CustomerRet>" + kCore + "<Name>A</Name></CustomerRet>");
  auto vendor = read([] { return std::make_unique<Vendor>(); }, "<VendorRet>" + kCore + "<Name>V</Name></VendorRet>");
  auto employee = read([] { return std::make_unique<Employee>(); }, "<EmployeeRet>" + kCore + "<Name>E</Name></EmployeeRet>");
  const std::vector<Case> cases = {
      {"opening balance", customer, [](Entity& r) { As<Customer>(r).OpenBalance(Currency(1)); }, "Customer"},
      {"currency", customer, [](Entity& r) { As<Customer>(r).CurrencyRef("Euro"); }, "Customer"},
      {"delivery", customer, [](Entity& r) { As<Customer>(r).DeliveryMethod(qbDeliveryMethodPrint); }, "Customer"},
      {"vendor's opening balance date", vendor, [](Entity& r) { As<Vendor>(r).OpenBalanceDate(Date::Serial(2024, 1, 1)); },
       "Vendor"},
      {"gender", employee, [](Entity& r) { As<Employee>(r).Gender(qbGenderMale); }, "Employee"},
      {"hire date", employee, [](Entity& r) { As<Employee>(r).HiredDate(Date::Serial(2024, 1, 1)); }, "Employee"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    std::unique_ptr<Entity> r = c.read();
    const BrenvaleError e = RaisedBy([&] { c.set(*r); });
    EXPECT_EQ(e.Number(), ErrorNumber(1002));
    EXPECT_EQ(e.Source(), c.label);
    EXPECT_EQ(r->ObjectState(), zqObjectStateClean);
  }
  // While new, anything may be set; a job's parent may change, and is left out of the modify request.
  std::unique_ptr<Entity> job = customer();
  As<Customer>(*job).Parent("Someone Else");
  EXPECT_EQ(job->ObjectState(), zqObjectStateDirty);
  EXPECT_FALSE(Holds(Written(*job, Context(Form::Mod, "13.0", "US")), "ParentRef"));
}

TEST_F(NameListRules, AddressPartsRefuseTextOverTheirLimits) {
  struct Case {
    std::function<void(Address&, std::string)> set;
    std::size_t limit;
    std::string message;
  };
  const std::vector<Case> cases = {
      {[](Address& a, std::string v) { a.Line1(v); }, 41, "Address lines cannot exceed 41 characters."},
      {[](Address& a, std::string v) { a.Line5(v); }, 41, "Address lines cannot exceed 41 characters."},
      {[](Address& a, std::string v) { a.City(v); }, 31, "Address city cannot exceed 31 characters."},
      {[](Address& a, std::string v) { a.State(v); }, 21, "Address state cannot exceed 21 characters."},
      {[](Address& a, std::string v) { a.PostalCode(v); }, 13, "Address postal code cannot exceed 13 characters."},
      {[](Address& a, std::string v) { a.Country(v); }, 31, "Address country cannot exceed 31 characters."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.message);
    Address a;
    c.set(a, std::string(c.limit, 'a'));  // at the limit: taken
    const BrenvaleError e = RaisedBy([&] { c.set(a, std::string(c.limit + 1, 'b')); });
    EXPECT_EQ(e.Number(), ErrorNumber(1202));
    EXPECT_EQ(e.Source(), "Address");
    EXPECT_EQ(e.Description(), c.message);
    EXPECT_TRUE(a.Validate());  // the refused text was not stored
  }
  Address from;
  from.Line1("1 Main St");
  from.City("Boston");
  Address to;
  to.Line2("Suite 4");
  to.CopyAddress(from);
  EXPECT_EQ(to.Line1(), "1 Main St");
  EXPECT_EQ(to.Line2(), "");
  EXPECT_EQ(to.City(), "Boston");
  EXPECT_TRUE(Address().IsEmpty());
  EXPECT_FALSE(to.IsEmpty());
}

TEST_F(NameListRules, AVendorsBillsAndCreditsComeFromOneQuery) {
  Vendor v;
  v.FromDom(DomDocument::Load("<VendorRet>" + kCore + "<Name>Paper Mill</Name></VendorRet>").DocumentElement());
  for (auto read : std::vector<std::function<void()>>{[&] { v.BillsToPay(); }, [&] { v.CreditsToApply(); }}) {
    const BrenvaleError e = RaisedBy(read);
    EXPECT_EQ(e.Number(), ErrorNumber(1708));
    EXPECT_EQ(e.Description(), "You must call GetBillsAndCredits before accessing this property.");
  }
  auto p = InstallProcessor(StatusResponse(
      "BillToPayQueryRs", 0,
      "<BillToPayRet><BillToPay><TxnID>1-1</TxnID><TxnType>Bill</TxnType>" + RetRef("APAccountRef", "9-1", "Payables") +
          "<TxnDate>2024-03-01</TxnDate><RefNumber>B-7</RefNumber><DueDate>2024-03-31</DueDate>"
          "<AmountDue>120.50</AmountDue></BillToPay></BillToPayRet><BillToPayRet><CreditToApply><TxnID>2-1</TxnID>"
          "<TxnType>VendorCredit</TxnType>" + RetRef("APAccountRef", "9-1", "Payables") +
          "<TxnDate>2024-03-02</TxnDate><CreditRemaining>20.00</CreditRemaining></CreditToApply></BillToPayRet>"));
  EXPECT_EQ(v.GetBillsAndCredits("Payables"), 2);
  ASSERT_EQ(p->requests.size(), 1u);
  EXPECT_TRUE(Holds(p->requests[0], "<BillToPayQueryRq requestID = \"1\"><PayeeEntityRef><ListID>80000011-1712345678"
                                    "</ListID></PayeeEntityRef><APAccountRef><FullName>Payables</FullName></APAccountRef>"
                                    "</BillToPayQueryRq>"))
      << p->requests[0];
  ASSERT_EQ(v.BillsToPay().size(), 1u);
  EXPECT_EQ(v.BillsToPay()[0]->TxnID(), "1-1");
  EXPECT_EQ(v.BillsToPay()[0]->DueDate(), Date::Serial(2024, 3, 31));
  EXPECT_EQ(v.BillsToPay()[0]->AmountDue(), Currency::FromUnits(1205000));
  ASSERT_EQ(v.CreditsToApply().size(), 1u);
  EXPECT_TRUE(v.CreditsToApply()[0]->IsCredit());
  EXPECT_EQ(v.CreditsToApply()[0]->AmountDue(), Currency(20));
  EXPECT_EQ(v.ObjectState(), zqObjectStateClean);

  // A refusal is QuickBooks' message; what was found before stays.
  InstallProcessor(StatusResponse("BillToPayQueryRs", 3120, "", "Object not found"));
  EXPECT_EQ(RaisedBy([&] { v.GetBillsAndCredits(); }).Description(), "QuickBooks: Object not found");
  EXPECT_EQ(v.BillsToPay().size(), 1u);
}

// One entity query answers every name list; each record is read into its own kind and offers what the
// name lists share.
TEST_F(NameListRules, EntitiesReadEachNameAsItsOwnKind) {
  auto p = InstallProcessor(StatusResponse(
      "EntityQueryRs", 0,
      "<CustomerRet><ListID>1</ListID><Name>Acme</Name><FullName>Acme</FullName><FirstName>Ann</FirstName></CustomerRet>"
      "<CustomerRet><ListID>2</ListID><Name>Roof</Name><FullName>Acme:Roof</FullName>" +
          RetRef("ParentRef", "1", "Acme") +
          "<Sublevel>1</Sublevel></CustomerRet><VendorRet><ListID>3</ListID><Name>Mill</Name><Phone>555</Phone>"
          "</VendorRet><EmployeeRet><ListID>4</ListID><Name>Kim Park</Name><FirstName>Kim</FirstName></EmployeeRet>"
          "<OtherNameRet><ListID>5</ListID><Name>Draws</Name><Email>d&#64;x</Email></OtherNameRet>"));
  Entities names;
  EXPECT_EQ(names.GetAll(), 5);
  EXPECT_TRUE(Holds(p->requests[0], "<EntityQueryRq")) << p->requests[0];
  ASSERT_EQ(names.Count(), 5);
  EXPECT_EQ(names.Item("Acme").FirstName(), "Ann");
  EXPECT_EQ(names.Item("Acme:Roof").ObjectType(), zqObjectTypeCustomer);
  EXPECT_TRUE(names.Item("Acme").Children().ItemExists("Acme:Roof"));
  EXPECT_EQ(names.Item("Mill").ObjectType(), zqObjectTypeVendor);
  EXPECT_EQ(names.Item("Mill").Phone(), "555");
  EXPECT_EQ(names.Item("Kim Park").ObjectType(), zqObjectTypeEmployee);
  EXPECT_EQ(names.Item("Draws").ObjectType(), zqObjectTypeOtherName);
  EXPECT_EQ(names.Item("Draws").Email(), "d@x");
  EXPECT_NE(dynamic_cast<Vendor*>(&names.Item("Mill")), nullptr);
  // Not the master: an entity query's collection does not add or commit.
  EXPECT_EQ(RaisedBy([&] { names.Commit(); }).Number(), ErrorNumber(1021));
}

}  // namespace
}  // namespace brenvale::testing
