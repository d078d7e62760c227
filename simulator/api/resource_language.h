// The language in which resources are looked up for the calling thread.
#ifndef SIMULATOR_API_RESOURCE_LANGUAGE_H_
#define SIMULATOR_API_RESOURCE_LANGUAGE_H_

#include <windows.h>

#include "simulator/model/processes/thread_state.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace simulator {

// Since Windows Vista the locale only affects the formats of numbers and dates.
inline LANGID ResourceLanguage(Server& server) {
  constexpr DWORD kVista = 6;
  const System& system = server.system();
  const ThreadState& thread = server.threads().State();
  if (system.major_version < kVista) return thread.locale.value_or(system.language);
  return thread.ui_language.value_or(system.language);
}

}  // namespace simulator

#endif  // SIMULATOR_API_RESOURCE_LANGUAGE_H_
