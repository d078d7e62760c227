// What the program keeps until its process ends.
#ifndef TESTS_SUPPORT_PROCESS_H_
#define TESTS_SUPPORT_PROCESS_H_

namespace tests {

// Forgets all of it: whatever runs next runs as in a new process. Not while a thread of the program
// runs.
void ForgetProcess();

// Forgets it at both ends of its own life. A member of fixtures.
class NewProcess {
 public:
  NewProcess() { ForgetProcess(); }
  ~NewProcess() { ForgetProcess(); }
  NewProcess(const NewProcess&) = delete;
  NewProcess& operator=(const NewProcess&) = delete;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_PROCESS_H_
