#pragma once
// One open company file and the session on it: opens the file (making a new company when there is
// none), takes its lock, brings an older file up to date, and answers request documents: each
// document checked whole against the declarations, each request run in its own savepoint of the
// message's one transaction.
#include <memory>
#include <string>
#include <string_view>

#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/rqp/HostFacts.hpp"
#include "brenvale/rqp/records/Context.hpp"
#include "brenvale/rqp/store/CompanyFile.hpp"

namespace brenvale::rqp::detail {

// Installs what every engine shares (the declarations and the list kinds); once per process.
void InstallEngine();

class Company {
 public:
  // Opens (or creates) the company file and takes its lock for `mode`; throws ProcessError.
  Company(const std::string& path, qbEnumFileOpenMode mode, const HostFacts& facts);
  ~Company();
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  // Answers a request document; throws ProcessError when the document cannot be taken at all.
  std::string Process(std::string_view text);

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  const HostFacts& facts_;
  std::unique_ptr<CompanyLock> lock_;
  std::unique_ptr<Store> store_;
  std::unique_ptr<Context> context_;
};

}  // namespace brenvale::rqp::detail
