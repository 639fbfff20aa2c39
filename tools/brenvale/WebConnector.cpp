#include "WebConnector.hpp"

#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "brenvale/core/ProcessorRegistry.hpp"
#include "brenvale/webconnector/Client.hpp"
#include "brenvale/webconnector/QwcFile.hpp"
#include "brenvale/webconnector/Service.hpp"
#include "brenvale/webconnector/Users.hpp"
#include "brenvale/webconnector/detail/Url.hpp"

namespace brenvale::tool {
namespace {

namespace wc = brenvale::webconnector;
namespace fs = std::filesystem;

// Lines from the service's threads, whole.
void LogLine(std::string_view line) {
  static std::mutex mutex;
  std::lock_guard lock(mutex);
  std::cerr << "brenvale: " << line << "\n";
}

// The password: the first line of `file`, or of the standard input (asked for without echo at a terminal).
std::string ReadPassword(const std::string& file) {
  std::string line;
  if (!file.empty()) {
    std::ifstream in(file);
    if (!in) throw FileError("cannot read the password file '" + file + "'");
    std::getline(in, line);
  } else if (isatty(STDIN_FILENO)) {
    std::cerr << "Password: " << std::flush;
    termios old{};
    const bool quiet = tcgetattr(STDIN_FILENO, &old) == 0;
    termios silent = old;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    if (quiet) tcsetattr(STDIN_FILENO, TCSANOW, &silent);
    std::getline(std::cin, line);
    if (quiet) tcsetattr(STDIN_FILENO, TCSANOW, &old);
    std::cerr << "\n";
  } else {
    std::getline(std::cin, line);
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (line.empty()) throw UsageError("the password is empty; give it on the standard input or with --password-file");
  return line;
}

wc::Users LoadUsers(const std::string& file) {
  try {
    return wc::Users::Load(file);
  } catch (const BrenvaleError& e) {
    throw FileError(e.Description());
  }
}

// --- serve -------------------------------------------------------------------------------------------

struct ServeOptions {
  std::string listen, cert, key, users, company;
  double wait = 120, hold = 10;
  std::vector<std::string> command;
};

std::chrono::milliseconds Milliseconds(double seconds) {
  return std::chrono::milliseconds(static_cast<long long>(seconds * 1000));
}

// Runs a command of the tool as the service's host, through "BrenvaleWC.RequestProcessor".
int RunHostCommand(const GlobalOptions& g, const ServeOptions& o, const std::string& company) {
  GlobalOptions host = g;
  host.processor = std::string(wc::kProgIdWebConnector);
  host.company = company;
  Runner hostRun;
  CLI::App app("The command the service runs as its host", "brenvale webconnector serve ... --");
  app.require_subcommand(1);
  AddCommands(app, host, hostRun);
  try {
    app.parse(std::vector<std::string>(o.command.rbegin(), o.command.rend()));
  } catch (const CLI::ParseError& e) {
    if (e.get_exit_code() == 0) return app.exit(e);
    throw UsageError("the command after '--': " + std::string(e.what()));
  }
  LogLine("waiting for the Web Connector of company '" + company + "' (up to " + std::to_string(int(o.wait)) +
          " seconds)");
  const int status = hostRun();
  CloseCompany();
  return status;
}

int RunServe(const GlobalOptions& g, const ServeOptions& o) {
  auto listen = wc::detail::ParseListen(o.listen);
  if (!listen) throw UsageError("--listen takes ADDRESS:PORT (PORT 0 for any free port), not '" + o.listen + "'");
  if (o.cert.empty() != o.key.empty()) throw UsageError("--cert and --key go together");
  if (o.wait <= 0 || o.hold < 0) throw UsageError("--wait must be positive and --hold not negative");
  wc::Users users = LoadUsers(o.users);
  if (users.All().empty())
    throw FileError("the users file '" + o.users + "' lists no user; add one with 'brenvale webconnector user'");
  std::string company = o.company;
  if (!o.command.empty() && company.empty()) {
    const std::vector<std::string> companies = users.Companies();
    if (companies.size() != 1) {
      std::string list;
      for (const std::string& c : companies) list += (list.empty() ? "" : ", ") + c;
      throw UsageError("the users file serves the companies " + list + "; name the host's with --company");
    }
    company = companies.front();
  }

  wc::ServiceOptions options;
  options.address = listen->first;
  options.port = listen->second;
  options.certificateFile = o.cert;
  options.keyFile = o.key;
  options.users = std::move(users);
  options.hold = Milliseconds(o.hold);
  options.sessionIdle = std::max(options.sessionIdle, 3 * options.hold);
  options.log = [](std::string_view line) { LogLine("webconnector: " + std::string(line)); };
  std::optional<wc::Service> service;

  // Without a command the service runs until it is told to stop: take SIGINT and SIGTERM on this
  // thread (the service's threads, started after, inherit the mask).
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGINT);
  sigaddset(&stopSignals, SIGTERM);
  if (o.command.empty()) pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
  try {
    service.emplace(std::move(options));
    service->Start();
  } catch (const BrenvaleError& e) {
    if (e.Number() == 75) throw FileError(e.Description());
    throw UsageError(e.Description());
  }
  LogLine("serving the Web Connector at " + service->Url() + " (its description: " + service->Url() + "?wsdl)");

  if (o.command.empty()) {
    int signal = 0;
    sigwait(&stopSignals, &signal);
    LogLine("stopping");
    service->Stop();
    return kExitOk;
  }
  wc::RegisterWebConnector(*service, {.sessionWait = Milliseconds(o.wait), .requestWait = Milliseconds(o.wait),
                                     .company = company});
  const int status = RunHostCommand(g, o, company);
  // The host's session has ended; let the Web Connector close its own before the service goes.
  service->WaitUntilNoSession(Milliseconds(o.hold + 5));
  return status;
}

// --- qwc ---------------------------------------------------------------------------------------------

struct QwcOptions {
  wc::QwcFile file;
  int every = 0;
  bool readOnly = false;
  std::string output;
};

int RunQwc(QwcOptions& o) {
  if (o.every > 0) o.file.RunEveryNMinutes = o.every;
  if (o.readOnly) o.file.IsReadOnly = true;
  std::string text;
  try {
    text = o.file.Text();
  } catch (const BrenvaleError& e) {
    throw UsageError(e.Description());
  }
  if (o.output.empty() || o.output == "-") {
    std::cout << text;
    return kExitOk;
  }
  std::error_code ec;
  if (fs::exists(o.output, ec))
    throw FileError("'" + o.output + "' exists; its FileID names a company in the Web Connector. Remove it or "
                    "choose another name");
  std::ofstream out(o.output, std::ios::binary);
  if (!(out << text) || !(out.close(), out)) throw FileError("cannot write '" + o.output + "'");
  LogLine("wrote " + o.output + ": add it to QuickBooks' Web Connector (Add an application)");
  return kExitOk;
}

// --- client ------------------------------------------------------------------------------------------

struct ClientCommand {
  std::string url, user, passwordFile, ca;
  double every = 0, wait = 0;
};

int RunClient(const GlobalOptions& g, const ClientCommand& o) {
  if (!IsRequestProcessorRegistered(g.processor)) throw UsageError("unknown request processor '" + g.processor + "'");
  if (o.every < 0 || o.wait < 0) throw UsageError("--every and --wait take a number of seconds");
  wc::ClientOptions options;
  options.url = o.url;
  options.userName = o.user;
  options.password = ReadPassword(o.passwordFile);
  options.caFile = o.ca;
  options.companyFile = fs::absolute(g.company).string();
  options.log = [](std::string_view line) { LogLine("webconnector client: " + std::string(line)); };
  const std::string progId = g.processor;
  wc::Client client(std::move(options), [progId] { return CreateRequestProcessor(progId); });

  // --wait: try each second until a session runs; --every: a session each N seconds, for ever.
  const auto deadline = std::chrono::steady_clock::now() + Milliseconds(o.wait);
  for (;;) {
    const wc::SessionReport report = client.RunSession();
    const bool ran = report.outcome == wc::SessionOutcome::Finished || report.requests > 0;
    if (o.every > 0) {
      std::this_thread::sleep_for(Milliseconds(o.every));
      continue;
    }
    const bool retry = !ran && report.outcome != wc::SessionOutcome::NotValidUser &&
                       report.outcome != wc::SessionOutcome::Refused && std::chrono::steady_clock::now() < deadline;
    if (retry) {
      std::this_thread::sleep_for(std::chrono::seconds(1));
      continue;
    }
    LogLine("webconnector client: relayed " + std::to_string(report.requests) +
            (report.requests == 1 ? " request" : " requests"));
    return report.outcome == wc::SessionOutcome::Finished || report.outcome == wc::SessionOutcome::NoWork
               ? kExitOk
               : kExitLibrary;
  }
}

// --- user --------------------------------------------------------------------------------------------

struct UserCommand {
  std::string users, passwordFile;
  wc::User user;
  int iterations = wc::kDefaultHashIterations;
};

int RunUser(const UserCommand& o) {
  std::error_code ec;
  wc::Users users = fs::exists(o.users, ec) ? LoadUsers(o.users) : wc::Users();
  wc::User user = o.user;
  const bool known = users.Find(user.name) != nullptr;
  try {
    user.passwordHash = wc::Users::HashPassword(ReadPassword(o.passwordFile), o.iterations);
    users.Set(user);
    users.Save(o.users);
  } catch (const BrenvaleError& e) {
    if (e.Number() == 75) throw FileError(e.Description());
    throw UsageError(e.Description());
  }
  LogLine(std::string(known ? "changed" : "added") + " the user '" + user.name + "' of company '" + user.company +
          "' in " + o.users);
  return kExitOk;
}

}  // namespace

void AddWebConnectorCommand(CLI::App& app, const GlobalOptions& g, Runner& run) {
  CLI::App* wcApp = app.add_subcommand(
      "webconnector", "Reach QuickBooks Desktop through its Web Connector: the service, its .QWC file, its users, "
                      "and a Web Connector of our own");
  wcApp->require_subcommand(1);

  auto so = std::make_shared<ServeOptions>();
  CLI::App* serve = wcApp->add_subcommand("serve", "Run the Web Connector service");
  serve->add_option("--listen", so->listen, "ADDRESS:PORT to listen on (plain http on a loopback address only)")
      ->required();
  serve->add_option("--cert", so->cert, "The certificate for HTTPS (PEM)")->type_name("FILE");
  serve->add_option("--key", so->key, "The certificate's private key (PEM)")->type_name("FILE");
  serve->add_option("--users", so->users, "The users file (see 'brenvale webconnector user')")
      ->type_name("FILE")
      ->required();
  serve->add_option("--company", so->company, "The company the command after '--' works on (a company of the users file)")
      ->type_name("NAME");
  serve->add_option("--wait", so->wait, "Seconds the command waits for the Web Connector, and for each response")
      ->capture_default_str();
  serve->add_option("--hold", so->hold, "Seconds a Web Connector call is held for the next request")
      ->capture_default_str();
  serve->add_option("COMMAND", so->command, "A brenvale command to run through the Web Connector, after '--'");
  serve->footer(
      "Without a command the service runs until interrupted. With one, it runs the command as a host\n"
      "through \"BrenvaleWC.RequestProcessor\" and stops; global options go before 'webconnector'.\n"
      "Example: brenvale webconnector serve --listen 127.0.0.1:8080 --users users.txt -- list JobType");
  serve->callback([&g, &run, so] { run = [&g, so] { return RunServe(g, *so); }; });

  auto qo = std::make_shared<QwcOptions>();
  CLI::App* qwc = wcApp->add_subcommand("qwc", "Write the .QWC file that adds the application to the Web Connector");
  qwc->add_option("--url", qo->file.AppURL, "The service's address (https; http for localhost only)")->required();
  qwc->add_option("--user", qo->file.UserName, "The user name the Web Connector logs in with")->required();
  qwc->add_option("--app-name", qo->file.AppName, "The application's name in the Web Connector")->required();
  qwc->add_option("--description", qo->file.AppDescription, "What the application does");
  qwc->add_option("--support", qo->file.AppSupport, "A support page on the service's domain (default: URL/support)");
  qwc->add_option("--owner-id", qo->file.OwnerID, "The application's GUID (default: a new one)")->type_name("GUID");
  qwc->add_option("--file-id", qo->file.FileID, "The company's GUID (default: a new one)")->type_name("GUID");
  qwc->add_option("--every", qo->every, "Run the application every N minutes")->type_name("N");
  qwc->add_flag("--read-only", qo->readOnly, "The application only reads");
  qwc->add_option("--output", qo->output, "The file to write (default: the standard output)")->type_name("FILE");
  qwc->callback([&run, qo] { run = [qo] { return RunQwc(*qo); }; });

  auto co = std::make_shared<ClientCommand>();
  CLI::App* client = wcApp->add_subcommand(
      "client", "Be a Web Connector: run the service's requests on the company (--company, --processor)");
  client->add_option("--url", co->url, "The service's address")->required();
  client->add_option("--user", co->user, "The user name")->required();
  client->add_option("--password-file", co->passwordFile, "Read the password from FILE (default: the standard input)")
      ->type_name("FILE");
  client->add_option("--ca", co->ca, "Trust the service's certificate issued by this one (PEM)")->type_name("FILE");
  client->add_option("--every", co->every, "A session every N seconds, until interrupted")->type_name("N");
  client->add_option("--wait", co->wait, "Try each second, up to N seconds, until the service has work")
      ->type_name("N");
  client->footer("The company file is the global --company (created when missing), served by --processor.");
  client->callback([&g, &run, co] { run = [&g, co] { return RunClient(g, *co); }; });

  auto uo = std::make_shared<UserCommand>();
  CLI::App* user = wcApp->add_subcommand("user", "Add a user to the users file, or change one's password or company");
  user->add_option("--users", uo->users, "The users file (created when missing)")->type_name("FILE")->required();
  user->add_option("--user", uo->user.name, "The user name (the .QWC file's UserName)")->required();
  user->add_option("--company", uo->user.company, "The company the user's Web Connector serves")
      ->type_name("NAME")
      ->required();
  user->add_option("--company-file", uo->user.companyFile, "The company file QuickBooks should open for it")
      ->type_name("PATH");
  user->add_option("--password-file", uo->passwordFile, "Read the password from FILE (default: the standard input)")
      ->type_name("FILE");
  user->add_option("--iterations", uo->iterations, "Hash iterations")->capture_default_str();
  user->callback([&run, uo] { run = [uo] { return RunUser(*uo); }; });
}

}  // namespace brenvale::tool
