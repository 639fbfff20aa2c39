#include "brenvale/rqp/engine/Company.hpp"

#include <algorithm>
#include <filesystem>

#include "brenvale/rqp/dataext/DataExt.hpp"
#include "brenvale/rqp/host/Host.hpp"
#include "brenvale/rqp/lists/ListKinds.hpp"
#include "brenvale/rqp/protocol/RequestDocument.hpp"
#include "brenvale/rqp/protocol/Response.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/records/Records.hpp"
#include "brenvale/rqp/subscriptions/Subscriptions.hpp"

namespace brenvale::rqp::detail {
namespace {

constexpr const char* kCouldNotOpen = "Could not open the specified QuickBooks company data file.";

[[noreturn]] void CannotOpen(const std::string& why) {
  throw ProcessError{hresult::kCouldNotOpenFile, std::string(kCouldNotOpen) + " (" + why + ")"};
}

std::string CheckedPath(const std::string& path) {
  if (path.empty())
    throw ProcessError{hresult::kCouldNotOpenFile,
                       std::string(kCouldNotOpen) + " If QuickBooks is not running, a company file must be specified."};
  std::error_code ec;
  auto abs = std::filesystem::absolute(path, ec);
  if (ec || !std::filesystem::is_directory(abs.parent_path(), ec)) CannotOpen(path + ": no such folder");
  if (std::filesystem::is_directory(abs, ec)) CannotOpen(path + ": a folder, not a file");
  return abs.lexically_normal().string();
}

// Runs `work` in one write transaction of `db`.
template <class Work>
void InTransaction(Database& db, Work work) {
  db.Exec("BEGIN IMMEDIATE");
  try {
    work();
    db.Exec("COMMIT");
  } catch (...) {
    db.Exec("ROLLBACK");
    throw;
  }
}

const HandlerTable& Handlers() {
  static const HandlerTable table = [] {
    HandlerTable t;
    AddListHandlers(t);
    AddHostHandlers(t);
    AddDataExtHandlers(t);
    return t;
  }();
  return table;
}

}  // namespace

void InstallEngine() {
  Declarations::Install({DeclareShared, DeclareListKinds, DeclareHost, DeclareDataExt, DeclareSubscriptions});
  KindRegistry::Install(BuildListKinds());
}

Company::Company(const std::string& path, qbEnumFileOpenMode mode, const HostFacts& facts)
    : path_(CheckedPath(path)), facts_(facts) {
  const bool singleUser = mode == qbOpenModeSingleUser;
  try {
    CreateCompanyFile(path_, [&](Store& store) {
      Context context(store, facts_, path_, true);
      InTransaction(store.Db(), [&] {
        SeedStandardLists(context);
        SeedCompany(context);
      });
    });
    store_ = std::make_unique<Store>(path_);
  } catch (const std::exception& e) {
    CannotOpen(path_ + ": " + e.what());
  }
  try {
    lock_ = std::make_unique<CompanyLock>(path_, singleUser);
  } catch (const CompanyLockError& e) {
    if (e.Busy())
      throw ProcessError{hresult::kFileOpenInOtherMode,
                         "The QuickBooks company data file is currently open in a mode other than the one specified "
                         "by your application."};
    CannotOpen(e.what());
  }
  context_ = std::make_unique<Context>(*store_, facts_, path_, singleUser);
  try {
    store_->Migrate();
    if (store_->NeedsReindex())
      InTransaction(store_->Db(), [&] {
        if (!store_->NeedsReindex()) return;  // another session did it meanwhile
        RebuildRecords(*context_);
        UpgradeCompany(*context_);
        store_->Reindexed();
      });
  } catch (const std::exception& e) {
    CannotOpen(path_ + ": cannot bring the company file up to date: " + e.what());
  }
}

Company::~Company() = default;

std::string Company::Process(std::string_view text) {
  auto refuse = [](const std::string& why) { throw ProcessError{hresult::kParseError, ParseFailureText(why)}; };
  RequestDocument doc(text, facts_);
  pugi::xml_node msgs = doc.Messages();
  if (std::string_view(msgs.name()) != "QBXMLMsgsRq") refuse("Element \"QBXML\" must hold \"QBXMLMsgsRq\".");
  static const std::string_view envelopeAttributes[] = {"onError", "newMessageSetID", "oldMessageSetID",
                                                         "responseData"};
  std::string onError;
  for (auto a : msgs.attributes()) {
    if (std::find(std::begin(envelopeAttributes), std::end(envelopeAttributes), a.name()) == std::end(envelopeAttributes))
      refuse("Attribute " + Quote(a.name()) + " is not allowed in \"QBXMLMsgsRq\".");
    if (std::string_view(a.name()) == "onError") onError = Trim(a.value());
  }
  if (onError != "stopOnError" && onError != "continueOnError" && onError != "rollbackOnError")
    refuse("\"QBXMLMsgsRq\" needs onError with stopOnError, continueOnError or rollbackOnError.");

  // The whole document is checked before anything is done: QuickBooks refuses it whole for what its
  // parser refuses.
  struct Pending {
    pugi::xml_node node;
    const Handler* handler;
    Problem problem;
  };
  std::vector<Pending> pending;
  bool writes = false;
  const Declarations& declared = Declarations::Get();
  for (auto child : msgs.children()) {
    if ((child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) && !Trim(child.value()).empty())
      refuse("Text is not allowed in \"QBXMLMsgsRq\".");
    if (child.type() != pugi::node_element) continue;
    std::string_view name = child.name();
    const Decl* decl = declared.Request(name);
    if (!decl) refuse("Unknown request " + Quote(name) + ".");
    Problem problem = CheckRequest(*decl, child, doc.Version(), EditionOf(facts_.Country), facts_.RelaxElementOrder);
    if (problem.kind == Problem::Kind::Structure) refuse(problem.message);
    if (!name.ends_with("QueryRq")) writes = true;
    auto h = Handlers().find(name);
    pending.push_back({child, h == Handlers().end() ? nullptr : &h->second, std::move(problem)});
  }

  ResponseWriter out("QBXMLMsgsRs");
  Database& db = store_->Db();
  try {
    db.Exec(writes ? "BEGIN IMMEDIATE" : "BEGIN");
  } catch (const std::exception& e) {
    throw ProcessError{hresult::kUnexpected, std::string("Unexpected error. The company file is busy: ") + e.what()};
  }
  bool stopped = false, rollback = false;
  try {
    for (auto& p : pending) {
      if (stopped) {
        out.Add(p.node, kNotProcessed, kNotProcessedText);
        continue;
      }
      context_->Tick();
      Reply reply;
      int code = 0;
      std::string message;
      {
        Savepoint savepoint(db, "request");
        try {
          if (p.problem) throw StatusError{p.problem.status, p.problem.message};
          if (!p.handler)
            throw StatusError{3250, "This feature is not enabled or not available in this version of QuickBooks. (" +
                                        std::string(p.node.name()) + " is not answered by the company engine.)"};
          (*p.handler)(*context_, Request{p.node, p.node.name(), doc.Version()}, reply);
          savepoint.Commit();
          code = reply.status;
          message = reply.status == 0 ? "Status OK" : reply.message;
        } catch (StatusError& e) {
          code = e.code;
          message = std::move(e.message);
          reply = Reply{};
        }
      }
      out.Add(p.node, code, message, reply);
      if (std::string_view(Severity(code)) == "Error" && onError != "continueOnError") {
        stopped = true;
        rollback = onError == "rollbackOnError";
      }
    }
    db.Exec(rollback ? "ROLLBACK" : "COMMIT");
  } catch (const std::exception& e) {
    try {
      db.Exec("ROLLBACK");
    } catch (...) {
    }
    throw ProcessError{hresult::kUnexpected, std::string("Unexpected error. ") + e.what()};
  }
  return out.Finish();
}

}  // namespace brenvale::rqp::detail
