// Data extensions on every kind of record that carries them: a value added, answered in the record
// when the query names its owner (and only then), modified and deleted; QuickBooks' own custom
// fields (owner "0") beside applications' fields.
#include <ostream>

#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace {

const std::string kApp = "{6B063959-81B0-4622-85D6-F548C8CCB517}";
const std::string kOtherApp = "{0F2C5B3E-1111-2222-3333-444455556666}";

struct Carrier {
  std::string objectType;  // ListDataExtType, or "Company"
  std::string kind;        // what is added and queried
  std::string add;         // its Add body
  std::string name;        // its full name
};
void PrintTo(const Carrier& c, std::ostream* os) { *os << c.kind; }

class DataExtTest : public EngineTest {
 protected:
  Status Define(const std::string& owner, const std::string& name, const std::string& type,
                const std::vector<std::string>& objects) {
    std::string assigned;
    for (auto& o : objects) assigned += "<AssignToObject>" + o + "</AssignToObject>";
    return One("<DataExtDefAddRq><DataExtDefAdd><OwnerID>" + owner + "</OwnerID><DataExtName>" + name +
               "</DataExtName><DataExtType>" + type + "</DataExtType>" + assigned + "</DataExtDefAdd></DataExtDefAddRq>");
  }
  // DataExtAdd, DataExtMod or DataExtDel ("Add", "Mod", "Del") of a value on the object.
  Status Value(const std::string& op, const std::string& owner, const std::string& field, const std::string& objectType,
               const std::string& fullName, const std::string& value = {}) {
    std::string object = objectType == "Company" ? "<OtherDataExtType>Company</OtherDataExtType>"
                                                 : "<ListDataExtType>" + objectType + "</ListDataExtType><ListObjRef>"
                                                   "<FullName>" + fullName + "</FullName></ListObjRef>";
    return One("<DataExt" + op + "Rq><DataExt" + op + "><OwnerID>" + owner + "</OwnerID><DataExtName>" + field +
               "</DataExtName>" + object + (op == "Del" ? "" : "<DataExtValue>" + value + "</DataExtValue>") +
               "</DataExt" + op + "></DataExt" + op + "Rq>");
  }
  // The record as `query` answers it with the data extensions of `owner` (none when empty).
  pugi::xml_node Answered(const std::string& query, const std::string& fullName, const std::string& owner) {
    std::string filter = query == "Company" ? "" : "<FullName>" + fullName + "</FullName>";
    Status s = One("<" + query + "QueryRq>" + filter + (owner.empty() ? "" : "<OwnerID>" + owner + "</OwnerID>") + "</" +
                   query + "QueryRq>");
    EXPECT_EQ(s.code, 0) << s.message;
    return s.node.first_child();
  }
};

class CarrierTest : public DataExtTest, public ::testing::WithParamInterface<Carrier> {
 protected:
  void SetUp() override {
    DataExtTest::SetUp();
    if (!IsSkipped()) Add("ItemSalesTax", "<Name>County</Name>");  // what a sales tax group holds
  }
};

