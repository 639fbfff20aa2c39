// The records a record owns: one aggregate of a choice at a time, their rules run as the owner's (and
// the names they look up fetched with the owner's), an emptied list sent in a modify as its clear
// flag, and a nested record freed when it goes.
#include <string>
#include <vector>

#include "brenvale/model/ChildList.hpp"
#include "brenvale/model/RecordCore.hpp"
#include "brenvale/model/RefCache.hpp"
#include "brenvale/model/detail/ReadTable.hpp"
#include "model/TestKinds.hpp"
#include "model/ModelTestSupport.hpp"

namespace brenvale::testing {
namespace {

int blocksGone = 0;

// A price block; both blocks of the owner are of this shape.
class Block : public RecordCore {
 public:
  explicit Block(const RecordDecl& decl) : RecordCore(decl) {}
  ~Block() override { ++blocksGone; }
  void Desc(std::string_view v) { SetText(Decl().FindTag("Desc"), v); }
  void Account(std::string_view v) { SetRefName(Decl().FindTag("AccountRef"), v); }
};
struct K {
  static constexpr FieldDef Desc = field::Text("Desc");
  static constexpr FieldDef AccountRef = field::Ref("AccountRef", zqListTypeAccount);
};
constexpr auto kBlockFields = Fields(K::Desc, K::AccountRef);
constexpr auto kBlockBody = kBlockFields.Order(K::Desc, K::AccountRef);
constexpr Rule kBlockRules[] = {kBlockFields.Exists(K::AccountRef, 1014, "Account")};
constexpr RecordDecl kBlockDecl{.label = "Block",
                                .fields = kBlockFields.fields,
                                .add = kBlockBody,
                                .mod = kBlockBody,
                                .read = kBlockBody,
                                .rules = kBlockRules,
                                .make = [](const RecordDecl& d) -> RecordCore* { return new Block(d); }};
const RecordDecl& BlockDecl() { return kBlockDecl; }

// A line of a group.
class Line : public RecordCore {
 public:
  explicit Line(const RecordDecl& decl) : RecordCore(decl) {}
  void Item(std::string_view v) { SetRefName(Decl().FindTag("ItemRef"), v); }
};
struct L {
  static constexpr FieldDef ItemRef = field::Ref("ItemRef", zqListTypeItem);
  static constexpr FieldDef Quantity = field::Quantity("Quantity");
};
constexpr auto kLineFields = Fields(L::ItemRef, L::Quantity);
constexpr auto kLineBody = kLineFields.Order(L::ItemRef, L::Quantity);
constexpr Rule kLineRules[] = {kLineFields.Exists(L::ItemRef, 2001, "Item")};
constexpr RecordDecl kLineDecl{.label = "Line",
                               .fields = kLineFields.fields,
                               .add = kLineBody,
                               .mod = kLineBody,
                               .read = kLineBody,
                               .rules = kLineRules,
                               .addTag = "ItemGroupLine",
                               .modTag = "ItemGroupLine",
                               .make = [](const RecordDecl& d) -> RecordCore* { return new Line(d); }};
const RecordDecl& LineDecl() { return kLineDecl; }

// The owner: a name, two blocks of which one is written, and lines.
struct O {
  static constexpr FieldDef Name = field::Text("Name");
  static constexpr FieldDef Sale = field::Aggregate("SalesOrPurchase", &BlockDecl).InMod("SalesOrPurchaseMod").Choice(1);
  static constexpr FieldDef Both = field::Aggregate("SalesAndPurchase", &BlockDecl).InMod("SalesAndPurchaseMod").Choice(1);
  static constexpr FieldDef Lines = field::Children("ItemGroupLine", &LineDecl).ClearedBy("ClearItemsInGroup");
};
constexpr auto kOwnerFields = Fields(O::Name, O::Sale, O::Both, O::Lines);
constexpr auto kOwnerBody = kOwnerFields.Order(O::Name, O::Sale, O::Both, O::Lines);
constexpr Rule kOwnerRules[] = {kOwnerFields.NotEmpty(O::Name, 0, "Name").Message("Name must be entered"),
                                kOwnerFields.NestedRules(O::Sale), kOwnerFields.NestedRules(O::Both, "Block"),
                                kOwnerFields.NestedRules(O::Lines)};
constexpr RecordDecl kOwnerDecl{.label = "Owner",
                                .fields = kOwnerFields.fields,
                                .add = kOwnerBody,
                                .mod = kOwnerBody,
                                .read = kOwnerBody,
                                .rules = kOwnerRules};

class Owner : public RecordCore {
 public:
  Owner() : RecordCore(kOwnerDecl) {}
  void Name(std::string_view v) { SetText(kOwnerFields.Id(O::Name), v); }
  Block& Sale() { return static_cast<Block&>(Nested(kOwnerFields.Id(O::Sale))); }
  Block& Both() { return static_cast<Block&>(Nested(kOwnerFields.Id(O::Both))); }
  void DropBoth() { Unset(kOwnerFields.Id(O::Both)); }
  ChildList<Line> Lines() { return ChildList<Line>(ChildrenOf(kOwnerFields.Id(O::Lines))); }
};

using NestedRecords = ModelTest;

TEST_F(NestedRecords, OneAggregateOfAChoiceIsHeldAndWhatGoesIsFreed) {
  blocksGone = 0;
  Owner o;
  o.Name("Design");
  o.Sale().Desc("Hours");
  BrenvaleError refused = RaisedBy([&] { o.Both(); });
  EXPECT_EQ(refused.Number(), ErrorNumber(1003));
  EXPECT_EQ(refused.Source(), "Brenvale: Owner");
  EXPECT_EQ(refused.Description(), "SalesAndPurchase cannot be used while the record holds SalesOrPurchase");
  EXPECT_EQ(Body(o, Form::Add), "<Name>Design</Name><SalesOrPurchase><Desc>Hours</Desc></SalesOrPurchase>");

  // An empty block of the choice gives way; a held one goes when it is taken out.
  Owner fresh;
  fresh.Sale();
  fresh.Both().Desc("Bought and sold");
  EXPECT_EQ(blocksGone, 1);
  fresh.DropBoth();
  EXPECT_EQ(blocksGone, 2);
  fresh.Sale().Desc("Sold");
  EXPECT_EQ(Body(fresh, Form::Add), "<SalesOrPurchase><Desc>Sold</Desc></SalesOrPurchase>");

  // What QuickBooks answers replaces the block held, values and all.
  o.ReadFrom(Parse("<OwnerRet><Name>Design</Name><SalesAndPurchase><Desc>Now both</Desc></SalesAndPurchase>"
                   "</OwnerRet>")
                 .DocumentElement());
  EXPECT_EQ(blocksGone, 3);
  o.Name("Design 2");
  EXPECT_EQ(Body(o, Form::Mod),
            "<Name>Design 2</Name><SalesAndPurchaseMod><Desc>Now both</Desc></SalesAndPurchaseMod>");
}

TEST_F(NestedRecords, NestedRulesRunAsTheOwnersAndTheirNamesAreFetchedWithIt) {
  auto p = Install([](const std::string& rq) {
    if (rq.find("<AccountQueryRq") != std::string::npos)
      return Responses(Rs("AccountQueryRs", "1", 0, "<AccountRet><ListID>A1</ListID><FullName>Sales</FullName></AccountRet>"));
    return Responses(Rs("ItemQueryRs", "1", 0, "<ItemServiceRet><ListID>I1</ListID><FullName>Nails</FullName></ItemServiceRet>"));
  });
  TheRefCache().Clear();
  Owner o;
  o.Both().Account("Nowhere");
  o.Lines().Add().Item("Nails");
  o.Lines().Add().Item("Screws");
  std::vector<std::string> names;
  o.ForEachReference([&](zqEnumListType list, std::string_view name) {
    names.push_back(std::to_string(list) + ":" + std::string(name));
  });
  EXPECT_EQ(names, (std::vector<std::string>{"1:Nowhere", "17:Nails", "17:Screws"}));

  RefCache::Batch batch;
  o.ForEachReference([&](zqEnumListType list, std::string_view name) { batch.Add(list, name); });
  TheRefCache().Fetch(batch);
  ASSERT_EQ(p->requests.size(), 2u);  // one query per list, whatever the nesting
  ValidateContext context{&TheRefCache(), true};
  EXPECT_FALSE(o.Validate(context));
  EXPECT_EQ(p->requests.size(), 2u);  // validation asked nothing more
  ASSERT_EQ(o.Errors().Count(), 3);
  // A rule of no code gives its own text and no number; nested entries keep their fields unless the
  // owner names them.
  EXPECT_EQ(o.Errors()[1].Number(), 0);
  EXPECT_EQ(o.Errors()[1].Field(), "Name");
  EXPECT_EQ(o.Errors()[1].Description(), "Name must be entered");
  EXPECT_EQ(o.Errors()[2].Number(), ErrorNumber(1014));
  EXPECT_EQ(o.Errors()[2].Field(), "Block");
  EXPECT_EQ(o.Errors()[3].Number(), ErrorNumber(2001));
  EXPECT_EQ(o.Errors()[3].Field(), "Item");
  EXPECT_EQ(o.Lines()[2].Errors().Count(), 1);  // the line keeps its own entry too

  // A record validated on its own asks for its names the same way: once per list.
  TheRefCache().Clear();
  p->requests.clear();
  Owner alone;
  alone.Name("Kit");
  alone.Lines().Add().Item("Nails");
  alone.Lines().Add().Item("Glue");
  alone.Lines().Add().Item("Tape");
  EXPECT_FALSE(alone.Validate());
  ASSERT_EQ(p->requests.size(), 1u);
  EXPECT_NE(p->requests[0].find("<FullName>Nails</FullName><FullName>Glue</FullName><FullName>Tape</FullName>"),
            std::string::npos)
      << p->requests[0];
  EXPECT_EQ(alone.Errors().Count(), 2);
}

TEST_F(NestedRecords, AnEmptiedListIsClearedInAModifyAndOnlyThere) {
  Owner o;
  o.ReadFrom(Parse("<OwnerRet><Name>Kit</Name><ItemGroupLine><ItemRef><ListID>1</ListID><FullName>Nails</FullName>"
                   "</ItemRef><Quantity>2</Quantity></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Glue"
                   "</FullName></ItemRef></ItemGroupLine></OwnerRet>")
                 .DocumentElement());
  ASSERT_EQ(o.Lines().Count(), 2);
  o.Name("Kit 2");
  // A modify names every line: QuickBooks replaces the group's lines with those it is given.
  EXPECT_EQ(Body(o, Form::Mod),
            "<Name>Kit 2</Name><ItemGroupLine><ItemRef><FullName>Nails</FullName></ItemRef><Quantity>2.00000"
            "</Quantity></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Glue</FullName></ItemRef></ItemGroupLine>");
  o.Lines().Clear();
  EXPECT_EQ(Body(o, Form::Mod), "<Name>Kit 2</Name><ClearItemsInGroup>true</ClearItemsInGroup>");
  EXPECT_EQ(Body(o, Form::Add), "<Name>Kit 2</Name>");
  Owner none;  // a record that never held the list says nothing of it
  none.Name("Kit");
  EXPECT_EQ(Body(none, Form::Mod), "<Name>Kit</Name>");
}

// Reading a record holds its kind's table while its blocks and lines are read with theirs, however
// many other kinds were read before: a table once made is the same table for the life of the thread.
TEST_F(NestedRecords, ARecordIsReadWholeAfterManyOtherKinds) {
  const std::string ret =
      "<OwnerRet><Name>Kit</Name><SalesOrPurchase><Desc>Box</Desc></SalesOrPurchase><ItemGroupLine><ItemRef>"
      "<FullName>Nails</FullName></ItemRef></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Glue</FullName>"
      "</ItemRef></ItemGroupLine></OwnerRet>";
  const RecordDecl* others[] = {&TestCustomer::Declaration(), &TestItem::Declaration(), &TestOtherItem::Declaration(),
                                &TestInvoice::Declaration(),  &TestBill::Declaration(), &TestPriceBlock::Declaration(),
                                &TestItemLine::SalesForm(),   &TestItemLine::PurchaseForm(),
                                &TestItemLine::GroupMemberForm()};
  const detail::ReadTable* table = &detail::ReadTable::Of(kOwnerDecl);
  for (const RecordDecl* other : others) {
    SCOPED_TRACE(std::string(other->label));
    for (const RecordDecl* d : others)
      if (d != other) detail::ReadTable::Of(*d);
    Owner o;
    o.ReadFrom(Parse(ret).DocumentElement());
    EXPECT_EQ(Body(o, Form::Add),
              "<Name>Kit</Name><SalesOrPurchase><Desc>Box</Desc></SalesOrPurchase><ItemGroupLine><ItemRef>"
              "<FullName>Nails</FullName></ItemRef></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Glue</FullName>"
              "</ItemRef></ItemGroupLine>");
    EXPECT_EQ(&detail::ReadTable::Of(kOwnerDecl), table);
  }
}

}  // namespace
}  // namespace brenvale::testing
