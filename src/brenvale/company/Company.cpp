#include "brenvale/company/Company.hpp"

#include <memory>

namespace brenvale {

Company::Company() = default;

Company& TheCompany() {
  thread_local std::unique_ptr<Company> company;
  if (!company) company = std::make_unique<Company>();
  return *company;
}

}  // namespace brenvale
