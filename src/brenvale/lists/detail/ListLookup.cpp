#include "brenvale/lists/detail/ListLookup.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale::detail {
namespace {

DomNode FirstElement(const DomNode& n) {
  for (DomNode c : n.Children())
    if (c.IsElement()) return c;
  return {};
}

}  // namespace

bool CanLookUp() { return CurrentSession().processor != nullptr; }

std::string LookUpRecord(std::string_view request, const zkListObjectRef& ref) {
  if (ref.IsEmpty()) return {};
  try {
    xmlBldr b;
    b.NewClear();
    b.OpenAggregate(request, "requestID", "1");
    if (!ref.FullName().empty())
      b.CreateElement("FullName", ref.FullName());
    else
      b.CreateElement("ListID", ref.ListID());
    b.EndAggregate(request);
    DomDocument doc = b.NewSendRequest();
    DomNode rs = FirstElement(doc.DocumentElement().ChildNamed("QBXMLMsgsRs"));
    if (rs.IsNull() || rs.Attribute("statusCode").value_or("") != "0") return {};
    DomNode ret = FirstElement(rs);
    return ret.IsNull() ? std::string() : std::string(ret.BaseName());
  } catch (const BrenvaleError&) {
    // A lookup that cannot be answered finds nothing; the rule that asked reports it.
    return {};
  }
}

}  // namespace brenvale::detail
