// A record being read keeps the table of the elements it reads while nested records read with
// theirs, however many other kinds were read before.
#include "model/ModelTestSupport.hpp"
#include "model/TestKinds.hpp"

namespace brenvale::testing {
namespace {

struct T {
  static constexpr FieldDef Name = field::Text("Name");
};
constexpr auto kTinyFields = Fields(T::Name);
constexpr auto kTinyRead = kTinyFields.Order(T::Name);
// Kinds no other test reads, each its own declaration.
template <int N>
constexpr RecordDecl kTiny{.label = "Tiny", .fields = kTinyFields.fields, .read = kTinyRead};

template <int... N>
void ReadTinies(std::integer_sequence<int, N...>) {
  const DomDocument doc = Parse("<TinyRet><Name>x</Name></TinyRet>");
  auto read = [&](const RecordDecl& decl) {
    RecordCore r(decl);
    r.ReadFrom(doc.DocumentElement());
  };
  (read(kTiny<N>), ...);
}

TEST(ReadTables, ARecordKeepsItsTableWhileItsNestedRecordsAreRead) {
  // Eight kinds never read before, then a customer without addresses, then seven more new kinds:
  // the customer's table is the next a new kind would take the place of. An address read inside the
  // next customer is such a kind.
  ReadTinies(std::integer_sequence<int, 1, 2, 3, 4, 5, 6, 7, 8>{});
  TestCustomer plain;
  plain.ReadFrom(Parse("<CustomerRet><Name>Plain</Name></CustomerRet>").DocumentElement());
  ReadTinies(std::integer_sequence<int, 9, 10, 11, 12, 13, 14, 15>{});
  TestCustomer c;
  c.ReadFrom(Parse("<CustomerRet><Name>Ann</Name><BillAddress><City>Boston</City></BillAddress>"
                   "<ShipAddress><City>Quincy</City></ShipAddress><Phone>555-0100</Phone><Email>a@b.c</Email>"
                   "</CustomerRet>")
                 .DocumentElement());
  EXPECT_EQ(c.BillAddress().City(), "Boston");
  EXPECT_EQ(c.ShipAddress().City(), "Quincy");
  EXPECT_EQ(c.Text("Phone"), "555-0100");
  EXPECT_EQ(c.Text("Email"), "a@b.c");
}

}  // namespace
}  // namespace brenvale::testing
