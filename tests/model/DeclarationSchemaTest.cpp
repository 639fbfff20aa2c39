// Every declared Add and Mod body, nested aggregates and lines included, lists its elements in the
// order QuickBooks' qbXML schema gives them: each body is a subsequence of the schema's children of
// the request's element. This holds for every record kind the library offers and for the kinds the
// tests declare in the shape of those to come.
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "brenvale/company/RecordKinds.hpp"
#include "model/TestKinds.hpp"
#include "support/QbxmlSchema.hpp"

namespace brenvale::testing {
namespace {

// Where `order` departs from `schema`'s order, or empty when it is a subsequence of it.
std::string Departure(const std::vector<std::string>& order, const std::vector<std::string>& schema) {
  std::size_t at = 0;
  for (const std::string& tag : order) {
    while (at < schema.size() && schema[at] != tag) ++at;
    if (at == schema.size()) return tag;
    ++at;
  }
  return {};
}

// Checks the body of `decl` in `form` against the schema's children of `element` (declared inside
// `scope` when it is a local element), then every nested body it writes.
void CheckBody(const RecordDecl& decl, Form form, const std::string& scope, const std::string& element,
               std::vector<std::string> lead = {}) {
  SCOPED_TRACE(element);
  const std::vector<std::string> schema = scope.empty() ? SchemaChildren(element) : SchemaChildren(scope, element);
  ASSERT_FALSE(schema.empty()) << "the schema has no element " << element;
  std::vector<std::string> order = std::move(lead);
  for (FieldId id : decl.Order(form)) {
    const FieldDef& f = decl.Field(id);
    std::string tag(form == Form::Mod && !f.modTag.empty() ? f.modTag : f.tag);
    if (f.kind == ValueKind::Children) {
      const RecordDecl& body = f.body();
      tag = std::string(form == Form::Add ? body.addTag : body.modTag);
      CheckBody(body, form, {}, tag, form == Form::Mod ? std::vector<std::string>{"TxnLineID"} : std::vector<std::string>{});
    } else if (f.kind == ValueKind::Aggregate) {
      CheckBody(f.body(), form, element, tag);
    }
    order.push_back(tag);
  }
  EXPECT_EQ(Departure(order, schema), "") << "out of the schema's order in " << element;
}

void CheckKind(const RecordDecl& decl, bool txn) {
  SCOPED_TRACE(std::string(decl.xmlName));
  if (!decl.add.empty()) CheckBody(decl, Form::Add, {}, std::string(decl.xmlName) + "Add");
  // A kind modified by name (a data-extension definition) writes no identity ahead of its body.
  std::vector<std::string> lead;
  if (txn)
    lead = {"TxnID", "EditSequence"};
  else if (!decl.list->modifiedByName)
    lead = {"ListID", "EditSequence"};
  if (!decl.mod.empty() && decl.modRefusal.empty())
    CheckBody(decl, Form::Mod, {}, std::string(decl.xmlName) + "Mod", lead);
}

TEST(Declarations, EveryListKindWritesInTheSchemasOrder) {
  if (!SchemaOrSkip("the declared bodies")) return;
  int checked = 0;
#define BRENVALE_CHECK_KIND(Collection, Record)                                                  \
  if (!Record::Declaration().list->outsideUS) {                                                  \
    CheckKind(Record::Declaration(), false);                                                     \
    ++checked;                                                                                   \
  }
  BRENVALE_RECORD_KINDS(BRENVALE_CHECK_KIND)
#undef BRENVALE_CHECK_KIND
  EXPECT_EQ(checked, 14);  // all but the tax codes, whose requests US editions do not have
}

TEST(Declarations, TheKindsToComeWriteInTheSchemasOrder) {
  if (!SchemaOrSkip("the declared bodies")) return;
  CheckKind(TestCustomer::Declaration(), false);
  CheckKind(TestItem::Declaration(), false);
  CheckKind(TestInvoice::Declaration(), true);
  CheckKind(TestBill::Declaration(), true);
}

// The check itself finds a body out of order.
TEST(Declarations, TheCheckFindsABodyOutOfOrder) {
  if (!SchemaOrSkip("the check")) return;
  const std::vector<std::string> schema = SchemaChildren("CustomerAdd");
  EXPECT_EQ(Departure({"Name", "CompanyName", "FirstName"}, schema), "");
  EXPECT_EQ(Departure({"Name", "FirstName", "CompanyName"}, schema), "CompanyName");
  EXPECT_EQ(Departure({"Name", "Misspelt"}, schema), "Misspelt");
  EXPECT_EQ(SchemaChildren("CustomerAdd", "BillAddress").front(), "Addr1");
}

}  // namespace
}  // namespace brenvale::testing