TEST_P(CarrierTest, ValuesLiveOnTheRecordAndComeBackForTheirOwner) {
  const Carrier& c = GetParam();
  if (!c.add.empty()) Add(c.kind, c.add);
  ASSERT_EQ(Define(kApp, "Tag", "STR255TYPE", {c.objectType}).code, 0);
  ASSERT_EQ(Define(kOtherApp, "Tag", "AMTTYPE", {}).code, 0);  // the same name, another owner
  Status added = Value("Add", kApp, "tag", c.objectType, c.name, "first");
  ASSERT_EQ(added.code, 0) << added.message;
  EXPECT_EQ(Text(added.node, "DataExtRet/DataExtName"), "Tag");
  EXPECT_EQ(Text(added.node, "DataExtRet/DataExtValue"), "first");
  ASSERT_EQ(Value("Add", kOtherApp, "Tag", c.objectType, c.name, "12.5").code, 0);

  std::vector<std::string> queries = {c.kind};
  if (c.kind.rfind("Item", 0) == 0) queries.push_back("Item");
  for (auto& query : queries) {
    SCOPED_TRACE(query);
    pugi::xml_node mine = Answered(query, c.name, kApp);
    EXPECT_EQ(mine.select_nodes("DataExtRet").size(), 1u);
    EXPECT_EQ(Text(mine, "DataExtRet/OwnerID"), kApp);
    EXPECT_EQ(Text(mine, "DataExtRet/DataExtType"), "STR255TYPE");
    EXPECT_EQ(Text(mine, "DataExtRet/DataExtValue"), "first");
    EXPECT_FALSE(Answered(query, c.name, "").child("DataExtRet"));
    EXPECT_EQ(Text(Answered(query, c.name, kOtherApp), "DataExtRet/DataExtValue"), "12.50");
  }
  // Both owners at once: the values of each.
  Status both = One("<" + c.kind + "QueryRq>" + (c.objectType == "Company" ? "" : "<FullName>" + c.name + "</FullName>") +
                    "<OwnerID>" + kApp + "</OwnerID><OwnerID>" + kOtherApp + "</OwnerID></" + c.kind + "QueryRq>");
  EXPECT_EQ(both.node.first_child().select_nodes("DataExtRet").size(), 2u);

  ASSERT_EQ(Value("Mod", kApp, "Tag", c.objectType, c.name, "second").code, 0);
  EXPECT_EQ(Text(Answered(c.kind, c.name, kApp), "DataExtRet/DataExtValue"), "second");
  Status del = Value("Del", kApp, "Tag", c.objectType, c.name);
  ASSERT_EQ(del.code, 0) << del.message;
  EXPECT_EQ(Text(del.node, "DataExtDelRet/DataExtName"), "Tag");
  EXPECT_FALSE(Answered(c.kind, c.name, kApp).child("DataExtRet"));
  EXPECT_EQ(Value("Mod", kApp, "Tag", c.objectType, c.name, "third").code, 3120);
  EXPECT_EQ(Value("Del", kApp, "Tag", c.objectType, c.name).code, 3120);
}

const std::string kPrice = "<SalesOrPurchase><Price>1</Price></SalesOrPurchase>";

INSTANTIATE_TEST_SUITE_P(
    Kinds, CarrierTest,
    ::testing::Values(
        Carrier{"Account", "Account", "<Name>Cash</Name><AccountType>Bank</AccountType>", "Cash"},
        Carrier{"Customer", "Customer", "<Name>Acme</Name>", "Acme"},
        Carrier{"Vendor", "Vendor", "<Name>Maker</Name>", "Maker"},
        Carrier{"Employee", "Employee", "<FirstName>Eve</FirstName><LastName>Ray</LastName>", "Eve Ray"},
        Carrier{"OtherName", "OtherName", "<Name>Owner</Name>", "Owner"},
        Carrier{"Item", "ItemService", "<Name>Labor</Name>" + kPrice, "Labor"},
        Carrier{"Item", "ItemNonInventory", "<Name>Part</Name>" + kPrice, "Part"},
        Carrier{"Item", "ItemOtherCharge", "<Name>Fee</Name>" + kPrice, "Fee"},
        Carrier{"Item", "ItemInventory", "<Name>Widget</Name>", "Widget"},
        Carrier{"Item", "ItemInventoryAssembly", "<Name>Kit</Name>", "Kit"},
        Carrier{"Item", "ItemFixedAsset", "<Name>Truck</Name><AcquiredAs>New</AcquiredAs><PurchaseDesc>F150</PurchaseDesc>"
                                          "<PurchaseDate>2023-05-01</PurchaseDate>", "Truck"},
        Carrier{"Item", "ItemSubtotal", "<Name>Sub</Name>", "Sub"},
        Carrier{"Item", "ItemDiscount", "<Name>Disc</Name><DiscountRate>1</DiscountRate>", "Disc"},
        Carrier{"Item", "ItemPayment", "<Name>Pay</Name>", "Pay"},
        Carrier{"Item", "ItemSalesTax", "<Name>State</Name>", "State"},
        Carrier{"Item", "ItemSalesTaxGroup", "<Name>Both</Name><ItemSalesTaxRef><FullName>County</FullName>"
                                             "</ItemSalesTaxRef>", "Both"},
        Carrier{"Item", "ItemGroup", "<Name>Bundle</Name>", "Bundle"},
        Carrier{"Company", "Company", "", ""}),
    [](const ::testing::TestParamInfo<Carrier>& p) { return p.param.kind; });

