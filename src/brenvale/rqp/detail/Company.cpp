#include "brenvale/rqp/detail/Company.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>

#include "brenvale/core/detail/Windows1252.hpp"
#include "brenvale/rqp/detail/Document.hpp"
#include "brenvale/rqp/detail/Text.hpp"

namespace brenvale::rqp::detail {

namespace {

constexpr const char* kCouldNotOpen = "Could not open the specified QuickBooks company data file.";

std::string CheckedPath(const std::string& path) {
  if (path.empty())
    throw ProcessError{hresult::kCouldNotOpenFile,
                       std::string(kCouldNotOpen) + " If QuickBooks is not running, a company file must be specified."};
  std::error_code ec;
  auto abs = std::filesystem::absolute(path, ec);
  if (ec || !std::filesystem::is_directory(abs.parent_path(), ec) || std::filesystem::is_directory(abs, ec))
    throw ProcessError{hresult::kCouldNotOpenFile, std::string(kCouldNotOpen) + " (" + path + ")"};
  return abs.lexically_normal().string();
}

Store OpenStore(const std::string& path) {
  try {
    return Store(path);
  } catch (const std::exception& e) {
    throw ProcessError{hresult::kCouldNotOpenFile, std::string(kCouldNotOpen) + " (" + path + ": " + e.what() + ")"};
  }
}

}  // namespace

FileLock::FileLock(const std::string& companyPath, bool exclusive) {
  std::string lockPath = companyPath + ".lck";
  fd_ = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd_ < 0)
    throw ProcessError{hresult::kCouldNotOpenFile, std::string(kCouldNotOpen) + " (" + lockPath + ")"};
  if (::flock(fd_, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0) {
    ::close(fd_);
    fd_ = -1;
    throw ProcessError{hresult::kFileOpenInOtherMode,
                       "The QuickBooks company data file is currently open in a mode other than the one specified "
                       "by your application."};
  }
}

FileLock::~FileLock() {
  if (fd_ >= 0) ::close(fd_);
}

Company::Company(const std::string& path, qbEnumFileOpenMode mode, const HostFacts& facts)
    : path_(CheckedPath(path)),
      facts_(facts),
      singleUser_(mode == qbOpenModeSingleUser),
      lock_(path_, mode == qbOpenModeSingleUser),
      store_(OpenStore(path_)) {
  now_ = std::time(nullptr);
  if (store_.Created()) {
    auto& db = store_.Db();
    db.Exec("BEGIN IMMEDIATE");
    try {
      SeedNewCompany(*this);
      db.Exec("COMMIT");
    } catch (...) {
      db.Exec("ROLLBACK");
      throw;
    }
  }
}

Company::~Company() = default;

std::string Company::NowText() const { return DateTimeText(now_); }
std::string Company::TodayText() const { return DateText(now_); }

std::string Company::NewListId() {
  char buf[40];
  std::snprintf(buf, sizeof buf, "%llX-%lld", 0x80000000ULL + static_cast<unsigned long long>(store_.NextNumber("listid")),
                static_cast<long long>(now_));
  return buf;
}

std::string Company::NextEditSequence(std::string_view previous) const {
  long long prev = 0;
  if (!previous.empty()) prev = std::atoll(std::string(previous).c_str());
  return std::to_string(std::max<long long>(now_, prev + 1));
}

// ---- the request document ----------------------------------------------------------------------

std::string Company::Process(std::string_view text) {
  RequestDocument doc(text, facts_);
  pugi::xml_node msgs = doc.Messages();
  if (std::string_view(msgs.name()) != "QBXMLMsgsRq")
    throw ProcessError{hresult::kParseError, ParseFailureText("Element \"QBXML\" must hold \"QBXMLMsgsRq\".")};
  static const std::string_view envelopeAttributes[] = {"onError", "newMessageSetID", "oldMessageSetID",
                                                         "responseData"};
  std::string onError;
  for (auto a : msgs.attributes()) {
    if (std::find(std::begin(envelopeAttributes), std::end(envelopeAttributes), a.name()) == std::end(envelopeAttributes))
      throw ProcessError{hresult::kParseError,
                         ParseFailureText("Attribute \"" + std::string(a.name()) + "\" is not allowed in \"QBXMLMsgsRq\".")};
    if (std::string_view(a.name()) == "onError") onError = Trim(a.value());
  }
  if (onError != "stopOnError" && onError != "continueOnError" && onError != "rollbackOnError")
    throw ProcessError{hresult::kParseError,
                       ParseFailureText("\"QBXMLMsgsRq\" needs onError with stopOnError, continueOnError or rollbackOnError.")};

  struct Pending {
    Request request;
    const Handler* handler;
    Problem problem;
  };
  std::vector<Pending> pending;
  bool writes = false;
  for (auto child : msgs.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      if (!Trim(child.value()).empty())
        throw ProcessError{hresult::kParseError, ParseFailureText("Text is not allowed in \"QBXMLMsgsRq\".")};
      continue;
    }
    if (child.type() != pugi::node_element) continue;
    std::string_view name = child.name();
    const Decl* decl = Declarations::Get().Request(name);
    if (!decl) throw ProcessError{hresult::kParseError, ParseFailureText("Unknown request \"" + std::string(name) + "\".")};
    CheckRequestAttributes(*decl, child);
    Problem problem = CheckElement(*decl, child);
    if (problem.kind == Problem::Kind::Structure)
      throw ProcessError{hresult::kParseError, ParseFailureText(problem.message)};
    if (!name.ends_with("QueryRq")) writes = true;
    pending.push_back({Request{child, decl, name}, FindHandler(name), std::move(problem)});
  }

