#pragma once
// A company file on disk: made aside and moved into place when it is new, so that no one ever sees
// half a company, and the lock that says how it is open.
#include <functional>
#include <stdexcept>
#include <string>

#include "brenvale/rqp/store/Store.hpp"

namespace brenvale::rqp::detail {

// Makes a new company file at `path` unless one is there: the tables are made in a file beside it,
// `fill` fills them through a store opened on that file, and the finished file is moved to `path`
// in one step. When another process moved its own new file there first, that one is the company
// and this one is dropped. Files left beside by a process that died while making one are removed.
// Throws whatever making the file throws (SqliteError, std::system_error); `path` is then untouched.
void CreateCompanyFile(const std::string& path, const std::function<void(Store&)>& fill);

// The lock on a company file could not be taken: `busy` when another session holds it in a mode
// that excludes this one, otherwise the system's reason.
class CompanyLockError : public std::runtime_error {
 public:
  CompanyLockError(bool busy, const std::string& what) : std::runtime_error(what), busy_(busy) {}
  bool Busy() const { return busy_; }

 private:
  bool busy_;
};

// An advisory lock on "<company file>.lck", exclusive for a single-user session and shared
// otherwise. The lock file exists only while a session holds it: the last one to let go removes it.
class CompanyLock {
 public:
  CompanyLock(const std::string& companyPath, bool exclusive);  // throws CompanyLockError
  ~CompanyLock();
  CompanyLock(const CompanyLock&) = delete;
  CompanyLock& operator=(const CompanyLock&) = delete;

 private:
  std::string path_;
  int fd_ = -1;
};

}  // namespace brenvale::rqp::detail
