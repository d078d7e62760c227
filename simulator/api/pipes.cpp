// Anonymous pipes.
#include <windows.h>

#include <cstdint>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/pipe.h"

using simulator::Call;
using simulator::PipeReadEnd;
using simulator::PipeWriteEnd;
using simulator::Unsupported;

BOOL WINAPI CreatePipe(PHANDLE read_pipe, PHANDLE write_pipe, LPSECURITY_ATTRIBUTES attributes,
                       DWORD size) {
  if (read_pipe == nullptr || write_pipe == nullptr) Unsupported("CreatePipe: nowhere to put it");
  if (size != 0) Unsupported("CreatePipe: a size");
  bool inheritable = false;
  if (attributes != nullptr) {
    if (attributes->nLength != sizeof(SECURITY_ATTRIBUTES)) {
      Unsupported("SECURITY_ATTRIBUTES::nLength");
    }
    if (attributes->lpSecurityDescriptor != nullptr) {
      Unsupported("SECURITY_ATTRIBUTES::lpSecurityDescriptor");
    }
    inheritable = attributes->bInheritHandle != FALSE;
  }
  const Call call("CreatePipe", inheritable ? "inheritable" : "not inheritable", size);
  if (call.fails()) return FALSE;
  const simulator::PipeEnds ends = simulator::MakePipe();
  *read_pipe = call.server().handles().Insert(ends.read, inheritable);
  *write_pipe = call.server().handles().Insert(ends.write, inheritable);
  return call.Succeed(TRUE);
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD bytes_to_read, LPDWORD bytes_read,
                     LPOVERLAPPED overlapped) {
  if (overlapped != nullptr) Unsupported("ReadFile: overlapped");
  if (bytes_read == nullptr) Unsupported("ReadFile: nowhere to put the count");
  if (buffer == nullptr || bytes_to_read == 0) Unsupported("ReadFile: of zero bytes");
  const Call call("ReadFile", file, bytes_to_read);
  *bytes_read = 0;
  if (call.fails()) return FALSE;
  const simulator::Handles& handles = call.server().handles();
  if (handles.Find<simulator::OpenNode>(file)) Unsupported("ReadFile: of a file");
  const auto end = handles.Find<PipeReadEnd>(file);
  if (!end) {
    return call.Done(handles.Find<PipeWriteEnd>(file) ? ERROR_ACCESS_DENIED : ERROR_INVALID_HANDLE);
  }
  size_t count = 0;
  const DWORD error = end->Read(static_cast<char*>(buffer), bytes_to_read, &count,
                                call.server().own_process().Ending());
  *bytes_read = static_cast<DWORD>(count);
  return call.Done(error);
}

BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD bytes_to_write, LPDWORD bytes_written,
                      LPOVERLAPPED overlapped) {
  if (overlapped != nullptr) Unsupported("WriteFile: overlapped");
  if (bytes_written == nullptr) Unsupported("WriteFile: nowhere to put the count");
  if (buffer == nullptr && bytes_to_write != 0) Unsupported("WriteFile: of no buffer");
  const Call call("WriteFile", file, bytes_to_write);
  *bytes_written = 0;
  if (call.fails()) return FALSE;
  const simulator::Handles& handles = call.server().handles();
  if (handles.Find<simulator::OpenNode>(file)) Unsupported("WriteFile: to a file");
  const auto end = handles.Find<PipeWriteEnd>(file);
  if (!end) {
    return call.Done(handles.Find<PipeReadEnd>(file) ? ERROR_ACCESS_DENIED : ERROR_INVALID_HANDLE);
  }
  const DWORD error = end->Write({static_cast<const char*>(buffer), bytes_to_write},
                                 call.server().own_process().Ending());
  if (error == ERROR_SUCCESS) *bytes_written = bytes_to_write;
  return call.Done(error);
}