TEST_F(DataExtTest, QuickBooksOwnCustomFieldsHoldTextOnTheObjectsTheyAreAssignedTo) {
  Add("Customer", "<Name>Acme</Name>");
  Add("Vendor", "<Name>Maker</Name>");
  ASSERT_EQ(Define("0", "Color", "STR255TYPE", {"Customer", "Item"}).code, 0);
  ASSERT_EQ(Value("Add", "0", "Color", "Customer", "Acme", "Blue").code, 0);
  EXPECT_EQ(Text(Answered("Customer", "Acme", "0"), "DataExtRet/OwnerID"), "0");
  EXPECT_EQ(Text(Answered("Customer", "Acme", "0"), "DataExtRet/DataExtValue"), "Blue");
  EXPECT_FALSE(Answered("Customer", "Acme", kApp).child("DataExtRet"));
  Status vendor = Value("Add", "0", "Color", "Vendor", "Maker", "Red");
  EXPECT_EQ(vendor.code, 3180);
  EXPECT_EQ(vendor.message, "There was an error when saving a data extension, element \"Color\".  QuickBooks error "
                            "message: The custom field is not assigned to this kind of object.");
  // Assigned to vendors too, then taken from them again.
  auto mod = [&](const std::string& body) {
    return One("<DataExtDefModRq><DataExtDefMod><OwnerID>0</OwnerID><DataExtName>Color</DataExtName>" + body +
               "</DataExtDefMod></DataExtDefModRq>");
  };
  Status assigned = mod("<AssignToObject>Vendor</AssignToObject>");
  ASSERT_EQ(assigned.code, 0) << assigned.message;
  EXPECT_EQ(assigned.node.first_child().select_nodes("AssignToObject").size(), 3u);
  EXPECT_EQ(Value("Add", "0", "Color", "Vendor", "Maker", "Red").code, 0);
  ASSERT_EQ(mod("<RemoveFromObject>Vendor</RemoveFromObject>").code, 0);
  EXPECT_EQ(Value("Mod", "0", "Color", "Vendor", "Maker", "Green").code, 3180);
  // QuickBooks' own fields are text on customers, vendors, employees and items.
  Status amount = Define("0", "Rate", "AMTTYPE", {"Customer"});
  EXPECT_EQ(amount.code, 3180);
  EXPECT_EQ(amount.message, "There was an error when saving a data extension definition, element \"Rate\".  QuickBooks "
                            "error message: Custom fields of QuickBooks hold text (STR255TYPE) only.");
  EXPECT_EQ(Define("0", "Where", "STR255TYPE", {"Account"}).code, 3180);
  EXPECT_EQ(Define("0", "Nowhere", "STR255TYPE", {}).code, 3180);
  EXPECT_EQ(mod("<AssignToObject>Invoice</AssignToObject>").code, 3180);

  // Renamed, the values follow; the definitions are found by owner and by object.
  ASSERT_EQ(mod("<DataExtNewName>Colour</DataExtNewName>").code, 0);
  EXPECT_EQ(Text(Answered("Customer", "Acme", "0"), "DataExtRet/DataExtName"), "Colour");
  EXPECT_EQ(mod("<DataExtNewName></DataExtNewName>").code, 3120);  // "Color" is gone
  ASSERT_EQ(Define(kApp, "Private", "INTTYPE", {"Vendor"}).code, 0);
  auto names = [&](const std::string& filter) {
    std::vector<std::string> out;
    for (auto d : One("<DataExtDefQueryRq>" + filter + "</DataExtDefQueryRq>").node.children())
      out.push_back(Text(d, "DataExtName"));
    return out;
  };
  EXPECT_EQ(names("<OwnerID>0</OwnerID>"), std::vector<std::string>{"Colour"});
  EXPECT_EQ(names("<OwnerID>" + kApp + "</OwnerID>"), std::vector<std::string>{"Private"});
  EXPECT_EQ(names("<AssignToObject>Vendor</AssignToObject>"), std::vector<std::string>{"Private"});
  EXPECT_EQ(names("<AssignToObject>Item</AssignToObject><AssignToObject>Customer</AssignToObject>"),
            std::vector<std::string>{"Colour"});
  EXPECT_EQ(names("").size(), 2u);
  // Deleting the definition deletes its values.
  ASSERT_EQ(One("<DataExtDefDelRq><OwnerID>0</OwnerID><DataExtName>Colour</DataExtName></DataExtDefDelRq>").code, 0);
  EXPECT_FALSE(Answered("Customer", "Acme", "0").child("DataExtRet"));
}

