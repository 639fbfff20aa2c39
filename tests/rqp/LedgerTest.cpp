// The ledger: opening balances posted as QuickBooks posts them, and every balance, total balance,
// quantity on hand and average cost an answer carries computed from the postings.
#include <sqlite3.h>

#include "brenvale/rqp/store/Store.hpp"
#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace {

// Rows of an SQL query against a company file, each row's columns joined by "|".
std::vector<std::string> Rows(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  std::vector<std::string> out;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &s, nullptr) == SQLITE_OK) {
      while (sqlite3_step(s) == SQLITE_ROW) {
        std::string row;
        for (int i = 0; i < sqlite3_column_count(s); ++i)
          row += (i ? "|" : "") + std::string(reinterpret_cast<const char*>(sqlite3_column_text(s, i)));
        out.push_back(row);
      }
    } else {
      out.push_back(sqlite3_errmsg(db));
    }
    sqlite3_finalize(s);
  }
  sqlite3_close(db);
  return out;
}

class LedgerTest : public EngineTest {
 protected:
  // One element of the record `fullName` of `kind`, as a query answers it now.
  std::string Now(const std::string& kind, const std::string& fullName, const char* element) {
    Status s = One("<" + kind + "QueryRq><FullName>" + fullName + "</FullName></" + kind + "QueryRq>");
    return Text(s.node.first_child(), element);
  }
  std::string Balance(const std::string& account) { return Now("Account", account, "Balance"); }
  // The postings of the company, "account name|amount|quantity|entity name|date", in posting order.
  std::vector<std::string> Postings() {
    return Rows(Company(),
                "SELECT a.full_name, p.amount, coalesce(p.quantity, ''), coalesce(e.full_name, coalesce(i.full_name, '')), "
                "p.date FROM postings p JOIN records a ON a.list_id = p.account LEFT JOIN records e ON e.list_id = p.entity "
                "LEFT JOIN records i ON i.list_id = p.item ORDER BY p.id");
  }
};

TEST_F(LedgerTest, CustomerOpeningBalancesAreOwedOnReceivablesAndRollUpThroughJobs) {
  Add("Customer", "<Name>Acme</Name><OpenBalance>100</OpenBalance><OpenBalanceDate>2024-01-15</OpenBalanceDate>");
  pugi::xml_node job = Add("Customer", "<Name>Roof</Name><ParentRef><FullName>Acme</FullName></ParentRef>"
                                       "<OpenBalance>25.50</OpenBalance>");
  EXPECT_EQ(Text(job, "Balance"), "25.50");
  EXPECT_EQ(Text(job, "TotalBalance"), "25.50");
  Add("Customer", "<Name>Gutter</Name><ParentRef><FullName>Acme:Roof</FullName></ParentRef><OpenBalance>4.5</OpenBalance>");
  Add("Customer", "<Name>Other</Name><OpenBalance>-10</OpenBalance>");
  EXPECT_EQ(Now("Customer", "Acme", "Balance"), "100.00");
  EXPECT_EQ(Now("Customer", "Acme", "TotalBalance"), "130.00");
  EXPECT_EQ(Now("Customer", "Acme:Roof", "TotalBalance"), "30.00");
  EXPECT_EQ(Now("Customer", "Other", "TotalBalance"), "-10.00");
  EXPECT_EQ(Balance("Accounts Receivable"), "120.00");
  EXPECT_EQ(Balance("Uncategorized Income"), "0.00");  // income accounts carry no balance of their own
  // Posted as QuickBooks posts them: receivable against uncategorized income, for the customer, on
  // the opening-balance date (today without one).
  auto postings = Postings();
  ASSERT_EQ(postings.size(), 8u);
  EXPECT_EQ(postings[0], "Accounts Receivable|10000000||Acme|2024-01-15");
  EXPECT_EQ(postings[1], "Uncategorized Income|-10000000||Acme|2024-01-15");
  EXPECT_EQ(postings[2].substr(0, postings[2].rfind('|')), "Accounts Receivable|2550000||Acme:Roof");

  auto over = [&](const char* op, const char* amount) {
    return RetTexts(One(std::string("<CustomerQueryRq><TotalBalanceFilter><Operator>") + op + "</Operator><Amount>" +
                     amount + "</Amount></TotalBalanceFilter></CustomerQueryRq>"));
  };
  EXPECT_EQ(over("GreaterThan", "100"), std::vector<std::string>{"Acme"});
  EXPECT_EQ(over("GreaterThanEqual", "4.50"), (std::vector<std::string>{"Acme", "Acme:Roof", "Acme:Roof:Gutter"}));
  EXPECT_EQ(over("LessThan", "0"), std::vector<std::string>{"Other"});

  // A job moved to another customer takes its balance along; nothing is stored to go stale.
  pugi::xml_node roof = One("<CustomerQueryRq><FullName>Acme:Roof</FullName></CustomerQueryRq>").node.first_child();
  ASSERT_EQ(Mod("Customer", roof, "<ParentRef><FullName>Other</FullName></ParentRef>").code, 0);
  EXPECT_EQ(Now("Customer", "Acme", "TotalBalance"), "100.00");
  EXPECT_EQ(Now("Customer", "Other", "TotalBalance"), "20.00");
  EXPECT_EQ(Now("Customer", "Other:Roof:Gutter", "Balance"), "4.50");
  EXPECT_EQ(Balance("Accounts Receivable"), "120.00");
  // A customer with a balance has a transaction: it cannot be deleted.
  pugi::xml_node acme = One("<CustomerQueryRq><FullName>Acme</FullName></CustomerQueryRq>").node.first_child();
  Status del = One("<ListDelRq><ListDelType>Customer</ListDelType><ListID>" + Text(acme, "ListID") + "</ListID></ListDelRq>");
  EXPECT_EQ(del.code, 3170);
  EXPECT_EQ(del.message, "There was an error when deleting a Customer list, element \"Acme\".  QuickBooks error "
                         "message: This object is in use and cannot be deleted.");
}

