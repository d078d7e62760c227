#include "simulator/model/files/open_file.h"

#include <algorithm>
#include <utility>

#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"

namespace simulator {

OpenFile::OpenFile(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Volume> volume,
                   std::unique_ptr<Hold> hold, std::string path, const OpenMode& mode)
    : shared_(std::move(shared)),
      volume_(std::move(volume)),
      hold_(std::move(hold)),
      path_(std::move(path)),
      mode_(mode) {}

OpenFile::~OpenFile() = default;

DWORD OpenFile::Read(char* buffer, size_t size, size_t* read) {
  *read = 0;
  if (!mode_.read) return ERROR_ACCESS_DENIED;
  const std::lock_guard lock(shared_->mutex);
  const Node& node = hold_->Held();
  if (node.make_bytes) {
    *read = node.make_bytes(position_, buffer, size);
  } else if (position_ < node.bytes.size()) {
    *read = node.bytes.copy(buffer, size, position_);
  }
  position_ += *read;
  return ERROR_SUCCESS;
}

DWORD OpenFile::Write(std::string_view bytes, size_t* written) {
  *written = 0;
  if (!mode_.write) return ERROR_ACCESS_DENIED;
  if (bytes.empty()) return ERROR_SUCCESS;
  const std::lock_guard lock(shared_->mutex);
  std::string& stored = hold_->Held().bytes;
  if (mode_.append) position_ = stored.size();

  const size_t gap = position_ > stored.size() ? position_ - stored.size() : 0;
  if (gap > volume_->free) return ERROR_DISK_FULL;
  const size_t room = static_cast<size_t>(std::min<uint64_t>(bytes.size(), volume_->free - gap));
  const size_t overwritten = position_ < stored.size() ? stored.size() - position_ : 0;
  const size_t fitting = std::min(bytes.size(), overwritten + room);

  const size_t old_size = stored.size();
  stored.append(gap, '\0');
  stored.replace(position_, std::min(fitting, overwritten), bytes.substr(0, fitting));
  volume_->free -= stored.size() - old_size;
  position_ += fitting;
  *written = fitting;
  if (shared_->watcher) shared_->watcher(path_, bytes.substr(0, fitting));
  return fitting == bytes.size() ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

void OpenFile::StepBack() {
  const std::lock_guard lock(shared_->mutex);
  if (position_ > 0) --position_;
}

void OpenFile::DropLast(char byte) {
  const std::lock_guard lock(shared_->mutex);
  if (hold_->Held().bytes.empty() || hold_->Held().bytes.back() != byte) return;
  hold_->Held().bytes.pop_back();
  ++volume_->free;
}

}  // namespace simulator
