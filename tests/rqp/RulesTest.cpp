// Finer rules: the canonical forms QuickBooks answers with, how a modify merges into a record,
// filters on references and types, and shared company files.
#include "rqp/EngineHarness.hpp"

namespace rqptest {

class RulesTest : public EngineTest {
 protected:
  static std::vector<std::string> Names(const Status& s) { return RetTexts(s, "Name"); }
};

TEST_F(RulesTest, ValuesComeBackInQuickBooksForms) {
  pugi::xml_node c = Add("Customer", "<Name>Forms</Name><OpenBalance>-0.004</OpenBalance><CreditLimit>1234.5"
                                     "</CreditLimit><JobStartDate>2024-3-7</JobStartDate>");
  EXPECT_EQ(Text(c, "CreditLimit"), "1234.50");
  EXPECT_EQ(Text(c, "JobStartDate"), "2024-03-07");
  EXPECT_EQ(Text(c, "Balance"), "0.00");
  pugi::xml_node item = Add("ItemInventory", "<Name>Bolt</Name><SalesPrice>0.12345</SalesPrice><PurchaseCost>3"
                                             "</PurchaseCost><ReorderPoint>10.500</ReorderPoint>");
  EXPECT_EQ(Text(item, "SalesPrice"), "0.12345");
  EXPECT_EQ(Text(item, "PurchaseCost"), "3.00");
  EXPECT_EQ(Text(item, "ReorderPoint"), "10.5");
  pugi::xml_node terms = Add("StandardTerms", "<Name>2% 15</Name><StdDueDays>+015</StdDueDays><DiscountPct>2.000</DiscountPct>");
  EXPECT_EQ(Text(terms, "StdDueDays"), "15");
  EXPECT_EQ(Text(terms, "DiscountPct"), "2.00");  // percentages keep two decimals, as QuickBooks writes them
  pugi::xml_node m = Add("PaymentMethod", "<Name>Card</Name><PaymentMethodType>mastercard</PaymentMethodType>");
  EXPECT_EQ(Text(m, "PaymentMethodType"), "MasterCard");
  // Only what was asked for comes back.
  Status slim = One("<ClassAddRq><ClassAdd><Name>Slim</Name></ClassAdd><IncludeRetElement>ListID</IncludeRetElement>"
                    "<IncludeRetElement>FullName</IncludeRetElement></ClassAddRq>");
  pugi::xml_node ret = slim.node.first_child();
  EXPECT_TRUE(ret.child("ListID"));
  EXPECT_TRUE(ret.child("FullName"));
  EXPECT_FALSE(ret.child("Name"));
}

TEST_F(RulesTest, ModifyMergesAggregatesReplacesRepeatsAndSwitchesBranches) {
  pugi::xml_node c = Add("Customer", "<Name>Merge</Name><BillAddress><Addr1>1 Road</Addr1><City>Old</City></BillAddress>"
                                     "<ShipToAddress><Name>A</Name></ShipToAddress><ShipToAddress><Name>B</Name></ShipToAddress>");
  Status m = Mod("Customer", c, "<BillAddress><City>New</City></BillAddress><ShipToAddress><Name>C</Name></ShipToAddress>");
  ASSERT_EQ(m.code, 0) << m.message;
  pugi::xml_node r = Read("Customer", c);
  EXPECT_EQ(Text(r, "BillAddress/Addr1"), "1 Road");
  EXPECT_EQ(Text(r, "BillAddress/City"), "New");
  EXPECT_EQ(r.select_nodes("ShipToAddress").size(), 1u);
  EXPECT_EQ(Text(r, "ShipToAddress/Name"), "C");

  pugi::xml_node svc = Add("ItemService", "<Name>Switch</Name><SalesOrPurchase><Price>5</Price></SalesOrPurchase>");
  Status s1 = Mod("ItemService", svc, "<SalesOrPurchaseMod><PricePercent>7</PricePercent></SalesOrPurchaseMod>");
  EXPECT_EQ(Text(s1.node, "ItemServiceRet/SalesOrPurchase/PricePercent"), "7.00");
  EXPECT_FALSE(s1.node.first_child().child("SalesOrPurchase").child("Price"));
  Status s2 = Mod("ItemService", s1.node.first_child(), "<SalesAndPurchaseMod><SalesPrice>9</SalesPrice></SalesAndPurchaseMod>");
  ASSERT_EQ(s2.code, 0) << s2.message;
  EXPECT_FALSE(Read("ItemService", svc).child("SalesOrPurchase"));
  EXPECT_EQ(Text(Read("ItemService", svc), "SalesAndPurchase/SalesPrice"), "9.00");

  Add("ItemNonInventory", "<Name>Part</Name><SalesOrPurchase><Price>1</Price></SalesOrPurchase>");
  pugi::xml_node group = Add("ItemGroup", "<Name>Set</Name><ItemGroupLine><ItemRef><FullName>Part</FullName></ItemRef>"
                                          "</ItemGroupLine><ItemGroupLine><ItemRef><FullName>Switch</FullName></ItemRef></ItemGroupLine>");
  EXPECT_EQ(group.select_nodes("ItemGroupLine").size(), 2u);
  Status cleared = Mod("ItemGroup", group, "<ClearItemsInGroup>true</ClearItemsInGroup>");
  ASSERT_EQ(cleared.code, 0) << cleared.message;
  EXPECT_FALSE(Read("ItemGroup", group).child("ItemGroupLine"));
}

TEST_F(RulesTest, RenamingAnEntityReachesEveryReferenceToIt) {
  pugi::xml_node e = Add("Employee", "<FirstName>Jo</FirstName><LastName>Lee</LastName>");
  Add("SalesRep", "<Initial>JL</Initial><SalesRepEntityRef><FullName>Jo Lee</FullName></SalesRepEntityRef>");
  Add("ToDo", "<Notes>Ask Jo</Notes><EmployeeRef><FullName>Jo Lee</FullName></EmployeeRef>");
  ASSERT_EQ(Mod("Employee", e, "<LastName>Park</LastName>").code, 0);
  EXPECT_EQ(Text(One("<SalesRepQueryRq><FullName>JL</FullName></SalesRepQueryRq>").node,
                 "SalesRepRet/SalesRepEntityRef/FullName"), "Jo Park");
  EXPECT_EQ(Text(One("<ToDoQueryRq/>").node, "ToDoRet/EmployeeRef/FullName"), "Jo Park");
  // The employee is in use now.
  EXPECT_EQ(One("<ListDelRq><ListDelType>Employee</ListDelType><ListID>" + Text(e, "ListID") + "</ListID></ListDelRq>").code, 3170);
}

TEST_F(RulesTest, FiltersOnReferencesAndTypes) {
  Add("Class", "<Name>Region</Name>");
  Add("Class", "<Name>North</Name><ParentRef><FullName>Region</FullName></ParentRef>");
  Add("Customer", "<Name>InRegion</Name><ClassRef><FullName>Region</FullName></ClassRef>");
  Add("Customer", "<Name>InNorth</Name><ClassRef><FullName>Region:North</FullName></ClassRef>");
  Add("Customer", "<Name>Unclassed</Name>");
  auto byClass = [&](const std::string& filter) {
    return Names(One("<CustomerQueryRq><ClassFilter>" + filter + "</ClassFilter></CustomerQueryRq>"));
  };
  EXPECT_EQ(byClass("<FullName>Region</FullName>"), std::vector<std::string>{"InRegion"});
  EXPECT_EQ(byClass("<FullNameWithChildren>region</FullNameWithChildren>"),
            (std::vector<std::string>{"InNorth", "InRegion"}));
  EXPECT_EQ(One("<CustomerQueryRq><ClassFilter><FullName>Nowhere</FullName></ClassFilter></CustomerQueryRq>").code, 1);

  Add("Account", "<Name>Petty Cash</Name><AccountType>Bank</AccountType>");
  Status banks = One("<AccountQueryRq><AccountType>Bank</AccountType><AccountType>AccountsPayable</AccountType></AccountQueryRq>");
  // Accounts come in chart-of-accounts order: banks before payables.
  EXPECT_EQ(Names(banks), (std::vector<std::string>{"Petty Cash", "Accounts Payable"}));

  pugi::xml_node done = Add("ToDo", "<Notes>Done</Notes><IsDone>true</IsDone>");
  Add("ToDo", "<Notes>Open</Notes>");
  auto notes = [&](const std::string& filter) {
    std::vector<std::string> out;
    for (auto r : One("<ToDoQueryRq>" + filter + "</ToDoQueryRq>").node.children()) out.push_back(Text(r, "Notes"));
    return out;
  };
  EXPECT_EQ(notes(""), std::vector<std::string>{"Open"});
  EXPECT_EQ(notes("<DoneStatus>All</DoneStatus>").size(), 2u);
  EXPECT_EQ(notes("<ListID>" + Text(done, "ListID") + "</ListID>"), std::vector<std::string>{"Done"});
}

TEST_F(RulesTest, AccountBalancesRollUpAndOpeningBalancesCanChange) {
  pugi::xml_node parent = Add("Account", "<Name>Assets</Name><AccountType>OtherCurrentAsset</AccountType><OpenBalance>10</OpenBalance>");
  pugi::xml_node child = Add("Account", "<Name>Deposits</Name><ParentRef><FullName>Assets</FullName></ParentRef>"
                                        "<AccountType>OtherCurrentAsset</AccountType><OpenBalance>5</OpenBalance>");
  EXPECT_EQ(Text(One("<AccountQueryRq><FullName>Assets</FullName></AccountQueryRq>").node, "AccountRet/TotalBalance"), "15.00");
  ASSERT_EQ(Mod("Account", child, "<OpenBalance>7.25</OpenBalance>").code, 0);
  Status p = One("<AccountQueryRq><ListID>" + Text(parent, "ListID") + "</ListID></AccountQueryRq>");
  EXPECT_EQ(Text(p.node, "AccountRet/Balance"), "10.00");
  EXPECT_EQ(Text(p.node, "AccountRet/TotalBalance"), "17.25");
  EXPECT_EQ(Text(p.node, "AccountRet/EditSequence"), Text(parent, "EditSequence"));  // balances are not edits
}

TEST_F(RulesTest, CompanyDataExtensionsAndDeletes) {
  const std::string owner = "{0F2C5B3E-1111-2222-3333-444455556666}";
  ASSERT_EQ(One("<DataExtDefAddRq><DataExtDefAdd><OwnerID>" + owner + "</OwnerID><DataExtName>Rate</DataExtName>"
                "<DataExtType>AMTTYPE</DataExtType></DataExtDefAdd></DataExtDefAddRq>").code, 0);
  auto value = [&](const std::string& op, const std::string& v) {
    return One("<DataExt" + op + "Rq><DataExt" + op + "><OwnerID>" + owner + "</OwnerID><DataExtName>Rate</DataExtName>"
               "<OtherDataExtType>Company</OtherDataExtType>" + v + "</DataExt" + op + "></DataExt" + op + "Rq>");
  };
  EXPECT_EQ(value("Mod", "<DataExtValue>1</DataExtValue>").code, 3120);  // nothing to modify yet
  EXPECT_EQ(value("Add", "<DataExtValue>plenty</DataExtValue>").code, 3040);
  EXPECT_EQ(Text(value("Add", "<DataExtValue>2.5</DataExtValue>").node, "DataExtRet/DataExtValue"), "2.50");
  Status company = One("<CompanyQueryRq><OwnerID>" + owner + "</OwnerID></CompanyQueryRq>");
  EXPECT_EQ(Text(company.node, "CompanyRet/DataExtRet/DataExtValue"), "2.50");
  EXPECT_EQ(value("Del", "").code, 0);
  EXPECT_EQ(value("Del", "").code, 3120);
  EXPECT_EQ(One("<DataExtAddRq><DataExtAdd><OwnerID>" + owner + "</OwnerID><DataExtName>Rate</DataExtName>"
                "<ListDataExtType>Customer</ListDataExtType><ListObjRef><FullName>Ghost</FullName></ListObjRef>"
                "<DataExtValue>1</DataExtValue></DataExtAdd></DataExtAddRq>").code, 3140);
}

TEST_F(RulesTest, MultiUserSessionsShareOneFile) {
  engine_->EndSession(ticket_);
  ticket_ = engine_->BeginSession(Company(), brenvale::qbOpenModeMultiUser);
  CompanyEngine other;
  other.OpenConnection("", "other user");
  std::string t = other.BeginSession(Company(), brenvale::qbOpenModeMultiUser);
  Add("JobType", "<Name>Mine</Name>");
  std::string seen = other.ProcessRequest(t, Message("<JobTypeQueryRq><FullName>Mine</FullName></JobTypeQueryRq>"));
  EXPECT_NE(seen.find("statusCode=\"0\""), std::string::npos);
  std::string added = other.ProcessRequest(t, Message("<JobTypeAddRq><JobTypeAdd><Name>mine</Name></JobTypeAdd></JobTypeAddRq>"));
  EXPECT_NE(added.find("statusCode=\"3100\""), std::string::npos);
  Status host = One("<HostQueryRq/>");
  EXPECT_EQ(Text(host.node, "HostRet/QBFileMode"), "MultiUser");
  other.EndSession(t);
}

}  // namespace rqptest