TEST_F(DataExtTest, ApplicationFieldsTakeValuesOfTheirType) {
  Add("Customer", "<Name>Acme</Name>");
  const std::pair<const char*, const char*> types[] = {{"AMTTYPE", "1234.5"}, {"PRICETYPE", "0.12345"},
                                                       {"QUANTYPE", "2.50"},  {"PERCENTTYPE", "7"},
                                                       {"INTTYPE", "+42"},    {"DATETIMETYPE", "2024-01-15T10:30:00"},
                                                       {"STR1024TYPE", "long text"}};
  const char* canonical[] = {"1234.50", "0.12345", "2.5", "7.00", "42", "2024-01-15T10:30:00", "long text"};
  for (std::size_t i = 0; i < std::size(types); ++i) {
    std::string field = std::string("F") + types[i].first;
    ASSERT_EQ(Define(kApp, field, types[i].first, {"Customer"}).code, 0);
    Status s = Value("Add", kApp, field, "Customer", "Acme", types[i].second);
    ASSERT_EQ(s.code, 0) << types[i].first << ": " << s.message;
    EXPECT_EQ(Text(s.node, "DataExtRet/DataExtValue"), canonical[i]) << types[i].first;
  }
  EXPECT_EQ(Value("Mod", kApp, "FAMTTYPE", "Customer", "Acme", "plenty").code, 3040);
  EXPECT_EQ(Value("Mod", kApp, "FINTTYPE", "Customer", "Acme", "4.5").code, 3210);
  EXPECT_EQ(Value("Mod", kApp, "FDATETIMETYPE", "Customer", "Acme", "soon").code, 3020);
  ASSERT_EQ(Define(kApp, "Short", "STR255TYPE", {"Customer"}).code, 0);
  EXPECT_EQ(Value("Add", kApp, "Short", "Customer", "Acme", std::string(256, 'x')).code, 3070);
  // The values on a record go with it.
  EXPECT_EQ(Answered("Customer", "Acme", kApp).select_nodes("DataExtRet").size(), std::size(types));
  pugi::xml_node acme = Answered("Customer", "Acme", "");
  ASSERT_EQ(One("<ListDelRq><ListDelType>Customer</ListDelType><ListID>" + Text(acme, "ListID") + "</ListID></ListDelRq>").code, 0);
  Add("Customer", "<Name>Acme</Name>");
  EXPECT_FALSE(Answered("Customer", "Acme", kApp).child("DataExtRet"));
  // A value for a record that is not there, or of another kind.
  EXPECT_EQ(Value("Add", kApp, "Short", "Vendor", "Acme", "x").code, 3140);
  EXPECT_EQ(Value("Add", kApp, "Nothing", "Customer", "Acme", "x").code, 3120);
}

}  // namespace
}  // namespace rqptest
