#pragma once
// The company object: one master collection of each list kind, created with it and kept for the
// life of the thread's library objects.
#include "brenvale/lists/JobTypes.hpp"

namespace brenvale {

class Company {
 public:
  Company();
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  brenvale::JobTypes& JobTypes() { return jobTypes_; }

 private:
  brenvale::JobTypes jobTypes_{true};
};

// This thread's company object.
Company& TheCompany();

}  // namespace brenvale
