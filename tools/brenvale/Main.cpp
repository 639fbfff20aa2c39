// brenvale: look at and script against a QuickBooks company through the Brenvale library.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "Commands.hpp"
#include "Tool.hpp"

namespace {

using namespace brenvale::tool;

std::string CommandNames(CLI::App& app) {
  std::string out;
  for (const CLI::App* sub : app.get_subcommands([](const CLI::App*) { return true; }))
    out += (out.empty() ? "" : ", ") + sub->get_name();
  return out;
}

// The first word that is neither a global option nor its value: a command the tool does not have.
std::string UnknownCommand(CLI::App& app, int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.rfind("-", 0) == 0) {
      if (arg.find('=') == std::string::npos && app.get_option_no_throw(arg) != nullptr &&
          app.get_option_no_throw(arg)->get_expected_min() > 0)
        ++i;  // the option's value
      continue;
    }
    return arg;
  }
  return {};
}

int Main(int argc, char** argv) {
  RegisterProcessors();
  GlobalOptions options;
  Runner run;

  CLI::App app(
      "Look at and script against a QuickBooks company file through the Brenvale library.\n"
      "By default it works on the company engine with the demo company in the current directory.",
      "brenvale");
  app.set_version_flag("--version", "brenvale 0.1.0");
  app.add_option("--company", options.company, "The company file (created when it does not exist)")
      ->type_name("FILE")
      ->capture_default_str();
  app.add_option("--processor", options.processor, "The request processor's ProgID")
      ->type_name("PROGID")
      ->capture_default_str();
  app.add_option("--trace", options.trace, "Append every request and response to FILE")->type_name("FILE");
  app.add_option("--format", options.format, "Output format")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"table", "json", "xml"}))
      ->capture_default_str();
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(
      "Run 'brenvale COMMAND --help' for a command's options. Start with 'brenvale demo'.\n"
      "Exit status: 0 success, 1 library or QuickBooks error, 2 bad usage, 3 file or company problem.\n");
  AddCommands(app, options, run);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    if (e.get_exit_code() == 0) return app.exit(e);  // --help, --version
    const bool noCommand = app.get_subcommands().empty() && dynamic_cast<const CLI::RequiredError*>(&e);
    const std::string stray = noCommand ? UnknownCommand(app, argc, argv) : std::string();
    if (noCommand && stray.empty())
      std::cerr << "brenvale: a command is required; the commands are: " << CommandNames(app) << "\n";
    else if (noCommand)
      std::cerr << "brenvale: unknown command '" << stray << "'; the commands are: " << CommandNames(app)
                << "\n";
    else
      std::cerr << "brenvale: " << e.what() << "\n";
    std::cerr << "Run 'brenvale --help' for usage.\n";
    return kExitUsage;
  }

  int status = kExitLibrary;
  try {
    status = run();
  } catch (const CompanyError& e) {
    PrintError(std::cerr, e);
    std::cerr << "brenvale: could not open the company file '" << e.Company() << "'\n";
    status = kExitFile;
  } catch (const ToolFailure& e) {
    std::cerr << "brenvale: " << e.what() << "\n";
    if (e.Status() == kExitUsage) std::cerr << "Run 'brenvale --help' for usage.\n";
    status = e.Status();
  } catch (const brenvale::BrenvaleError& e) {
    PrintError(std::cerr, e);
    status = kExitLibrary;
  } catch (const std::exception& e) {
    std::cerr << "brenvale: error: " << e.what() << "\n";
    status = kExitLibrary;
  }
  CloseCompany();
  std::cout.flush();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Main(argc, argv);
  } catch (const std::exception& e) {
    std::cerr << "brenvale: error: " << e.what() << "\n";
  } catch (...) {
    std::cerr << "brenvale: unexpected failure\n";
  }
  return kExitLibrary;
}
