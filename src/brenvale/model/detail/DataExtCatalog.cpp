#include "brenvale/model/detail/DataExtCatalog.hpp"

#include <optional>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/KeyedList.hpp"
#include "brenvale/core/ThreadState.hpp"
#include "brenvale/model/DataExtObject.hpp"
#include "brenvale/qbxml/ResponseView.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale::detail {
namespace {

// The definitions QuickBooks has assigned to an object; nothing when it did not answer.
std::optional<std::vector<DataExtDefFacts>> Ask(std::string_view objectTag) {
  try {
    xmlBldr b;
    b.NewClear();
    b.OpenAggregate("DataExtDefQueryRq", "requestID", "1");
    b.CreateElement("AssignToObject", objectTag);
    b.EndAggregate("DataExtDefQueryRq");
    const DomDocument doc = b.NewSendRequest();
    const ResponseView::Response rs = ResponseView(doc).First();
    if (!rs || !rs.Answered()) return std::nullopt;
    std::vector<DataExtDefFacts> out;
    for (DomNode ret : rs.Rets()) {
      if (ret.BaseName() != "DataExtDefRet") continue;
      std::string owner = ret.ChildText("OwnerID");
      DataExtDefFacts d{owner.empty() ? std::string(1, '0') : std::move(owner), ret.ChildText("DataExtName")};
      if (auto code = EnumCatalogue(zqeDataExtDataTypes).CodeOfText(ret.ChildText("DataExtType")))
        d.type = static_cast<qbEnumDataExtDataType>(*code);
      out.push_back(std::move(d));
    }
    return out;
  } catch (const BrenvaleError&) {
    return std::nullopt;
  }
}

}  // namespace

bool SameOwner(std::string_view a, std::string_view b) { return FoldKey(a) == FoldKey(b); }

void DataExtCatalog::CheckSession() {
  const Session& session = CurrentSession();
  // A processor that is gone ended its session, even if another now stands at its address.
  if (session.ticket != ticket_ || session.processor != processor_.lock()) {
    byObject_.clear();
    ticket_ = session.ticket;
    processor_ = session.processor;
  }
}

const std::vector<DataExtDefFacts>& DataExtCatalog::AssignedTo(std::string_view objectTag, Known* known) {
  static const std::vector<DataExtDefFacts> kNone;
  CheckSession();
  if (known) *known = Known::Yes;
  if (auto it = byObject_.find(objectTag); it != byObject_.end()) return it->second;
  const Session& session = CurrentSession();
  if (!session.processor || session.ticket.empty()) {
    if (known) *known = Known::NoConnection;
    return kNone;
  }
  // QuickBooks keeps no data extensions before qbXML 2.0: there are none to know.
  if (session.qbXMLVersionNumber < Currency(2)) return byObject_[std::string(objectTag)];
  auto asked = Ask(objectTag);
  if (!asked) {
    if (known) *known = Known::NoAnswer;
    return kNone;
  }
  return byObject_[std::string(objectTag)] = std::move(*asked);
}

const DataExtDefFacts* DataExtCatalog::Find(std::string_view objectTag, std::string_view owner,
                                            std::string_view name, Known* known) {
  for (const DataExtDefFacts& d : AssignedTo(objectTag, known))
    if (SameOwner(d.ownerId, owner) && FoldKey(d.name) == FoldKey(name)) return &d;
  return nullptr;
}

DataExtCatalog& TheDataExtCatalog() {
  return ThreadState::Current().Get<DataExtCatalog>(StateSlot::DataExtDefs);
}

void InstallDataExtHook() {
  Session& session = CurrentSession();
  if (session.dataExtAssignedTo) return;
  session.dataExtAssignedTo = [](int objectType) {
    const std::string& owner = CurrentSession().dataExtOwnerID;
    const DataExtObject object = DataExtObjectOf(static_cast<zqEnumListObjectType>(objectType));
    if (owner.empty() || object.form == DataExtRefForm::None) return false;
    for (const DataExtDefFacts& d : TheDataExtCatalog().AssignedTo(object.tag))
      if (SameOwner(d.ownerId, owner)) return true;
    return false;
  };
}

}  // namespace brenvale::detail
