// A reference rule that also asks what sort of record it finds (a sub-account's parent must be an
// account of the same type), and the names of nested records gathered with their owner's: what a
// commit looks up, it looks up once, in one query per list.
#include <algorithm>

#include "brenvale/model/ChildList.hpp"
#include "brenvale/model/ListCollection.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/model/RefCache.hpp"
#include "model/ModelTestSupport.hpp"

namespace brenvale::testing {
namespace {

// An account of the shape the chart of accounts has: a parent of the same type.
class SortedAccount : public HierarchicalRecord {
 public:
  SortedAccount() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();
  void Type(qbEnumAccountType type);
};

struct A {
  static constexpr FieldDef AccountType = field::Enum("AccountType", zqeAccountType);
};
constexpr auto kAccountFields = ListFields(A::AccountType);
constexpr auto kAccountAdd = kAccountFields.Order(ListBase::Name, ListBase::ParentRef, A::AccountType);
constexpr auto kAccountRead = ListRead(kAccountFields, A::AccountType);
constexpr Rule kAccountRules[] = {
    kAccountFields.Exists(ListBase::ParentRef, 1010, "Parent").UncheckedFails().Alike(kAccountFields.Id(A::AccountType), 1303)};
constexpr ListFacts kAccountFacts{.listType = zqListTypeAccount, .hierarchical = true, .key = ListKey::FullName};
constexpr RecordDecl kAccountDecl{.label = "Account",
                                  .xmlName = "Account",
                                  .objectType = zqObjectTypeAccount,
                                  .fields = kAccountFields.fields,
                                  .add = kAccountAdd,
                                  .read = kAccountRead,
                                  .rules = kAccountRules,
                                  .list = &kAccountFacts};
const RecordDecl& SortedAccount::Declaration() { return kAccountDecl; }
void SortedAccount::Type(qbEnumAccountType type) { SetEnum(kAccountFields.Id(A::AccountType), NarrowEnumCode(type)); }

class SortedAccounts : public HierarchicalCollection<SortedAccount> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

// A record whose child records name items: a price level of per-item prices.
class ItemPrice : public RecordCore {
 public:
  ItemPrice() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();
  ItemPrice& Item(std::string_view name);
};

struct P {
  static constexpr FieldDef ItemRef = field::Ref("ItemRef", zqListTypeItem);
  static constexpr FieldDef CustomPrice = field::Price("CustomPrice");
  static constexpr FieldDef PerItem = field::Children("PriceLevelPerItemRet", &ItemPrice::Declaration);
};
constexpr auto kPriceFields = Fields(P::ItemRef, P::CustomPrice);
constexpr auto kPriceBody = kPriceFields.Order(P::ItemRef, P::CustomPrice);
constexpr Rule kPriceRules[] = {kPriceFields.Exists(P::ItemRef, 2001, "Item")};
constexpr RecordDecl kPriceDecl{.label = "levelPerItem",
                                .fields = kPriceFields.fields,
                                .add = kPriceBody,
                                .read = kPriceBody,
                                .rules = kPriceRules,
                                .addTag = "PriceLevelPerItem",
                                .make = [](const RecordDecl&) -> RecordCore* { return new ItemPrice(); }};
const RecordDecl& ItemPrice::Declaration() { return kPriceDecl; }
ItemPrice& ItemPrice::Item(std::string_view name) {
  SetRefName(kPriceFields.Id(P::ItemRef), name);
  SetNumber(kPriceFields.Id(P::CustomPrice), 1.5);
  return *this;
}

class PricedLevel : public ListRecord {
 public:
  PricedLevel() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();
  ChildList<ItemPrice> Prices() { return ChildList<ItemPrice>(ChildrenOf(kLevelFields.Id(P::PerItem))); }
  static constexpr auto kLevelFields = ListFields(P::PerItem);
};
constexpr auto kLevelAdd = PricedLevel::kLevelFields.Order(ListBase::Name, P::PerItem);
constexpr auto kLevelRead = ListRead(PricedLevel::kLevelFields, P::PerItem);
constexpr ListFacts kLevelFacts{.listType = zqListTypePriceLevel};
constexpr RecordDecl kLevelDecl{.label = "PriceLevel",
                                .xmlName = "PriceLevel",
                                .objectType = zqObjectTypePriceLevel,
                                .fields = PricedLevel::kLevelFields.fields,
                                .add = kLevelAdd,
                                .read = kLevelRead,
                                .list = &kLevelFacts};
const RecordDecl& PricedLevel::Declaration() { return kLevelDecl; }

class PricedLevels : public ListCollection<PricedLevel> {
 public:
  using ListCollection::ListCollection;
  PricedLevel& Add(std::string_view name) {
    auto record = std::make_shared<PricedLevel>();
    record->Name(name);
    return AddNew(std::move(record));
  }
};

class ReferenceSorts : public ModelTest {
 protected:
  void TearDown() override {
    TheRefCache().Clear();
    ModelTest::TearDown();
  }
};

std::string AccountRet(const std::string& name, const std::string& type) {
  return "<AccountRet><ListID>A-" + name + "</ListID><EditSequence>1</EditSequence><Name>" + name +
         "</Name><FullName>" + name + "</FullName><Sublevel>0</Sublevel><AccountType>" + type +
         "</AccountType></AccountRet>";
}

std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

// Parents the master collection holds, new ones of the same batch included: the held record's own
// type is compared, and nothing is sent to find out.
TEST_F(ReferenceSorts, AParentHeldIsComparedByItsOwnType) {
  SortedAccounts accounts(true);
  accounts.Add("Cash").Type(qbBank);
  SortedAccount& sameType = accounts.Add("Petty", true, "Cash");
  sameType.Type(qbBank);
  SortedAccount& otherType = accounts.Add("Travel", true, "Cash");
  otherType.Type(qbExpense);
  SortedAccount& untyped = accounts.Add("Loose", true, "Cash");
  SortedAccount& orphan = accounts.Add("Lost", true, "Nowhere");
  orphan.Type(qbBank);

  EXPECT_TRUE(sameType.Validate());
  EXPECT_TRUE(untyped.Validate());  // nothing to compare: QuickBooks will say what it needs
  ASSERT_FALSE(otherType.Validate());
  ASSERT_EQ(otherType.Errors().Count(), 1);
  EXPECT_EQ(otherType.Errors()[1].Number(), ErrorNumber(1303));
  EXPECT_EQ(otherType.Errors()[1].Field(), "Parent");
  EXPECT_EQ(otherType.Errors()[1].Description(), "Parent account type must be the same as childs");
  // A parent that cannot be found is 1010 alone, never also 1303.
  ASSERT_FALSE(orphan.Validate());
  ASSERT_EQ(orphan.Errors().Count(), 1);
  EXPECT_EQ(orphan.Errors()[1].Number(), ErrorNumber(1010));
}

// Parents QuickBooks holds: looked up with their type in one query for the whole batch; a name the
// cache knew without its type is asked again, once.
TEST_F(ReferenceSorts, AParentLookedUpBringsItsTypeInOneQueryPerBatch) {
  std::vector<std::string> queries;
  auto p = Install([&](const std::string& rq) {
    if (rq.find("<AccountQueryRq") != std::string::npos) {
      queries.push_back(rq);
      return Responses(Rs("AccountQueryRs", "1", 500, AccountRet("Cash", "Bank") + AccountRet("Rent", "Expense"),
                          "A query request did not find a matching object in QuickBooks"));
    }
    return Responses(Rs("AccountAddRs", "1", 0, AccountRet("Petty", "Bank")));
  });
  // The cache already knows Cash, but not its type (another rule looked it up).
  TheRefCache().Fetch(zqListTypeAccount, {"Cash"});
  ASSERT_EQ(queries.size(), 1u);

  SortedAccounts accounts(true);
  SortedAccount& petty = accounts.Add("Petty", true, "Cash");
  petty.Type(qbBank);
  SortedAccount& office = accounts.Add("Office", true, "Rent");
  office.Type(qbBank);
  SortedAccount& ghost = accounts.Add("Ghost", true, "Gone");
  ghost.Type(qbBank);
  CurrentSession().commitRaises = false;
  accounts.Commit();

  ASSERT_EQ(queries.size(), 2u);
  EXPECT_EQ(Count(queries[1], "<FullName>"), 3u) << queries[1];
  EXPECT_EQ(petty.ObjectState(), zqObjectStateClean);
  ASSERT_EQ(office.Errors().Count(), 1);
  EXPECT_EQ(office.Errors()[1].Number(), ErrorNumber(1303));
  ASSERT_EQ(ghost.Errors().Count(), 1);
  EXPECT_EQ(ghost.Errors()[1].Number(), ErrorNumber(1010));

  // Known now with their types: validating again sends nothing.
  office.Type(qbExpense);
  EXPECT_TRUE(office.Validate());
  EXPECT_EQ(queries.size(), 2u);
  RefEntry cash;
  EXPECT_EQ(TheRefCache().Find(zqListTypeAccount, "cash", &cash, "AccountType"), RefAnswer::Found);
  EXPECT_EQ(cash.sort, "Bank");
}

// The names child records refer to are gathered with their owner's, for one query per list.
TEST_F(ReferenceSorts, ChildRecordsNamesAreFetchedWithTheirOwners) {
  std::vector<std::string> itemQueries;
  auto p = Install([&](const std::string& rq) {
    if (rq.find("<ItemQueryRq") != std::string::npos) {
      itemQueries.push_back(rq);
      return Responses(Rs("ItemQueryRs", "1", 1, {}, "A query request did not find a matching object in QuickBooks"));
    }
    return Responses(Rs("PriceLevelAddRs", "1", 0,
                        "<PriceLevelRet><ListID>P1</ListID><EditSequence>1</EditSequence><Name>Gold</Name>"
                        "</PriceLevelRet>") +
                     Rs("PriceLevelAddRs", "2", 0,
                        "<PriceLevelRet><ListID>P2</ListID><EditSequence>1</EditSequence><Name>Silver</Name>"
                        "</PriceLevelRet>"));
  });
  PricedLevels levels(true);
  PricedLevel& gold = levels.Add("Gold");
  gold.Prices().Add().Item("Bolts");
  gold.Prices().Add().Item("Nuts");
  levels.Add("Silver").Prices().Add().Item("Washers");
  EXPECT_EQ(levels.Commit(), 2);
  ASSERT_EQ(itemQueries.size(), 1u);
  for (const char* name : {"Bolts", "Nuts", "Washers"})
    EXPECT_NE(itemQueries[0].find(std::string("<FullName>") + name + "</FullName>"), std::string::npos) << name;
  EXPECT_EQ(TheRefCache().Find(zqListTypeItem, "Nuts"), RefAnswer::Missing);
}

// A second master of a list (a host's, a test's) stands in for the first while it lives; the first
// is the master again afterwards, and still finds what it holds.
TEST_F(ReferenceSorts, AMasterStandingInForAnotherGivesItBack) {
  SortedAccounts company(true);
  company.Add("Cash").Type(qbBank);
  {
    SortedAccounts other(true);
    EXPECT_EQ(TheLists().Master(zqListTypeAccount), &other);
    {
      SortedAccounts third(true);
      EXPECT_EQ(TheLists().Master(zqListTypeAccount), &third);
    }
    EXPECT_EQ(TheLists().Master(zqListTypeAccount), &other);
  }
  EXPECT_EQ(TheLists().Master(zqListTypeAccount), &company);
  SortedAccount& petty = company.Add("Petty", true, "Cash");
  petty.Type(qbBank);
  EXPECT_TRUE(petty.Validate());
  // One that goes while it is stood in for is not given back.
  auto hidden = std::make_unique<SortedAccounts>(true);
  SortedAccounts top(true);
  hidden.reset();
  EXPECT_EQ(TheLists().Master(zqListTypeAccount), &top);
}

}  // namespace
}  // namespace brenvale::testing
