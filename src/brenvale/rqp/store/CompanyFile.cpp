#include "brenvale/rqp/store/CompanyFile.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>
#include <thread>

namespace brenvale::rqp::detail {
namespace {

namespace fs = std::filesystem;

// ".acme.qbw.creating-": the start of the names of files being made for "acme.qbw".
std::string AsidePrefix(const fs::path& company) { return "." + company.filename().string() + ".creating-"; }

void RemoveWithCompanions(const fs::path& file) {
  std::error_code ec;
  for (const char* suffix : {"", "-journal", "-wal", "-shm"}) fs::remove(file.string() + suffix, ec);
}

// Removes the files beside `company` that a process which no longer runs was making.
void RemoveAbandoned(const fs::path& company) {
  const std::string prefix = AsidePrefix(company);
  std::error_code ec;
  for (const auto& entry : fs::directory_iterator(company.parent_path(), ec)) {
    std::string name = entry.path().filename().string();
    if (name.rfind(prefix, 0) != 0) continue;
    long pid = std::strtol(name.c_str() + prefix.size(), nullptr, 10);
    if (pid > 0 && ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) RemoveWithCompanions(entry.path());
  }
}

}  // namespace

void CreateCompanyFile(const std::string& path, const std::function<void(Store&)>& fill) {
  const fs::path company(path);
  if (fs::exists(company)) return;
  RemoveAbandoned(company);
  std::random_device rd;
  const fs::path aside = company.parent_path() / (AsidePrefix(company) + std::to_string(::getpid()) + "-" +
                                                  std::to_string(rd()));
  try {
    Store::Create(aside.string());
    {
      // Opened in WAL mode, which the file keeps: whoever opens the placed file need not change it.
      Store store(aside.string());
      fill(store);
      store.Db().Exec("PRAGMA wal_checkpoint(TRUNCATE)");  // everything in the one file to move
    }
    // link() never replaces: when another process placed its company first, that one stands.
    if (::link(aside.c_str(), company.c_str()) != 0 && errno != EEXIST)
      throw std::system_error(errno, std::generic_category(), "cannot place the new company file " + path);
  } catch (...) {
    RemoveWithCompanions(aside);
    throw;
  }
  RemoveWithCompanions(aside);
}

CompanyLock::CompanyLock(const std::string& companyPath, bool exclusive) : path_(companyPath + ".lck") {
  // The session that lets go last holds the lock exclusively for a moment while it removes the
  // file; a lock refused for that long is tried again before it counts as held by another session.
  constexpr int kAttempts = 200;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    fd_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd_ < 0) throw CompanyLockError(false, "cannot open the lock file " + path_ + ": " + std::strerror(errno));
    int error = ::flock(fd_, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0 ? 0 : errno;
    // The file may have been removed by the session that held it last, after this one opened it.
    struct stat held {}, named {};
    bool current = ::fstat(fd_, &held) == 0 && ::stat(path_.c_str(), &named) == 0 && held.st_ino == named.st_ino &&
                   held.st_dev == named.st_dev;
    if (error == 0 && current) return;
    ::close(fd_);
    fd_ = -1;
    if (error != 0 && error != EWOULDBLOCK)
      throw CompanyLockError(false, "cannot lock " + path_ + ": " + std::strerror(error));
    if (error == EWOULDBLOCK && current && attempt >= 10)
      throw CompanyLockError(true, "the company file is open in another mode");
    if (error == EWOULDBLOCK) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  throw CompanyLockError(false, "cannot lock " + path_ + ": it keeps being replaced");
}

CompanyLock::~CompanyLock() {
  if (fd_ < 0) return;
  // The last session holding the lock removes the file.
  if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) ::unlink(path_.c_str());
  ::close(fd_);
}

}  // namespace brenvale::rqp::detail
