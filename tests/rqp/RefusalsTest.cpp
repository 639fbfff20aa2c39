// Requests QuickBooks refuses, each answered with its status code and text, and nothing of them
// left behind: no record, no posting.
#include <ostream>
#include <regex>

#include <sqlite3.h>

#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace {

struct Refusal {
  std::string what;
  std::string request;  // "{Kind FullName}" stands for that record's ListID and EditSequence
  int code;
  std::string message;
};
void PrintTo(const Refusal& r, std::ostream* os) { *os << r.what; }

std::string Scalar(const std::string& path, const char* sql) {
  sqlite3* db = nullptr;
  std::string out;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &s, nullptr) == SQLITE_OK && sqlite3_step(s) == SQLITE_ROW)
      out = reinterpret_cast<const char*>(sqlite3_column_text(s, 0));
    sqlite3_finalize(s);
  }
  sqlite3_close(db);
  return out;
}

class RefusalsTest : public EngineTest, public ::testing::WithParamInterface<Refusal> {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    if (IsSkipped()) return;
    Add("Customer", "<Name>Acme</Name><OpenBalance>10</OpenBalance>");
    Add("Customer", "<Name>Roof</Name><ParentRef><FullName>Acme</FullName></ParentRef>");
    Add("Vendor", "<Name>Maker</Name>");
    Add("Account", "<Name>Cash</Name><AccountType>Bank</AccountType>");
    Add("ItemInventory", "<Name>Stock</Name>");
    Add("ItemService", "<Name>Labor</Name><SalesOrPurchase><Price>1</Price></SalesOrPurchase>");
    Add("ItemSalesTax", "<Name>State</Name>");
    Add("ItemSalesTaxGroup", "<Name>Combined</Name><ItemSalesTaxRef><FullName>State</FullName></ItemSalesTaxRef>");
    Add("ItemGroup", "<Name>Bundle</Name><ItemGroupLine><ItemRef><FullName>Labor</FullName></ItemRef></ItemGroupLine>");
    Add("ItemInventoryAssembly", "<Name>Kit</Name><ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Stock"
                                 "</FullName></ItemInventoryRef></ItemInventoryAssemblyLine>");
    Add("ItemInventoryAssembly", "<Name>Crate</Name><ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Kit"
                                 "</FullName></ItemInventoryRef></ItemInventoryAssemblyLine>");
  }

  // The request with "{Kind FullName}" replaced by the record's ListID and EditSequence elements,
  // and "[Kind FullName]" by its ListID.
  std::string Resolved(std::string request) {
    static const std::regex ref("[{\\[](\\w+) ([^}\\]]+)[}\\]]");
    std::smatch m;
    while (std::regex_search(request, m, ref)) {
      Status s = One("<" + m[1].str() + "QueryRq><FullName>" + m[2].str() + "</FullName></" + m[1].str() + "QueryRq>");
      std::string id = Text(s.node.first_child(), "ListID");
      std::string ids = m[0].str()[0] == '[' ? id
                                             : "<ListID>" + id + "</ListID><EditSequence>" +
                                                   Text(s.node.first_child(), "EditSequence") + "</EditSequence>";
      request.replace(static_cast<std::size_t>(m.position(0)), static_cast<std::size_t>(m.length(0)), ids);
    }
    return request;
  }
};

TEST_P(RefusalsTest, RefusedWholeWithQuickBooksStatus) {
  const Refusal& r = GetParam();
  std::string request = Resolved(r.request);
  ASSERT_EQ(request.find_first_of("{["), std::string::npos) << request;
  const std::string records = "SELECT count(*) || '/' || max(time_modified) || '/' || sum(length(ret)) FROM records";
  const std::string before = Scalar(Company(), records.c_str()), postings = Scalar(Company(), "SELECT count(*) FROM postings");
  Status s = One(request);
  EXPECT_EQ(s.code, r.code);
  EXPECT_EQ(s.severity, "Error");
  EXPECT_EQ(s.message, r.message);
  EXPECT_FALSE(s.node.first_child()) << "a refused request answers no record";
  EXPECT_EQ(Scalar(Company(), records.c_str()), before) << "a record was added or changed";
  EXPECT_EQ(Scalar(Company(), "SELECT count(*) FROM postings"), postings) << "something was posted";
}

const std::string kNoRecord = "  QuickBooks error message: Invalid argument.  The specified record does not exist in the list.";

