#include <cstdio>
#include <cstring>
#include <ios>
#include <memory>
#include <string>

#include "benchmarks/counted/work.h"
#include "common/file_stream.h"
#include "common/win/diskpart_output.h"
#include "logger/b_logger.h"
#include "simulator/model/server.h"

namespace benchmarks {
namespace {

constexpr int kFirstNumber = 100'000;  // as many digits in every line

std::shared_ptr<simulator::Server> NewServer() {
  auto server = std::make_shared<simulator::Server>();
  server->calls().KeepTrace(false);
  return server;
}

// Volumes without letters, so that all of the text is read.
std::string Detail(int lines) {
  std::string text;
  for (int line = 0; line < lines; ++line) {
    text += "  Volume 3         Data         NTFS   Partition    100 GB  Healthy            \r\n";
  }
  return text;
}

}  // namespace

Work LogLines(int lines) {
  return [lines, server = NewServer()] {
    logger::BLogger logger("bench", "C:\\");
    for (int line = 0; line < lines; ++line) {
      logger.Info("RestoreDisks Assign Disk %d Letter [%c] Failed.", kFirstNumber + line, 'e');
    }
    return server->files().Exists(logger.GetLogFilePath());
  };
}

Work LogLinesBare(int lines) {
  return [lines, server = NewServer()] {
    common::FileStream file;
    file.open("C:\\bench.log", std::ios_base::out | std::ios_base::app);
    for (int line = 0; line < lines; ++line) {
      char buffer[2048];
      std::snprintf(buffer, sizeof(buffer),
                    "[%04d-%02d-%02d %02d:%02d:%02d] [%s]  RestoreDisks Assign Disk %d Letter "
                    "[%c] Failed.\n",
                    2024, 3, 5, 8, 7, 6, "Info", kFirstNumber + line, 'e');
      file << buffer << std::flush;
    }
    return file.good();
  };
}

Work ParseDetail(int lines) {
  return [text = Detail(lines)] {
    char letter = 0;
    bool has_volume = false;
    common::win::ParseDiskDetail(text, letter, has_volume);
    return has_volume;
  };
}

Work SearchDetail(int lines) {
  return [text = Detail(lines)] { return std::memchr(text.data(), '\0', text.size()) == nullptr; };
}

}  // namespace benchmarks
