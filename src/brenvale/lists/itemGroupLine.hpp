#pragma once
// One line of what an item is made of: a line of a group item ("ItemGroupLine": an item and its
// quantity), a component of an assembly ("ItemInventoryAssemblyLine") or a member of a sales-tax
// group ("ItemSalesTaxRef", whose quantity is always 1). One class serves the three; its owner's
// field gives the form.
#include <string>
#include <string_view>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class itemGroupLine : public RecordCore {
 public:
  explicit itemGroupLine(const RecordDecl& form) : RecordCore(form) {}
  static const RecordDecl& GroupForm();
  static const RecordDecl& AssemblyForm();
  static const RecordDecl& SalesTaxForm();

  // The item's full name.
  std::string Item() const;
  void Item(std::string_view fullName);
  zkListObjectRef ItemRef() const;
  // Unset: QuickBooks takes 1.
  double Quantity() const;
  void Quantity(double value);
  bool HasQuantity() const;
  // A group line's unit of measure (qbXML 7.0 on).
  std::string UnitOfMeasure() const;
  void UnitOfMeasure(std::string_view value);

 private:
  // 1105: a quantity for an item that is a discount (group lines).
  void CheckQuantityOfDiscount(zkErrors& errors, ValidateContext& context);
  // 1103: a member of a sales-tax group counts once.
  void CheckMemberQuantity(zkErrors& errors, ValidateContext& context);
  FieldId ItemField() const;
  friend struct ItemGroupLineForms;
};

}  // namespace brenvale
