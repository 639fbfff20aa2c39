// Company files made before the ledger: their totals become opening balances.
#include <algorithm>
#include <cmath>
#include <iterator>

#include "brenvale/rqp/ledger/OpeningBalances.hpp"
#include "brenvale/rqp/lists/ListKinds.hpp"
#include "brenvale/rqp/protocol/Times.hpp"
#include "brenvale/rqp/records/Records.hpp"

namespace brenvale::rqp::detail {
namespace {

// What the records of an older file kept as totals, read before they are rebuilt.
std::vector<OpeningBalance> StoredTotals(Context& co) {
  using Of = OpeningBalance::Of;
  const std::pair<const char*, Of> kinds[] = {{"Customer", Of::Customer},   {"Vendor", Of::Vendor},
                                              {"Account", Of::Account},     {"ItemInventory", Of::Stock},
                                              {"ItemInventoryAssembly", Of::Stock}};
  std::vector<OpeningBalance> out;
  for (std::int64_t rowId : co.Data().AllRowIds()) {
    auto r = co.Data().ByRowId(rowId);
    auto kind = std::find_if(std::begin(kinds), std::end(kinds), [&](auto& k) { return KindByBase(k.first)->code == r->kind; });
    if (kind == std::end(kinds)) continue;
    pugi::xml_document doc;
    doc.load_string(r->ret.c_str());
    pugi::xml_node ret = doc.first_child();
    OpeningBalance ob;
    ob.of = kind->second;
    ob.listId = r->listId;
    ob.date = DateText(r->timeCreated);
    if (ob.of == Of::Stock) {
      ob.quantity = Amount(ret.child("QuantityOnHand")).value_or(0);
      long double value = static_cast<long double>(ob.quantity) * Amount(ret.child("AverageCost")).value_or(0) / 100000.0L;
      ob.amount = static_cast<std::int64_t>(std::llround(value / 1000.0L)) * 1000;
      ob.assetAccount = ret.child("AssetAccountRef").child("ListID").text().get();
    } else {
      ob.amount = Amount(ret.child("Balance")).value_or(0);
      ob.accountType = ret.child("AccountType").text().get();
    }
    if (ob.amount != 0 || ob.quantity != 0) out.push_back(std::move(ob));
  }
  return out;
}

}  // namespace

void RebuildRecords(Context& co) {
  std::vector<OpeningBalance> totals;
  if (co.Data().HoldsStoredTotals()) totals = StoredTotals(co);
  ReindexRecords(co);  // the special accounts the postings need are found through the rebuilt index
  Ledger ledger(co.Data());
  for (auto& ob : totals) {
    if (ob.of == OpeningBalance::Of::Stock && ob.assetAccount.empty())
      ob.assetAccount = ledger.SpecialAccount("InventoryAssets");
    PostOpeningBalance(ledger, ob);
  }
}

}  // namespace brenvale::rqp::detail
