#pragma once
// The rules of sales tax codes and tax codes: a name of at most three characters and a
// description of at most 31.
#include <array>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale::detail {

template <std::size_t N>
consteval std::array<Rule, 3> TaxCodeRules(const FieldTable<N>& table, const FieldDef& desc) {
  return {table.NotEmpty(ListBase::Name, 1012, "Name"), table.MaxLength(ListBase::Name, 3, 1400, "Name"),
          table.MaxLength(desc, 31, 1401, "Description")};
}

}  // namespace brenvale::detail
