// Every declared Add and Mod body, nested aggregates and lines included, lists its elements in the
// order QuickBooks' qbXML schema gives them: each body is a subsequence of the schema's children of
// the request's element. This holds for every record kind the library offers and for the kinds the
// tests declare in the shape of those to come.
#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <type_traits>
#include <string>
#include <tuple>
#include <vector>

#include "brenvale/company/RecordKinds.hpp"
#include "brenvale/qbxml/Session.hpp"
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

// What a US company's desktop QuickBooks 13.0 session writes: the bodies are checked as it writes them
// (elements of other editions and versions are not in this schema's requests, or not in its order).
WriteContext UsDesktop(Form form) {
  WriteContext c;
  c.form = form;
  c.versionNumber = VersionNumberOf("13.0");
  c.versionText = "13.0";
  c.country = "US";
  return c;
}

// Checks the body of `decl` in `form` against the schema's children of `element` (declared inside
// `scope` when it is a local element), then every nested body it writes. `record` is a blank record of
// the declaration, for the gates that ask it.
void CheckBody(const RecordDecl& decl, const RecordCore& record, Form form, const std::string& scope,
               const std::string& element, std::vector<std::string> lead = {}) {
  SCOPED_TRACE(element);
  const std::vector<std::string> schema = scope.empty() ? SchemaChildren(element) : SchemaChildren(scope, element);
  ASSERT_FALSE(schema.empty()) << "the schema has no element " << element;
  const WriteContext context = UsDesktop(form);
  std::vector<std::string> order = std::move(lead);
  for (FieldId id : decl.Order(form)) {
    const FieldDef& f = decl.Field(id);
    if (f.gate && !f.gate(context, record)) continue;
    if (!f.since.Any() && context.versionNumber < f.since.Number()) continue;
    std::string tag(form == Form::Mod && !f.modTag.empty() ? f.modTag : f.TagIn(context));
    if (f.kind == ValueKind::Children) {
      const RecordDecl& body = f.body();
      tag = std::string(form == Form::Add ? body.addTag : body.modTag);
      // A transaction line names itself first in a modify request; other child records do not.
      const bool line = form == Form::Mod && body.FindTag("TxnLineID") != kNoField;
      const std::unique_ptr<RecordCore> child(body.make(body));
      CheckBody(body, *child, form, {}, tag, line ? std::vector<std::string>{"TxnLineID"} : std::vector<std::string>{});
    } else if (f.kind == ValueKind::Aggregate) {
      const std::unique_ptr<RecordCore> nested(f.body().make(f.body()));
      CheckBody(f.body(), *nested, form, element, tag);
    }
    order.push_back(tag);
  }
  EXPECT_EQ(Departure(order, schema), "") << "out of the schema's order in " << element;
}

void CheckKind(const RecordCore& record, bool txn) {
  const RecordDecl& decl = record.Decl();
  SCOPED_TRACE(std::string(decl.xmlName));
  if (!decl.add.empty()) CheckBody(decl, record, Form::Add, {}, std::string(decl.xmlName) + "Add");
  // A kind modified by name (a data-extension definition) writes no identity ahead of its body.
  std::vector<std::string> lead;
  if (txn)
    lead = {"TxnID", "EditSequence"};
  else if (!decl.list->modifiedByName)
    lead = {"ListID", "EditSequence"};
  if (!decl.mod.empty() && decl.modRefusal.empty())
    CheckBody(decl, record, Form::Mod, {}, std::string(decl.xmlName) + "Mod", lead);
}

// Checks every kind a collection holds (each of a collection of several kinds) whose requests a US
// company has; returns how many.
template <class Collection>
int CheckKinds() {
  return []<class... K>(std::tuple<K...>*) {
    int checked = 0;
    (((K::Declaration().list->outsideUS ? void() : (CheckKind(K(), false), ++checked, void()))), ...);
    return checked;
  }(static_cast<typename Collection::Members*>(nullptr));
}

TEST(Declarations, EveryListKindWritesInTheSchemasOrder) {
  if (!SchemaOrSkip("the declared bodies")) return;
  int checked = 0;
#define BRENVALE_CHECK_KIND(Collection, Record) checked += CheckKinds<Collection>();
  BRENVALE_RECORD_KINDS(BRENVALE_CHECK_KIND)
#undef BRENVALE_CHECK_KIND
  // All but the tax codes, whose requests US editions do not have; the name lists twice, on their own
  // and among the entities; the twelve item kinds among them.
  EXPECT_EQ(checked, 38);
}

TEST(Declarations, TheKindsToComeWriteInTheSchemasOrder) {
  if (!SchemaOrSkip("the declared bodies")) return;
  CheckKind(TestCustomer(), false);
  CheckKind(TestItem(), false);
  CheckKind(TestInvoice(), true);
  CheckKind(TestBill(), true);
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
