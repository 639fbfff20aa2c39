// A host's first program: connects through the company engine to a company file (created when
// new), adds a small chart of accounts and prints what it reads back.
#include <iostream>

#include "brenvale/Brenvale.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"

using namespace brenvale;

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "usage: host COMPANY-FILE\n";
    return 2;
  }
  rqp::RegisterCompanyEngine();
  BrenvaleGlobals::QBConnection().RequestProcessorProgId("BrenvaleRqP.RequestProcessor");
  BrenvaleGlobals::QBConnect("", "Brenvale host", qbOpenModeDontCare, argv[1]);
  Accounts& accounts = BrenvaleGlobals::Accounts();
  accounts.Add("Operating", true, {}, qbBank, {}, {}, {}, Currency(100), Date::Serial(2024, 1, 1));
  accounts.Add("Payroll", true, "Operating", qbBank, {}, {}, {}, Currency(25), Date::Serial(2024, 1, 1));
  accounts.Commit();
  Accounts all;
  all.GetAll();
  Account& operating = all.Item("Operating");
  std::cout << operating.FullName() << " " << all.SumSubAccountBalances(operating).ToString(2) << "\n";
  BrenvaleGlobals::QBConnection().CloseConnection();
  return 0;
} catch (const BrenvaleError& e) {
  std::cerr << "error " << e.Number() << ": " << e.Description() << " [" << e.Source() << "]\n";
  return 1;
}
