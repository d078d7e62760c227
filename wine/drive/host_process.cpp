#include "wine/drive/host_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace simulator {
namespace {

[[noreturn]] void Throw(int error, const std::string& what) {
  throw std::system_error(error, std::generic_category(), what);
}

// Neither end is inherited but as what a child gets it for.
std::array<int, 2> MakePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) Throw(errno, "pipe");
  return ends;
}

std::vector<std::string> Environment(const std::map<std::string, std::string>& added) {
  std::vector<std::string> all;
  for (char** each = environ; *each != nullptr; ++each) {
    const std::string text = *each;
    if (added.count(text.substr(0, text.find('='))) == 0) all.push_back(text);
  }
  for (const auto& [name, value] : added) {
    std::string text = name;
    text += '=';
    text += value;
    all.push_back(std::move(text));
  }
  return all;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

HostProcess::HostProcess(const HostCommand& command) {
  // Writing to one that has ended is no reason to end.
  ::signal(SIGPIPE, SIG_IGN);
  std::vector<std::string> arguments = command.arguments;
  std::vector<std::string> environment = Environment(command.environment);
  const std::array<int, 2> input = MakePipe();
  const std::array<int, 2> output = MakePipe();
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addchdir_np(&actions, command.folder.c_str());
  ::posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
  constexpr mode_t kMode = 0644;
  ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, command.errors.c_str(),
                                     O_WRONLY | O_CREAT | O_APPEND, kMode);
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  sigset_t defaults;
  ::sigemptyset(&defaults);
  ::sigaddset(&defaults, SIGPIPE);
  ::posix_spawnattr_setsigdefault(&attributes, &defaults);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  const int error = ::posix_spawnp(&process_, arguments.front().c_str(), &actions, &attributes,
                                   Pointers(arguments).data(), Pointers(environment).data());
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(input[0]);
  ::close(output[1]);
  input_ = ::fdopen(input[1], "w");
  output_ = ::fdopen(output[0], "r");
  if (error != 0) {
    process_ = 0;
    std::fclose(input_);
    std::fclose(output_);
    Throw(error, arguments.front());
  }
}

HostProcess::~HostProcess() {
  // Nobody reads any more what it prints.
  if (process_ != 0) ::kill(process_, SIGKILL);
  Wait();
  std::fclose(output_);
}

bool HostProcess::ReadLine(std::string& line) {
  line.clear();
  for (int c = 0; (c = std::getc(output_)) != EOF;) {
    if (c == '\n') {
      if (line.ends_with('\r')) line.pop_back();
      return true;
    }
    line += static_cast<char>(c);
  }
  return !line.empty();
}

void HostProcess::WriteLine(const std::string& line) {
  std::fputs((line + "\n").c_str(), input_);
  std::fflush(input_);
}

int HostProcess::Wait() {
  if (input_ != nullptr) std::fclose(input_);
  input_ = nullptr;
  if (process_ == 0) return status_;
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  process_ = 0;
  constexpr int kSignalled = 128;
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : kSignalled + WTERMSIG(status);
  return status_;
}

std::string Run(const HostCommand& command) {
  std::string text;
  HostProcess process(command);
  for (std::string line; process.ReadLine(line);) text += line + "\n";
  if (const int status = process.Wait(); status != 0) {
    std::string words;
    for (const std::string& argument : command.arguments) words += argument + " ";
    throw std::runtime_error(words + "ended with status " + std::to_string(status) + "\n" + text);
  }
  return text;
}

}  // namespace simulator
