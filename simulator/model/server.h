// A migrated Windows server in memory. Only one server exists at a time; the Win32 functions of
// this process operate on it.
//
//   simulator::Server server;             // a bare server: volume C with the usual folders
//   server.files().Write("C:\\a.txt", "x");
//   server.calls().FailNext("CreatePipe", ERROR_NOT_ENOUGH_MEMORY);
//   ... run the program ...
//   server.calls().Trace(), server.OpenHandles(), server.console().Text()
//
// This header declares what nearly every test uses, and includes none of the other headers of the
// model. A test that uses console() includes "simulator/model/processes/console.h".
#ifndef SIMULATOR_MODEL_SERVER_H_
#define SIMULATOR_MODEL_SERVER_H_

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Boot;
struct Descriptor;
struct Disk;
struct Volume;
class Clock;
class Com;
class Console;
class Desktop;
class Dialogs;
class FileSystem;
class Handles;
class MessageBoxes;
class OwnProcess;
class Processes;
class Security;
class Shutdown;
class Threads;

// Properties of the simulated machine. Set them before the program runs; they are only read
// afterwards.
struct System {
  DWORD major_version = 10;
  DWORD minor_version = 0;
  DWORD build = 14393;
  std::string service_pack;
  WORD architecture = PROCESSOR_ARCHITECTURE_AMD64;
  bool has_native_system_info = true;  // kernel32 exports GetNativeSystemInfo
  LANGID language = 1033;              // the system default
  // The code pages of A calls and of the output of the system's tools. UTF-8 here, for the sake of
  // simple tests; a scenario sets those of its language.
  UINT ansi_code_page = 65001;
  UINT oem_code_page = 65001;

  // Texts that replace the usual ones of error codes, without a line end.
  std::map<DWORD, std::string> messages;

  // Texts of the disk tool that replace those of the language, by the English ones; see
  // simulator/tools/diskpart_texts.h.
  std::map<std::string, std::string> disk_tool_texts;

  std::string computer_name = "MIGRATED";
  std::string program_path = "C:\\vantoro_restore\\vantoro_restore.exe";
  std::string system_directory = "C:\\Windows\\system32";
  // Without a trailing backslash; empty if the user has none.
  std::string temp_directory = "C:\\Users\\Administrator\\AppData\\Local\\Temp";
  std::string common_startup_directory =
      "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp";
};

struct TracedCall {
  int number;             // 1 for the first call of the run
  std::string name;       // "CreatePipe"; the C runtime's under its own name, "_access"
  std::string arguments;  // the relevant arguments, separated by ", "
};

enum class Lasting { kOnce, kForGood };

// The calls that the program has made, in order, and the calls that are to fail. Thread-safe.
class Calls {
 public:
  Calls();
  ~Calls();
  Calls(const Calls&) = delete;
  Calls& operator=(const Calls&) = delete;

  // Numbers and records a call. Returns the error that the call must fail with if a fault is due: a
  // system error code for a Win32 call, an errno for a call of the C runtime.
  std::optional<uint32_t> Enter(std::string_view name, std::string arguments);

  // Makes call `number` of the run (1 is the first) fail, or that call and every later one.
  void FailNumber(int number, uint32_t error, Lasting lasting = Lasting::kOnce);
  // Makes the `occurrence`-th call of that name from now on fail (1 is the next), or that call and
  // every later one.
  void FailNext(std::string_view name, uint32_t error, int occurrence = 1,
                Lasting lasting = Lasting::kOnce);
  void ClearFaults();

  // Called with each call before it is numbered, on the thread that makes it, without a lock held.
  // The function may delay the thread and may end the process. Set it while the program does not
  // run.
  using Watcher = std::function<void(std::string_view name, const std::string& arguments)>;
  void Watch(Watcher watcher);
  void TellWatcher(std::string_view name, const std::string& arguments) const;

  // Sets whether calls are recorded from now on, as they are at first. Calls that are not recorded
  // are still numbered and may fail.
  void KeepTrace(bool keep);
  std::vector<TracedCall> Trace() const;
  // Returns the arguments of every recorded call of that name, in order.
  std::vector<std::string> ArgumentsOf(std::string_view name) const;
  int Count() const;

 private:
  struct Record;
  const std::unique_ptr<Record> record_;
};

