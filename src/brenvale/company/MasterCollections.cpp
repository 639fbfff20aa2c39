#include "brenvale/company/MasterCollections.hpp"

#include "brenvale/core/ThreadState.hpp"

namespace brenvale {

void MasterCollections::ClearAll() {
#define BRENVALE_MASTER_CLEAR(Collection, Record) Collection##_.Clear();
  BRENVALE_RECORD_KINDS(BRENVALE_MASTER_CLEAR)
#undef BRENVALE_MASTER_CLEAR
}

MasterCollections& TheMasterCollections() {
  return detail::ThreadState::Current().Get<MasterCollections>(detail::StateSlot::Collections);
}

}  // namespace brenvale
