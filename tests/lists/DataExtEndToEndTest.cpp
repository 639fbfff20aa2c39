// Custom fields against the company engine: a definition added and assigned, a value set on a
// record, read back with it, changed, cleared and deleted, for QuickBooks' own fields (owner "0")
// and for the fields of a registered application; and every refusal leaving the company as it was.
#include <string>

#include "brenvale/dataext/DataExtensionDefinitions.hpp"
#include "brenvale/lists/Accounts.hpp"
#include "brenvale/lists/Customers.hpp"
#include "brenvale/model/DataExtensions.hpp"
#include "lists/CompanyTestSupport.hpp"

namespace brenvale::testing {
namespace {

constexpr const char* kGuid = "{5C2F7A10-3E4B-4D6A-9A21-0B7E6F1D2C33}";

class CustomFieldsEndToEnd : public CompanyEndToEnd {
 protected:
  void SetUp() override {
    CompanyEndToEnd::SetUp();
    Definitions().Clear();
  }
  void TearDown() override {
    Definitions().Clear();
    CompanyEndToEnd::TearDown();
  }
  static DataExtensionDefinitions& Definitions() { return BrenvaleGlobals::DataExtensionDefinitions(); }

  // Adds a customer through its own collection and gives its ListID.
  static std::string AddCustomer(const std::string& name) {
    Customers customers(true);
    Customer& added = customers.Add(name);
    return customers.Commit() == 1 ? added.ListID() : std::string();
  }

  // The values a fresh collection reads for the object.
  static std::string ReadBack(zqEnumListObjectType kind, const std::string& owner, const std::string& id,
                              const std::string& name) {
    DataExtensions values;
    values.OwnerType(kind);
    values.OwnerId(owner);
    values.ListOrTxnId(id);
    values.GetAll();
    const DataExtension* value = values.Find(name);
    return value ? value->ValueText() : "<none>";
  }

