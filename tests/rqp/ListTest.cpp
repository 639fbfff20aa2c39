// QuickBooks' list behaviour: identity and edit sequences, names and hierarchies, references,
// deletes, queries and iterators.
#include <regex>

#include "brenvale/rqp/records/Iterators.hpp"

#include "rqp/EngineHarness.hpp"

namespace rqptest {

class ListTest : public EngineTest {
 protected:
  Status ById(const std::string& kind, const std::string& id) {
    return One("<" + kind + "QueryRq><ListID>" + id + "</ListID></" + kind + "QueryRq>");
  }
  static std::vector<std::string> Names(const Status& s, const char* field = "FullName") { return RetTexts(s, field); }
};

TEST_F(ListTest, EditSequenceChangesOnEveryModifyAndStaleOnesAreRefused) {
  pugi::xml_node c = Add("Customer", "<Name>Acme</Name><Phone>555</Phone>");
  std::string id = Text(c, "ListID");
  EXPECT_TRUE(std::regex_match(id, std::regex("[0-9A-F]{8}-[0-9]{10}"))) << id;
  EXPECT_TRUE(std::regex_match(Text(c, "TimeCreated"), std::regex("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d[+-]\\d\\d:\\d\\d")));
  Status m1 = Mod("Customer", c, "<Phone>556</Phone>");
  ASSERT_EQ(m1.code, 0) << m1.message;
  pugi::xml_node r1 = m1.node.first_child();
  EXPECT_NE(Text(r1, "EditSequence"), Text(c, "EditSequence"));
  EXPECT_EQ(Text(r1, "Phone"), "556");
  EXPECT_EQ(Text(r1, "TimeCreated"), Text(c, "TimeCreated"));
  Status m2 = Mod("Customer", r1, "<Phone></Phone><Fax>1</Fax>");  // an empty value clears
  ASSERT_EQ(m2.code, 0);
  pugi::xml_node read = Read("Customer", c);
  EXPECT_FALSE(read.child("Phone"));
  EXPECT_EQ(Text(read, "Fax"), "1");
  EXPECT_EQ(Text(read, "EditSequence"), Text(m2.node.first_child(), "EditSequence"));
  EXPECT_NE(Text(read, "EditSequence"), Text(r1, "EditSequence"));

  Status stale = Mod("Customer", c, "<Phone>1</Phone>");
  EXPECT_EQ(stale.code, 3200);
  EXPECT_EQ(stale.message, "The provided edit sequence \"" + Text(c, "EditSequence") + "\" is out-of-date.");
  Status missing = One("<CustomerModRq><CustomerMod><ListID>8000FFFF-1234567890</ListID><EditSequence>1</EditSequence>"
                       "</CustomerMod></CustomerModRq>");
  EXPECT_EQ(missing.code, 3120);
  EXPECT_EQ(missing.message, "Object \"8000FFFF-1234567890\" specified in the request cannot be found.  QuickBooks error "
                             "message: Invalid argument.  The specified record does not exist in the list.");
  // A ListID of another list is not found either.
  pugi::xml_node v = Add("Vendor", "<Name>Supplier</Name>");
  EXPECT_EQ(Mod("Customer", v, "<Phone>1</Phone>").code, 3120);
}

TEST_F(ListTest, NamesAreUniqueWithoutRegardToCaseAndNameListsShareOneNamespace) {
  Add("Customer", "<Name>Acme</Name>");
  EXPECT_EQ(One("<VendorAddRq><VendorAdd><Name>ACME</Name></VendorAdd></VendorAddRq>").code, 3100);
  EXPECT_EQ(One("<OtherNameAddRq><OtherNameAdd><Name>acme</Name></OtherNameAdd></OtherNameAddRq>").code, 3100);
  EXPECT_EQ(One("<EmployeeAddRq><EmployeeAdd><FirstName>ACME</FirstName></EmployeeAdd></EmployeeAddRq>").code, 3100);
  Add("Class", "<Name>Acme</Name>");  // other lists are their own namespaces
  Add("ItemService", "<Name>Labor</Name><SalesOrPurchase><Price>1</Price></SalesOrPurchase>");
  EXPECT_EQ(One("<ItemNonInventoryAddRq><ItemNonInventoryAdd><Name>LABOR</Name><SalesOrPurchase><Price>1</Price>"
                "</SalesOrPurchase></ItemNonInventoryAdd></ItemNonInventoryAddRq>").code, 3100);
  EXPECT_EQ(One("<DateDrivenTermsAddRq><DateDrivenTermsAdd><Name>net 30</Name><DayOfMonthDue>1</DayOfMonthDue>"
                "</DateDrivenTermsAdd></DateDrivenTermsAddRq>").code, 3100);
  pugi::xml_node v = Add("Vendor", "<Name>Addressed</Name><VendorAddress><Addr1>Box 1</Addr1><City>Troy</City>"
                                    "<State>NY</State><PostalCode>12180</PostalCode></VendorAddress>");
  EXPECT_EQ(Text(v, "VendorAddressBlock/Addr2"), "Troy, NY 12180");  // QuickBooks prints addresses as blocks
  // Employees are named from their name parts.
  pugi::xml_node e = Add("Employee", "<FirstName>Ann</FirstName><MiddleName>B</MiddleName><LastName>Cole</LastName>");
  EXPECT_EQ(Text(e, "Name"), "Ann B Cole");
}

TEST_F(ListTest, HierarchiesCarryFullNamesAndRenamesReachChildrenAndReferences) {
  pugi::xml_node top = Add("Class", "<Name>West</Name>");
  pugi::xml_node mid = Add("Class", "<Name>Sales</Name><ParentRef><ListID>" + Text(top, "ListID") + "</ListID></ParentRef>");
  pugi::xml_node leaf = Add("Class", "<Name>North</Name><ParentRef><FullName>west:sales</FullName></ParentRef>");
  EXPECT_EQ(Text(mid, "FullName"), "West:Sales");
  EXPECT_EQ(Text(leaf, "FullName"), "West:Sales:North");
  EXPECT_EQ(Text(leaf, "Sublevel"), "2");
  EXPECT_EQ(Text(leaf, "ParentRef/FullName"), "West:Sales");
  pugi::xml_node cust = Add("Customer", "<Name>Zed</Name><ClassRef><FullName>West:Sales:North</FullName></ClassRef>");
  EXPECT_EQ(Text(cust, "ClassRef/ListID"), Text(leaf, "ListID"));

  ASSERT_EQ(Mod("Class", top, "<Name>East</Name>").code, 0);
  EXPECT_EQ(Text(ById("Class", Text(leaf, "ListID")).node, "ClassRet/FullName"), "East:Sales:North");
  EXPECT_EQ(Text(ById("Class", Text(leaf, "ListID")).node, "ClassRet/ParentRef/FullName"), "East:Sales");
  EXPECT_EQ(Text(ById("Customer", Text(cust, "ListID")).node, "CustomerRet/ClassRef/FullName"), "East:Sales:North");

  // Moving a branch to the top changes levels; a parent cannot go under its own child.
  pugi::xml_node midNow = ById("Class", Text(mid, "ListID")).node.first_child();
  ASSERT_EQ(Mod("Class", midNow, "<ParentRef><ListID></ListID></ParentRef>").code, 0);
  pugi::xml_node leafNow = ById("Class", Text(leaf, "ListID")).node.first_child();
  EXPECT_EQ(Text(leafNow, "FullName"), "Sales:North");
  EXPECT_EQ(Text(leafNow, "Sublevel"), "1");
  midNow = ById("Class", Text(mid, "ListID")).node.first_child();
  EXPECT_EQ(Mod("Class", midNow, "<ParentRef><FullName>Sales:North</FullName></ParentRef>").code, 3170);

  // Making a parent inactive makes its sub-records inactive.
  ASSERT_EQ(Mod("Class", midNow, "<IsActive>false</IsActive>").code, 0);
  EXPECT_EQ(Text(ById("Class", Text(leaf, "ListID")).node, "ClassRet/IsActive"), "false");
}

TEST_F(ListTest, ReferencesResolveByListIdOrFullNameAndBadOnesAreRefused) {
  pugi::xml_node rep = Add("Employee", "<FirstName>Sam</FirstName>");
  pugi::xml_node sr = Add("SalesRep", "<Initial>SR</Initial><SalesRepEntityRef><FullName>sam</FullName></SalesRepEntityRef>");
  EXPECT_EQ(Text(sr, "SalesRepEntityRef/ListID"), Text(rep, "ListID"));
  pugi::xml_node c = Add("Customer", "<Name>Buyer</Name><TermsRef><FullName>Net 15</FullName></TermsRef>"
                                     "<SalesRepRef><FullName>sr</FullName></SalesRepRef>");
  EXPECT_EQ(Text(c, "SalesRepRef/FullName"), "SR");
  Status bad = One("<CustomerAddRq><CustomerAdd><Name>B2</Name><TermsRef><FullName>Net 99</FullName></TermsRef>"
                   "</CustomerAdd></CustomerAddRq>");
  EXPECT_EQ(bad.code, 3140);
  // Two blanks before QuickBooks' own explanation; the owner by its qbXML name.
  EXPECT_EQ(bad.message, "There is an invalid reference to QuickBooks Terms \"Net 99\" in the Customer.  QuickBooks "
                         "error message: Invalid argument.  The specified record does not exist in the list.");
  Status itemRef = One("<ItemInventoryAddRq><ItemInventoryAdd><Name>Widget</Name><IncomeAccountRef><FullName>Nowhere"
                       "</FullName></IncomeAccountRef></ItemInventoryAdd></ItemInventoryAddRq>");
  EXPECT_EQ(itemRef.message.rfind("There is an invalid reference to QuickBooks Account \"Nowhere\" in the ItemInventory.  ", 0),
            0u) << itemRef.message;
  Status wrongList = One("<CustomerAddRq><CustomerAdd><Name>B3</Name><ClassRef><ListID>" + Text(rep, "ListID") +
                         "</ListID></ClassRef></CustomerAdd></CustomerAddRq>");
  EXPECT_EQ(wrongList.code, 3140);
  // An empty reference clears it.
  Status cleared = Mod("Customer", c, "<TermsRef><FullName></FullName></TermsRef>");
  ASSERT_EQ(cleared.code, 0);
  EXPECT_FALSE(Read("Customer", c).child("TermsRef"));
  EXPECT_EQ(Text(Read("Customer", c), "SalesRepRef/FullName"), "SR");
}

TEST_F(ListTest, DeletesAreRefusedWhileUsedAndAreListedAfterwards) {
  pugi::xml_node parent = Add("JobType", "<Name>Big</Name>");
  pugi::xml_node child = Add("JobType", "<Name>Small</Name><ParentRef><FullName>Big</FullName></ParentRef>");
  Add("Customer", "<Name>User</Name><JobTypeRef><FullName>Big:Small</FullName></JobTypeRef>");
  auto del = [&](const std::string& type, pugi::xml_node ret) {
    return One("<ListDelRq requestID=\"9\"><ListDelType>" + type + "</ListDelType><ListID>" + Text(ret, "ListID") +
               "</ListID></ListDelRq>");
  };
  EXPECT_EQ(del("JobType", parent).code, 3170);  // has a sub-record
  EXPECT_EQ(del("JobType", child).code, 3170);   // a customer uses it
  EXPECT_EQ(del("Class", child).code, 3120);     // not a class
  pugi::xml_node other = Add("JobType", "<Name>Spare</Name>");
  Status gone = del("JobType", other);
  ASSERT_EQ(gone.code, 0);
  EXPECT_EQ(Text(gone.node, "ListDelType"), "JobType");
  EXPECT_EQ(Text(gone.node, "ListID"), Text(other, "ListID"));
  EXPECT_EQ(Text(gone.node, "FullName"), "Spare");
  EXPECT_EQ(ById("JobType", Text(other, "ListID")).code, 500);
  EXPECT_EQ(del("JobType", other).code, 3120);
  Status listed = One("<ListDeletedQueryRq><ListDelType>JobType</ListDelType><ListDelType>Class</ListDelType></ListDeletedQueryRq>");
  ASSERT_EQ(listed.code, 0);
  EXPECT_EQ(Text(listed.node, "ListDeletedRet/FullName"), "Spare");
  EXPECT_EQ(One("<ListDeletedQueryRq><ListDelType>Class</ListDelType></ListDeletedQueryRq>").code, 1);
  // Special accounts stay.
  Status ar = One("<AccountQueryRq><FullName>Accounts Payable</FullName></AccountQueryRq>");
  EXPECT_EQ(del("Account", ar.node.first_child()).code, 3170);
}

TEST_F(ListTest, QueriesFilterLikeQuickBooks) {
  for (const char* n : {"Alpha", "Beta", "Gamma", "Delta", "Alphabet"}) Add("ShipMethod", std::string("<Name>") + n + "</Name>");
  pugi::xml_node off = Add("ShipMethod", "<Name>Omega</Name><IsActive>false</IsActive>");
  auto q = [&](const std::string& filters) { return One("<ShipMethodQueryRq>" + filters + "</ShipMethodQueryRq>"); };
  auto all = Names(q("<ActiveStatus>All</ActiveStatus>"), "Name");
  EXPECT_EQ(all, (std::vector<std::string>{"Alpha", "Alphabet", "Beta", "Delta", "DHL", "Federal Express", "Gamma",
                                            "Omega", "UPS", "USPS"}));
  EXPECT_EQ(Names(q(""), "Name").size(), 9u);  // active only by default
  EXPECT_EQ(Names(q("<ActiveStatus>InactiveOnly</ActiveStatus>"), "Name"), std::vector<std::string>{"Omega"});
  EXPECT_EQ(Names(q("<MaxReturned>2</MaxReturned>"), "Name"), (std::vector<std::string>{"Alpha", "Alphabet"}));
  EXPECT_EQ(Names(q("<NameFilter><MatchCriterion>StartsWith</MatchCriterion><Name>alp</Name></NameFilter>"), "Name"),
            (std::vector<std::string>{"Alpha", "Alphabet"}));
  EXPECT_EQ(Names(q("<NameFilter><MatchCriterion>Contains</MatchCriterion><Name>ET</Name></NameFilter>"), "Name"),
            (std::vector<std::string>{"Alphabet", "Beta"}));
  EXPECT_EQ(Names(q("<NameFilter><MatchCriterion>EndsWith</MatchCriterion><Name>a</Name></NameFilter>"), "Name"),
            (std::vector<std::string>{"Alpha", "Beta", "Delta", "Gamma"}));
  EXPECT_EQ(Names(q("<NameRangeFilter><FromName>b</FromName><ToName>D</ToName></NameRangeFilter>"), "Name"),
            (std::vector<std::string>{"Beta", "Delta", "DHL"}));
  EXPECT_EQ(Names(q("<FromModifiedDate>2000-01-01</FromModifiedDate><ToModifiedDate>2000-12-31</ToModifiedDate>"), "Name").size(), 0u);
  auto recent = Names(q("<ActiveStatus>All</ActiveStatus><FromModifiedDate>" + Text(off, "TimeModified") +
                        "</FromModifiedDate>"), "Name");
  EXPECT_NE(std::find(recent.begin(), recent.end(), "Omega"), recent.end());

  Status none = q("<NameFilter><MatchCriterion>StartsWith</MatchCriterion><Name>zz</Name></NameFilter>");
  EXPECT_EQ(none.code, 1);
  EXPECT_EQ(none.severity, "Info");
  EXPECT_EQ(none.message, "A query request did not find a matching object in QuickBooks");
  Status partly = q("<FullName>Beta</FullName><FullName>Nope</FullName>");
  EXPECT_EQ(partly.code, 500);
  EXPECT_EQ(partly.severity, "Warn");
  EXPECT_EQ(partly.message, "The query request has not been fully completed. There was a required element (\"Nope\") "
                            "that could not be found in QuickBooks.");
  EXPECT_EQ(Names(partly, "Name"), std::vector<std::string>{"Beta"});
  EXPECT_EQ(Names(q("<FullName>omega</FullName>"), "Name"), std::vector<std::string>{"Omega"});  // any status

  Status slim = q("<MaxReturned>1</MaxReturned><IncludeRetElement>Name</IncludeRetElement>");
  EXPECT_EQ(std::distance(slim.node.first_child().children().begin(), slim.node.first_child().children().end()), 1);
  Status counted = One("<ShipMethodQueryRq metaData=\"MetaDataOnly\"/>");
  EXPECT_EQ(counted.node.attribute("retCount").as_int(), 9);
  EXPECT_FALSE(counted.node.first_child());
}

TEST_F(ListTest, CombinedQueriesReturnEveryKind) {
  Add("ItemService", "<Name>Svc</Name><SalesOrPurchase><Price>10</Price></SalesOrPurchase>");
  Add("ItemNonInventory", "<Name>Part</Name><SalesAndPurchase><SalesPrice>2.5</SalesPrice></SalesAndPurchase>");
  Add("ItemSubtotal", "<Name>Sub</Name>");
  Status items = One("<ItemQueryRq/>");
  std::vector<std::string> kinds;
  for (auto r : items.node.children()) kinds.push_back(r.name());
  // Items come grouped by kind, in the order of the kinds in QuickBooks' answer, then by name.
  EXPECT_EQ(kinds, (std::vector<std::string>{"ItemServiceRet", "ItemNonInventoryRet", "ItemSubtotalRet"}));
  EXPECT_EQ(Text(items.node, "ItemNonInventoryRet/SalesAndPurchase/SalesPrice"), "2.50");
  Add("Vendor", "<Name>V</Name>");
  Add("Customer", "<Name>C</Name>");
  Status entities = One("<EntityQueryRq/>");
  EXPECT_EQ(std::string(entities.node.first_child().name()), "CustomerRet");
  EXPECT_EQ(std::string(entities.node.last_child().name()), "VendorRet");
  Add("DateDrivenTerms", "<Name>15th</Name><DayOfMonthDue>15</DayOfMonthDue>");
  Status terms = One("<TermsQueryRq><FullName>15th</FullName><FullName>Net 60</FullName></TermsQueryRq>");
  EXPECT_EQ(std::string(terms.node.first_child().name()), "DateDrivenTermsRet");
  EXPECT_EQ(std::string(terms.node.last_child().name()), "StandardTermsRet");
}

TEST_F(ListTest, IteratorsPageThroughResults) {
  std::string adds;
  for (int i = 0; i < 7; ++i)
    adds += "<CustomerAddRq><CustomerAdd><Name>C" + std::to_string(i) + "</Name></CustomerAdd></CustomerAddRq>";
  Send(adds);
  Status first = One("<CustomerQueryRq requestID=\"1\" metaData=\"NoMetaData\" iterator=\"Start\"><MaxReturned>3</MaxReturned></CustomerQueryRq>");
  ASSERT_EQ(first.code, 0);
  EXPECT_EQ(Names(first), (std::vector<std::string>{"C0", "C1", "C2"}));
  EXPECT_EQ(first.node.attribute("iteratorRemainingCount").as_int(), 4);
  std::string id = first.node.attribute("iteratorID").value();
  // A version-4 GUID in braces, as QuickBooks' iterator IDs are.
  EXPECT_TRUE(std::regex_match(id, std::regex("\\{[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}\\}"))) << id;
  auto next = [&](const std::string& how, int max) {
    return One("<CustomerQueryRq iterator=\"" + how + "\" iteratorID=\"" + id + "\"><MaxReturned>" + std::to_string(max) +
               "</MaxReturned></CustomerQueryRq>");
  };
  Add("Customer", "<Name>C00</Name>");  // added after the start: not part of this iteration
  Status second = next("Continue", 3);
  EXPECT_EQ(Names(second), (std::vector<std::string>{"C3", "C4", "C5"}));
  EXPECT_EQ(second.node.attribute("iteratorRemainingCount").as_int(), 1);
  Status third = next("Continue", 3);
  EXPECT_EQ(Names(third), std::vector<std::string>{"C6"});
  EXPECT_EQ(third.node.attribute("iteratorRemainingCount").as_int(), 0);
  Status over = next("Continue", 3);
  EXPECT_EQ(over.code, 3391);
  EXPECT_EQ(over.severity, "Error");
  EXPECT_EQ(over.message, "The iteratorID \"" + id + "\" is not valid.");

  Status again = One("<CustomerQueryRq iterator=\"Start\"><MaxReturned>2</MaxReturned></CustomerQueryRq>");
  id = again.node.attribute("iteratorID").value();
  EXPECT_EQ(next("Stop", 1).code, 0);
  EXPECT_EQ(next("Continue", 1).code, 3391);
  // An iterator belongs to the request that started it.
  Status items = One("<ItemQueryRq iterator=\"Start\"><MaxReturned>1</MaxReturned></ItemQueryRq>");
  EXPECT_EQ(items.code, 1);
  EXPECT_EQ(One("<VendorQueryRq iterator=\"Continue\" iteratorID=\"{bogus}\"/>").code, 3391);

  // Iterators that are started and never continued lapse: a session keeps only so many open, and
  // the one used least recently goes first.
  auto start = [&] {
    return std::string(One("<CustomerQueryRq iterator=\"Start\"><MaxReturned>1</MaxReturned></CustomerQueryRq>")
                           .node.attribute("iteratorID")
                           .value());
  };
  std::string oldest = start(), kept = start();
  id = kept;
  EXPECT_EQ(next("Continue", 1).code, 0);  // used again: now the most recent
  for (std::size_t i = 0; i + 2 < brenvale::rqp::detail::Iterators::kMaxOpen; ++i) start();
  std::string newest = start();
  id = oldest;
  EXPECT_EQ(next("Continue", 1).code, 3391);
  id = kept;
  EXPECT_EQ(next("Continue", 1).code, 0);
  id = newest;
  EXPECT_EQ(next("Continue", 1).code, 0);
}

TEST_F(ListTest, BalancesRollUpToParents) {
  Add("Customer", "<Name>Parent</Name><OpenBalance>100</OpenBalance>");
  pugi::xml_node job = Add("Customer", "<Name>Job</Name><ParentRef><FullName>Parent</FullName></ParentRef>"
                                       "<OpenBalance>25.5</OpenBalance>");
  EXPECT_EQ(Text(job, "Balance"), "25.50");
  Status parent = One("<CustomerQueryRq><FullName>Parent</FullName></CustomerQueryRq>");
  EXPECT_EQ(Text(parent.node, "CustomerRet/Balance"), "100.00");
  EXPECT_EQ(Text(parent.node, "CustomerRet/TotalBalance"), "125.50");
  auto over = [&](const char* amount) {
    return Names(One(std::string("<CustomerQueryRq><TotalBalanceFilter><Operator>GreaterThan</Operator><Amount>") +
                     amount + "</Amount></TotalBalanceFilter></CustomerQueryRq>"));
  };
  EXPECT_EQ(over("100"), std::vector<std::string>{"Parent"});
  EXPECT_EQ(over("20").size(), 2u);
  pugi::xml_node inv = Add("ItemInventory", "<Name>Widget</Name><QuantityOnHand>4</QuantityOnHand><TotalValue>10</TotalValue>");
  EXPECT_EQ(Text(inv, "QuantityOnHand"), "4");
  EXPECT_EQ(Text(inv, "AverageCost"), "2.50");
}

TEST_F(ListTest, DataExtensionsAreDefinedAndReturnedForTheirOwner) {
  const std::string owner = "{6B063959-81B0-4622-85D6-F548C8CCB517}";
  Status def = One("<DataExtDefAddRq><DataExtDefAdd><OwnerID>" + owner + "</OwnerID><DataExtName>Color</DataExtName>"
                   "<DataExtType>STR255TYPE</DataExtType><AssignToObject>Customer</AssignToObject></DataExtDefAdd></DataExtDefAddRq>");
  ASSERT_EQ(def.code, 0) << def.message;
  EXPECT_EQ(Text(def.node, "DataExtDefRet/DataExtListRequire"), "false");
  EXPECT_EQ(One("<DataExtDefAddRq><DataExtDefAdd><OwnerID>" + owner + "</OwnerID><DataExtName>COLOR</DataExtName>"
                "<DataExtType>AMTTYPE</DataExtType></DataExtDefAdd></DataExtDefAddRq>").code, 3100);
  Add("Customer", "<Name>Painted</Name>");
  Status value = One("<DataExtAddRq><DataExtAdd><OwnerID>" + owner + "</OwnerID><DataExtName>Color</DataExtName>"
                     "<ListDataExtType>Customer</ListDataExtType><ListObjRef><FullName>Painted</FullName></ListObjRef>"
                     "<DataExtValue>Blue</DataExtValue></DataExtAdd></DataExtAddRq>");
  ASSERT_EQ(value.code, 0) << value.message;
  Status with = One("<CustomerQueryRq><FullName>Painted</FullName><OwnerID>" + owner + "</OwnerID></CustomerQueryRq>");
  EXPECT_EQ(Text(with.node, "CustomerRet/DataExtRet/DataExtValue"), "Blue");
  Status without = One("<CustomerQueryRq><FullName>Painted</FullName></CustomerQueryRq>");
  EXPECT_FALSE(without.node.first_child().child("DataExtRet"));
  Status renamed = One("<DataExtDefModRq><DataExtDefMod><OwnerID>" + owner + "</OwnerID><DataExtName>Color</DataExtName>"
                       "<DataExtNewName>Colour</DataExtNewName></DataExtDefMod></DataExtDefModRq>");
  EXPECT_EQ(Text(renamed.node, "DataExtDefRet/DataExtName"), "Colour");
  with = One("<CustomerQueryRq><FullName>Painted</FullName><OwnerID>" + owner + "</OwnerID></CustomerQueryRq>");
  EXPECT_EQ(Text(with.node, "CustomerRet/DataExtRet/DataExtName"), "Colour");
  EXPECT_EQ(One("<DataExtDefDelRq><OwnerID>" + owner + "</OwnerID><DataExtName>Colour</DataExtName></DataExtDefDelRq>").code, 0);
  EXPECT_EQ(One("<DataExtDefQueryRq><OwnerID>" + owner + "</OwnerID></DataExtDefQueryRq>").code, 1);
}

}  // namespace rqptest
