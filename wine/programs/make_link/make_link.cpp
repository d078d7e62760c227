// Makes a link of the shell's to a program.
//   make_link LINK PROGRAM
#include <windows.h>

#include <shlobj.h>

int wmain(int argc, wchar_t** argv) {
  if (argc != 3 || FAILED(::CoInitialize(nullptr))) return 2;
  IShellLinkW* link = nullptr;
  IPersistFile* file = nullptr;
  const bool is_made =
      SUCCEEDED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                   reinterpret_cast<void**>(&link))) &&
      SUCCEEDED(link->SetPath(argv[2])) &&
      SUCCEEDED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file))) &&
      SUCCEEDED(file->Save(argv[1], TRUE));
  if (file != nullptr) file->Release();
  if (link != nullptr) link->Release();
  return is_made ? 0 : 1;
}
