#include "brenvale/company/Company.hpp"

#include <memory>

#include "brenvale/model/Lists.hpp"

namespace brenvale {

Company::Company() = default;

Company& TheCompany() {
  // The master collections unregister from the holder when they go: it must outlive them.
  TheLists();
  thread_local std::unique_ptr<Company> company;
  if (!company) company = std::make_unique<Company>();
  return *company;
}

}  // namespace brenvale