  std::string out = "<?xml version=\"1.0\" ?>\n<QBXML>\n<QBXMLMsgsRs>\n";
  auto& db = store_.Db();
  try {
    db.Exec(writes ? "BEGIN IMMEDIATE" : "BEGIN");
  } catch (const std::exception& e) {
    throw ProcessError{hresult::kUnexpected, std::string("Unexpected error. The company file is busy: ") + e.what()};
  }
  try {
    for (auto& p : pending) {
      now_ = std::time(nullptr);
      Reply reply;
      int code = 0;
      std::string message;
      {
        Savepoint savepoint(db, "request");
        try {
          if (p.problem) throw StatusError{p.problem.status, p.problem.message};
          if (!p.handler)
            throw StatusError{3250, "This feature is not enabled or not available in this version of QuickBooks. (" +
                                        std::string(p.request.name) + " is not answered by the company engine.)"};
          (*p.handler)(*this, p.request, reply);
          savepoint.Commit();
          code = reply.status;
          message = reply.status == 0 ? "Status OK" : reply.message;
        } catch (StatusError& e) {
          code = e.code;
          message = std::move(e.message);
          reply = Reply{};
        }
      }
      std::string rsName(p.request.name.substr(0, p.request.name.size() - 2));
      rsName += "Rs";
      out += '<';
      out += rsName;
      if (auto id = p.request.node.attribute("requestID")) {
        out += " requestID=\"";
        AppendEscaped(out, id.value());
        out += '"';
      }
      out += " statusCode=\"" + std::to_string(code) + "\" statusSeverity=\"" + Severity(code) + "\" statusMessage=\"";
      AppendEscaped(out, message);
      out += '"';
      out += reply.attributes;
      if (reply.body.empty()) {
        out += " />\n";
      } else {
        out += ">\n";
        out += reply.body;
        out += "</" + rsName + ">\n";
      }
      if (std::string_view(Severity(code)) == "Error" && onError != "continueOnError") break;
    }
    db.Exec("COMMIT");
  } catch (const ProcessError&) {
    db.Exec("ROLLBACK");
    throw;
  } catch (const std::exception& e) {
    try {
      db.Exec("ROLLBACK");
    } catch (...) {
    }
    throw ProcessError{hresult::kUnexpected, std::string("Unexpected error. ") + e.what()};
  }
  out += "</QBXMLMsgsRs>\n</QBXML>\n";
  return out;
}