TEST_F(LedgerTest, VendorOpeningBalancesAreOwedOnPayables) {
  pugi::xml_node v = Add("Vendor", "<Name>Supplier</Name><OpenBalance>40</OpenBalance><OpenBalanceDate>2024-02-01"
                                   "</OpenBalanceDate>");
  EXPECT_EQ(Text(v, "Balance"), "40.00");
  Add("Vendor", "<Name>Quiet</Name>");
  EXPECT_EQ(Balance("Accounts Payable"), "40.00");
  EXPECT_EQ(Balance("Uncategorized Expenses"), "0.00");
  EXPECT_EQ(Postings(), (std::vector<std::string>{"Accounts Payable|-4000000||Supplier|2024-02-01",
                                                  "Uncategorized Expenses|4000000||Supplier|2024-02-01"}));
  Status owed = One("<VendorQueryRq><TotalBalanceFilter><Operator>GreaterThan</Operator><Amount>0</Amount>"
                    "</TotalBalanceFilter></VendorQueryRq>");
  EXPECT_EQ(Text(owed.node, "VendorRet/Name"), "Supplier");
  EXPECT_EQ(std::distance(owed.node.children().begin(), owed.node.children().end()), 1);
  // The same balance through the query across the name lists.
  Status entity = One("<EntityQueryRq><FullName>Supplier</FullName></EntityQueryRq>");
  EXPECT_EQ(Text(entity.node, "VendorRet/Balance"), "40.00");
}

