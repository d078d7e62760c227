// A migrated Windows server in memory. Only one server exists at a time; the Win32 calls of this
// process act on it.
//
//   simulator::Server server;             // a bare server: volume C with the usual folders
//   server.files().Write("C:\\a.txt", "x");
//   server.calls().FailNext("CreatePipe", ERROR_NOT_ENOUGH_MEMORY);
//   ... run the program ...
//   server.calls().Trace(), server.OpenHandles(), server.console().Text()
//
// This header declares what nearly every test uses and includes none of the others: a test that
// uses console() includes "simulator/model/processes/console.h".
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

// Facts about the simulated machine. Set before the program runs, only read afterwards.
struct System {
  DWORD major_version = 10;
  DWORD minor_version = 0;
  DWORD build = 14393;
  std::string service_pack;
  WORD architecture = PROCESSOR_ARCHITECTURE_AMD64;
  bool has_native_system_info = true;  // kernel32 exports GetNativeSystemInfo
  LANGID language = 1033;              // the system default

  // Texts of error codes in place of the usual ones, without a line end.
  std::map<DWORD, std::string> messages;

  std::string computer_name = "MIGRATED";
  std::string program_path = "C:\\vantoro_restore\\vantoro_restore.exe";
  std::string system_directory = "C:\\Windows\\system32";
  // Without a final backslash; empty when the user has none.
  std::string temp_directory = "C:\\Users\\Administrator\\AppData\\Local\\Temp";
  std::string common_startup_directory =
      "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp";
};

struct TracedCall {
  int number;             // 1 for the first call of the run
  std::string name;       // "CreatePipe"; the C runtime's under its own name, "_access"
  std::string arguments;  // the arguments worth reading, separated by ", "
};

enum class Lasting { kOnce, kForGood };

// What the program called, in order, and which of its calls are to fail. Thread-safe.
class Calls {
 public:
  Calls();
  ~Calls();
  Calls(const Calls&) = delete;
  Calls& operator=(const Calls&) = delete;

  // Numbers and keeps a call. Returns the error it must fail with, when a fault is due: a system
  // error code for a Win32 call, an errno for one of the C runtime.
  std::optional<uint32_t> Enter(std::string_view name, std::string arguments);

  // Fails call `number` of the run (1 is the first), or that and every later one.
  void FailNumber(int number, uint32_t error, Lasting lasting = Lasting::kOnce);
  // Fails the `occurrence`-th call of that name from now on (1 is the next).
  void FailNext(std::string_view name, uint32_t error, int occurrence = 1,
                Lasting lasting = Lasting::kOnce);
  void ClearFaults();

  // Called with each call before it is numbered, on the thread that makes it, without a lock held:
  // it may hold the thread up, and end the process. Set while the program does not run.
  using Watcher = std::function<void(std::string_view name, const std::string& arguments)>;
  void Watch(Watcher watcher);
  void TellWatcher(std::string_view name, const std::string& arguments) const;

  // Whether calls are kept from now on; they are at first. All are numbered and may fail.
  void KeepTrace(bool keep);
  std::vector<TracedCall> Trace() const;
  // The arguments of every call of that name, in order.
  std::vector<std::string> ArgumentsOf(std::string_view name) const;
  int Count() const;

 private:
  struct Record;
  const std::unique_ptr<Record> record_;
};

// The volumes, drive letters and files of a server as tests, scenarios and tools set them up and
// look at them. Thread-safe.
//
// Paths are narrow UTF-8 text as the program writes them: "C:\Windows", spaces and all. Names match
// without regard to ASCII case and keep the case they were made with. What Windows would refuse
// ends the process, except questions about what does not exist and access rights, which are not
// checked. Junctions at the end of a path are not followed. What the calls of the program need is
// in files.h.
class Files {
 public:
  virtual ~Files() = default;

  // Volumes and letters ('A' to 'Z'; either case is taken, upper case is given). A letter moves at
  // any time: look-ups see it at once, open files keep their volume. A volume may come with a tree
  // of its own under `root`: nodes without a descriptor get what their parents let inherit, a root
  // the descriptor that Windows formats NTFS with. It need not be mounted; its nodes can be walked.
  virtual std::shared_ptr<Volume> AddVolume(Volume volume) = 0;
  virtual bool Mount(char letter, std::shared_ptr<Volume> volume) = 0;  // false if it is taken
  virtual bool MountEmpty(char letter) = 0;  // likewise, a new NTFS volume
  virtual void Unmount(char letter) = 0;
  virtual std::shared_ptr<Volume> VolumeAt(char letter) const = 0;  // null if free
  virtual std::optional<char> LetterOf(const Volume& volume) const = 0;
  // The bytes that can still be written. Aborts if the letter is free.
  virtual void SetFreeSpace(char letter, uint64_t bytes) = 0;

  virtual bool Exists(std::string_view path) const = 0;
  // Missing parents are made.
  virtual void MakeDirectories(std::string_view path) = 0;
  virtual void Write(std::string_view path, std::string bytes) = 0;
  // As Write on a volume that need not be mounted; the path starts after the root: "a\b".
  virtual void WriteOn(const Volume& volume, std::string_view path, std::string bytes) = 0;
  virtual std::optional<std::string> Read(std::string_view path) const = 0;
  virtual std::optional<std::string> ReadOn(const Volume& volume, std::string_view path) const = 0;
  virtual std::vector<std::string> List(std::string_view folder) const = 0;  // names, sorted
  virtual void Remove(std::string_view path) = 0;  // with everything below it
  virtual void SetAttributes(std::string_view path, DWORD attributes) = 0;

  // Of the file or folder itself: nothing is passed on to what is below. A volume that is not NTFS
  // keeps none.
  virtual void SetDescriptor(std::string_view path, const Descriptor& descriptor) = 0;
  virtual std::optional<Descriptor> DescriptorOf(std::string_view path) const = 0;
  // Makes a folder or takes an empty one. The target is a full path: "D:\Data".
  virtual void MakeJunction(std::string_view path, std::string_view target) = 0;
  // "\??\D:\Data"; nothing if there is no junction.
  virtual std::optional<std::string> JunctionTarget(std::string_view path) const = 0;

  // Called with what the program writes to a file, as it writes it, under the lock of this object.
  using Watcher = std::function<void(const std::string& path, std::string_view bytes)>;
  virtual void Watch(Watcher watcher) = 0;
};

class Server {
 public:
  // Becomes the current server. Aborts if one already exists.
  Server();
  // Terminates the children, waits for the threads the program started.
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // The server that exists; aborts if there is none.
  static Server& Current();

  System& system();
  Clock& clock();
  Calls& calls();
  Handles& handles();
  // The kinds of all open handles ("pipe read end", "process"), in the order of their opening.
  std::vector<std::string> OpenHandles() const;
  Files& files();
  FileSystem& file_system();   // the same files, as the calls of the program use them
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