// The volumes, drive letters and files of a server, for tests, scenarios and tools that set them up
// and inspect them. Thread-safe.
//
// Paths are UTF-8 text: "C:\Windows", including spaces. The program's A calls convert them. Names
// match without regard to ASCII case and keep the case with which they were created. An operation
// that Windows would refuse aborts, except queries for objects that do not exist. Access rights are
// not checked. Junctions at the end of a path are not followed. The functions for the program's
// calls are declared in files.h.
class Files {
 public:
  virtual ~Files() = default;

  // Volumes and letters ('A' to 'Z'; accepted in either case, returned in upper case). A letter can
  // be moved at any time: look-ups use the new volume at once, and open files keep their volume. A
  // volume may have a tree of its own under `root`: nodes without a descriptor inherit one from
  // their parents, and a root without one is assigned the descriptor of a new NTFS volume. A volume
  // need not be mounted; its nodes can be accessed directly.
  virtual std::shared_ptr<Volume> AddVolume(Volume volume) = 0;
  virtual bool Mount(char letter, std::shared_ptr<Volume> volume) = 0;  // false if it is taken
  virtual bool MountEmpty(char letter) = 0;  // likewise, a new NTFS volume
  virtual void Unmount(char letter) = 0;
  virtual std::shared_ptr<Volume> VolumeAt(char letter) const = 0;  // null if free
  virtual std::optional<char> LetterOf(const Volume& volume) const = 0;
  // Sets the number of bytes that can still be written. Aborts if no volume has the letter.
  virtual void SetFreeSpace(char letter, uint64_t bytes) = 0;

  virtual bool Exists(std::string_view path) const = 0;
  // Creates missing parent folders, too.
  virtual void MakeDirectories(std::string_view path) = 0;
  virtual void Write(std::string_view path, std::string bytes) = 0;
  // Like Write, on a volume that need not be mounted. The path starts after the root: "a\b".
  virtual void WriteOn(const Volume& volume, std::string_view path, std::string bytes) = 0;
  virtual std::optional<std::string> Read(std::string_view path) const = 0;
  virtual std::optional<std::string> ReadOn(const Volume& volume, std::string_view path) const = 0;
  virtual std::vector<std::string> List(std::string_view folder) const = 0;  // names, sorted
  virtual void Remove(std::string_view path) = 0;  // with everything below it
  virtual void SetAttributes(std::string_view path, DWORD attributes) = 0;

  // Sets the descriptor of the file or folder itself; nothing is propagated to the objects below
  // it. On a volume that is not NTFS, the descriptor is ignored.
  virtual void SetDescriptor(std::string_view path, const Descriptor& descriptor) = 0;
  virtual std::optional<Descriptor> DescriptorOf(std::string_view path) const = 0;
  // Creates a folder, or uses an existing empty one, and makes it a junction. The target is a full
  // path: "D:\Data".
  virtual void MakeJunction(std::string_view path, std::string_view target) = 0;
  // Returns "\??\D:\Data", or nothing if there is no junction.
  virtual std::optional<std::string> JunctionTarget(std::string_view path) const = 0;

  // Called with the bytes of each write by the program to a file, with the lock of this object
  // held.
  using Watcher = std::function<void(const std::string& path, std::string_view bytes)>;
  virtual void Watch(Watcher watcher) = 0;
};

class Server {
 public:
  // Becomes the current server. Aborts if one already exists.
  Server();
  // Terminates the children and waits for the threads that the program started.
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Returns the existing server. Aborts if there is none.
  static Server& Current();

  System& system();
  Clock& clock();
  Calls& calls();
  Handles& handles();
  // Returns the kinds of all open handles ("pipe read end", "process"), in the order in which they
  // were opened.
  std::vector<std::string> OpenHandles() const;
  Files& files();
  FileSystem& file_system();   // the same files, for the program's calls
  std::vector<Disk>& disks();  // set before the program runs
  Boot& boot();
  Security& security();
  Console& console();
  Desktop& desktop();
  Dialogs& dialogs();  // those of the desktop
  MessageBoxes& message_boxes();
  Com& com();
  Shutdown& shutdown();
  OwnProcess& own_process();
  Processes& processes();  // its children
  Threads& threads();

 private:
  struct Parts;
  const std::unique_ptr<Parts> parts_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SERVER_H_
