#include <filesystem>
#include <fstream>
#include <iostream>

#include "KEPMfgPPTableTxt.h"

int main() {
  const auto path = std::filesystem::temp_directory_path() / "reader_test.pptable";
  std::ofstream(path) << "*START_NC_COMMAND NC_A\n*END\n*START_NC_COMMAND NC_B\n*END\n";
  KEPMfgPPTableTxt table(KEPString(path.string()));
  int count = 0;
  const bool read = table.GetNumberOfCommand(count);
  std::filesystem::remove(path);
  if (!read) return 1;
  std::cout << "commands: " << count << '\n';
}
