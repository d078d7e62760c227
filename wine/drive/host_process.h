// A program of the host that runs beside this one.
#ifndef WINE_DRIVE_HOST_PROCESS_H_
#define WINE_DRIVE_HOST_PROCESS_H_

#include <sys/types.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace simulator {

struct HostCommand {
  std::vector<std::string> arguments;              // begin with the program
  std::map<std::string, std::string> environment;  // added to this process's own
  std::filesystem::path folder;                    // to start in
  std::filesystem::path errors = "/dev/null";      // where its error output goes
};

class HostProcess {
 public:
  // Throws std::system_error when it cannot be started.
  explicit HostProcess(const HostCommand& command);
  // Ends it unless it was waited for.
  ~HostProcess();
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;

  // The next line that it prints, without its end; false when there is none any more.
  bool ReadLine(std::string& line);
  // Sends a line to its standard input.
  void WriteLine(const std::string& line);
  // Its status once it has ended, 128 and more when a signal ended it. Nobody can write to it then.
  int Wait();

 private:
  pid_t process_ = 0;
  std::FILE* input_ = nullptr;
  std::FILE* output_ = nullptr;
  int status_ = 0;
};

// Runs it to its end and gives what it printed. Throws std::runtime_error when its status is not 0.
std::string Run(const HostCommand& command);

}  // namespace simulator

#endif  // WINE_DRIVE_HOST_PROCESS_H_
