#include "Kinds.hpp"

#include <algorithm>
#include <cctype>
#include <type_traits>
#include <utility>

#include "Tool.hpp"
#include "brenvale/company/BrenvaleGlobals.hpp"

namespace brenvale::tool {
namespace {

// One kind, from the global accessor of its master collection: the record type is what the
// collection's Item returns, and a blank record comes from the collection's Add with its defaults.
template <auto Accessor>
Kind Of(std::string name, std::string plural) {
  using Collection = std::remove_reference_t<decltype(Accessor())>;
  using Record = std::remove_reference_t<decltype(std::declval<Collection&>().Item(std::size_t{1}))>;
  ListRecord& (*addNew)() = nullptr;
  if constexpr (requires { Accessor().Add(); }) addNew = []() -> ListRecord& { return Accessor().Add(); };
  return Kind{std::move(name),
              std::move(plural),
              &Record::StaticSchema,
              []() -> ListCollectionBase& { return Accessor(); },
              addNew,
              []() -> std::shared_ptr<ListRecord> { return std::make_shared<Record>(); }};
}

std::vector<Kind> Registered() {
  using G = BrenvaleGlobals;
  std::vector<Kind> kinds = {
      Of<&G::Classes>("Class", "Classes"),
      Of<&G::CustomerMessages>("CustomerMessage", "CustomerMessages"),
      Of<&G::CustomerTypes>("CustomerType", "CustomerTypes"),
      Of<&G::JobTypes>("JobType", "JobTypes"),
      Of<&G::PaymentMethods>("PaymentMethod", "PaymentMethods"),
      Of<&G::PayrollItemNonWages>("PayrollItemNonWage", "PayrollItemNonWages"),
      Of<&G::PayrollItemWages>("PayrollItemWage", "PayrollItemWages"),
      Of<&G::SalesReps>("SalesRep", "SalesReps"),
      Of<&G::SalesTaxCodes>("SalesTaxCode", "SalesTaxCodes"),
      Of<&G::ShipMethods>("ShipMethod", "ShipMethods"),
      Of<&G::TaxCodes>("TaxCode", "TaxCodes"),
      Of<&G::Templates>("Template", "Templates"),
      Of<&G::ToDoList>("ToDo", "ToDoList"),
      Of<&G::VendorTypes>("VendorType", "VendorTypes"),
  };
  std::sort(kinds.begin(), kinds.end(), [](const Kind& a, const Kind& b) { return a.name < b.name; });
  return kinds;
}

// Lower case without "-", "_" and blanks: "job-type" and "JobType" meet.
std::string Folded(std::string_view text) {
  std::string out;
  for (char c : text)
    if (c != '-' && c != '_' && c != ' ')
      out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

}  // namespace

const std::vector<Kind>& Kinds() {
  static const std::vector<Kind> kinds = Registered();
  return kinds;
}

const Kind* FindKind(std::string_view name) {
  const std::string wanted = Folded(name);
  for (const Kind& k : Kinds())
    if (Folded(k.name) == wanted || Folded(k.plural) == wanted || Folded(k.schema().XmlName()) == wanted)
      return &k;
  return nullptr;
}

std::string KindNames() {
  std::string out;
  for (const Kind& k : Kinds()) out += (out.empty() ? "" : ", ") + k.name;
  return out;
}

const Kind& RequireKind(std::string_view name) {
  if (const Kind* k = FindKind(name)) return *k;
  throw UsageError("unknown kind '" + std::string(name) + "'; the kinds are: " + KindNames());
}

int FindField(const RecordSchema& schema, const std::vector<FieldId>& among, std::string_view name) {
  const std::string wanted = Folded(name);
  for (FieldId id : among) {
    std::string tag = Folded(schema.Field(id).tag);
    if (tag == wanted) return id;
    if (schema.Field(id).kind == FieldKind::Ref && tag.size() > 3 && tag.ends_with("ref") &&
        tag.substr(0, tag.size() - 3) == wanted)
      return id;
  }
  return -1;
}

std::string FieldNames(const RecordSchema& schema, const std::vector<FieldId>& ids) {
  std::string out;
  for (FieldId id : ids) out += (out.empty() ? "" : ", ") + schema.Field(id).tag;
  return out;
}

}  // namespace brenvale::tool
