#include "brenvale/model/Address.hpp"

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale {
namespace {

// The state is "Province" in the versions of Canadian editions ("CA3.0") and "County" in those of
// British ones ("UK2.0"); the versions every edition shares (13.0) call it "State" everywhere.
std::string_view StateTag(const WriteContext& c) {
  const std::string_view version = c.versionText;
  if (c.In("CA") && version.starts_with("CA")) return "Province";
  if (c.In("UK") && version.starts_with("UK")) return "County";
  return "State";
}
constexpr std::string_view kOtherStateTags[] = {"Province", "County"};
constexpr FieldTags kStateTags{.pick = &StateTag, .also = kOtherStateTags};

struct F {
  static constexpr FieldDef Addr1 = field::Text("Addr1");
  static constexpr FieldDef Addr2 = field::Text("Addr2");
  static constexpr FieldDef Addr3 = field::Text("Addr3");
  static constexpr FieldDef Addr4 = field::Text("Addr4").Since(2, 0);
  static constexpr FieldDef Addr5 = field::Text("Addr5").Since(6, 0);
  static constexpr FieldDef City = field::Text("City");
  static constexpr FieldDef State = field::Text("State").TagBy(kStateTags);
  static constexpr FieldDef PostalCode = field::Text("PostalCode");
  static constexpr FieldDef Country = field::Text("Country");
  static constexpr FieldDef Note = field::Text("Note");
};
constexpr auto kFields = Fields(F::Addr1, F::Addr2, F::Addr3, F::Addr4, F::Addr5, F::City, F::State, F::PostalCode,
                                F::Country, F::Note);
// The note is QuickBooks' own: read, never written.
constexpr auto kBody = kFields.Order(F::Addr1, F::Addr2, F::Addr3, F::Addr4, F::Addr5, F::City, F::State,
                                     F::PostalCode, F::Country);
constexpr auto kRead = kFields.Order(F::Addr1, F::Addr2, F::Addr3, F::Addr4, F::Addr5, F::City, F::State,
                                     F::PostalCode, F::Country, F::Note);
// An employee's address on a desktop has two lines, the city, the state and the postal code.
constexpr auto kEmployeeBody = kFields.Order(F::Addr1, F::Addr2, F::City, F::State, F::PostalCode);
constexpr auto kBlockRead = kFields.Order(F::Addr1, F::Addr2, F::Addr3, F::Addr4, F::Addr5);

constexpr std::string_view kLines = "Address lines cannot exceed 41 characters.";
constexpr Rule kRules[] = {
    kFields.MaxLength(F::Addr1, 41, 1202, "Line1").Message(kLines),
    kFields.MaxLength(F::Addr2, 41, 1202, "Line2").Message(kLines),
    kFields.MaxLength(F::Addr3, 41, 1202, "Line3").Message(kLines),
    kFields.MaxLength(F::Addr4, 41, 1202, "Line4").Message(kLines),
    kFields.MaxLength(F::Addr5, 41, 1202, "Line5").Message(kLines),
    kFields.MaxLength(F::City, 31, 1202, "City").Message("Address city cannot exceed 31 characters."),
    kFields.MaxLength(F::State, 21, 1202, "State").Message("Address state cannot exceed 21 characters."),
    kFields.MaxLength(F::PostalCode, 13, 1202, "Postal Code").Message("Address postal code cannot exceed 13 characters."),
    kFields.MaxLength(F::Country, 31, 1202, "Country").Message("Address country cannot exceed 31 characters."),
};

RecordCore* MakeAddress(const RecordDecl& form) { return new Address(form); }

constexpr RecordDecl Form(std::span<const FieldId> body, std::span<const FieldId> read) {
  return RecordDecl{.label = "Address",
                    .fields = kFields.fields,
                    .add = body,
                    .mod = body,
                    .read = read,
                    .rules = kRules,
                    .make = &MakeAddress};
}
constexpr RecordDecl kDecl = Form(kBody, kRead);
constexpr RecordDecl kEmployeeDecl = Form(kEmployeeBody, kRead);
constexpr RecordDecl kBlockDecl = Form({}, kBlockRead);

}  // namespace

const RecordDecl& Address::Declaration() { return kDecl; }
const RecordDecl& Address::EmployeeForm() { return kEmployeeDecl; }
const RecordDecl& Address::BlockForm() { return kBlockDecl; }

void Address::SetPart(FieldId id, std::string_view value) {
  for (const Rule& r : kRules)
    if (r.field == id && TextLength(value) >= r.limit + 1) Raise(r.code, Label(), r.message);
  SetText(id, value);
}

std::string Address::Line1() const { return Text(kFields.Id(F::Addr1)); }
void Address::Line1(std::string_view value) { SetPart(kFields.Id(F::Addr1), value); }
std::string Address::Line2() const { return Text(kFields.Id(F::Addr2)); }
void Address::Line2(std::string_view value) { SetPart(kFields.Id(F::Addr2), value); }
std::string Address::Line3() const { return Text(kFields.Id(F::Addr3)); }
void Address::Line3(std::string_view value) { SetPart(kFields.Id(F::Addr3), value); }
std::string Address::Line4() const { return Text(kFields.Id(F::Addr4)); }
void Address::Line4(std::string_view value) { SetPart(kFields.Id(F::Addr4), value); }
std::string Address::Line5() const { return Text(kFields.Id(F::Addr5)); }
void Address::Line5(std::string_view value) { SetPart(kFields.Id(F::Addr5), value); }
std::string Address::City() const { return Text(kFields.Id(F::City)); }
void Address::City(std::string_view value) { SetPart(kFields.Id(F::City), value); }
std::string Address::State() const { return Text(kFields.Id(F::State)); }
void Address::State(std::string_view value) { SetPart(kFields.Id(F::State), value); }
std::string Address::PostalCode() const { return Text(kFields.Id(F::PostalCode)); }
void Address::PostalCode(std::string_view value) { SetPart(kFields.Id(F::PostalCode), value); }
std::string Address::Country() const { return Text(kFields.Id(F::Country)); }
void Address::Country(std::string_view value) { SetPart(kFields.Id(F::Country), value); }
std::string Address::Note() const { return Text(kFields.Id(F::Note)); }

void Address::CopyAddress(const Address& source) {
  for (FieldId id : kBody) {
    if (source.Has(id))
      SetText(id, source.TextView(id));
    else if (Has(id))
      Unset(id);
  }
}

}  // namespace brenvale
