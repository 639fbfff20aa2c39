#pragma once
// What the commands of the brenvale tool share: the global options, the failures that end a
// command with their exit status, and opening the company.
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale::tool {

// Exit statuses: 0 success, 1 a library or QuickBooks error, 2 bad usage, 3 a file or company problem.
enum ExitStatus : int { kExitOk = 0, kExitLibrary = 1, kExitUsage = 2, kExitFile = 3 };

enum class Format { Table, Json, Xml };

struct GlobalOptions {
  std::string company = "brenvale-demo.qbw";
  std::string processor = "BrenvaleRqP.RequestProcessor";
  std::string trace;
  std::string format = "table";

  Format OutputFormat() const;
};

// A failure the tool reports itself: the message goes to stderr, the status is the exit status.
class ToolFailure : public std::runtime_error {
 public:
  ToolFailure(int status, const std::string& message) : std::runtime_error(message), status_(status) {}
  int Status() const { return status_; }

 private:
  int status_;
};

struct UsageError : ToolFailure {
  explicit UsageError(const std::string& message) : ToolFailure(kExitUsage, message) {}
};

struct FileError : ToolFailure {
  explicit FileError(const std::string& message) : ToolFailure(kExitFile, message) {}
};

// A library error met while opening the company: reported as the library's error, exit status 3.
class CompanyError : public BrenvaleError {
 public:
  CompanyError(const BrenvaleError& cause, std::string company)
      : BrenvaleError(cause), company_(std::move(company)) {}
  const std::string& Company() const { return company_; }

 private:
  std::string company_;
};

// "1013 (0x800403F5)" for a library code, the plain number for an error of the platform, and the
// number in hexadecimal for a processor's own error ("0x80040403": its number may fall among the
// library's codes, but it is not one of them).
std::string ErrorNumberText(std::int32_t number, bool libraryCode = true);
// "brenvale: error 1013 (0x800403F5): Name cannot exceed 31 characters [JobType]"
// When the error is the library's report of a failed exchange, the processor's own words follow.
void PrintError(std::ostream& err, const BrenvaleError& e);

// Connects the library-wide connection to the company named by the options, through the chosen
// request processor, with the trace when one is asked for. Checks what it can before connecting:
// an unknown processor is a usage error; a missing directory a file error.
void OpenCompany(const GlobalOptions& options);
// Ends the session, if one is open; never raises.
void CloseCompany() noexcept;

// What the request processor said when an exchange last failed (empty: no failure).
const std::string& LastProcessorFailure();

// Registers the request processors the tool knows (the company engine).
void RegisterProcessors();

}  // namespace brenvale::tool
