// A field the record keeps itself (a repeated value): read once per element, written in its
// declared place, given and taken as text; AfterRead sees the read done.
#include "model/ModelTestSupport.hpp"

namespace brenvale::testing {
namespace {

struct G {
  static constexpr FieldDef Name = field::Text("Name");
  static constexpr FieldDef Tag = field::Own("Tag");
  static constexpr FieldDef Memo = field::Text("Memo");
};
constexpr auto kFields = Fields(G::Name, G::Tag, G::Memo);
constexpr auto kOrder = kFields.Order(G::Name, G::Tag, G::Memo);

class Tagged : public RecordCore {
 public:
  Tagged() : RecordCore(kDecl) {}
  std::vector<std::string> tags;
  int reads = 0;
  static constexpr RecordDecl kDecl{.label = "Tagged", .fields = kFields.fields, .add = kOrder, .read = kOrder};

 protected:
  void AfterRead() override { ++reads; }
  void ReadOwnField(FieldId, const DomNode& node) override { tags.push_back(node.Text()); }
  void WriteOwnField(xmlBldr& b, FieldId, const WriteContext&) const override {
    for (const std::string& t : tags) b.CreateElement("Tag", t);
  }
  std::string OwnFieldText(FieldId) const override { return tags.empty() ? "" : tags.front() + "..."; }
  void SetOwnFieldText(FieldId, std::string_view text) override { tags.emplace_back(text); }
};

TEST(OwnFields, ReadWrittenAndSetByTheRecordInTheirDeclaredPlace) {
  Tagged t;
  t.ReadFrom(Parse("<TaggedRet><Name>n</Name><Tag>a</Tag><Tag>b</Tag><Memo>m</Memo></TaggedRet>").DocumentElement());
  EXPECT_EQ(t.tags, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(t.reads, 1);
  const FieldId tag = Tagged::kDecl.FindTag("Tag");
  t.SetFromText(tag, "c");
  EXPECT_EQ(t.ValueText(tag), "a...");
  EXPECT_FALSE(std::holds_alternative<std::string>(t.Value(tag)));
  xmlBldr b;
  t.WriteBody(b, WriteContext::OfSession(Form::Add));
  EXPECT_EQ(b.GetXML(), "<Name>n</Name><Tag>a</Tag><Tag>b</Tag><Tag>c</Tag><Memo>m</Memo>");
  // Without its own handling, such a field cannot be set from text.
  RecordCore plain(Tagged::kDecl);
  EXPECT_EQ(RaisedBy([&] { plain.SetFromText(tag, "x"); }).Number(), ErrorNumber(1030));
}

}  // namespace
}  // namespace brenvale::testing
