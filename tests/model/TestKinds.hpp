#pragma once
// Record kinds declared for the tests of the machinery, shaped as the kinds that come next: a
// customer-sized list record with nested addresses, an item with a price block that takes another
// tag in a modify request and a choice of price or percentage, an invoice and a bill that own lines
// of one line class written in each owner family's form.
#include <string>
#include <string_view>

#include "brenvale/model/Address.hpp"
#include "brenvale/model/ChildList.hpp"
#include "brenvale/model/ListCollection.hpp"
#include "brenvale/model/ListRecord.hpp"
#include "brenvale/model/TxnCollection.hpp"
#include "brenvale/model/TxnRecord.hpp"

namespace brenvale::testing {

// A customer: 60 fields, two of them nested addresses.
class TestCustomer : public HierarchicalRecord {
 public:
  TestCustomer() : HierarchicalRecord(Declaration()) {}
  static const RecordDecl& Declaration();
  // Every declared field's id by tag (for table-driven tests).
  static FieldId Id(std::string_view tag) { return Declaration().FindTag(tag); }

  Address& BillAddress();
  Address& ShipAddress();
  void Text(std::string_view tag, std::string_view value) { SetFromText(Id(tag), value); }
  std::string Text(std::string_view tag) const { return ValueText(Id(tag)); }

 private:
  // The addresses' own checks, reported under "Bill To" and "Ship To".
  void CheckAddresses(zkErrors& errors, ValidateContext& context);
  friend struct TestCustomerDecl;
};

class TestCustomers : public HierarchicalCollection<TestCustomer> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

// The price block of an item sold or bought: "SalesOrPurchase", "SalesOrPurchaseMod" in a modify.
class TestPriceBlock : public RecordCore {
 public:
  TestPriceBlock() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();
  void Desc(std::string_view value);
  // Price and PricePercent are a choice: setting one clears the other.
  void Price(double value);
  double Price() const;
  void PricePercent(double value);
  bool HasPrice() const;
  bool HasPricePercent() const;
  void Account(std::string_view fullName);
};

// Any item: the common base of the item kinds, whose declaration describes the item list.
class TestAnyItem : public HierarchicalRecord {
 public:
  static const RecordDecl& Declaration();
  TestPriceBlock& SalesOrPurchase();
  void SalesTaxCode(std::string_view fullName);

 protected:
  using HierarchicalRecord::HierarchicalRecord;
};

// A service item.
class TestItem : public TestAnyItem {
 public:
  TestItem() : TestAnyItem(Declaration()) {}
  static const RecordDecl& Declaration();
};

// A non-inventory item: the same fields, another kind.
class TestOtherItem : public TestAnyItem {
 public:
  TestOtherItem() : TestAnyItem(Declaration()) {}
  static const RecordDecl& Declaration();
};

// Items of both kinds in one collection.
class TestAnyItems : public ListCollection<TestAnyItem, TestItem, TestOtherItem> {
 public:
  using ListCollection::ListCollection;
  template <class K>
  K& Add(std::string_view name) {
    auto record = std::make_shared<K>();
    record->Name(name);
    return AddNew(std::move(record));
  }
};

class TestItems : public HierarchicalCollection<TestItem> {
 public:
  using HierarchicalCollection::HierarchicalCollection;
};

// One line class for every owner; the owner's family picks the form.
class TestItemLine : public LineRecord {
 public:
  explicit TestItemLine(const RecordDecl& form) : LineRecord(form) {}
  static const RecordDecl& SalesForm();
  static const RecordDecl& PurchaseForm();
  static const RecordDecl& GroupMemberForm();

  void Item(std::string_view fullName);
  std::string Item() const;
  void Desc(std::string_view value);
  std::string Desc() const;
  void Quantity(double value);
  double Quantity() const;
  void Rate(double value);
  double Rate() const;
  void RatePercent(double value);
  void Cost(double value);
  void Amount(Currency value);
  Currency Amount() const;
  void Customer(std::string_view fullName);
};

class TestInvoice : public TxnRecord {
 public:
  TestInvoice() : TxnRecord(Declaration()) {}
  static const RecordDecl& Declaration();
  void Customer(std::string_view fullName);
  std::string Customer() const;
  void Memo(std::string_view value);
  Address& BillTo();
  ChildList<TestItemLine> ItemLines();
  Currency Subtotal() const;

 private:
  // At least one line (2022).
  void CheckLines(zkErrors& errors, ValidateContext& context);
  friend struct TestInvoiceDecl;
};

class TestBill : public TxnRecord {
 public:
  TestBill() : TxnRecord(Declaration()) {}
  static const RecordDecl& Declaration();
  void Vendor(std::string_view fullName);
  ChildList<TestItemLine> ItemLines();
};

class TestInvoices : public TxnCollection<TestInvoice> {
 public:
  using TxnCollection::TxnCollection;
};

class TestBills : public TxnCollection<TestBill> {
 public:
  using TxnCollection::TxnCollection;
};

}  // namespace brenvale::testing
