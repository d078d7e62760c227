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
  std::vector<std::string> arguments;              // starting with the program
  std::map<std::string, std::string> environment;  // added to this process's own
  std::filesystem::path folder;                    // the working directory
  std::filesystem::path errors = "/dev/null";      // the file for its error output
};

class HostProcess {
 public:
  // Throws std::system_error if the program cannot be started.
  explicit HostProcess(const HostCommand& command);
  // Terminates the program unless Wait has been called.
  ~HostProcess();
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;

  // Reads the next line of the output, without its line end. Returns false at the end of the
  // output.
  bool ReadLine(std::string& line);
  // Writes a line to the program's standard input.
  void WriteLine(const std::string& line);
  // Closes the program's standard input, waits for the program and returns its exit status, or 128
  // plus the number of the signal that terminated it.
  int Wait();

 private:
  pid_t process_ = 0;
  std::FILE* input_ = nullptr;
  std::FILE* output_ = nullptr;
  int status_ = 0;
};

// Runs a program, waits for its end and returns its output. Throws std::runtime_error if its status
// is not 0.
std::string Run(const HostCommand& command);

}  // namespace simulator

#endif  // WINE_DRIVE_HOST_PROCESS_H_