INSTANTIATE_TEST_SUITE_P(
    Lists, RefusalsTest,
    ::testing::Values(
        Refusal{"NameOverItsLimit",
                "<CustomerAddRq><CustomerAdd><Name>" + std::string(42, 'n') + "</Name><OpenBalance>5</OpenBalance>"
                "</CustomerAdd></CustomerAddRq>",
                3070, "The string \"" + std::string(42, 'n') + "\" in the field \"Name\" is too long."},
        Refusal{"AccountNumberOverItsLimit",
                "<AccountAddRq><AccountAdd><Name>Long</Name><AccountType>Bank</AccountType><AccountNumber>12345678"
                "</AccountNumber><OpenBalance>5</OpenBalance></AccountAdd></AccountAddRq>",
                3070, "The string \"12345678\" in the field \"AccountNumber\" is too long."},
        Refusal{"AmountThatIsNoNumber",
                "<VendorAddRq><VendorAdd><Name>Owed</Name><OpenBalance>lots</OpenBalance></VendorAdd></VendorAddRq>",
                3040, "There was an error when converting the amount \"lots\" in the field \"OpenBalance\"."},
        Refusal{"UnknownTerms",
                "<CustomerAddRq><CustomerAdd><Name>B2</Name><TermsRef><FullName>Net 99</FullName></TermsRef>"
                "<OpenBalance>5</OpenBalance></CustomerAdd></CustomerAddRq>",
                3140, "There is an invalid reference to QuickBooks Terms \"Net 99\" in the Customer." + kNoRecord},
        Refusal{"UnknownAssetAccount",
                "<ItemInventoryAddRq><ItemInventoryAdd><Name>Bolt</Name><AssetAccountRef><FullName>Vault</FullName>"
                "</AssetAccountRef><QuantityOnHand>2</QuantityOnHand></ItemInventoryAdd></ItemInventoryAddRq>",
                3140, "There is an invalid reference to QuickBooks Account \"Vault\" in the ItemInventory." + kNoRecord},
        Refusal{"JobUnderAVendor",
                "<CustomerAddRq><CustomerAdd><Name>Job</Name><ParentRef><FullName>Maker</FullName></ParentRef>"
                "</CustomerAdd></CustomerAddRq>",
                3140, "There is an invalid reference to QuickBooks Customer \"Maker\" in the Customer." + kNoRecord},
        Refusal{"ServiceUnderAnInventoryItem",
                "<ItemServiceAddRq><ItemServiceAdd><Name>Fitting</Name><ParentRef><FullName>Stock</FullName></ParentRef>"
                "<SalesOrPurchase><Price>1</Price></SalesOrPurchase></ItemServiceAdd></ItemServiceAddRq>",
                3140, "There is an invalid reference to QuickBooks Item \"Stock\" in the ItemService." + kNoRecord},
        Refusal{"SubAccountOfAnotherType",
                "<AccountAddRq><AccountAdd><Name>Rent</Name><ParentRef><FullName>Cash</FullName></ParentRef>"
                "<AccountType>Expense</AccountType></AccountAdd></AccountAddRq>",
                3180, "There was an error when saving a Account list, element \"Rent\".  QuickBooks error message: A "
                      "subaccount must be of the same type as its parent account."},
        Refusal{"ParentAccountMovedUnderAnotherType",
                "<AccountModRq><AccountMod>{Account Cash}<ParentRef><FullName>Accounts Payable</FullName></ParentRef>"
                "</AccountMod></AccountModRq>",
                3180, "There was an error when modifying a Account list, element \"Cash\".  QuickBooks error message: A "
                      "subaccount must be of the same type as its parent account."},
        Refusal{"SpecialAccountRetyped",
                "<AccountModRq><AccountMod>{Account Accounts Receivable}<AccountType>Bank</AccountType></AccountMod>"
                "</AccountModRq>",
                3180, "There was an error when modifying a Account list, element \"Accounts Receivable\".  QuickBooks "
                      "error message: QuickBooks uses this account for its own purposes; its type cannot be changed."},
        Refusal{"NameTakenInAnotherNameList",
                "<VendorAddRq><VendorAdd><Name>ACME</Name><OpenBalance>5</OpenBalance></VendorAdd></VendorAddRq>", 3100,
                "The name \"ACME\" of the list element is already in use."},
        Refusal{"EmployeeNamedLikeACustomer",
                "<EmployeeAddRq><EmployeeAdd><FirstName>acme</FirstName></EmployeeAdd></EmployeeAddRq>", 3100,
                "The name \"acme\" of the list element is already in use."},
        Refusal{"JobNameTakenUnderItsCustomer",
                "<CustomerAddRq><CustomerAdd><Name>roof</Name><ParentRef><FullName>Acme</FullName></ParentRef>"
                "<OpenBalance>5</OpenBalance></CustomerAdd></CustomerAddRq>",
                3100, "The name \"Acme:roof\" of the list element is already in use."},
        Refusal{"VendorRenamedToACustomer",
                "<VendorModRq><VendorMod>{Vendor Maker}<Name>Acme</Name></VendorMod></VendorModRq>", 3100,
                "The name \"Acme\" of the list element is already in use."},
        Refusal{"SalesTaxGroupOfAGroup",
                "<ItemSalesTaxGroupAddRq><ItemSalesTaxGroupAdd><Name>Both</Name><ItemSalesTaxRef><FullName>Combined"
                "</FullName></ItemSalesTaxRef></ItemSalesTaxGroupAdd></ItemSalesTaxGroupAddRq>",
                3140, "There is an invalid reference to QuickBooks Item \"Combined\" in the ItemSalesTaxGroup." + kNoRecord},
        Refusal{"GroupInAGroup",
                "<ItemGroupAddRq><ItemGroupAdd><Name>Nested</Name><ItemGroupLine><ItemRef><FullName>Bundle</FullName>"
                "</ItemRef></ItemGroupLine></ItemGroupAdd></ItemGroupAddRq>",
                3140, "There is an invalid reference to QuickBooks Item \"Bundle\" in the ItemGroup." + kNoRecord},
        Refusal{"AssemblyOfAGroup",
                "<ItemInventoryAssemblyAddRq><ItemInventoryAssemblyAdd><Name>Odd</Name><ItemInventoryAssemblyLine>"
                "<ItemInventoryRef><FullName>Bundle</FullName></ItemInventoryRef></ItemInventoryAssemblyLine>"
                "</ItemInventoryAssemblyAdd></ItemInventoryAssemblyAddRq>",
                3140, "There is an invalid reference to QuickBooks Item \"Bundle\" in the ItemInventoryAssembly." + kNoRecord},
        Refusal{"AssemblyBuiltFromItself",
                "<ItemInventoryAssemblyModRq><ItemInventoryAssemblyMod>{ItemInventoryAssembly Kit}"
                "<ItemInventoryAssemblyLine><ItemInventoryRef><FullName>Crate</FullName></ItemInventoryRef>"
                "</ItemInventoryAssemblyLine></ItemInventoryAssemblyMod></ItemInventoryAssemblyModRq>",
                3180, "There was an error when modifying a Item list, element \"Kit\".  QuickBooks error message: An "
                      "assembly cannot be one of its own components."},
        Refusal{"CustomerWithJobsDeleted",
                 "<ListDelRq><ListDelType>Customer</ListDelType><ListID>[Customer Acme]</ListID></ListDelRq>", 3170,
                "There was an error when deleting a Customer list, element \"Acme\".  QuickBooks error message: This "
                "list element has sub-elements; delete or move them first."}),
    [](const ::testing::TestParamInfo<Refusal>& p) { return p.param.what; });

