// The file stream of the C++ library over the simulated disk, in text mode.
#ifndef SIMULATOR_INCLUDE_SIMULATED_FSTREAM_H_
#define SIMULATOR_INCLUDE_SIMULATED_FSTREAM_H_

#include <istream>
#include <memory>
#include <streambuf>
#include <string>

namespace simulator {

// A buffer over a simulated text file, with the behaviour of std::filebuf.
class FileBuffer;

// Opens, closes and fails as std::fstream does. If a file is already open, or if the file cannot be
// opened, open() sets the fail bit. On success, it clears the state.
class FileStream : public std::iostream {
 public:
  FileStream();
  ~FileStream() override;
  FileStream(const FileStream&) = delete;
  FileStream& operator=(const FileStream&) = delete;

  void open(const std::string& path, std::ios_base::openmode mode = in | out);
  bool is_open() const;
  void close();

 private:
  std::unique_ptr<FileBuffer> buffer_;
};

}  // namespace simulator

#endif  // SIMULATOR_INCLUDE_SIMULATED_FSTREAM_H_
