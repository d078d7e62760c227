// The object that a handle to an access token refers to.
#ifndef SIMULATOR_MODEL_SECURITY_TOKEN_H_
#define SIMULATOR_MODEL_SECURITY_TOKEN_H_

#include <windows.h>

#include <string>

#include "simulator/model/processes/handles.h"

namespace simulator {

// The access token of the simulated process.
class Token : public Object {
 public:
  explicit Token(DWORD access) : access_(access) {}
  std::string Kind() const override { return "token"; }
  DWORD Access() const { return access_; }  // the access that it was opened with

 private:
  const DWORD access_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_TOKEN_H_