// ---- shared helpers ----------------------------------------------------------------------------

const char* Severity(int status) {
  if (status == 0 || status == 1) return "Info";
  if (status >= 500 && status < 600) return "Warn";
  return "Error";
}

std::string DateTimeText(std::int64_t t) {
  std::time_t tt = static_cast<std::time_t>(t);
  std::tm local{};
  localtime_r(&tt, &local);
  char buf[40];
  std::strftime(buf, sizeof buf, "%Y-%m-%dT%H:%M:%S", &local);
  long off = local.tm_gmtoff;
  char sign = off < 0 ? '-' : '+';
  off = off < 0 ? -off : off;
  char zone[48];
  std::snprintf(zone, sizeof zone, "%c%02ld:%02ld", sign, off / 3600, (off % 3600) / 60);
  return std::string(buf) + zone;
}

std::string DateText(std::int64_t t) { return DateTimeText(t).substr(0, 10); }

std::int64_t ParseDateTime(std::string_view text, bool endOfDay) {
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0, oh = 0, om = 0;
  char sign = 0;
  std::string t(Trim(text));
  int n = std::sscanf(t.c_str(), "%d-%d-%dT%d:%d:%d", &y, &mo, &d, &h, &mi, &s);
  if (n < 3) return 0;
  bool dateOnly = t.find('T') == std::string::npos;
  if (dateOnly && endOfDay) {
    h = 23;
    mi = 59;
    s = 59;
  }
  auto tpos = t.find('T');
  std::size_t zone = tpos == std::string::npos ? std::string::npos : t.find_first_of("+-", tpos);
  std::tm tm{};
  tm.tm_year = y - 1900;
  tm.tm_mon = mo - 1;
  tm.tm_mday = d;
  tm.tm_hour = h;
  tm.tm_min = mi;
  tm.tm_sec = s;
  if (zone != std::string::npos && std::sscanf(t.c_str() + zone, "%c%d:%d", &sign, &oh, &om) == 3) {
    std::int64_t utc = timegm(&tm);
    std::int64_t offset = (oh * 3600 + om * 60) * (sign == '-' ? -1 : 1);
    return utc - offset;
  }
  tm.tm_isdst = -1;
  return std::mktime(&tm);
}

void AppendResponseText(std::string& out, std::string_view stored) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < stored.size();) {
    if (static_cast<unsigned char>(stored[i]) < 0x80) {
      ++i;
      continue;
    }
    out.append(stored.substr(start, i - start));
    AppendCharReference(out, brenvale::detail::NextUtf8(stored, i));
    start = i;
  }
  out.append(stored.substr(start));
}

std::vector<std::string> ChildTexts(pugi::xml_node parent, const char* name) {
  std::vector<std::string> out;
  for (auto c : parent.children(name)) out.emplace_back(c.text().get());
  return out;
}

void Serialize(pugi::xml_node node, std::string& out) {
  out += '<';
  out += node.name();
  out += '>';
  for (auto c : node.children()) {
    if (c.type() == pugi::node_element) Serialize(c, out);
    else if (c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) AppendEscaped(out, c.value(), false);
  }
  out += "</";
  out += node.name();
  out += '>';
}

const Handler* FindHandler(std::string_view requestName) {
  static const auto table = [] {
    std::map<std::string, Handler, std::less<>> t;
    AddListHandlers(t);
    AddHostHandlers(t);
    AddDataExtHandlers(t);
    return t;
  }();
  auto it = table.find(requestName);
  return it == table.end() ? nullptr : &it->second;
}

}  // namespace brenvale::rqp::detail
