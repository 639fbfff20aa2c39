#pragma once
// An other name: a person or company that is neither customer, vendor nor employee (an owner taking
// draws, a payee met once): names, an address and ways of reaching them.
#include <string>
#include <string_view>

#include "brenvale/lists/Entity.hpp"
#include "brenvale/model/Address.hpp"

namespace brenvale {

class OtherName : public Entity {
 public:
  OtherName() : Entity(Declaration()) {}
  static const RecordDecl& Declaration();

  using Entity::AltContact;
  using Entity::CompanyName;
  using Entity::Contact;
  // Read only: no edition's requests take a suffix, mobile or pager for an other name.
  std::string Suffix() const { return Entity::Suffix(); }
  std::string Mobile() const { return Entity::Mobile(); }
  std::string Pager() const { return Entity::Pager(); }

  Address& OtherNameAddress();

 protected:
  const EntityFieldIds& Ids() const override;

 private:
  friend struct OtherNameDecl;
};

}  // namespace brenvale
