#include "simulator/model/server.h"
#include "support/host.h"

namespace tests {

struct HostTest::Host {
  simulator::Server server;
};

HostTest::HostTest() : host_(std::make_unique<Host>()), folder_("C:\\test") { MakeFolder(folder_); }

HostTest::~HostTest() = default;

HINSTANCE HostTest::Program() { return reinterpret_cast<HINSTANCE>(UINT_PTR{0x1'4000'0000}); }

void HostTest::WriteBytes(const std::string& path, const std::string& bytes) {
  simulator::Server::Current().files().Write(path, bytes);
}

std::string HostTest::ReadBytes(const std::string& path) {
  return simulator::Server::Current().files().Read(path).value_or("");
}

void HostTest::MakeFolder(const std::string& path) {
  simulator::Server::Current().files().MakeDirectories(path);
}

bool HostTest::Exists(const std::string& path) {
  return simulator::Server::Current().files().Exists(path);
}

}  // namespace tests
