#include "rehearsal/command.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace simulator {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ShippedScenarios() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(VANTORO_SCENARIO_DIR)) {
    if (entry.path().extension() == ".json") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

fs::path ScenarioFile(const std::string& name) {
  if (name.ends_with(".json") || name.find('/') != std::string::npos) return name;
  return fs::path(VANTORO_SCENARIO_DIR) / (name + ".json");
}

void List() {
  for (const fs::path& file : ShippedScenarios()) {
    std::cout << file.stem().string() << "\n    " << ReadScenario(file).title << "\n";
  }
}

// Writes the reason to standard error and returns `status`.
int Fail(int status, const std::string& reason) {
  std::cerr << "rehearse: " << reason << "\n";
  return status;
}

}  // namespace

int RunCommand(int argc, char** argv, int (*rehearse)(const Scenario&, const Options&)) {
  Options options;
  const std::string wrong =
      ParseArguments(std::vector<std::string>(argv + std::min(argc, 1), argv + argc), options);
  if (!wrong.empty()) return Fail(kWrongUsage, wrong + "; --help tells the usage");
  try {
    if (options.help) {
      std::cout << kHelp;
    } else if (options.list) {
      List();
    } else {
      Scenario scenario = ReadScenario(ScenarioFile(options.scenario));
      if (options.language) scenario.language = *options.language;
      return rehearse(scenario, options);
    }
  } catch (const ScenarioError& error) {
    return Fail(kWrongUsage, error.what());
  } catch (const fs::filesystem_error& error) {
    return Fail(kWrongUsage, error.path1().string() + ": " + error.code().message());
  } catch (const std::exception& error) {
    return Fail(kRunFailed, error.what());
  }
  return kSuccess;
}

bool WriteJson(const Report& report, const fs::path& file) {
  if (file.empty()) return true;
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << ReportJson(report);
  if (!stream.flush()) {
    std::cerr << "rehearse: cannot write the report to " << file.string() << "\n";
    return false;
  }
  std::cout << "report: " << file.string() << "\n";
  return true;
}

int ExitStatus(const Report& report, bool strict) {
  std::cout << std::flush;
  int status = kSuccess;
  switch (report.run.outcome) {
    case RunOutcome::kSucceeded:
      break;
    case RunOutcome::kFailed:
      status = Fail(kRunFailed, "the run failed: " + report.run.reason);
      break;
    case RunOutcome::kCancelled:
      status = Fail(kRunFailed, "the run was cancelled " + report.run.reason);
      break;
  }
  if (strict && !IsRight(report)) return Fail(kReportIsWrong, "the report is not all right");
  return status;
}

}  // namespace simulator
