#include "brenvale/lists/SalesRep.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/lists/detail/ListLookup.hpp"

namespace brenvale {
namespace {
enum : FieldId { kInitial = kFirstCustomField, kSalesRepEntityRef };
constexpr const char* kEntityLabel = "SalesRepEntity";
}  // namespace

const RecordSchema& SalesRep::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s;
    s.label = "SalesRep";
    s.xmlName = "SalesRep";
    s.objectType = zqObjectTypeSalesRep;
    s.listType = zqListTypeSalesRep;
    s.readsName = false;
    s.nameField = kInitial;
    s.fields = {{kInitial, "Initial", FieldKind::Text},
                {kSalesRepEntityRef,
                 "SalesRepEntityRef",
                 FieldKind::Ref,
                 {},
                 false,
                 zqeObjectState,
                 zqListTypeEntity}};
    s.add = {"Initial", "IsActive", "SalesRepEntityRef"};
    s.read = {"Initial", "SalesRepEntityRef"};
    s.rules = {{RuleKind::MaxLength, "Initial", 5, 2200, "Initial"},
               {RuleKind::NotEmpty, "SalesRepEntityRef", 0, 2202, kEntityLabel},
               {RuleKind::MaxLength, "SalesRepEntityRef", 31, 2201, "SalesRepEntity:FullName"},
               {RuleKind::Custom, "", 1, 0, ""}};
    s.modRefusal = "XMLModify not supported";
    return s;
  }());
  return schema;
}

SalesRep::SalesRep() : ListRecord(StaticSchema()) {}

const std::string& SalesRep::Initial() const { return Text(kInitial); }
void SalesRep::Initial(std::string value) { SetText(kInitial, std::move(value)); }
const zkListObjectRef& SalesRep::SalesRepEntityRef() const { return Ref(kSalesRepEntityRef); }
void SalesRep::SalesRepEntityRef(std::string fullName) {
  SetRefName(kSalesRepEntityRef, std::move(fullName));
}

void SalesRep::CheckRule(int, zkErrors& errors) {
  // Only an entity that passed the earlier rules is looked up, and only with QuickBooks at hand.
  for (const zkError& e : errors)
    if (e.Number() == ErrorNumber(2202) || e.Number() == ErrorNumber(2201)) return;
  if (!detail::CanLookUp()) return;
  std::string found = detail::LookUpRecord("EntityQueryRq", SalesRepEntityRef());
  if (found.empty())
    errors.AddCode(2204, kEntityLabel);
  else if (found != "EmployeeRet" && found != "VendorRet" && found != "OtherNameRet")
    errors.AddCode(2203, kEntityLabel);
}

}  // namespace brenvale
