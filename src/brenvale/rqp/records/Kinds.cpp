#include <memory>
#include <stdexcept>

#include "brenvale/rqp/records/Kind.hpp"

namespace brenvale::rqp::detail {
namespace {
std::unique_ptr<const std::vector<ListKind>>& Installed() {
  static std::unique_ptr<const std::vector<ListKind>> kinds;
  return kinds;
}
}  // namespace

void KindRegistry::Install(std::vector<ListKind> kinds) {
  if (!Installed()) Installed() = std::make_unique<const std::vector<ListKind>>(std::move(kinds));
}

const std::vector<ListKind>& KindRegistry::All() {
  if (!Installed()) throw std::logic_error("the engine's list kinds are not installed");
  return *Installed();
}

const std::string* ListKind::ComputedSql(std::string_view element) const {
  for (auto& c : computed)
    if (c.element == element) return &c.sql;
  return nullptr;
}

const ListKind* KindByBase(std::string_view base) {
  for (auto& k : KindRegistry::All())
    if (k.base == base) return &k;
  return nullptr;
}

const ListKind* KindByCode(int code) {
  for (auto& k : KindRegistry::All())
    if (k.code == code) return &k;
  return nullptr;
}

std::vector<const ListKind*> KindsOf(Family family) {
  std::vector<const ListKind*> out;
  for (auto& k : KindRegistry::All())
    if (k.family == family) out.push_back(&k);
  return out;
}

std::vector<const ListKind*> RefTargets(std::string_view ref, const ListKind* owner) {
  static const std::vector<std::pair<std::string_view, std::vector<std::string_view>>> table = {
      {"ClassRef", {"Class"}},
      {"OverrideClassRef", {"Class"}},
      {"CustomerTypeRef", {"CustomerType"}},
      {"VendorTypeRef", {"VendorType"}},
      {"JobTypeRef", {"JobType"}},
      {"TermsRef", {"StandardTerms", "DateDrivenTerms"}},
      {"SalesRepRef", {"SalesRep"}},
      {"SalesTaxCodeRef", {"SalesTaxCode"}},
      {"PurchaseTaxCodeRef", {"SalesTaxCode"}},
      {"CustomerSalesTaxCodeRef", {"SalesTaxCode"}},
      {"DefaultTaxableSalesTaxCodeRef", {"SalesTaxCode"}},
      {"DefaultNonTaxableSalesTaxCodeRef", {"SalesTaxCode"}},
      {"ItemSalesTaxRef", {"ItemSalesTax", "ItemSalesTaxGroup"}},
      {"ItemPurchaseTaxRef", {"ItemSalesTax"}},
      {"DefaultItemSalesTaxRef", {"ItemSalesTax", "ItemSalesTaxGroup"}},
      {"PreferredPaymentMethodRef", {"PaymentMethod"}},
      {"PaymentMethodRef", {"PaymentMethod"}},
      {"PriceLevelRef", {"PriceLevel"}},
      {"CurrencyRef", {"Currency"}},
      {"HomeCurrencyRef", {"Currency"}},
      {"PrefVendorRef", {"Vendor"}},
      {"TaxVendorRef", {"Vendor"}},
      {"VendorRef", {"Vendor"}},
      {"CustomerRef", {"Customer"}},
      {"EmployeeRef", {"Employee"}},
      {"SupervisorRef", {"Employee"}},
      {"SalesRepEntityRef", {"Employee", "Vendor", "OtherName"}},
      {"ItemInventoryRef", {"ItemInventory", "ItemInventoryAssembly"}},
      {"UnitOfMeasureSetRef", {"UnitOfMeasureSet"}},
      {"BillingRateRef", {"BillingRate"}},
      {"PayrollItemWageRef", {"PayrollItemWage"}},
      {"ShipMethodRef", {"ShipMethod"}},
      {"DefaultShipMethodRef", {"ShipMethod"}},
      {"CustomerMsgRef", {"CustomerMsg"}},
      {"TemplateRef", {"Template"}},
  };
  std::vector<const ListKind*> out;
  if (owner)
    for (auto& [name, bases] : owner->refTargets)
      if (name == ref) {
        for (auto b : bases) out.push_back(KindByBase(b));
        return out;
      }
  if (ref == "ParentRef") {
    if (owner) out.push_back(owner);
    return out;
  }
  if (ref == "ItemRef") return KindsOf(Family::Item);
  if (ref == "EntityRef" || ref == "PayeeEntityRef") return KindsOf(Family::Entity);
  if (ref.ends_with("AccountRef")) {
    out.push_back(KindByBase("Account"));
    return out;
  }
  for (auto& [name, bases] : table)
    if (name == ref) {
      for (auto b : bases) out.push_back(KindByBase(b));
      break;
    }
  return out;
}

std::string RefTargetLabel(std::string_view ref, const std::vector<const ListKind*>& targets) {
  if (ref == "SalesRepEntityRef" || ref == "EntityRef" || ref == "PayeeEntityRef") return "Entity";
  return targets.empty() ? std::string(ref) : std::string(targets.front()->label);
}

}  // namespace brenvale::rqp::detail