  static std::string FirstError(const zkErrors& errors) {
    return errors.Count() ? std::to_string(errors[1].Number()) + " " + errors[1].Description() : std::string();
  }
};

TEST_F(CustomFieldsEndToEnd, APublicFieldIsDefinedSetReadChangedClearedRenamedAndDeleted) {
  DataExtensionDefinition& region = Definitions().Add("Region");
  region.AssignedTos().Add(zqObjectTypeCustomer);
  ASSERT_EQ(Definitions().Commit(), 1) << FirstError(Definitions().Errors());
  EXPECT_EQ(region.OwnerId(), "0");
  EXPECT_NE(region.DataExtID(), 0);
  EXPECT_EQ(region.ObjectState(), zqObjectStateClean);

  const std::string ann = AddCustomer("Ann");
  ASSERT_FALSE(ann.empty());
  DataExtensions values;
  values.OwnerType(zqObjectTypeCustomer);
  values.OwnerId("0");
  values.ListOrTxnId(ann);
  values["Region"].ValueAsString("North & East");
  EXPECT_EQ(values.ObjectState(), zqObjectStateDirty);  // a value waits to be saved
  EXPECT_EQ(values.Commit(), 1) << FirstError(values.Errors());
  EXPECT_EQ(values.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(ReadBack(zqObjectTypeCustomer, "0", ann, "Region"), "North & East");

  values["Region"].ValueAsString("South");
  EXPECT_EQ(values.ObjectState(), zqObjectStateDirty);
  EXPECT_EQ(values.Commit(), 1) << FirstError(values.Errors());
  EXPECT_EQ(ReadBack(zqObjectTypeCustomer, "0", ann, "Region"), "South");

  // A cleared value is deleted from the customer; the definition stays.
  values["Region"].ValueAsString("");
  EXPECT_EQ(values.Commit(), 1) << FirstError(values.Errors());
  EXPECT_EQ(ReadBack(zqObjectTypeCustomer, "0", ann, "Region"), "");

  // Renamed, the definition is found by its new name only, and a value goes under it.
  EXPECT_EQ(Definitions().Rename("Region", "Area"), 1);
  EXPECT_EQ(region.KeptName(), "Area");
  DataExtensionDefinitions byKind;
  EXPECT_EQ(byKind.GetByAssignedToObject(zqObjectTypeCustomer), 1);
  ASSERT_NE(byKind.Find("Area"), nullptr);
  EXPECT_EQ(byKind.Find("Region"), nullptr);
  DataExtensions renamed;
  renamed.OwnerType(zqObjectTypeCustomer);
  renamed.OwnerId("0");
  renamed.ListOrTxnId(ann);
  renamed["Area"].ValueAsString("West");
  EXPECT_EQ(renamed.Commit(), 1) << FirstError(renamed.Errors());
  EXPECT_EQ(ReadBack(zqObjectTypeCustomer, "0", ann, "Area"), "West");

  // Deleted, the definition takes its values with it.
  EXPECT_EQ(Definitions().Delete("Area"), 0);  // QuickBooks' status
  EXPECT_EQ(Definitions().Count(), 0);
  DataExtensionDefinitions publicOnes;
  EXPECT_EQ(publicOnes.GetByOwner("0"), 0);
  EXPECT_EQ(ReadBack(zqObjectTypeCustomer, "0", ann, "Area"), "<none>");
}

TEST_F(CustomFieldsEndToEnd, ACustomersOwnFieldsComeWithItWhenAskedForAndAreSavedWithIt) {
  DataExtensionDefinition& region = Definitions().Add("Region");
  region.AssignedTos().Add(zqObjectTypeCustomer);
  ASSERT_EQ(Definitions().Commit(), 1) << FirstError(Definitions().Errors());

  // Set before the customer exists, the value is saved once QuickBooks has added it.
  Customers& customers = BrenvaleGlobals::Customers();
  Customer& ann = customers.Add("Ann");
  ann.CustomFields()["Region"].ValueAsString("North");
  ASSERT_EQ(customers.Commit(), 1) << FirstError(customers.Errors());

  const auto regionOf = [](bool include) {
    Customers reader;
    reader.IncludeDataExtensions(include);
    reader.GetAll();
    const Customer* back = reader.Find("Ann");
    if (!back) return std::string("<no customer>");
    const DataExtensions* fields = back->FindCustomFields();
    const DataExtension* value = fields ? fields->Find("Region") : nullptr;
    return value ? value->ValueText() : std::string("<none>");
  };
  EXPECT_EQ(regionOf(true), "North");
  EXPECT_EQ(regionOf(false), "<none>");  // QuickBooks' own fields come when they are asked for

  ann.CustomFields()["Region"].ValueAsString("South");
  EXPECT_EQ(ann.SaveDataExtensions(), 1) << FirstError(ann.Errors());
  EXPECT_EQ(regionOf(true), "South");
  ann.CustomFields()["Region"].ValueAsString("");
  EXPECT_EQ(ann.SaveDataExtensions(), 1) << FirstError(ann.Errors());
  EXPECT_EQ(regionOf(true), "<none>");
}

TEST_F(CustomFieldsEndToEnd, AnApplicationsFieldComesWithItsRecordsAndIsSavedWithThem) {
  BrenvaleGlobals::QBConnection().RegisterDataExtensionsGUID(kGuid);
  DataExtensionDefinition& score = Definitions().Add("Score", qbDataExtTypeINTTYPE);
  score.AssignedTos().Add(zqObjectTypeAccount);
  ASSERT_EQ(Definitions().Commit(), 1) << FirstError(Definitions().Errors());
  EXPECT_EQ(score.OwnerId(), kGuid);

  // A value set on a new account is saved once QuickBooks has added the account.
  Accounts& accounts = BrenvaleGlobals::Accounts();
  Account& checking = accounts.Add("Checking", true, {}, qbBank);
  checking.ApplicationFields()["Score"].Value(Variant(Long{42}));
  ASSERT_EQ(accounts.Commit(), 1) << FirstError(accounts.Errors());
  EXPECT_EQ(checking.ApplicationFields()["Score"].ObjectState(), zqObjectStateClean);

  // The account's query asks for the application's fields: they come with it.
  const auto readScore = [] {
    Accounts reader;
    reader.GetAll();
    const Account* back = reader.Find("Checking");
    if (!back) return std::string("<no account>");
    const DataExtensions* fields = back->FindApplicationFields();
    const DataExtension* value = fields ? fields->Find("Score") : nullptr;
    return value ? value->ValueText() : std::string("<none>");
  };
  EXPECT_EQ(readScore(), "42");

  checking.ApplicationFields()["Score"].ValueAsString("43");
  EXPECT_EQ(checking.SaveDataExtensions(), 1) << FirstError(checking.Errors());
  EXPECT_EQ(readScore(), "43");

  // QuickBooks' own fields are neither asked for nor held on the account.
  Accounts reader;
  reader.GetAll();
  ASSERT_NE(reader.Find("Checking"), nullptr);
  EXPECT_EQ(reader.Find("Checking")->FindCustomFields(), nullptr);

  // Another application's query does not see them.
  EXPECT_EQ(Definitions().Delete("Score"), 0);
  EXPECT_EQ(readScore(), "<none>");
}

TEST_F(CustomFieldsEndToEnd, RefusalsAreClearErrorsAndLeaveTheCompanyAsItWas) {
  const std::string ann = AddCustomer("Ann");
  DataExtensionDefinition& region = Definitions().Add("Region");
  region.AssignedTos().Add(zqObjectTypeCustomer);
  ASSERT_EQ(Definitions().Commit(), 1);

  // 2802: an application's field with no GUID registered; the definition stays as it was.
  DataExtensionDefinition& pending = Definitions().Add("Pending");
  BrenvaleError e = RaisedBy([&] { pending.DataType(qbDataExtTypeINTTYPE); });
  EXPECT_EQ(e.Number(), ErrorNumber(2802));
  EXPECT_EQ(e.Description(), "No GUID has been registered for application defined fields.");
  EXPECT_EQ(RaisedBy([&] { pending.AssignedTos().Add(zqObjectTypeAccount); }).Number(), ErrorNumber(2802));
  EXPECT_EQ(pending.DataType(), qbDataExtTypeSTR255TYPE);
  EXPECT_EQ(pending.AssignedTos().Count(), 0);
  Account account;
  EXPECT_EQ(RaisedBy([&] { account.ApplicationFields(); }).Number(), ErrorNumber(2802));

  // 2801: with a GUID registered, a public field still takes text on customers, vendors, employees
  // and items only.
  BrenvaleGlobals::QBConnection().RegisterDataExtensionsGUID(kGuid);
  DataExtensionDefinition& publicOne = Definitions().Add("Public");
  publicOne.OwnerId("0");
  e = RaisedBy([&] { publicOne.AssignedTos().Add(zqObjectTypeAccount); });
  EXPECT_EQ(e.Number(), ErrorNumber(2801));
  EXPECT_EQ(e.Description(), "This operation is only permitted on application defined fields.");
  EXPECT_EQ(RaisedBy([&] { publicOne.DataType(qbDataExtTypeAMTTYPE); }).Number(), ErrorNumber(2801));
  EXPECT_EQ(publicOne.AssignedTos().Count(), 0);
  Definitions().Remove("Public");
  Definitions().Remove("Pending");

  DataExtensions values;
  values.OwnerType(zqObjectTypeCustomer);
  values.OwnerId("0");
  values.ListOrTxnId(ann);
  // 2800: a key that is not a name.
  e = RaisedBy([&] { values.Item(Variant(Long{1})); });
  EXPECT_EQ(e.Number(), ErrorNumber(2800));
  EXPECT_EQ(e.Description(), "Invalid data extension index specified.");
  // 2804: a name not defined for customers; nothing is held.
  e = RaisedBy([&] { values["Colour"]; });
  EXPECT_EQ(e.Number(), ErrorNumber(2804));
  EXPECT_EQ(e.Description(), "Specified data extension in not defined for this object type.");
  EXPECT_EQ(values.Count(), 0);

  // A value QuickBooks refuses (the object is gone) is reported and left waiting, and the values
  // QuickBooks took are kept.
  values["Region"].ValueAsString("North");
  DataExtensions ghost;
  ghost.OwnerType(zqObjectTypeCustomer);
  ghost.OwnerId("0");
  ghost.ListOrTxnId("80000999-1");
  ghost["Region"].ValueAsString("Nowhere");
  EXPECT_EQ(values.Commit(), 1);
  EXPECT_EQ(RaisedBy([&] { ghost.Commit(); }).Number(), ErrorNumber(1023));
  EXPECT_NE(ghost["Region"].ObjectState(), zqObjectStateClean);
  EXPECT_GT(ghost["Region"].Errors().Count(), 0);
  EXPECT_EQ(ReadBack(zqObjectTypeCustomer, "0", ann, "Region"), "North");

  // The definitions in the company are the one committed.
  DataExtensionDefinitions all;
  EXPECT_EQ(all.GetByOwner("0"), 1);
  EXPECT_EQ(all.GetByOwner(kGuid), 0);
}

}  // namespace
}  // namespace brenvale::testing
