#pragma once
// The master collection of every record kind, created together and kept for the life of the
// thread's library state; the library globals hand them out. (The company record of the company
// and preferences is another thing: it will offer the same collection accessors, forwarding here.)
#include "brenvale/company/RecordKinds.hpp"

namespace brenvale {

class MasterCollections {
 public:
  MasterCollections() = default;
  MasterCollections(const MasterCollections&) = delete;
  MasterCollections& operator=(const MasterCollections&) = delete;

#define BRENVALE_MASTER_ACCESSOR(Collection, Record) \
  brenvale::Collection& Collection() { return Collection##_; }
  BRENVALE_RECORD_KINDS(BRENVALE_MASTER_ACCESSOR)
#undef BRENVALE_MASTER_ACCESSOR

  // Empties every master collection (what was read or added, not QuickBooks).
  void ClearAll();

 private:
#define BRENVALE_MASTER_MEMBER(Collection, Record) brenvale::Collection Collection##_{true};
  BRENVALE_RECORD_KINDS(BRENVALE_MASTER_MEMBER)
#undef BRENVALE_MASTER_MEMBER
};

// This thread's master collections.
MasterCollections& TheMasterCollections();

}  // namespace brenvale
