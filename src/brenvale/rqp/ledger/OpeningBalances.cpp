#include "brenvale/rqp/ledger/OpeningBalances.hpp"

namespace brenvale::rqp::detail {

void PostOpeningBalance(Ledger& ledger, const OpeningBalance& ob) {
  LedgerEntry entry{std::string(kOpeningBalance), ob.listId, ob.date, {}};
  auto post = [&](std::string account, std::int64_t amount, std::string entity = {}) {
    entry.postings.push_back(Posting{std::move(account), amount, std::nullopt, std::move(entity), {}, {}});
  };
  using Of = OpeningBalance::Of;
  if (ob.amount != 0 || (ob.of == Of::Stock && ob.quantity != 0)) {
    switch (ob.of) {
      case Of::Customer:
        post(ledger.SpecialAccount("AccountsReceivable"), ob.amount, ob.listId);
        post(ledger.SpecialAccount("UncategorizedIncome"), -ob.amount, ob.listId);
        break;
      case Of::Vendor:
        post(ledger.SpecialAccount("AccountsPayable"), -ob.amount, ob.listId);
        post(ledger.SpecialAccount("UncategorizedExpenses"), ob.amount, ob.listId);
        break;
      case Of::Account: {
        std::int64_t debit = CreditNormal(ob.accountType) ? -ob.amount : ob.amount;
        post(ob.listId, debit);
        post(ledger.SpecialAccount("OpeningBalanceEquity"), -debit);
        break;
      }
      case Of::Stock:
        entry.postings.push_back(Posting{ob.assetAccount, ob.amount, ob.quantity, {}, ob.listId, {}});
        post(ledger.SpecialAccount("OpeningBalanceEquity"), -ob.amount);
        break;
    }
  }
  ledger.Post(entry);
}

}  // namespace brenvale::rqp::detail