// What only other editions of QuickBooks have (QuickBooks Online, the Canadian, UK and Australian
// desktops) is refused whole by a US desktop, as an element its parser does not know; a Canadian
// one takes what it has.
using EditionsTest = EngineTest;

TEST_F(EditionsTest, ElementsOfOtherEditionsAreRefusedWhole) {
  const std::pair<std::string, std::string> requests[] = {
      {"<CustomerAddRq><CustomerAdd><Name>A</Name><Mobile>555</Mobile></CustomerAdd></CustomerAddRq>", "Mobile"},
      {"<CustomerAddRq><CustomerAdd><Name>A</Name><SalesTaxCountry>Canada</SalesTaxCountry></CustomerAdd>"
       "</CustomerAddRq>", "SalesTaxCountry"},
      {"<VendorAddRq><VendorAdd><Name>V</Name><IsSalesTaxAgency>true</IsSalesTaxAgency></VendorAdd></VendorAddRq>",
       "IsSalesTaxAgency"},
      {"<EmployeeAddRq><EmployeeAdd><Name>E</Name></EmployeeAdd></EmployeeAddRq>", "Name"},
      {"<EmployeeAddRq><EmployeeAdd><FirstName>E</FirstName><EmployeeAddress><Country>US</Country></EmployeeAddress>"
       "</EmployeeAdd></EmployeeAddRq>", "Country"},
      {"<AccountAddRq><AccountAdd><Name>X</Name><AccountType>Bank</AccountType><DetailAccountType>Checking"
       "</DetailAccountType></AccountAdd></AccountAddRq>", "DetailAccountType"},
      {"<ItemServiceAddRq><ItemServiceAdd><Name>S</Name><IsTaxIncluded>true</IsTaxIncluded><SalesOrPurchase><Price>1"
       "</Price></SalesOrPurchase></ItemServiceAdd></ItemServiceAddRq>", "IsTaxIncluded"},
  };
  for (auto& [request, element] : requests) {
    BrenvaleError e = Failure(Message(request));
    EXPECT_EQ(e.Number(), brenvale::rqp::hresult::kParseError) << element;
    EXPECT_NE(e.Description().find("Element \"" + element + "\" of "), std::string::npos) << e.Description();
    EXPECT_NE(e.Description().find("is not in QuickBooks Desktop (US)."), std::string::npos) << e.Description();
  }
  EXPECT_EQ(One("<CustomerQueryRq><FullName>A</FullName></CustomerQueryRq>").code, 500);

  engine_->EndSession(ticket_);
  brenvale::rqp::HostFacts canada;
  canada.Country = "CA";
  Open(canada);
  EXPECT_EQ(Send(requests[1].first)[0].code, 0);  // a Canadian desktop has it
  BrenvaleError e = Failure(Message("<CustomerAddRq><CustomerAdd><Name>B</Name><ItemSalesTaxRef><FullName>T</FullName>"
                                    "</ItemSalesTaxRef></CustomerAdd></CustomerAddRq>"));
  EXPECT_NE(e.Description().find("Element \"ItemSalesTaxRef\" of \"CustomerAdd\" is not in QuickBooks Desktop (Canada)."),
            std::string::npos) << e.Description();
}

}  // namespace
}  // namespace rqptest
