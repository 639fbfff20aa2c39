#pragma once
// The error list of one object: every record, line and collection exposes one as `Errors`.
#include <cstdint>
#include <string>
#include <string_view>

#include "brenvale/core/KeyedList.hpp"
#include "brenvale/core/zkError.hpp"

namespace brenvale {

class zkErrors {
 public:
  void Clear() { list_.Clear(); }
  // A new entry with Number = code (the full error number), appended without a key.
  zkError& Add(std::int32_t code, std::string field, std::string message);
  // A library code with its table message (or `message` when given).
  zkError& AddCode(int code, std::string field, std::string_view message = {});

  const zkError& Item(std::size_t position) const { return list_.At(position); }
  const zkError& Item(std::string_view key) const { return list_.Get(key); }
  const zkError& operator[](std::size_t position) const { return Item(position); }
  const zkError& operator[](std::string_view key) const { return Item(key); }
  std::int32_t Count() const { return static_cast<std::int32_t>(list_.Count()); }
  bool Empty() const { return list_.Empty(); }

  // Appends an existing entry under its CollectionKey; returns Count afterwards.
  std::int32_t AddObject(const zkError& entry);
  void Remove(std::size_t position) { list_.RemoveAt(position); }
  void Remove(std::string_view key) { list_.Remove(key); }

  auto begin() const { return list_.begin(); }
  auto end() const { return list_.end(); }

 private:
  KeyedList<zkError> list_;
};

// The five error numbers that have public names, and the two warnings.
enum zqEnumErrors : std::int32_t {
  qErrorValidateFailed = -2147220493,
  qErrorBadAccount = -2147220490,
  qErrorAccountRequired = -2147219700,
  qErrorNeedCustomer = -2147219699,
  qErrorNeedVendor = -2147219698,
};

enum zqEnumWarning : std::int32_t {
  zqWarningItemHasExpenseAccount = 1,
  zqWarningJournalEntryDebitCreditError = 2,
};

}  // namespace brenvale
