// The state that the system keeps for each thread of the simulated process.
#ifndef SIMULATOR_MODEL_PROCESSES_THREAD_STATE_H_
#define SIMULATOR_MODEL_PROCESSES_THREAD_STATE_H_

#include <windows.h>

#include <optional>

namespace simulator {

struct ThreadState {
  std::optional<LANGID> ui_language;
  std::optional<LANGID> locale;
  int com_uses = 0;  // CoInitialize calls minus CoUninitialize calls
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_THREAD_STATE_H_