TEST_F(LedgerTest, AccountOpeningBalancesAreSetAgainstOpeningBalanceEquityAndSumThroughTheTree) {
  Add("Account", "<Name>Cash</Name><AccountType>Bank</AccountType><OpenBalance>1000</OpenBalance>"
                 "<OpenBalanceDate>2024-01-01</OpenBalanceDate>");
  Add("Account", "<Name>Payroll</Name><ParentRef><FullName>Cash</FullName></ParentRef><AccountType>Bank</AccountType>"
                 "<OpenBalance>250</OpenBalance>");
  pugi::xml_node petty = Add("Account", "<Name>Petty</Name><ParentRef><FullName>Cash:Payroll</FullName></ParentRef>"
                                        "<AccountType>Bank</AccountType><OpenBalance>50</OpenBalance>");
  Add("Account", "<Name>Visa</Name><AccountType>CreditCard</AccountType><OpenBalance>200</OpenBalance>");
  EXPECT_EQ(Now("Account", "Cash", "Balance"), "1000.00");
  EXPECT_EQ(Now("Account", "Cash", "TotalBalance"), "1300.00");
  EXPECT_EQ(Now("Account", "Cash:Payroll", "TotalBalance"), "300.00");
  EXPECT_EQ(Text(petty, "TotalBalance"), "50.00");
  EXPECT_EQ(Now("Account", "Visa", "Balance"), "200.00");  // a liability's balance is what is owed
  EXPECT_EQ(Balance("Opening Balance Equity"), "1100.00");

  // A new opening balance replaces the old one; a new date moves it.
  ASSERT_EQ(Mod("Account", petty, "<OpenBalance>75</OpenBalance>").code, 0);
  EXPECT_EQ(Now("Account", "Cash", "TotalBalance"), "1325.00");
  pugi::xml_node cash = One("<AccountQueryRq><FullName>Cash</FullName></AccountQueryRq>").node.first_child();
  ASSERT_EQ(Mod("Account", cash, "<OpenBalanceDate>2023-12-31</OpenBalanceDate>").code, 0);
  EXPECT_EQ(Rows(Company(), "SELECT DISTINCT date FROM postings p JOIN records r ON r.list_id = p.account "
                            "WHERE r.full_name = 'Cash'"),
            std::vector<std::string>{"2023-12-31"});
  EXPECT_EQ(Now("Account", "Cash", "Balance"), "1000.00");
  ASSERT_EQ(Mod("Account", One("<AccountQueryRq><FullName>Visa</FullName></AccountQueryRq>").node.first_child(),
                "<OpenBalance>0</OpenBalance>").code, 0);
  EXPECT_EQ(Balance("Opening Balance Equity"), "1325.00");
  // Balances are not edits: the parent's edit sequence stays.
  EXPECT_EQ(Now("Account", "Cash", "EditSequence"), Text(Read("Account", cash), "EditSequence"));

  // Receivables and payables are owed by someone; non-posting accounts post nothing.
  for (const char* type : {"AccountsReceivable", "AccountsPayable", "NonPosting"}) {
    Status s = One(std::string("<AccountAddRq><AccountAdd><Name>Odd</Name><AccountType>") + type +
                   "</AccountType><OpenBalance>5</OpenBalance></AccountAdd></AccountAddRq>");
    EXPECT_EQ(s.code, 3180) << type;
    EXPECT_EQ(s.message, "There was an error when saving a Account list, element \"Odd\".  QuickBooks error message: "
                         "An opening balance cannot be entered for an account of this type.");
  }
  EXPECT_EQ(One("<AccountQueryRq><FullName>Odd</FullName></AccountQueryRq>").code, 500);
}

TEST_F(LedgerTest, InventoryStartsWithItsStockOnItsAssetAccount) {
  pugi::xml_node widget = Add("ItemInventory", "<Name>Widget</Name><QuantityOnHand>4</QuantityOnHand><TotalValue>10"
                                               "</TotalValue><InventoryDate>2024-03-01</InventoryDate>");
  EXPECT_EQ(Text(widget, "QuantityOnHand"), "4");
  EXPECT_EQ(Text(widget, "AverageCost"), "2.50");
  EXPECT_EQ(Text(widget, "AssetAccountRef/FullName"), "Inventory Asset");
  // Without a value, the stock is worth its quantity at the purchase cost.
  Add("Account", "<Name>Warehouse</Name><AccountType>OtherCurrentAsset</AccountType>");
  pugi::xml_node bolt = Add("ItemInventory", "<Name>Bolt</Name><PurchaseCost>2.25</PurchaseCost><AssetAccountRef>"
                                             "<FullName>Warehouse</FullName></AssetAccountRef><QuantityOnHand>3"
                                             "</QuantityOnHand>");
  EXPECT_EQ(Text(bolt, "AverageCost"), "2.25");
  pugi::xml_node kit = Add("ItemInventoryAssembly", "<Name>Kit</Name><QuantityOnHand>1.5</QuantityOnHand><TotalValue>9"
                                                    "</TotalValue><ItemInventoryAssemblyLine><ItemInventoryRef><FullName>"
                                                    "Bolt</FullName></ItemInventoryRef><Quantity>2</Quantity>"
                                                    "</ItemInventoryAssemblyLine>");
  EXPECT_EQ(Text(kit, "QuantityOnHand"), "1.5");
  EXPECT_EQ(Text(kit, "AverageCost"), "6.00");
  EXPECT_EQ(Balance("Inventory Asset"), "19.00");
  EXPECT_EQ(Balance("Warehouse"), "6.75");
  EXPECT_EQ(Balance("Opening Balance Equity"), "25.75");
  EXPECT_EQ(Postings()[0], "Inventory Asset|1000000|400000|Widget|2024-03-01");
  // The item query across kinds answers the same stock.
  Status items = One("<ItemQueryRq><FullName>Bolt</FullName><FullName>Kit</FullName></ItemQueryRq>");
  EXPECT_EQ(Text(items.node, "ItemInventoryRet/QuantityOnHand"), "3");
  EXPECT_EQ(Text(items.node, "ItemInventoryAssemblyRet/AverageCost"), "6.00");
  // Only what was asked for, and still computed.
  Status slim = One("<ItemInventoryQueryRq><FullName>Widget</FullName><IncludeRetElement>QuantityOnHand"
                    "</IncludeRetElement></ItemInventoryQueryRq>");
  EXPECT_EQ(Text(slim.node, "ItemInventoryRet/QuantityOnHand"), "4");
  EXPECT_FALSE(slim.node.first_child().child("Name"));
  // Stock on hand is a transaction: the item and its accounts are in use.
  EXPECT_EQ(One("<ListDelRq><ListDelType>ItemInventory</ListDelType><ListID>" + Text(widget, "ListID") +
                "</ListID></ListDelRq>").code, 3170);
}

