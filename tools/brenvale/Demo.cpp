// The guided tour: a host's session with the library, step by step, on a demo company. It can run
// again and again on the same company: what an earlier run added is found and reused.
#include <chrono>
#include <iostream>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "Commands.hpp"
#include "Output.hpp"
#include "brenvale/company/BrenvaleGlobals.hpp"
#include "brenvale/model/DataExtensions.hpp"
#include "brenvale/qbxml/Conversions.hpp"

namespace brenvale::tool {
namespace {

std::ostream& out = std::cout;

void Step(int number, const std::string& title, const std::string& explanation) {
  out << "\n" << number << ". " << title << "\n";
  if (!explanation.empty()) out << "   " << explanation << "\n";
}

// A line of the host's code, as it would read in C++.
void Code(const std::string& line) { out << "   > " << line << "\n"; }

void Indented(const std::vector<std::vector<std::string>>& rows) {
  std::ostringstream table;
  PrintTable(table, rows);
  std::istringstream lines(table.str());
  for (std::string line; std::getline(lines, line);) out << "     " << line << "\n";
}

// Names with their parent's full name (empty: top level), parents first.
using Tree = std::vector<std::pair<std::string, std::string>>;

// Adds the entries of `tree` the company does not have yet, in one batch; returns how many.
template <class Collection>
int AddMissing(Collection& c, const Tree& tree, std::vector<std::vector<std::string>>& rows) {
  c.GetAll();
  std::vector<std::string> added;
  for (const auto& [name, parent] : tree) {
    const std::string full = parent.empty() ? name : parent + ":" + name;
    if (c.Find(full)) {
      rows.push_back({full, "already in the company"});
      continue;
    }
    c.Add(name, true, parent);
    added.push_back(full);
  }
  c.Commit();
  for (const std::string& full : added) rows.push_back({full, "added, ListID " + c.Item(full).ListID()});
  return static_cast<int>(added.size());
}

// Takes a record out of its collection (it is not deleted in QuickBooks).
void Forget(ListCollectionBase& c, const ListRecord& record) {
  for (Long i = 1; i <= c.Count(); ++i)
    if (&c.Item(static_cast<std::size_t>(i)) == &record) {
      c.Remove(static_cast<std::size_t>(i));
      return;
    }
}

Date Today() {
  const auto days = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  const std::chrono::year_month_day ymd(days);
  return Date::Serial(static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
                      static_cast<int>(static_cast<unsigned>(ymd.day())));
}

void PrintErrors(const zkErrors& errors) {
  for (const zkError& e : errors)
    out << "     error " << ErrorNumberText(e.Number()) << (e.Field().empty() ? "" : " in " + e.Field())
        << ": " << e.Description() << "\n";
}

void PrintRaised(const BrenvaleError& e) {
  out << "     raised error " << ErrorNumberText(e.Number()) << ": " << e.Description() << " [" << e.Source()
      << "]\n";
}

// The demo's customer, with its billing address and a job of the demo's job types.
void ShowCustomerAndJob(int step) {
  Step(step, "A customer with an address, and a job under it",
       "A customer's addresses are records of their own inside it; a job is a customer whose parent is\n"
       "   the customer, and it may name a job type. Both go in one batch, the customer first.");
  Customers& customers = BrenvaleGlobals::Customers();
  Code("Customer& c = Customers().Add(\"Jones Residence\");  c.BillAddress().City(\"Boston\"); ...");
  Code("Customer& job = Customers().Add(\"Retrofit\", true, \"Jones Residence\");  job.JobTypeRef(...);");
  Code("Customers().Commit();");
  customers.GetAll();
  if (!customers.Find("Jones Residence")) {
    Customer& jones = customers.Add("Jones Residence");
    jones.FirstName("Pat");
    jones.LastName("Jones");
    Address& bill = jones.BillAddress();
    bill.Line1("Pat Jones");
    bill.Line2("12 Harbor Road");
    bill.City("Boston");
    bill.State("MA");
    bill.PostalCode("02110");
    jones.ShipAddress().CopyAddress(bill);
  }
  if (!customers.Find("Jones Residence:Retrofit")) {
    Customer& job = customers.Add("Retrofit", true, "Jones Residence");
    job.JobTypeRef("Installation:Residential");
    job.JobStatus(qbJobStatusInProgress);
    job.JobDesc("Roof panels and inverter");
  }
  customers.Commit();
  customers.GetAll();
  std::vector<std::vector<std::string>> rows = {{"FullName", "Sublevel", "Bill to", "Job type", "ListID"}};
  for (const char* name : {"Jones Residence", "Jones Residence:Retrofit"}) {
    Customer& c = customers.Item(name);
    const Address& a = c.BillAddress();
    rows.push_back({c.FullName(), std::to_string(c.Sublevel()),
                    a.City().empty() ? "" : a.Line2() + ", " + a.City() + " " + a.State() + " " + a.PostalCode(),
                    c.JobTypeRef().FullName(), c.ListID()});
  }
  Indented(rows);
}

// The demo's service item, priced and posting to an income account; every kind comes back through
// the one item list.
void ShowItem(int step) {
  Step(step, "An item",
       "Each of the twelve item kinds is a record of its own; a service sold at one price carries its\n"
       "   price and income account in a block of its own. The item list reads every kind in one query.");
  Accounts& accounts = BrenvaleGlobals::Accounts();
  Items& items = BrenvaleGlobals::Items();
  Code("ItemService& s = Items().Add<ItemService>(\"Panel Install\");");
  Code("s.SalesOrPurchase().Price(185.50);  s.SalesOrPurchase().AccountRef(\"Installation Income\");");
  Code("Items().Commit();  Items().GetAll();");
  accounts.GetAll();
  if (!accounts.Find("Installation Income")) {
    accounts.Add("Installation Income", true, {}, qbIncome);
    accounts.Commit();
  }
  items.GetAll();
  if (!items.Find("Panel Install")) {
    ItemService& service = items.Add<ItemService>("Panel Install");
    service.SalesOrPurchase().Desc("Install one roof panel");
    service.SalesOrPurchase().Price(185.50);
    service.SalesOrPurchase().AccountRef("Installation Income");
    items.Commit();
  }
  items.GetAll();
  std::vector<std::vector<std::string>> rows = {{"FullName", "Kind", "Description", "Price"}};
  for (zkItem& item : items)
    rows.push_back({item.FullName(), std::string(item.Decl().xmlName), item.SalesDescription(),
                    AmountToText(item.SalesCost())});
  Indented(rows);
}

// The demo's custom field: QuickBooks' own field "Region" on customers, set on the demo's customer.
void ShowCustomField(int step) {
  Step(step, "A custom field",
       "A custom field is defined once for the kinds it is assigned to; a record's values are in its\n"
       "   CustomFields, saved with its commit, and come back with it when the query asks for them.");
  DataExtensionDefinitions& definitions = BrenvaleGlobals::DataExtensionDefinitions();
  Code("DataExtensionDefinitions().Add(\"Region\").AssignedTos().Add(zqObjectTypeCustomer);  ...Commit();");
  Code("customer.CustomFields()[\"Region\"].ValueAsString(\"North East\");  customer.SaveDataExtensions();");
  definitions.GetByAssignedToObject(zqObjectTypeCustomer);
  if (!definitions.Find("Region")) {
    definitions.Add("Region").AssignedTos().Add(zqObjectTypeCustomer);
    definitions.Commit();
  }
  Customers& customers = BrenvaleGlobals::Customers();
  customers.IncludeDataExtensions(true);
  customers.GetAll();
  Customer& jones = customers.Item("Jones Residence");
  jones.CustomFields()["Region"].ValueAsString("North East");
  jones.SaveDataExtensions();
  Customers reader;
  reader.IncludeDataExtensions(true);
  reader.GetByNameMatch("Jones", qbMatchStartsWith);
  std::vector<std::vector<std::string>> rows = {{"FullName", "Region"}};
  for (Customer& c : reader) {
    const DataExtensions* fields = c.FindCustomFields();
    const DataExtension* region = fields ? fields->Find("Region") : nullptr;
    rows.push_back({c.FullName(), region ? region->ValueText() : ""});
  }
  Indented(rows);
}

// The demo's account tree: three levels of bank accounts with opening balances, added when missing.
void ShowAccountTree(int step) {
  Step(step, "An account tree and its sub-account sum",
       "An account names its parent by full name; QuickBooks posts each opening balance and answers each\n"
       "   account's Balance and TotalBalance from the postings. SumSubAccountBalances adds the balances of\n"
       "   every sub-account beneath one, to any depth, from what the collection holds.");
  Accounts& accounts = BrenvaleGlobals::Accounts();
  Code("Accounts().Add(\"Operating\", true, {}, qbBank, \"1000\", {}, {}, Currency(5000), opened); ...");
  Code("Accounts().Commit();  Accounts().Item(\"Operating\").SumSubAccountBalances();");
  accounts.GetAll();
  const Date opened = Date::Serial(2026, 1, 1);
  const std::vector<std::tuple<std::string, std::string, std::string, int>> tree = {
      {"Operating", "", "1000", 5000}, {"Payroll", "Operating", "1010", 2500}, {"Taxes", "Operating:Payroll", "1011", 750}};
  for (const auto& [name, parent, number, balance] : tree)
    if (!accounts.Find(parent.empty() ? name : parent + ":" + name))
      accounts.Add(name, true, parent, qbBank, number, {}, {}, Currency(balance), opened);
  accounts.Commit();
  accounts.GetAll();  // balances as QuickBooks now answers them
  std::vector<std::vector<std::string>> rows = {{"FullName", "Number", "Balance", "TotalBalance"}};
  for (const auto& [name, parent, number, balance] : tree) {
    Account& a = accounts.Item(parent.empty() ? name : parent + ":" + name);
    rows.push_back({a.FullName(), a.AccountNumber(), AmountToText(a.Balance()), AmountToText(a.TotalBalance())});
  }
  Indented(rows);
  out << "     SumSubAccountBalances(Operating) = " << AmountToText(accounts.Item("Operating").SumSubAccountBalances())
      << "\n";
}

}  // namespace

int RunDemo(const GlobalOptions& g) {
  out << "Brenvale demo: a host's session with QuickBooks, step by step.\n"
      << "It runs on the request processor " << g.processor << " and the company file " << g.company << ".\n";

  Step(1, "Connect",
       "The host names its request processor and connects; the session negotiates the qbXML version\n"
       "   and asks the host for its facts. A company file that does not exist yet is created.");
  Code("QBConnection().RequestProcessorProgId(\"" + g.processor + "\");");
  Code("QBConnect(\"\", \"Brenvale command-line tool\", qbOpenModeDontCare, \"" + g.company + "\");");
  OpenCompany(g);
  const brenvale::QBConnection& c = BrenvaleGlobals::QBConnection();
  Indented(
      {{"Product", c.ProductName()},
       {"QuickBooks version", std::to_string(c.QBMajorVersion()) + "." + std::to_string(c.QBMinorVersion())},
       {"Country", c.Country()},
       {"qbXML version", c.qbxmlVersion()},
       {"Company file", c.CompanyPath()}});

  Step(2, "Add job types and classes with parents",
       "Collections add records locally; Commit sends every new record in one batch. A child names\n"
       "   its parent by full name; the parent may be in the same batch.");
  JobTypes& jobTypes = BrenvaleGlobals::JobTypes();
  Classes& classes = BrenvaleGlobals::Classes();
  Code("JobTypes().Add(\"Installation\"); JobTypes().Add(\"Residential\", true, \"Installation\"); ...");
  Code("JobTypes().Commit();  Classes().Add(\"Field\"); ...  Classes().Commit();");
  std::vector<std::vector<std::string>> rows;
  AddMissing(jobTypes,
             {{"Installation", ""},
              {"Residential", "Installation"},
              {"Commercial", "Installation"},
              {"Maintenance", ""},
              {"Annual Service", "Maintenance"}},
             rows);
  AddMissing(classes, {{"Field", ""}, {"North", "Field"}, {"South", "Field"}, {"Office", ""}}, rows);
  Indented(rows);

  Step(3, "Query them back",
       "Every Get... query fills the collection with what QuickBooks returns: all active records, a name\n"
       "   match, a name range or a modification date span.");
  Code("JobTypes().GetAll();");
  jobTypes.GetAll();
  rows = {{"FullName", "Sublevel", "IsActive", "ListID"}};
  for (JobType& j : jobTypes)
    rows.push_back({j.FullName(), std::to_string(j.Sublevel()), j.IsActive() ? "true" : "false", j.ListID()});
  Indented(rows);
  Code("Classes().GetByNameMatch(\"Field\", qbMatchStartsWith);");
  classes.GetByNameMatch("Field", qbMatchStartsWith);
  rows = {{"FullName", "Children"}};
  for (Class& k : classes) rows.push_back({k.FullName(), std::to_string(k.Children().Count())});
  Indented(rows);

  ShowCustomerAndJob(4);
  ShowAccountTree(5);
  ShowItem(6);
  ShowCustomField(7);

  Step(8, "Change one",
       "Setting a property on a record read from QuickBooks makes it Dirty; Commit then sends a modify\n"
       "   request with the record's EditSequence, and QuickBooks answers with a new one.");
  ToDoList& toDos = BrenvaleGlobals::ToDoList();
  const std::string notes = "Call the Joneses about their retrofit";
  toDos.GetAll();
  ToDo* call = nullptr;
  for (ToDo& t : toDos)
    if (t.Notes() == notes) call = &t;
  if (!call) {
    Code("ToDoList().Add(\"" + notes + "\", true, false, Today());  ToDoList().Commit();");
    call = &toDos.Add(notes, true, false, Today());
    toDos.Commit();
  }
  const std::string before = call->EditSequence();
  const Date reminder = call->ReminderDate().IsNull() ? Today() : call->ReminderDate();
  Code("todo.ReminderDate(todo.ReminderDate().AddDays(7));  // put off by a week; now Dirty");
  Code("ToDoList().Commit();");
  call->ReminderDate(reminder.AddDays(7));
  toDos.Commit();
  out << "     ReminderDate " << DateToText(reminder) << " -> " << DateToText(call->ReminderDate())
      << ", EditSequence " << before << " -> " << call->EditSequence() << "\n";
  out << "   Some lists have no modify request in qbXML; the library refuses before sending anything:\n";
  jobTypes.GetAll();
  if (JobType* commercial = jobTypes.Find("Installation:Commercial")) {
    Code("JobTypes().Item(\"Installation:Commercial\").IsActive(false);  JobTypes().Commit();");
    commercial->IsActive(false);
    try {
      jobTypes.Commit();
      out << "     committed\n";
    } catch (const BrenvaleError& e) {
      PrintRaised(e);
    }
    jobTypes.GetAll();  // reading again leaves every record Clean
  }

  Step(9, "A validation failure",
       "Before anything is sent, each record checks its own rules and collects what fails in its Errors.\n"
       "   The batch leaves the record out and, after the batch, Commit raises error 1023.");
  const std::string longName = "Residential Solar Panel Installs";  // 32 characters; 31 is the limit
  Code("JobTypes().Add(\"" + longName + "\");");
  Code("JobTypes().Commit();");
  JobType& tooLong = jobTypes.Add(longName);
  try {
    jobTypes.Commit();
    out << "     committed\n";
  } catch (const BrenvaleError& e) {
    PrintRaised(e);
  }
  out << "   The record's own Errors:\n";
  PrintErrors(tooLong.Errors());
  Forget(jobTypes, tooLong);

  Step(10, "Delete one",
       "Delete sends a list delete request by ListID and takes the record out of the collection.");
  const std::string doomed = "Maintenance:Annual Service";
  if (JobType* annual = jobTypes.Find(doomed)) {
    const std::string id = annual->ListID();
    Code("JobTypes().Delete(\"" + id + "\");  // " + doomed);
    jobTypes.Delete(id);
    out << "     deleted; " << jobTypes.Count() << " job types remain (the next demo run adds it again)\n";
  }

  Step(11, "Close", "");
  Code("QBConnection().CloseConnection();");
  CloseCompany();

  out << "\nNext, try:\n"
      << "  brenvale info\n"
      << "  brenvale list JobType --format json\n"
      << "  brenvale add JobType Name=Retrofit Parent=Installation\n"
      << "  brenvale modify ToDo LISTID IsDone=true\n"
      << "  brenvale kinds\n"
      << "  brenvale --help\n";
  return kExitOk;
}

}  // namespace brenvale::tool
