#include "brenvale/model/RecordDecl.hpp"

#include "brenvale/model/RefCache.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace brenvale {

FieldId RecordDecl::FindRead(std::string_view tag, std::size_t& cursor) const {
  // The next element is usually the next field read; a wrong guess scans the rest.
  const std::size_t n = read.size();
  for (std::size_t step = 0; step < n; ++step) {
    std::size_t at = cursor + step;
    if (at >= n) at -= n;
    const FieldId id = read[at];
    if (fields[id]->tag == tag) {
      cursor = at + 1 == n ? 0 : at + 1;
      return id;
    }
  }
  return kNoField;
}

FieldId RecordDecl::FindTag(std::string_view tag) const {
  for (std::size_t id = 0; id < fields.size(); ++id)
    if (fields[id]->tag == tag) return static_cast<FieldId>(id);
  return kNoField;
}

ValidateContext ValidateContext::OfSession() {
  return ValidateContext{&TheRefCache(), CurrentSession().processor != nullptr};
}

}  // namespace brenvale
