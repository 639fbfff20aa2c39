#pragma once
// One open company file and the session on it: parses request documents, checks them against the
// declarations, runs each request in its own savepoint and writes the response document.
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"
#include "brenvale/rqp/detail/Declarations.hpp"
#include "brenvale/rqp/detail/Status.hpp"
#include "brenvale/rqp/detail/Store.hpp"

namespace brenvale::rqp::detail {

// A failure of the whole call, raised by the processor as an error (parse failures, files).
struct ProcessError {
  std::int32_t hresult;
  std::string text;
};

struct Request {
  pugi::xml_node node;  // the ...Rq element
  const Decl* decl = nullptr;
  std::string_view name;  // "CustomerAddRq"
};

struct Reply {
  int status = 0;
  std::string message;     // the text of a non-error status other than 0
  std::string attributes;  // written after the status attributes: ' retCount="3"'
  std::string body;        // the Ret elements
};

// An advisory lock on "<company file>.lck", exclusive for single-user sessions and shared otherwise.
class FileLock {
 public:
  FileLock(const std::string& companyPath, bool exclusive);  // throws ProcessError
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int fd_ = -1;
};

class Company;
using Handler = std::function<void(Company&, const Request&, Reply&)>;

// A list query left open by iterator="Start".
struct OpenIterator {
  std::string requestName;
  std::vector<std::int64_t> rowIds;  // what is still to come
  std::vector<std::string> include;  // IncludeRetElement
  std::vector<std::string> owners;   // OwnerID
};

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
  const HostFacts& Facts() const { return facts_; }
  bool SingleUser() const { return singleUser_; }
  Store& Data() { return store_; }

  // The clock of the request being answered (seconds since 1970), and QuickBooks' forms of it.
  std::int64_t Now() const { return now_; }
  std::string NowText() const;
  std::string TodayText() const;

  // A new ListID ("80000001-1700000000") and EditSequence for something changed now.
  std::string NewListId();
  std::string NextEditSequence(std::string_view previous = {}) const;

  std::map<std::string, OpenIterator>& Iterators() { return iterators_; }

 private:
  std::string path_;
  const HostFacts& facts_;
  bool singleUser_ = true;
  FileLock lock_;
  Store store_;
  std::int64_t now_ = 0;
  std::map<std::string, OpenIterator> iterators_;
};

// The handler of a request name, or nullptr when the engine does not answer it.
const Handler* FindHandler(std::string_view requestName);

// Handler registration, one function per source file.
void AddListHandlers(std::map<std::string, Handler, std::less<>>& table);
void AddHostHandlers(std::map<std::string, Handler, std::less<>>& table);
void AddDataExtHandlers(std::map<std::string, Handler, std::less<>>& table);

// Fills a new company file with what a new QuickBooks company has.
void SeedNewCompany(Company& company);

// QuickBooks' text forms of a moment: "2024-01-15T10:30:00-05:00" (local time with its offset)
// and "2024-01-15"; and back (a date alone is the start of that day, or its end when `endOfDay`).
std::string DateTimeText(std::int64_t t);
std::string DateText(std::int64_t t);
std::int64_t ParseDateTime(std::string_view text, bool endOfDay);

// Severity of a status code: "Info", "Warn" or "Error".
const char* Severity(int status);

// The texts of every child `name` of `parent` (IncludeRetElement, OwnerID, ListID ...).
std::vector<std::string> ChildTexts(pugi::xml_node parent, const char* name);

// Writes stored text for a response: characters above 127 become character references.
void AppendResponseText(std::string& out, std::string_view stored);

// Serialises an element compactly for storage (UTF-8, XML special characters escaped).
void Serialize(pugi::xml_node node, std::string& out);

}  // namespace brenvale::rqp::detail