TEST_F(LedgerTest, TheInvariantCheckFindsATransactionThatDoesNotBalance) {
  Add("Customer", "<Name>Acme</Name><OpenBalance>100</OpenBalance>");
  engine_->EndSession(ticket_);
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(Company().c_str(), &db), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(db, "UPDATE postings SET amount = amount + 1 WHERE line = 1", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(db);
  auto faults = LedgerFaults(Company());
  ASSERT_EQ(faults.size(), 1u);
  EXPECT_EQ(faults[0].rfind("unbalanced OpeningBalance ", 0), 0u) << faults[0];
  ASSERT_EQ(sqlite3_open(Company().c_str(), &db), SQLITE_OK);
  sqlite3_exec(db, "UPDATE postings SET amount = amount - 1 WHERE line = 1", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  Open();
}

// A company file as the second engine wrote it: balances and stock kept as totals in the records
// (and in the records' balance column), the special accounts, a customer with a job, a vendor, a
// bank account and an inventory item.
void WriteSecondEngineCompany(const std::string& path) {
  brenvale::rqp::detail::Store::Create(path, 2);
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  std::string rows =
      "INSERT INTO records (list_id, kind, name_group, full_name, name_key, parent_id, sublevel, is_active, "
      "time_created, time_modified, edit_sequence, sort_group, balance, ret) VALUES ";
  int n = 0;
  auto row = [&](int kind, int group, const std::string& name, const std::string& parent, int sort, long long balance,
                 const std::string& ret) {
    std::string id = "8000000" + std::to_string(++n) + "-1700000000";
    std::string root = ret.substr(1, ret.find('>') - 1);
    std::string name_key = name;
    for (auto& c : name_key) c = c == ':' ? '\x01' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    rows += std::string(n > 1 ? "," : "") + "('" + id + "'," + std::to_string(kind) + "," + std::to_string(group) + ",'" +
            name + "','" + name_key + "','" + parent + "'," + (parent.empty() ? "0" : "1") + ",1,1700000000,1700000000," +
            "'1700000000'," + std::to_string(sort) + "," + std::to_string(balance) + ",'<" + root + "><ListID>" + id +
            "</ListID><TimeCreated>2023-11-14T22:13:20+00:00</TimeCreated><TimeModified>2023-11-14T22:13:20+00:00" +
            "</TimeModified><EditSequence>1700000000</EditSequence>" + ret.substr(ret.find('>') + 1) + "')";
    return id;
  };
  auto account = [&](const std::string& name, const std::string& type, int sort, const std::string& special,
                     const std::string& balance) {
    return row(1, 101, name, "", sort, 0,
               "<AccountRet><Name>" + name + "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive>"
               "<Sublevel>0</Sublevel><AccountType>" + type + "</AccountType>" +
               (special.empty() ? "" : "<SpecialAccountType>" + special + "</SpecialAccountType>") + "<Balance>" +
               balance + "</Balance><TotalBalance>" + balance + "</TotalBalance><CashFlowClassification>" +
               "NotApplicable</CashFlowClassification></AccountRet>");
  };
  account("Accounts Receivable", "AccountsReceivable", 1, "AccountsReceivable", "0.00");
  account("Accounts Payable", "AccountsPayable", 5, "AccountsPayable", "0.00");
  account("Opening Balance Equity", "Equity", 9, "OpeningBalanceEquity", "0.00");
  account("Uncategorized Income", "Income", 10, "UncategorizedIncome", "0.00");
  account("Uncategorized Expenses", "Expense", 12, "UncategorizedExpenses", "0.00");
  account("Inventory Asset", "OtherCurrentAsset", 2, "InventoryAssets", "0.00");
  account("Savings", "Bank", 0, "", "500.00");
  auto customer = [&](const std::string& name, const std::string& parent, const std::string& own,
                      const std::string& total) {
    std::string leaf = name.substr(name.rfind(':') + 1);
    return row(2, 1, name, parent, 0, 0,
               "<CustomerRet><Name>" + leaf + "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive>" +
               (parent.empty() ? "" : "<ParentRef><ListID>" + parent + "</ListID></ParentRef>") + "<Sublevel>" +
               (parent.empty() ? "0" : "1") + "</Sublevel><Balance>" + own + "</Balance><TotalBalance>" + total +
               "</TotalBalance><JobStatus>None</JobStatus><PreferredDeliveryMethod>None</PreferredDeliveryMethod>"
               "</CustomerRet>");
  };
  std::string acme = customer("Acme", "", "100.00", "125.00");
  customer("Acme:Roof", acme, "25.00", "25.00");
  row(3, 1, "Supplier", "", 0, 4000000,
      "<VendorRet><Name>Supplier</Name><IsActive>true</IsActive><IsVendorEligibleFor1099>false</IsVendorEligibleFor1099>"
      "<Balance>40.00</Balance></VendorRet>");
  row(23, 2, "Widget", "", 3, 0,
      "<ItemInventoryRet><Name>Widget</Name><FullName>Widget</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel>"
      "<SalesPrice>0.00</SalesPrice><PurchaseCost>0.00</PurchaseCost><QuantityOnHand>4</QuantityOnHand>"
      "<AverageCost>2.50</AverageCost><QuantityOnOrder>0</QuantityOnOrder><QuantityOnSalesOrder>0</QuantityOnSalesOrder>"
      "</ItemInventoryRet>");
  rows += "; INSERT INTO meta (key, value) VALUES ('counter.listid', '" + std::to_string(n) + "'), ('created', '1700000000');";
  char* error = nullptr;
  EXPECT_EQ(sqlite3_exec(db, rows.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "") << rows;
  sqlite3_free(error);
  sqlite3_close(db);
}

class SecondEngineFileTest : public LedgerTest {
 protected:
  void SetUp() override {
    if (!QbxmlSchema()) GTEST_SKIP() << "no qbXML schema in " << SchemaFolder() << ": responses cannot be checked";
    TempFolderTest::SetUp();
    WriteSecondEngineCompany(Company());
    Open();
  }
};

TEST_F(SecondEngineFileTest, StoredTotalsBecomeOpeningBalances) {
  EXPECT_EQ(Rows(Company(), "PRAGMA user_version"), std::vector<std::string>{
                                                       std::to_string(brenvale::rqp::detail::Store::kSchemaVersion)});
  EXPECT_EQ(Now("Customer", "Acme", "Balance"), "100.00");
  EXPECT_EQ(Now("Customer", "Acme", "TotalBalance"), "125.00");
  EXPECT_EQ(Now("Vendor", "Supplier", "Balance"), "40.00");
  EXPECT_EQ(Now("Account", "Savings", "Balance"), "500.00");
  EXPECT_EQ(Now("ItemInventory", "Widget", "QuantityOnHand"), "4");
  EXPECT_EQ(Now("ItemInventory", "Widget", "AverageCost"), "2.50");
  EXPECT_EQ(Balance("Accounts Receivable"), "125.00");
  EXPECT_EQ(Balance("Accounts Payable"), "40.00");
  EXPECT_EQ(Balance("Inventory Asset"), "10.00");
  EXPECT_EQ(Balance("Opening Balance Equity"), "510.00");
  // Dated when the records were made; the records keep no totals.
  EXPECT_EQ(Rows(Company(), "SELECT DISTINCT date FROM postings"), std::vector<std::string>{"2023-11-14"});
  EXPECT_EQ(Rows(Company(), "SELECT count(*) FROM records WHERE ret GLOB '*<Balance>[0-9-]*'"), std::vector<std::string>{"0"});
  // Opened again, nothing is posted twice.
  engine_->EndSession(ticket_);
  Open();
  EXPECT_EQ(Balance("Accounts Receivable"), "125.00");
  EXPECT_EQ(Rows(Company(), "SELECT count(*) FROM postings"), std::vector<std::string>{"10"});
}

}  // namespace
}  // namespace rqptest
