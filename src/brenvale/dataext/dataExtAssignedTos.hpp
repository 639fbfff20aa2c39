#pragma once
// The kinds of object a data-extension definition is assigned to. A definition QuickBooks keeps
// remembers what it was assigned to when read, so that a modify request assigns only the kinds added
// since ("AssignToObject") and removes the ones taken away ("RemoveFromObject").
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"

namespace brenvale {

class DataExtensionDefinition;

class dataExtAssignedTos {
 public:
  explicit dataExtAssignedTos(DataExtensionDefinition& definition) : definition_(&definition) {}
  dataExtAssignedTos(const dataExtAssignedTos&) = delete;
  dataExtAssignedTos& operator=(const dataExtAssignedTos&) = delete;

  // Assigns the definition to a kind; an item of any type is assigned as an item. A kind QuickBooks
  // keeps no data extensions on raises 1030; one already assigned is left as it is.
  void Add(zqEnumListObjectType ObjectType);
  // The kind at a 1-based position; out of range raises "Subscript out of range".
  zqEnumListObjectType Item(std::size_t position) const;
  zqEnumListObjectType operator[](std::size_t position) const { return Item(position); }
  bool ItemExists(zqEnumListObjectType ObjectType) const;
  Long Count() const { return static_cast<Long>(current_.size()); }
  void Remove(std::size_t position);
  void Clear();
  // New before QuickBooks kept the definition; Clean while the kinds are those it keeps; Dirty after.
  zqEnumObjectState ObjectState() const;

  auto begin() const { return current_.begin(); }
  auto end() const { return current_.end(); }

  // The kinds as QuickBooks names them, comma-separated ("Customer,Vendor").
  std::string Text() const;
  // Assigns the kinds named, comma-separated, or takes them away; a name QuickBooks does not have
  // raises 1030.
  void AddText(std::string_view tags);
  void RemoveText(std::string_view tags);

 private:
  friend class DataExtensionDefinition;
  // The kinds assigned since the definition was read, and those taken away.
  std::vector<zqEnumListObjectType> Added() const;
  std::vector<zqEnumListObjectType> Removed() const;
  void Changed();

  DataExtensionDefinition* definition_;
  std::vector<zqEnumListObjectType> current_;
  std::vector<zqEnumListObjectType> kept_;     // as QuickBooks keeps them
  std::vector<zqEnumListObjectType> reading_;  // gathered while a read goes on
  bool held_ = false;                          // QuickBooks keeps the definition
};

}  // namespace brenvale
