#pragma once
// Write gates that depend on the company's edition and the session's version alone, for the fields
// QuickBooks takes in some editions only: `field::Text("Suffix").When(gate::OnlineOnly)`.
#include "brenvale/model/WriteContext.hpp"

namespace brenvale {

class RecordCore;

namespace gate {

// The online edition only (QuickBooks on a desktop refuses the element).
inline bool OnlineOnly(const WriteContext& c, const RecordCore&) { return c.online; }
// Editions outside the US (the tax codes of Canadian, British and Australian companies).
inline bool OutsideUS(const WriteContext& c, const RecordCore&) { return !c.In("US"); }
// Desktop editions but the Canadian and British ones (a vendor's 1099 flag, a customer's item sales
// tax).
inline bool DesktopButCAUK(const WriteContext& c, const RecordCore&) {
  return !c.online && !c.In("CA") && !c.In("UK");
}
// Sessions below qbXML major.minor (an element a later version replaced).
template <int Major, int Minor>
bool Before(const WriteContext& c, const RecordCore&) {
  return c.Before(Major, Minor);
}

}  // namespace gate
}  // namespace brenvale
